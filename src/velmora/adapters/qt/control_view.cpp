#include "velmora/adapters/qt/control_view.h"

#include <algorithm>

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

namespace {

// The form's own state is left out: it takes no input while it is disabled, yet its fields keep their looks.
bool enabledOnForm(const screen::Control& control) {
    for (const screen::Control* c = &control; c != nullptr; c = c->frame()) {
        if (!c->enabled()) {
            return false;
        }
    }
    return true;
}

void show(QWidget& widget, bool visible, bool keepRoom) {
    QSizePolicy policy = widget.sizePolicy();
    if (policy.retainSizeWhenHidden() != keepRoom) {
        policy.setRetainSizeWhenHidden(keepRoom);
        widget.setSizePolicy(policy);
    }
    widget.setVisible(visible);
}

}  // namespace

void ControlView::addCompanion(QWidget& companion) {
    companions_.emplace_back(&companion);
}

void ControlView::update(screen::Property property) {
    switch (property) {
        case screen::Property::enabled:
            widget().setEnabled(enabledOnForm(control_));
            updateColors();
            break;
        case screen::Property::visible:
            updateVisible();
            break;
        case screen::Property::toolTip:
            widget().setToolTip(toQt(control_.toolTip()));
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

// Chosen C-241: a control hidden by itself keeps its room, so that its neighbours stand still; one hidden with its
// frame gives it back.
void ControlView::updateVisible() {
    if (shownByOther_) {
        return;
    }
    bool frameShown = true;
    for (const screen::Frame* frame = control_.frame(); frame != nullptr; frame = frame->frame()) {
        if (std::ranges::find(enclosing_, frame) != enclosing_.end()) {
            break;
        }
        frameShown = frameShown && frame->visible();
    }
    const bool isFrame = dynamic_cast<const screen::Frame*>(&control_) != nullptr;
    const bool visible = control_.visible() && frameShown;
    const bool keepRoom = frameShown && !isFrame;
    show(widget(), visible, keepRoom);
    for (const QPointer<QWidget>& companion : companions_) {
        if (companion) {
            show(*companion, visible, keepRoom);
        }
    }
}

bool ControlView::otherEvent(QEvent&) {
    return false;
}

}  // namespace velmora::qt
