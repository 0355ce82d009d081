#include "velmora/apps/desktop/start_keys.h"

#include <QApplication>
#include <QKeyEvent>

#include "velmora/adapters/qt/form_window.h"
#include "velmora/adapters/qt/key_strokes.h"

namespace velmora::desktop {

namespace {

bool movesRows(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

/// A space presses the button of the list's cell.
bool typesText(const QKeyEvent& key) {
    const qt::KeyStroke stroke = qt::strokeOf(key);
    return !stroke.control && stroke.character > toolkit::firstPrinting;
}

}  // namespace

StartKeys::StartKeys(qt::QtScreen& screen, StartForm& form) : screen_(screen), form_(form) {
    qApp->installEventFilter(this);
}

StartKeys::~StartKeys() {
    qApp->removeEventFilter(this);
}

bool StartKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !isOnTop(watched)) {
        return false;
    }
    auto& key = static_cast<QKeyEvent&>(*event);
    if (form_.activeControl() == &form_.searchBox()) {
        return moveInList(key);
    }
    return form_.activeControl() == &form_.list() && typeIntoBox(key);
}

/// A key reaches the native window first, then the widget with the focus.
bool StartKeys::isOnTop(const QObject* watched) const {
    const qt::FormWindow* top = screen_.top();
    return top != nullptr && &top->form() == &form_ && form_.takesInput() && watched == top->focusWidget() &&
           QApplication::activePopupWidget() == nullptr;
}

bool StartKeys::moveInList(QKeyEvent& key) {
    return movesRows(key.key()) && key.modifiers() == (key.modifiers() & Qt::KeypadModifier) &&
           screen_.top()->viewOf(form_.list())->otherEvent(key);
}

bool StartKeys::typeIntoBox(QKeyEvent& key) {
    if (!typesText(key)) {
        return false;
    }
    form_.moveFocus(form_.searchBox());
    QWidget* box = screen_.top()->focusWidget();
    return box != nullptr && QApplication::sendEvent(box, &key);
}

}  // namespace velmora::desktop
