#include "velmora/apps/walk/hand.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>
#include <utility>

namespace velmora::walk {

namespace {

constexpr int buttonSpringsBack = 200;  ///< looks: a button pressed by its letter acts when it springs back
constexpr int calmBefore = 10;          ///< looks after which a window that has come to the top is complete

/// The window on top; nullptr while there is none.
QWidget* topWindow() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible()) {
        return nullptr;
    }
    if (!window->isActiveWindow()) {
        // Without a window manager nobody else activates a window that another one has uncovered.
        window->activateWindow();
        return nullptr;
    }
    return window;
}

QWidget& receiver(QWidget& window) {
    if (QWidget* popup = QApplication::activePopupWidget()) {
        return *popup;
    }
    QWidget* focus = QApplication::focusWidget();
    return focus != nullptr && focus->window() == &window ? *focus : window;
}

}  // namespace

QWidget* Hand::ready() {
    QWidget* window = topWindow();
    const bool keyAtWork = underWay_ > 0 && QApplication::activeModalWidget() == pressedIn_ &&
                           QApplication::activePopupWidget() == nullptr;
    if (window == nullptr || keyAtWork) {
        return nullptr;
    }
    if (std::exchange(last_, window) != window) {
        calm_ = 0;
    }
    return ++calm_ < calmBefore ? nullptr : window;
}

void Hand::press(const Key& key, QWidget& window) {
    const QPointer<QWidget> target = &receiver(window);
    ++underWay_;
    QWidget* const before = std::exchange(pressedIn_, QApplication::activeModalWidget());
    QKeyEvent down(QEvent::KeyPress, key.code, key.modifiers, key.text);
    QApplication::sendEvent(target, &down);
    if (target != nullptr) {
        QKeyEvent up(QEvent::KeyRelease, key.code, key.modifiers, key.text);
        QApplication::sendEvent(target, &up);
    }
    if (key.modifiers == Qt::AltModifier) {
        calm_ = -buttonSpringsBack;
    }
    --underWay_;
    pressedIn_ = before;
}

}  // namespace velmora::walk
