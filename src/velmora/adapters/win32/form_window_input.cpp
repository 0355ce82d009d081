// Keys and mouse of a form's window: see form_window.h.

#include "velmora/adapters/win32/form_window.h"
#include "velmora/adapters/win32/toolbar_view.h"
#include "velmora/adapters/win32/win32_screen.h"
#include "velmora/platform/toolkit/key_routing.h"
#include "velmora/platform/toolkit/mnemonics.h"

namespace velmora::win32 {

namespace {

bool isPress(UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
            return true;
        default:
            return false;
    }
}

}  // namespace

std::optional<LRESULT> FormWindow::incoming(ControlView& view, HWND, UINT message, WPARAM, LPARAM value) {
    if (isPress(message)) {
        return handlePress(view, message, value) ? std::optional<LRESULT>(0) : std::nullopt;
    }
    switch (message) {
        case WM_CONTEXTMENU:
        case WM_MOUSEWHEEL:
        case WM_PASTE:
        case WM_CUT:
            return acceptsInput() ? std::nullopt : std::optional<LRESULT>(0);
        case WM_SETFOCUS:
            handleForeignFocus(view);
            return std::nullopt;
        case WM_CAPTURECHANGED:
            if (clicking_ == &view) {
                // The mouse has been released, perhaps elsewhere: the keyboard goes back to where the model has it.
                clicking_ = nullptr;
                later([this] { moveKeyboard(); });
            }
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

bool FormWindow::handlePress(ControlView& view, UINT message, LPARAM value) {
    if (!acceptsInput()) {
        return true;
    }
    if (view.actsOnClick()) {
        clicking_ = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK ? &view : nullptr;
        return false;
    }
    screen::Control& control = view.control();
    const bool hadFocus = form_.activeControl() == &control;
    const int boxesBefore = screen_.boxesShown();
    const POINT at = pointOf(value);
    const std::wstring aim = view.aimOf(at);
    bool arrived = false;
    feed([&] { arrived = bringFocus(control); });
    // Leaving a field may fill a grid with other rows: a press on a row, or on the button in its cell, does nothing
    // when another row is there by then.
    if (!arrived || form_.activeControl() != &control || screen_.boxesShown() != boxesBefore || view.aimOf(at) != aim) {
        return true;
    }
    return !hadFocus && view.pressed();
}

// Focus set by other means, such as assistive technology, is an action of the user like any other.
void FormWindow::handleForeignFocus(ControlView& view) {
    if (syncing_ || clicking_ != nullptr || form_.activeControl() == &view.control()) {
        return;
    }
    later([this, control = &view.control()] { feed([&] { bringFocus(*control); }); });
}

bool FormWindow::filter(const MSG& message) {
    if (message.hwnd != handle() && !IsChild(handle(), message.hwnd)) {
        return false;
    }
    ControlView* view = viewOfWindow(message.hwnd);
    switch (message.message) {
        case WM_KEYDOWN:
            return handleKey(view, message.wParam);
        case WM_CHAR:
            return handleCharacter(view, message.wParam);
        case WM_SYSKEYDOWN:
            return !acceptsInput() && message.wParam != VK_F4;
        case WM_SYSCHAR:
            return handleMnemonic(message.wParam);
        default:
            return false;
    }
}

bool FormWindow::handleKey(ControlView* view, WPARAM virtualKey) {
    if (!acceptsInput()) {
        return true;
    }
    if (view != nullptr && view->ownsKeys()) {
        return false;
    }
    if (const std::optional<KeyStroke> stroke = strokeOfKey(virtualKey)) {
        if (stroke->key == screen::Key::f1 && stroke->shift && !stroke->control) {
            feed([this] { screen_.showKeys(form_); });
            return true;
        }
        return route(view, *stroke);
    }
    return view != nullptr && view->nativeKey(virtualKey);
}

bool FormWindow::handleCharacter(ControlView* view, WPARAM unit) {
    if (!acceptsInput()) {
        return true;
    }
    if (view != nullptr && view->ownsKeys()) {
        return false;
    }
    const std::optional<char32_t> character = characters_.add(unit);
    if (!character) {
        return true;
    }
    const std::optional<KeyStroke> stroke = strokeOfCharacter(*character);
    return stroke && route(view, *stroke);
}

bool FormWindow::route(ControlView* view, const KeyStroke& stroke) {
    bool used = true;
    feed([&] {
        used = toolkit::routeKey(form_, stroke,
                                 [&](const KeyStroke& turned) { return view == nullptr || view->key(turned); });
    });
    return used;
}

bool FormWindow::handleMnemonic(WPARAM unit) {
    if (!acceptsInput()) {
        return true;
    }
    wchar_t letter = static_cast<wchar_t>(unit);
    CharUpperBuffW(&letter, 1);
    const std::optional<toolkit::MnemonicTarget> target = toolkit::targetOf(form_, letter);
    if (!target) {
        return false;
    }
    if (target->button != nullptr) {
        feed([&] {
            if (bringFocus(*target->button)) {
                target->button->onClick();
            }
        });
    } else if (auto* bar = dynamic_cast<ToolbarView*>(viewOf(*target->bar))) {
        bar->press(target->item);
    }
    return true;
}

}  // namespace velmora::win32
