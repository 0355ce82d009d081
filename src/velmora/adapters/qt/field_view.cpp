#include "velmora/adapters/qt/field_view.h"

#include <QMouseEvent>

#include "velmora/adapters/qt/theme.h"
#include "velmora/platform/toolkit/raised_flag.h"

namespace velmora::qt {

void FieldView::update(screen::Property property) {
    switch (property) {
        case screen::Property::text:
            bringText();
            break;
        case screen::Property::locked:
            setReadOnly(box_.locked());
            updateColors();
            break;
        default:
            ControlView::update(property);
    }
}

void FieldView::updateAll() {
    ControlView::updateAll();
    update(screen::Property::locked);
    bringText();
}

void FieldView::bringText() {
    fromModel_ = true;
    showText();
    if (box_.allSelected()) {
        selectAll();
    }
    fromModel_ = false;
}

void FieldView::edited() {
    if (fromModel_) {
        return;
    }
    host().feed([&] {
        if (const auto text = textTaken()) {
            box_.setText(*text);
        }
    });
    bringText();
}

// What reaches the widget by none of the ways that are filtered before, such as assistive technology, is filtered here.
std::optional<std::string> FieldView::textTaken() {
    const std::string text = typedText();
    if (filtered_ || toolkit::isRemoval(box_.text(), text)) {
        return text;
    }
    return toolkit::filterInsertion(box_, {.before = "", .text = text, .after = ""});
}

void FieldView::type(const KeyStroke& stroke) {
    const toolkit::RaisedFlag filtered(filtered_);
    toolkit::typeInto(box_, stroke.character, *this);
}

void FieldView::insertFiltered(const std::string& before, const std::string& text, const std::string& after) {
    host().feed([&] {
        if (const auto taken = toolkit::filterInsertion(box_, {before, text, after})) {
            const toolkit::RaisedFlag filtered(filtered_);
            box_.clearSelection();
            replaceSelection(*taken);
        }
    });
}

// Chosen C-245: a mouse press that moves the focus here keeps a selection of the whole text, so that typing replaces
// the value.
bool FieldView::pressed() {
    return box_.allSelected();
}

void FieldView::focusGained() {
    updateColors();
}

void FieldView::focusLeft() {
    box_.clearSelection();
    fromModel_ = true;
    deselect();
    fromModel_ = false;
    updateColors();
}

void FieldView::clickedTwice(const QEvent& event) {
    if (!box_.locked() && static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton) {
        host().feed([&] { box_.onDblClick(); });
    }
}

void FieldView::updateColors() {
    theme::paintField(widget(), box_, box_.locked() ? screen::Role::calculated : role_);
}

}  // namespace velmora::qt
