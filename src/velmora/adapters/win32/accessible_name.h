#pragma once
// Names of windows for assistive technology.

#include <string>

#include "velmora/adapters/win32/windows_api.h"

namespace velmora::win32 {

/// Gives a window a name other than its text. Does nothing where the system offers no such service.
void nameForAssistance(HWND window, const std::wstring& name);

}  // namespace velmora::win32
