#include "qt_hand.h"

#include <QApplication>
#include <QTimer>
#include <stdexcept>

namespace velmora::testing {

namespace {

QApplication& application() {
    static int count = 1;
    static char name[] = "test_qt";
    static char* arguments[] = {name, nullptr};
    static auto* theOne = new QApplication(count, arguments);
    return *theOne;
}

QWidget* focusOrWindow() {
    // A window that a box has just uncovered becomes active in its turn.
    if (!QTest::qWaitFor([] { return QApplication::activeWindow() != nullptr; }, 1000)) {
        throw std::logic_error("no window is active");
    }
    if (QWidget* focus = QApplication::focusWidget()) {
        return focus;
    }
    return QApplication::activeWindow();
}

}  // namespace

QtHand::QtHand() {
    application();
    screen_ = std::make_unique<qt::QtScreen>();
}

bool QtHand::show(screen::Form& form, const std::function<void()>& user) {
    bool played = false;
    QTimer::singleShot(0, &application(), [&] {
        QApplication::processEvents();
        user();
        played = true;
        form.unload();
    });
    screen_->showModal(form);
    return played;
}

QWidget& QtHand::widgetOf(const screen::Control& control) const {
    qt::ControlView* view = screen_->top()->viewOf(control);
    if (view == nullptr) {
        throw std::logic_error("no view of " + control.fullName());
    }
    return view->focusTarget();
}

void QtHand::key(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QTest::keyClick(focusOrWindow(), key, modifiers);
}

void QtHand::type(const QString& text) const {
    for (const QChar& c : text) {
        QTest::sendKeyEvent(QTest::Click, focusOrWindow(), Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
}

void QtHand::click(const screen::Control& control) const {
    QTest::mouseClick(&widgetOf(control), Qt::LeftButton);
}

}  // namespace velmora::testing
