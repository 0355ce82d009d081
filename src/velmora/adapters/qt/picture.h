#pragma once
// The picture of a form's window, with no screen needed (on the offscreen platform).

#include <QSize>
#include <string>

#include "velmora/platform/screen/form.h"

namespace velmora::qt {

class QtScreen;

/// Writes the window as it opens to a PNG file. False when the file cannot be written.
bool picture(QtScreen& screen, screen::Form& form, const std::string& path, QSize size = {1280, 800});

}  // namespace velmora::qt
