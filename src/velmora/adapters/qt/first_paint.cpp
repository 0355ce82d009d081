#include "velmora/adapters/qt/first_paint.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <utility>

namespace velmora::qt {

FirstPaint::FirstPaint(std::function<void()> then) : then_(std::move(then)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool FirstPaint::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::Paint) {
        QCoreApplication::instance()->removeEventFilter(this);
        // The window is still being painted: the timer's turn comes when that has been sent to the screen.
        QTimer::singleShot(0, this, then_);
    }
    return false;
}

}  // namespace velmora::qt
