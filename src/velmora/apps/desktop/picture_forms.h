#pragma once
// The windows of which pictures are made, with the data that they show.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "velmora/platform/desk.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/session/session.h"

namespace velmora::desktop {

struct WindowPicture {
    std::string name;  ///< of the file, without its extension
    std::function<std::unique_ptr<screen::Form>()> make;
};

/// The main form with a proposal of each product type, the labour form, and the other windows.
std::vector<WindowPicture> windowPictures(session::Session& session, platform::Desk& desk);

}  // namespace velmora::desktop
