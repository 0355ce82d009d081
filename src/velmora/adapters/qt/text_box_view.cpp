#include "velmora/adapters/qt/text_box_view.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <algorithm>

#include "velmora/adapters/qt/explanations.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/platform/toolkit/key_routing.h"

namespace velmora::qt {

TextBoxView::TextBoxView(ViewHost& host, screen::TextBox& box, const screen::Layout& layout, QWidget* parent)
    : FieldView(host, box, layout.role), edit_(new FieldEdit(layout.width, parent)) {
    if (layout.right) {
        edit_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        edit_->paintNumber(layout.decimals);
    }
    if (layout.role == screen::Role::total) {
        edit_->setFont(theme::totalFont());
    }
    connect(edit_, &QLineEdit::textChanged, this, [this] { edited(); });
    edit_->onInsertion([this](const QString& text) { insertWhole(text); });
}

bool TextBoxView::key(const KeyStroke& stroke) {
    type(stroke);
    return true;
}

bool TextBoxView::otherEvent(QEvent& event) {
    if (event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick) {
        box().clearSelection();
        if (event.type() == QEvent::MouseButtonDblClick) {
            clickedTwice(event);
        }
        return false;
    }
    if (event.type() == QEvent::InputMethod) {
        return committedText(static_cast<QInputMethodEvent&>(event).commitString());
    }
    if (event.type() == QEvent::ContextMenu) {
        openMenu(static_cast<const QContextMenuEvent&>(event));
        return true;
    }
    return false;
}

// Characters composed of several keys (´ and a) arrive as text; they pass through the same filter one by one.
bool TextBoxView::committedText(const QString& text) {
    if (text.isEmpty()) {
        return false;
    }
    QInputMethodEvent endOfComposition;
    QCoreApplication::sendEvent(edit_, &endOfComposition);
    if (!host().acceptsInput()) {
        return true;
    }
    const std::u32string characters = text.toStdU32String();
    if (characters.size() > 1 && toolkit::takesNumbersOnly(box())) {
        insertWhole(text);
        return true;
    }
    for (const char32_t character : characters) {
        host().feed([&] {
            toolkit::routeKey(box().form(), toolkit::strokeTyping(character),
                              [this](const KeyStroke& stroke) { return key(stroke); });
        });
    }
    return true;
}

void TextBoxView::insertWhole(const QString& text) {
    const int start = edit_->hasSelectedText() ? edit_->selectionStart() : edit_->cursorPosition();
    const int end = edit_->hasSelectedText() ? edit_->selectionEnd() : start;
    const QString present = edit_->text();
    insertFiltered(fromQt(present.left(start)), fromQt(text), fromQt(present.mid(end)));
}

void TextBoxView::openMenu(const QContextMenuEvent& event) {
    QMenu* menu = edit_->makeMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addQuestion(host(), box(), *menu);
    menu->popup(event.globalPos());
}

void TextBoxView::setReadOnly(bool locked) {
    edit_->setReadOnly(locked);
}

std::string TextBoxView::typedText() const {
    return fromQt(edit_->text());
}

void TextBoxView::showText() {
    const QString text = toQt(box().text());
    if (edit_->text() != text) {
        const int cursor = edit_->hasFocus() ? edit_->cursorPosition() : 0;
        edit_->setText(text);
        edit_->setCursorPosition(std::min(cursor, static_cast<int>(text.size())));
    }
}

void TextBoxView::selectAll() {
    edit_->selectAll();
}

void TextBoxView::deselect() {
    edit_->deselect();
    edit_->setCursorPosition(0);
}

void TextBoxView::erase() {
    edit_->backspace();
}

void TextBoxView::insert(char32_t character) {
    edit_->insert(QString::fromUcs4(&character, 1));
}

void TextBoxView::breakLine() {}

void TextBoxView::replaceSelection(const std::string& text) {
    edit_->insert(toQt(text));
}

}  // namespace velmora::qt
