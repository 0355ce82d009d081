// A user of the desktop program: loaded before `velmora`, it presses the keys that the trial tells it and tells what a
// user sees. Commands come on the standard input, one a line:
//
//   keys TEXT    presses keys as a walk does (velmora/apps/walk/steps.h), at the pace of a user
//   fields       tells the texts of the fields of the window on top
//
// What is seen is written to the descriptor TRIAL_TELLS, one a line, at once:
//
//   deed TEXT           the status line tells a deed
//   field TEXT          an answer to `fields`
//   top form|box TEXT   a command is done, or the program has come up: the window on top, by its title, or by its text
//                       when it is a message box
//
// TRIAL_PACE is the time between two keys in milliseconds.

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <deque>
#include <map>
#include <string>
#include <utility>
#include <variant>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include "velmora/apps/walk/hand.h"
#include "velmora/apps/walk/steps.h"

namespace {

using namespace velmora;

int numberIn(const char* variable) {
    return qEnvironmentVariableIntValue(variable);
}

/// The commands as they come; nothing waits for one.
class Commands {
  public:
    /// A whole line, if there is one.
    bool next(std::string& line) {
        pollfd in{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
        char part[4096];
        while (::poll(&in, 1, 0) > 0 && (in.revents & POLLIN) != 0) {
            const ssize_t got = ::read(STDIN_FILENO, part, sizeof part);
            if (got <= 0) {
                break;
            }
            rest_.append(part, static_cast<std::size_t>(got));
        }
        const std::size_t end = rest_.find('\n');
        if (end == std::string::npos) {
            return false;
        }
        line = rest_.substr(0, end);
        rest_.erase(0, end + 1);
        return true;
    }

  private:
    std::string rest_;
};

class DeskUser : public QObject {
  public:
    explicit DeskUser(QObject* program) : QObject(program) { later(); }

  private:
    void later() {
        QTimer::singleShot(1, this, [this] { look(); });
    }

    void look() {
        tellDeed();
        QWidget* window = hand_.ready();
        // The next look is due before a key is pressed: one that opens a window returns only when that is closed.
        later();
        if (window == nullptr || (sincePressed_.isValid() && sincePressed_.elapsed() < pace_)) {
            return;
        }
        if (!keys_.empty()) {
            const walk::Key key = keys_.front();
            keys_.pop_front();
            sincePressed_.start();
            hand_.press(key, *window);
            return;
        }
        if (std::exchange(busy_, false)) {
            tellTop(*window);
        }
        if (std::string line; commands_.next(line)) {
            busy_ = true;
            take(line, *window);
        }
    }

    void take(const std::string& line, QWidget& window) {
        if (line == "fields") {
            for (const QLineEdit* field : window.findChildren<QLineEdit*>()) {
                tell("field", field->text());
            }
            return;
        }
        for (const walk::Step& step : walk::stepsOf(line)) {
            keys_.push_back(std::get<walk::Key>(step));
        }
    }

    /// Of any window: a deed is told by the form below the box that is on top.
    void tellDeed() {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            const auto* deed = window->findChild<QLabel*>(QStringLiteral("deed"));
            const QString text = deed != nullptr && window->isVisible() ? deed->accessibleName() : QString();
            if (std::exchange(deeds_[window], text) != text && !text.isEmpty()) {
                tell("deed", text);
            }
        }
    }

    void tellTop(QWidget& window) {
        if (const auto* box = qobject_cast<QMessageBox*>(&window)) {
            tell("top box", box->text());
        } else {
            tell("top form", window.windowTitle());
        }
    }

    void tell(const char* what, QString text) {
        text.replace(QLatin1Char('\n'), QLatin1Char(' '));
        const std::string line = what + (" " + text.toStdString()) + "\n";
        // Told at once, so that what has been told outlives the program. Nobody else reads a broken pipe's failure.
        [[maybe_unused]] const ssize_t written = ::write(tells_, line.data(), line.size());
    }

    const int tells_ = numberIn("TRIAL_TELLS");
    const int pace_ = numberIn("TRIAL_PACE");
    Commands commands_;
    walk::Hand hand_;
    std::deque<walk::Key> keys_;
    QElapsedTimer sincePressed_;
    std::map<const QWidget*, QString> deeds_;
    bool busy_ = true;
};

void sitDown() {
    new DeskUser(QCoreApplication::instance());
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(sitDown)
