#include "velmora/apps/walk/walker.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <utility>

#include "velmora/apps/walk/screen_picture.h"

namespace velmora::walk {

namespace {

constexpr int patience = 10'000;  ///< waits of a millisecond for a window

}  // namespace

Walker::Walker(std::vector<Step> steps, std::string folder, std::function<std::string()> paper)
    : steps_(std::move(steps)), folder_(std::move(folder)), paper_(std::move(paper)) {}

void Walker::start() {
    later();
}

void Walker::later() {
    QTimer::singleShot(1, this, [this] { tick(); });
}

void Walker::tick() {
    QWidget* window = hand_.ready();
    if (window == nullptr) {
        if (++waits_ > patience) {
            complaints_.push_back("no window takes step " + std::to_string(next_ + 1));
            QCoreApplication::exit(1);
            return;
        }
        later();
        return;
    }
    waits_ = 0;
    if (next_ == steps_.size()) {
        finish(*window);
        return;
    }
    // The next step is due before this one: a key that opens a window returns only when the window is closed.
    later();
    perform(*window);
}

void Walker::perform(QWidget& window) {
    const Step& step = steps_[next_++];
    if (const auto* key = std::get_if<Key>(&step)) {
        hand_.press(*key, window);
        return;
    }
    // Filling lists and stretching columns is done in the event loop.
    QApplication::sendPostedEvents();
    if (const std::string off = whatIsOff(window); !off.empty()) {
        complaints_.push_back(off);
    }
    if (const auto* whole = std::get_if<ScreenPicture>(&step)) {
        write(*whole, window);
    } else if (const auto* single = std::get_if<WindowPicture>(&step)) {
        write(*single, window);
    } else if (const auto* paper = std::get_if<Paper>(&step)) {
        write(*paper);
    }
}

std::string Walker::pathOf(const std::string& name, const char* ending) const {
    return (std::filesystem::path(folder_) / (name + ending)).string();
}

void Walker::write(const ScreenPicture& step, QWidget& window) {
    if (!screenPicture(window).save(QString::fromStdString(pathOf(step.name, ".png")))) {
        complaints_.push_back("cannot write " + step.name);
    }
}

void Walker::write(const WindowPicture& step, QWidget& window) {
    if (!windowPicture(window).save(QString::fromStdString(pathOf(step.name, ".png")))) {
        complaints_.push_back("cannot write " + step.name);
    }
}

void Walker::write(const Paper& step) {
    std::error_code failure;
    std::filesystem::copy_file(paper_(), pathOf(step.name, ".pdf"), std::filesystem::copy_options::overwrite_existing,
                               failure);
    if (failure) {
        complaints_.push_back("no paper " + step.name + ": " + failure.message());
    }
}

/// Whoever writes a walk ends it where it began; a window that is still there beyond the first was not expected.
void Walker::finish(QWidget& window) {
    if (window.parentWidget() != nullptr) {
        complaints_.push_back("still open: " + window.windowTitle().toStdString());
    }
    later();
    window.close();
}

}  // namespace velmora::walk
