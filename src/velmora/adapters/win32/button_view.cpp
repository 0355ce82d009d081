#include "velmora/adapters/win32/button_view.h"

#include <algorithm>

#include "velmora/adapters/win32/captions.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/platform/toolkit/control_keys.h"

namespace velmora::win32 {

namespace {
constexpr int leastButtonWidth = 80;
constexpr int besideCaption = 10;
constexpr int largeButtonWidth = 320;
constexpr int largeButtonHeight = 52;
}  // namespace

ButtonView::ButtonView(ViewHost& host, screen::Button& button, screen::Role role)
    : ControlView(host, button),
      button_(button),
      role_(role),
      push_(createControl(L"BUTTON", {}, BS_PUSHBUTTON, host.page())) {
    watch(push_);
    useTheme();
}

void ButtonView::useTheme() {
    useFont(push_, font());
}

toolkit::Needs ButtonView::needs() const {
    const int caption = theme().textWidth(font(), withoutMarks(toWide(button_.caption())));
    const bool large = role_ == screen::Role::total;
    const int width = std::max(caption + 2 * theme().scaled(besideCaption),
                               theme().scaled(large ? largeButtonWidth : leastButtonWidth));
    const int height = large ? theme().scaled(largeButtonHeight) : theme().fieldHeight(font()) + theme().scaled(3);
    return {.width = {width, width}, .height = {height, height}};
}

void ButtonView::update(screen::Property property) {
    if (property == screen::Property::caption) {
        SetWindowTextW(push_, toWide(button_.caption()).c_str());
        host().arrangeLater();
    } else {
        ControlView::update(property);
    }
}

void ButtonView::updateAll() {
    ControlView::updateAll();
    update(screen::Property::caption);
}

bool ButtonView::key(const KeyStroke& stroke) {
    if (toolkit::pressesButton(stroke)) {
        button_.onClick();
    }
    return true;
}

// Space presses through its character, after the form has seen it.
std::optional<LRESULT> ButtonView::message(HWND, UINT message, WPARAM word, LPARAM) {
    const bool spaceKey = (message == WM_KEYDOWN || message == WM_KEYUP) && word == VK_SPACE;
    return spaceKey ? std::optional<LRESULT>(0) : std::nullopt;
}

void ButtonView::command(UINT code) {
    if (code == BN_CLICKED) {
        host().feed([this] {
            if (host().bringFocus(button_)) {
                button_.onClick();
            }
        });
    }
}

HBRUSH ButtonView::colors(HDC) {
    return theme().brush(surroundings());
}

}  // namespace velmora::win32
