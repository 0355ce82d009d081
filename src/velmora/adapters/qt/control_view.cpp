#include "velmora/adapters/qt/control_view.h"

#include "velmora/adapters/qt/style.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/platform/toolkit/effective_state.h"

namespace velmora::qt {

namespace {

void show(QWidget& widget, const toolkit::WidgetState& state) {
    QSizePolicy policy = widget.sizePolicy();
    if (policy.retainSizeWhenHidden() != state.keepsRoom) {
        policy.setRetainSizeWhenHidden(state.keepsRoom);
        widget.setSizePolicy(policy);
    }
    widget.setVisible(state.shown);
}

}  // namespace

void ControlView::addCompanion(QWidget& companion) {
    companions_.emplace_back(&companion);
}

void ControlView::update(screen::Property property) {
    switch (property) {
        case screen::Property::enabled:
            widget().setEnabled(toolkit::looksEnabled(control_));
            setWarns(focusTarget(), toolkit::looksWarned(control_));
            updateColors();
            break;
        case screen::Property::visible:
            updateVisible();
            break;
        case screen::Property::toolTip:
            widget().setToolTip(toQt(control_.toolTip()));
            break;
        case screen::Property::warning:
            setWarns(focusTarget(), toolkit::looksWarned(control_));
            break;
        case screen::Property::backColor:
        case screen::Property::foreColor:
            updateColors();
            break;
        default:
            break;
    }
}

void ControlView::updateAll() {
    for (const auto property : {screen::Property::enabled, screen::Property::visible, screen::Property::toolTip}) {
        ControlView::update(property);
    }
}

void ControlView::updateVisible() {
    if (shownByOther_) {
        return;
    }
    const toolkit::WidgetState state = toolkit::widgetStateOf(control_, enclosing_);
    show(widget(), state);
    for (const QPointer<QWidget>& companion : companions_) {
        if (companion) {
            show(*companion, state);
        }
    }
}

bool ControlView::otherEvent(QEvent&) {
    return false;
}

}  // namespace velmora::qt
