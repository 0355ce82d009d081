#pragma once
// A screenshot of a form's window; works without a display (on the offscreen platform).

#include <QSize>
#include <string>

#include "velmora/platform/screen/form.h"

namespace velmora::qt {

class QtScreen;

/// Writes the window in its initial state to a PNG file. False when the file cannot be written.
bool picture(QtScreen& screen, screen::Form& form, const std::string& path, QSize size = {1280, 800});

}  // namespace velmora::qt
