#include "velmora/platform/toolkit/key_routing.h"

#include "velmora/platform/toolkit/control_shortcuts.h"

namespace velmora::toolkit {

namespace {

using screen::Form;
using screen::Key;

void moveByTab(Form& form, bool backward) {
    backward ? form.tabBackward() : form.tabForward();
}

// Chosen C-352: a key with Control acts only as a second name, as the shortcut of a button, or with Enter as a step to
// every field; all others, Copy and Paste among them, are left to the widget.
bool routeWithControl(Form& form, const KeyStroke& stroke, const ControlKeys& control) {
    if (stroke.key == Key::enter) {
        moveToEveryField(form, stroke.shift);
        return true;
    }
    if (const auto key = secondNameOf(form, stroke.character)) {
        return routeKey(form, strokeOf(*key), control);
    }
    screen::Button* button = buttonWithShortcut(form, stroke.character);
    if (button != nullptr) {
        button->onClick();
    }
    return button != nullptr;
}

}  // namespace

bool routeKey(Form& form, const KeyStroke& stroke, const ControlKeys& control) {
    if (!form.takesInput()) {
        return true;
    }
    if (stroke.key == Key::none) {
        return false;
    }
    if (stroke.control) {
        return routeWithControl(form, stroke, control);
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
