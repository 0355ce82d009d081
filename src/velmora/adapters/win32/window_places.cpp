#include "velmora/adapters/win32/window_places.h"

#include <algorithm>

namespace velmora::win32 {

Box workArea(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& r = monitor.rcWork;
    return {.left = r.left, .top = r.top, .width = r.right - r.left, .height = r.bottom - r.top};
}

void placeOverOwner(HWND window, int width, int height) {
    RECT outer{0, 0, width, height};
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)));
    const HWND owner = GetWindow(window, GW_OWNER);
    const Box room = workArea(owner != nullptr ? owner : window);
    const int w = std::min<int>(outer.right - outer.left, room.width);
    const int h = std::min<int>(outer.bottom - outer.top, room.height);
    RECT over{room.left, room.top, room.left + room.width, room.top + room.height};
    if (owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner)) {
        GetWindowRect(owner, &over);
    }
    const int left = std::clamp<int>((over.left + over.right - w) / 2, room.left, room.left + room.width - w);
    const int top = std::clamp<int>((over.top + over.bottom - h) / 2, room.top, room.top + room.height - h);
    SetWindowPos(window, nullptr, left, top, w, h, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace velmora::win32
