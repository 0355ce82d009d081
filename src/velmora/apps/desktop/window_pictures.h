#pragma once
// Pictures of the program's windows as PNG files, for documentation and for checks without a display.

#include <string>
#include <vector>

#include "velmora/apps/desktop/picture_forms.h"

namespace velmora::qt {
class QtScreen;
}

namespace velmora::desktop {

/// Writes each picture as a PNG into the folder, which is created when missing. Returns the paths. Errors:
/// std::runtime_error when a file cannot be written; those of the forms.
std::vector<std::string> writePictures(qt::QtScreen& screen, const std::vector<WindowPicture>& pictures,
                                       const std::string& folder);

}  // namespace velmora::desktop
