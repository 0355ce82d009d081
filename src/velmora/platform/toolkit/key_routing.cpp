#include "velmora/platform/toolkit/key_routing.h"

namespace velmora::toolkit {

namespace {

using screen::Form;
using screen::Key;

void moveByTab(Form& form, bool backward) {
    backward ? form.tabBackward() : form.tabForward();
}

}  // namespace

bool routeKey(Form& form, const KeyStroke& stroke, const ControlKeys& control) {
    if (!form.takesInput()) {
        return true;
    }
    if (stroke.key == Key::none) {
        return false;
    }
    // Chosen C-244: Tab moves the focus and does not reach the form's KeyDown, as on the host's screens.
    if (stroke.key == Key::tab) {
        moveByTab(form, stroke.shift);
        return true;
    }
    const screen::Control* before = form.activeControl();
    const Key became = form.keyDown(stroke.key, stroke.shift);
    // Chosen C-300: when KeyDown has moved the focus, the key is consumed; the control that received the focus does not
    // see it.
    if (became == Key::none || !form.takesInput() || form.activeControl() != before) {
        return true;
    }
    if (became == Key::tab) {
        moveByTab(form, stroke.shift);
        return true;
    }
    return control(became == stroke.key ? stroke : strokeOf(became, stroke.shift));
}

}  // namespace velmora::toolkit
