#pragma once
// Where top-level windows stand.

#include "velmora/adapters/win32/native_window.h"

namespace velmora::win32 {

/// The part of the window's monitor that is free for windows.
Box workArea(HWND window);

/// Gives a top-level window its inner size, limited to the monitor, and centres it over its owner; without one, on the
/// monitor.
void placeOverOwner(HWND window, int width, int height);

}  // namespace velmora::win32
