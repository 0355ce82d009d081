#pragma once
// What the desktop decides about printed papers: whose they are, where they go, and the preview that shows them.

#include "velmora/adapters/documents/proposal_printing.h"
#include "velmora/adapters/qt/qt_screen.h"
#include "velmora/apps/desktop/database_place.h"

namespace velmora::desktop {

/// Screen and services must outlive the result.
documents::PaperChoices paperChoices(const DatabasePlace& place, qt::QtScreen& screen, system::Services& services);

}  // namespace velmora::desktop
