#include "velmora/adapters/qt/field_view.h"

#include <QMouseEvent>

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
    const std::string text = typedText();
    host().feed([&] { box_.setText(text); });
    bringText();
}

void FieldView::type(const KeyStroke& stroke) {
    toolkit::typeInto(box_, stroke.character, *this);
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
