#include "velmora/adapters/qt/text_box_view.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <algorithm>

#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/platform/screen/form.h"

namespace velmora::qt {

namespace {
constexpr char32_t backspace = 8;
}

TextBoxView::TextBoxView(ViewHost& host, screen::TextBox& box, const screen::Layout& layout, QWidget* parent)
    : ControlView(host, box), box_(box), role_(layout.role), edit_(new FieldEdit(layout.width, parent)) {
    if (layout.right) {
        edit_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role_ == screen::Role::total) {
        edit_->setFont(theme::totalFont());
    }
    connect(edit_, &QLineEdit::textChanged, this, [this] { edited(); });
}

void TextBoxView::update(screen::Property property) {
    switch (property) {
        case screen::Property::text:
            bringText();
            break;
        case screen::Property::locked:
            edit_->setReadOnly(box_.locked());
            updateColors();
            break;
        default:
            ControlView::update(property);
    }
}

void TextBoxView::updateAll() {
    ControlView::updateAll();
    update(screen::Property::locked);
    bringText();
}

void TextBoxView::bringText() {
    const QString text = toQt(box_.text());
    fromModel_ = true;
    if (edit_->text() != text) {
        const int cursor = edit_->hasFocus() ? edit_->cursorPosition() : 0;
        edit_->setText(text);
        edit_->setCursorPosition(std::min(cursor, static_cast<int>(text.size())));
    }
    if (box_.allSelected()) {
        edit_->selectAll();
    }
    fromModel_ = false;
}

void TextBoxView::edited() {
    if (fromModel_) {
        return;
    }
    changed_ = true;
    const std::string text = fromQt(edit_->text());
    host().feed([&] { box_.setText(text); });
    bringText();
}

bool TextBoxView::key(const KeyStroke& stroke) {
    if (stroke.key == screen::Key::enter) {
        if (changed_) {
            changed_ = false;
            box_.onCommit();
        }
        return true;
    }
    if (stroke.character == 0) {
        return true;
    }
    screen::KeyPress press{stroke.character};
    box_.onKeyPress(press);
    if (press.character == 0 || box_.locked()) {
        return true;
    }
    box_.clearSelection();
    if (press.character == backspace) {
        edit_->backspace();
    } else {
        edit_->insert(QString::fromUcs4(&press.character, 1));
    }
    return true;
}

// A press that brings the focus and finds the whole text selected leaves it so: typing then replaces the value.
bool TextBoxView::pressed() {
    return box_.allSelected();
}

bool TextBoxView::otherEvent(QEvent& event) {
    if (event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick) {
        box_.clearSelection();
        return false;
    }
    if (event.type() == QEvent::InputMethod) {
        return committedText(static_cast<QInputMethodEvent&>(event).commitString());
    }
    return false;
}

// Characters composed of several keys (´ and a) arrive as text; they pass the same filter one by one.
bool TextBoxView::committedText(const QString& text) {
    if (text.isEmpty()) {
        return false;
    }
    QInputMethodEvent endOfComposition;
    QCoreApplication::sendEvent(edit_, &endOfComposition);
    if (!host().acceptsInput()) {
        return true;
    }
    for (const char32_t character : text.toStdU32String()) {
        host().feed([&] {
            const screen::Key became = box_.form().keyDown(screen::Key::character);
            if (became == screen::Key::character) {
                key(KeyStroke{became, false, character});
            }
        });
    }
    return true;
}

void TextBoxView::focusGained() {
    changed_ = false;
    updateColors();
}

void TextBoxView::focusLeft() {
    commitPending_ = commitPending_ || changed_;
    changed_ = false;
    box_.clearSelection();
    fromModel_ = true;
    edit_->deselect();
    edit_->setCursorPosition(0);
    fromModel_ = false;
    updateColors();
}

void TextBoxView::finish() {
    if (commitPending_) {
        commitPending_ = false;
        box_.onCommit();
    }
}

void TextBoxView::updateColors() {
    theme::paintField(*edit_, box_, box_.locked() ? screen::Role::calculated : role_);
}

}  // namespace velmora::qt
