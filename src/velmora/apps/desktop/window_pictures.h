#pragma once
// Pictures of the program's windows as PNG files, for documentation and for checks without a display.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "velmora/platform/desk.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/session/session.h"

namespace velmora::qt {
class QtScreen;
}

namespace velmora::desktop {

struct WindowPicture {
    std::string name;  ///< of the file, without its extension
    std::function<std::unique_ptr<screen::Form>()> make;
};

/// The main form with a proposal of each product type, the labour form, and the other windows.
std::vector<WindowPicture> windowPictures(session::Session& session, platform::Desk& desk);

/// Writes each picture as a PNG into the folder, which is created when missing. Returns the paths. Errors:
/// std::runtime_error when a file cannot be written; those of the forms.
std::vector<std::string> writePictures(qt::QtScreen& screen, const std::vector<WindowPicture>& pictures,
                                       const std::string& folder);

}  // namespace velmora::desktop
