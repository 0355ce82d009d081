#include "key_player.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <iostream>
#include <map>
#include <utility>

namespace velmora::testing {

namespace {

constexpr int longestWait = 2000;  ///< of a millisecond each

PressedKey named(const QString& name) {
    if (name.startsWith(QLatin1Char('^'))) {
        return {.code = name.at(1).unicode(), .modifiers = Qt::ControlModifier};
    }
    if (name.startsWith(QLatin1Char('!'))) {
        return {.code = name.at(1).unicode(), .text = name.mid(1).toLower(), .modifiers = Qt::AltModifier};
    }
    if (name == QLatin1String("Esc")) {
        return {.code = Qt::Key_Escape};
    }
    return {.code = Qt::Key_F1 + name.mid(1).toInt() - 1};
}

PressedKey single(QChar character) {
    static const std::map<QChar, PressedKey> signs{
        {QChar(u'⏎'), {.code = Qt::Key_Return}},
        {QChar(u'↓'), {.code = Qt::Key_Down}},
        {QChar(u'↹'), {.code = Qt::Key_Tab}},
        {QChar(u'⇤'), {.code = Qt::Key_Backtab, .modifiers = Qt::ShiftModifier}},
        {QChar(u' '), {.code = Qt::Key_Space, .text = QStringLiteral(" ")}},
    };
    const auto found = signs.find(character);
    return found != signs.end() ? found->second : PressedKey{.text = QString(character)};
}

/// The button that was pressed by its letter: it is shown pressed for a moment before it clicks.
QAbstractButton* buttonDown(const QWidget& window) {
    const QList<QAbstractButton*> buttons = window.findChildren<QAbstractButton*>();
    const auto down = std::ranges::find_if(buttons, [](const QAbstractButton* button) { return button->isDown(); });
    return down != buttons.end() ? *down : nullptr;
}

}  // namespace

std::vector<PressedKey> keysOf(std::string_view walk) {
    const QString text = QString::fromUtf8(walk.data(), static_cast<qsizetype>(walk.size()));
    std::vector<PressedKey> keys;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('{')) {
            const qsizetype end = text.indexOf(QLatin1Char('}'), i);
            keys.push_back(named(text.mid(i + 1, end - i - 1)));
            i = end;
        } else {
            keys.push_back(single(text.at(i)));
        }
    }
    return keys;
}

int KeyPlayer::play(const std::vector<PressedKey>& keys, const std::string& boxAtTheEnd) {
    keys_ = keys;
    boxAtTheEnd_ = QString::fromStdString(boxAtTheEnd);
    pressed_ = 0;
    waits_ = underWay_ = 0;
    ended_ = boxSeen_ = false;
    QTimer::singleShot(0, qApp, [this] { step(); });
    bool done = QTest::qWaitFor([this] { return ended_ && underWay_ == 0; }, 20000);
    while (!done) {
        // A window nobody expected is told and closed, so that the test can end.
        QWidget* window = QApplication::activeModalWidget();
        const auto* box = dynamic_cast<QMessageBox*>(window);
        std::cerr << "still open: "
                  << (box != nullptr      ? box->text()
                      : window != nullptr ? window->windowTitle()
                                          : QString())
                         .toStdString()
                  << '\n';
        if (window == nullptr || !window->close()) {
            break;
        }
        done = QTest::qWaitFor([this] { return underWay_ == 0; }, 200);
    }
    const bool complete = boxAtTheEnd_.isEmpty() ? pressed_ == keys_.size() : boxSeen_;
    return done && complete ? static_cast<int>(pressed_) : -1;
}

bool KeyPlayer::endBoxOpen() const {
    const auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
    return box != nullptr && !boxAtTheEnd_.isEmpty() && box->text().contains(boxAtTheEnd_);
}

QWidget* KeyPlayer::target() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible()) {
        return nullptr;
    }
    if (!window->isActiveWindow()) {
        // The offscreen platform does not make the window active again that another one has just uncovered.
        window->activateWindow();
        return nullptr;
    }
    QWidget* focus = QApplication::focusWidget();
    return focus != nullptr && focus->window() == window ? focus : window;
}

// The click lets events through, a person's keys not among them: the next key is due when the click has been handled,
// or in a window that it has opened.
bool KeyPlayer::awaitsClick(const QWidget& window) {
    if (clicking_ == nullptr) {
        clicking_ = buttonDown(window);
        if (clicking_ != nullptr) {
            QObject::connect(
                clicking_, &QAbstractButton::clicked, qApp, [this] { clicking_ = nullptr; }, Qt::SingleShotConnection);
        }
    }
    return clicking_ != nullptr && clicking_->window() == &window;
}

void KeyPlayer::step() {
    if (ended_) {
        return;
    }
    QWidget* widget = target();
    if (widget != nullptr && endBoxOpen()) {
        ended_ = boxSeen_ = true;
        QTest::keyClick(widget, Qt::Key_Return);
        return;
    }
    if (underWay_ > 0 && QApplication::activeModalWidget() == pressedIn_) {
        // The key before is still at work and lets events through: a person's key would wait.
        QTimer::singleShot(1, qApp, [this] { step(); });
        return;
    }
    if (widget != nullptr && awaitsClick(*widget->window())) {
        QTimer::singleShot(1, qApp, [this] { step(); });
        return;
    }
    const bool dry = pressed_ == keys_.size();
    if (dry && boxAtTheEnd_.isEmpty()) {
        ended_ = true;
        return;
    }
    if (widget == nullptr || dry) {
        ended_ = ++waits_ > longestWait;
        if (!ended_) {
            QTimer::singleShot(1, qApp, [this] { step(); });
        }
        return;
    }
    waits_ = 0;
    const PressedKey& key = keys_[pressed_++];
    // The next key is due before this one: a key that opens a window returns only when the window is closed.
    QTimer::singleShot(1, qApp, [this] { step(); });
    ++underWay_;
    QWidget* const before = std::exchange(pressedIn_, QApplication::activeModalWidget());
    QTest::sendKeyEvent(QTest::Click, widget, static_cast<Qt::Key>(key.code != 0 ? key.code : Qt::Key_unknown),
                        key.text, key.modifiers);
    --underWay_;
    pressedIn_ = before;
}

}  // namespace velmora::testing
