#include "velmora/adapters/win32/check_box_view.h"

#include "velmora/adapters/win32/captions.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/platform/toolkit/control_keys.h"

namespace velmora::win32 {

namespace {
constexpr int tickRoom = 22;  ///< the box and its distance from the caption
}

CheckBoxView::CheckBoxView(ViewHost& host, screen::CheckBox& box)
    : ControlView(host, box), box_(box), check_(createControl(L"BUTTON", {}, BS_CHECKBOX, host.page())) {
    watch(check_);
    useTheme();
}

void CheckBoxView::useTheme() {
    useFont(check_, theme().font());
}

toolkit::Needs CheckBoxView::needs() const {
    const int width =
        theme().textWidth(theme().font(), withoutMarks(toWide(box_.caption()))) + theme().scaled(tickRoom);
    const int height = theme().lineHeight(theme().font()) + theme().scaled(4);
    return {.width = {width, width}, .height = {height, height}};
}

void CheckBoxView::update(screen::Property property) {
    switch (property) {
        case screen::Property::value:
            SendMessageW(check_, BM_SETCHECK, box_.checked() ? BST_CHECKED : BST_UNCHECKED, 0);
            break;
        case screen::Property::caption:
            SetWindowTextW(check_, toWide(box_.caption()).c_str());
            host().arrangeLater();
            break;
        default:
            ControlView::update(property);
    }
}

void CheckBoxView::updateAll() {
    ControlView::updateAll();
    update(screen::Property::value);
    update(screen::Property::caption);
}

bool CheckBoxView::key(const KeyStroke& stroke) {
    if (toolkit::ticksBox(stroke)) {
        box_.setChecked(!box_.checked());
    }
    return true;
}

// Space ticks through its character, after the form has seen it.
std::optional<LRESULT> CheckBoxView::message(HWND, UINT message, WPARAM word, LPARAM) {
    const bool spaceKey = (message == WM_KEYDOWN || message == WM_KEYUP) && word == VK_SPACE;
    return spaceKey ? std::optional<LRESULT>(0) : std::nullopt;
}

void CheckBoxView::command(UINT code) {
    if (code == BN_CLICKED) {
        host().feed([this] {
            if (host().bringFocus(box_)) {
                box_.setChecked(!box_.checked());
            }
        });
    }
}

HBRUSH CheckBoxView::colors(HDC dc) {
    SetTextColor(dc, colorOf(style::caption));
    SetBkColor(dc, colorOf(surroundings()));
    return theme().brush(surroundings());
}

}  // namespace velmora::win32
