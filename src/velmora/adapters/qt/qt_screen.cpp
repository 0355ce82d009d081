#include "velmora/adapters/qt/qt_screen.h"

#include <QApplication>
#include <QPointer>
#include <utility>

#include "velmora/adapters/qt/form_window.h"
#include "velmora/adapters/qt/message_dialog.h"
#include "velmora/adapters/qt/progress_window.h"
#include "velmora/adapters/qt/search_dialog.h"
#include "velmora/adapters/qt/spanish_texts.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/adapters/qt/window_memory.h"
#include "velmora/platform/toolkit/error_box.h"
#include "velmora/platform/toolkit/keys_form.h"

namespace velmora::qt {

namespace {

/// Shows the plain pointer under a box even when the interrupted work shows the hourglass.
class PlainPointer {
  public:
    explicit PlainPointer(bool hourglass) : active_(hourglass) {
        if (active_) {
            QApplication::setOverrideCursor(Qt::ArrowCursor);
        }
    }
    ~PlainPointer() {
        if (active_) {
            QApplication::restoreOverrideCursor();
        }
    }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

  private:
    bool active_;
};

/// Returns the keyboard focus to the window below when a box closes; not every window manager does.
class ComesBack {
  public:
    explicit ComesBack(QWidget* window) : window_(window) {}
    ~ComesBack() {
        if (window_ != nullptr && window_->isVisible()) {
            window_->activateWindow();
        }
    }
    ComesBack(const ComesBack&) = delete;
    ComesBack& operator=(const ComesBack&) = delete;
    QWidget* window() const { return window_; }

  private:
    QPointer<QWidget> window_;
};

}  // namespace

QtScreen::QtScreen() : texts_(std::make_unique<SpanishTexts>()) {
    theme::apply(*qApp);
    QApplication::installTranslator(texts_.get());
    QApplication::setQuitOnLastWindowClosed(false);
}

QtScreen::~QtScreen() {
    setPointer(screen::Pointer::normal);
}

QWidget* QtScreen::topWidget() const {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    return windows_.empty() ? QApplication::activeWindow() : windows_.back();
}

std::vector<screen::Form*> QtScreen::forms() const {
    std::vector<screen::Form*> shown;
    for (FormWindow* window : windows_) {
        shown.push_back(&window->form());
    }
    return shown;
}

void QtScreen::showModal(screen::Form& form) {
    const ComesBack below(topWidget());
    FormWindow window(*this, form, below.window());
    windows_.push_back(&window);
    ++boxesShown_;
    try {
        window.runModal();
    } catch (...) {
        windows_.pop_back();
        throw;
    }
    windows_.pop_back();
}

screen::Answer QtScreen::show(const screen::MessageBox& box) {
    ++boxesShown_;
    const PlainPointer pointer(hourglass_);
    const ComesBack below(topWidget());
    return MessageDialog(box, below.window()).ask();
}

std::optional<std::size_t> QtScreen::search(const screen::SearchWindow& window) {
    ++boxesShown_;
    const PlainPointer pointer(hourglass_);
    const ComesBack below(topWidget());
    SearchDialog dialog(window, below.window(), memory_.get());
    const std::optional<std::size_t> row = dialog.choose();
    if (dialog.failure()) {
        std::rethrow_exception(dialog.failure());
    }
    return row;
}

void QtScreen::setPointer(screen::Pointer pointer) {
    const bool wanted = pointer == screen::Pointer::hourglass;
    if (wanted == hourglass_) {
        return;
    }
    hourglass_ = wanted;
    if (wanted) {
        QApplication::setOverrideCursor(Qt::BusyCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void QtScreen::tellWork(std::string_view text) {
    if (FormWindow* window = top()) {
        window->form().status().tellWork(text);
    }
}

void QtScreen::processEvents() {
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

std::unique_ptr<screen::Progress> QtScreen::progress(std::string_view title) {
    return std::make_unique<ProgressWindow>(toQt(title), topWidget());
}

void QtScreen::remember(std::unique_ptr<WindowMemory> memory) {
    memory_ = std::move(memory);
}

void QtScreen::actionEnded() {
    if (!actionEnded_ || tellingEnd_) {
        return;
    }
    tellingEnd_ = true;
    actionEnded_();
    tellingEnd_ = false;
}

void QtScreen::showKeys(const screen::Form& form) {
    if (dynamic_cast<const toolkit::KeysForm*>(&form) == nullptr) {
        toolkit::KeysForm keys(form);
        showModal(keys);
    }
}

void QtScreen::showError(std::exception_ptr error) {
    ++boxesShown_;
    const PlainPointer pointer(hourglass_);
    const ComesBack below(topWidget());
    MessageDialog(toolkit::errorReport(std::move(error)), below.window()).ask();
}

}  // namespace velmora::qt
