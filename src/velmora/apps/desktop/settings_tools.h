#pragma once
// The window of the settings with the dialogs of this desktop.

#include "velmora/apps/desktop/database_place.h"
#include "velmora/apps/desktop/settings_form.h"

namespace velmora::desktop {

SettingsTools settingsTools(const DatabasePlace& place);

/// Shows the settings of a database that is not in memory.
void showSettings(platform::Desk& desk, const DatabasePlace& place);

}  // namespace velmora::desktop
