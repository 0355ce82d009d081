#pragma once
// Pictures of the windows, for documents and for eyes that want to judge them without a screen.

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

struct Page {
    std::string name;  ///< of the file, without its ending
    std::function<std::unique_ptr<screen::Form>()> make;
};

/// The main form with a proposal of each product type, the labour form, and the other windows.
std::vector<Page> pictureBook(session::Session& session, platform::Desk& desk);

/// Writes each page as a PNG into the folder, which is made when it does not exist. Gives the paths. Errors:
/// std::runtime_error when one cannot be written; what the forms raise.
std::vector<std::string> writePictures(qt::QtScreen& screen, const std::vector<Page>& pages, const std::string& folder);

}  // namespace velmora::desktop
