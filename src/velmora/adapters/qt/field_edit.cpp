#include "velmora/adapters/qt/field_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>

namespace velmora::qt {

FieldEdit::FieldEdit(int digits, QWidget* parent) : QLineEdit(parent), digits_(digits) {
    setSizePolicy(digits > 0 ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus);
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
