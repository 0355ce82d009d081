#include "velmora/adapters/win32/control_view.h"

#include "velmora/adapters/win32/accessible_name.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/platform/toolkit/tool_tip_text.h"

namespace velmora::win32 {

void ControlView::update(screen::Property property) {
    switch (property) {
        case screen::Property::enabled:
            for (const HWND window : windows()) {
                EnableWindow(window, looksEnabled());
            }
            updateColors();
            break;
        case screen::Property::visible:
            updateVisible();
            break;
        case screen::Property::toolTip:
            host().forgetToolTip();
            break;
        case screen::Property::warning:
            host().forgetToolTip();
            repaint();
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
    for (const auto property : {screen::Property::enabled, screen::Property::visible}) {
        ControlView::update(property);
    }
}

std::wstring ControlView::toolTip() const {
    return toWide(toolkit::toolTipTextOf(control_));
}

void ControlView::updateVisible() {
    if (shownByOther_) {
        return;
    }
    const toolkit::WidgetState state = toolkit::widgetStateOf(control_, enclosing_);
    setState(state);
    for (Part* companion : companions_) {
        companion->setState(state);
    }
}

void ControlView::placed() {
    for (const HWND window : windows()) {
        moveTo(window, box());
        ShowWindow(window, isShown() ? SW_SHOWNA : SW_HIDE);
    }
}

void ControlView::setAccessibleName(const std::wstring& name) {
    accessibleName_ = name;
    if (const HWND target = focusTarget()) {
        nameForAssistance(target, name);
    }
}

void ControlView::watch(HWND window) {
    host().addInput(window, *this);
    watched_.emplace_back(window,
                          std::make_unique<Interception>(
                              window, [this, window](UINT kind, WPARAM word, LPARAM value) -> std::optional<LRESULT> {
                                  if (auto result = host().incoming(*this, window, kind, word, value)) {
                                      return result;
                                  }
                                  return message(window, kind, word, value);
                              }));
}

LRESULT ControlView::passOn(HWND window, UINT message, WPARAM word, LPARAM value) const {
    for (const auto& [watched, interception] : watched_) {
        if (watched == window) {
            return interception->passOn(message, word, value);
        }
    }
    return DefWindowProcW(window, message, word, value);
}

}  // namespace velmora::win32
