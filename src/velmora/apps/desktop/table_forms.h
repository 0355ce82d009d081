#pragma once
// The forms of the workshop's own data on the desktop: their entries in the menu, and their pictures.

#include <vector>

#include "velmora/apps/desktop/picture_forms.h"
#include "velmora/apps/desktop/start_menu.h"

namespace velmora::desktop {

/// One entry for each table. Offered on the workshop's own database only: at a server the tables are the host's.
std::vector<MenuEntry> tableEntries();

/// Every table with the rows of the session's database.
std::vector<WindowPicture> tablePictures(session::Session& session, platform::Desk& desk);

}  // namespace velmora::desktop
