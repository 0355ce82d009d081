#pragma once
// Pictures of windows, as PNG files.

#include <string>

#include "velmora/adapters/win32/windows_api.h"

namespace velmora::screen {
class Form;
}

namespace velmora::win32 {

class Win32Screen;

/// Writes the inside of a window; false when the file cannot be written.
bool writePicture(HWND window, const std::string& path);

/// Shows the form at a scale (in dots per inch; 96: 100 %), writes its picture and hides it again. Width and height in
/// pixels at 100 %. False when the file cannot be written.
bool picture(Win32Screen& screen, screen::Form& form, const std::string& path, int dpi, int width = 1280,
             int height = 800);

}  // namespace velmora::win32
