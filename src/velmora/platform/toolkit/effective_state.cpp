#include "velmora/platform/toolkit/effective_state.h"

#include <algorithm>

#include "velmora/platform/screen/places.h"

namespace velmora::toolkit {

using screen::Control;
using screen::Frame;
using screen::Layout;

bool looksEnabled(const Control& control) {
    for (const Control* c = &control; c != nullptr; c = c->frame()) {
        if (!c->enabled()) {
            return false;
        }
    }
    return true;
}

bool looksWarned(const Control& control) {
    return !control.warning().empty() && looksEnabled(control);
}

// Chosen C-241: a control hidden on its own keeps its space, so that its neighbours do not move; one hidden with its
// frame gives the space up.
WidgetState widgetStateOf(const Control& control, const std::vector<const Frame*>& enclosing) {
    bool frameShown = true;
    for (const Frame* frame = control.frame(); frame != nullptr; frame = frame->frame()) {
        if (std::ranges::find(enclosing, frame) != enclosing.end()) {
            break;
        }
        frameShown = frameShown && frame->visible();
    }
    const bool isFrame = dynamic_cast<const Frame*>(&control) != nullptr;
    return {.shown = control.visible() && frameShown, .keepsRoom = frameShown && !isFrame};
}

bool standsIn(const Control& control, const Frame& frame) {
    for (const Frame* f = control.frame(); f != nullptr; f = f->frame()) {
        if (f == &frame) {
            return true;
        }
    }
    return false;
}

bool isVisible(const Layout& node) {
    return screen::isVisible(node);
}

std::size_t shownTurn(const Layout& turns) {
    return screen::shownTurn(turns);
}

bool isSeen(const Control& control) {
    return screen::isSeen(control);
}

}  // namespace velmora::toolkit
