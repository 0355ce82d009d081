#include "velmora/adapters/qt/field_view.h"

#include <utility>

#include "velmora/adapters/qt/theme.h"

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
    changed_ = true;
    const std::string text = typedText();
    host().feed([&] { box_.setText(text); });
    bringText();
}

char32_t FieldView::type(const KeyStroke& stroke) {
    return toolkit::typeInto(box_, stroke.character, *this);
}

// Chosen C-245: a press that brings the focus and finds the whole text selected leaves it so: typing then replaces the
// value.
bool FieldView::pressed() {
    return box_.allSelected();
}

void FieldView::focusGained() {
    changed_ = false;
    updateColors();
}

void FieldView::focusLeft() {
    commitPending_ = std::exchange(changed_, false) || commitPending_;
    box_.clearSelection();
    fromModel_ = true;
    deselect();
    fromModel_ = false;
    updateColors();
}

void FieldView::finish() {
    if (std::exchange(commitPending_, false)) {
        box_.onCommit();
    }
}

void FieldView::commitIfChanged() {
    if (std::exchange(changed_, false)) {
        box_.onCommit();
    }
}

void FieldView::updateColors() {
    theme::paintField(widget(), box_, box_.locked() ? screen::Role::calculated : role_);
}

}  // namespace velmora::qt
