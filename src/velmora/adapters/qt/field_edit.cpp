#include "velmora/adapters/qt/field_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <cmath>
#include <string>

#include "velmora/adapters/qt/text.h"
#include "velmora/platform/toolkit/painted_number.h"

namespace velmora::qt {

FieldEdit::FieldEdit(int digits, QWidget* parent) : QLineEdit(parent), digits_(digits) {
    setSizePolicy(digits > 0 ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus);
}

void FieldEdit::paintNumber(int decimals) {
    decimals_ = decimals;
    update();
}

QRect FieldEdit::textRoom() const {
    constexpr int besideText = 2;  // the line edit's own margin
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()->subElementRect(QStyle::SE_LineEditContents, &option, this).adjusted(besideText, 0, -besideText, 0);
}

QString FieldEdit::paintedText() const {
    const std::string present = fromQt(text());
    if (decimals_ == noNumber || toolkit::decimalsOf(present) < 0) {
        return text();
    }
    const auto advance = [this](const std::string& part) { return fontMetrics().horizontalAdvance(toQt(part)); };
    return toQt(toolkit::paintedInField(present, decimals_, textRoom().width(), advance));
}

void FieldEdit::paintEvent(QPaintEvent* event) {
    const QString painted = hasFocus() ? text() : paintedText();
    if (painted == text()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    QStyleOptionFrame option;
    initStyleOption(&option);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    painter.setPen(palette().color(QPalette::Text));
    // The place where the line edit draws its text: the pixels at the end are the caret's.
    constexpr int ofCaret = 2;
    const QRect room = textRoom();
    const int wide = static_cast<int>(std::ceil(QFontMetricsF(font()).horizontalAdvance(painted))) + ofCaret;
    const int top = room.top() + (room.height() - fontMetrics().height() + 1) / 2;
    painter.drawText(QPoint(room.right() + 1 - wide, top + fontMetrics().ascent()), painted);
}

bool FieldEdit::event(QEvent* event) {
    const bool cut = event->type() == QEvent::ToolTip && paintedText().startsWith(QLatin1Char('#'));
    if (cut) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
        return true;
    }
    return QLineEdit::event(event);
}

void FieldEdit::insertion(const QString& text) {
    if (!isReadOnly() && insertion_ && !text.isEmpty()) {
        insertion_(text);
    }
}

void FieldEdit::pasteClipboard() {
    insertion(QApplication::clipboard()->text());
}

void FieldEdit::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) {
        pasteClipboard();
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void FieldEdit::mouseReleaseEvent(QMouseEvent* event) {
    const QClipboard* clipboard = QApplication::clipboard();
    if (event->button() == Qt::MiddleButton && clipboard->supportsSelection()) {
        insertion(clipboard->text(QClipboard::Selection));
        event->accept();
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

void FieldEdit::dropEvent(QDropEvent* event) {
    if (isReadOnly() || !event->mimeData()->hasText()) {
        event->ignore();
        return;
    }
    if (!hasSelectedText()) {
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
    }
    insertion(event->mimeData()->text());
    event->acceptProposedAction();
}

QMenu* FieldEdit::makeMenu() {
    auto* menu = new QMenu(this);
    const auto add = [&](const QString& text, const QKeySequence& keys, bool enabled, const auto& action) {
        QAction* entry = menu->addAction(text, this, action);
        entry->setShortcut(keys);
        entry->setEnabled(enabled);
    };
    const bool writable = !isReadOnly();
    const bool selected = hasSelectedText();
    add(QStringLiteral("&Deshacer"), QKeySequence::Undo, writable && isUndoAvailable(), [this] { undo(); });
    add(QStringLiteral("&Rehacer"), QKeySequence::Redo, writable && isRedoAvailable(), [this] { redo(); });
    menu->addSeparator();
    add(QStringLiteral("Cor&tar"), QKeySequence::Cut, writable && selected, [this] { cut(); });
    add(QStringLiteral("&Copiar"), QKeySequence::Copy, selected, [this] { copy(); });
    add(QStringLiteral("&Pegar"), QKeySequence::Paste, writable && !QApplication::clipboard()->text().isEmpty(),
        [this] { pasteClipboard(); });
    add(QStringLiteral("E&liminar"), QKeySequence::Delete, writable && selected, [this] { del(); });
    menu->addSeparator();
    add(QStringLiteral("&Seleccionar todo"), QKeySequence::SelectAll, !text().isEmpty(), [this] { selectAll(); });
    return menu;
}

}  // namespace velmora::qt
