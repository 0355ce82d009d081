#include "qt_hand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QTimer>
#include <stdexcept>

#include <gtest/gtest.h>

namespace velmora::testing {

namespace {

QApplication& application() {
    static int count = 1;
    static char name[] = "test_qt";
    static char* arguments[] = {name, nullptr};
    static auto* theOne = new QApplication(count, arguments);
    return *theOne;
}

/// What the mouse meets: of a text of several lines its viewport.
QWidget& pressed(QWidget& widget) {
    auto* area = dynamic_cast<QPlainTextEdit*>(&widget);
    return area != nullptr ? *area->viewport() : widget;
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
    QTest::mouseClick(&pressed(widgetOf(control)), Qt::LeftButton);
}

void QtHand::doubleClick(const screen::Control& control) const {
    // Of its own the event is the second press alone.
    click(control);
    QTest::mouseDClick(&pressed(widgetOf(control)), Qt::LeftButton);
}

void QtHand::openList(const screen::ComboBox& list) const {
    // The offscreen platform does not make the window active again that a list has just uncovered.
    screen_->top()->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return widgetOf(list).hasFocus(); }, 1000));
    key(Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }, 1000));
}

void QtHand::inList(const screen::ComboBox& list, Qt::Key key) const {
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(dynamic_cast<QComboBox&>(widgetOf(list)).view(), key);
    if (key == Qt::Key_Escape || key == Qt::Key_Return) {
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() == nullptr; }, 1000));
    }
}

}  // namespace velmora::testing
