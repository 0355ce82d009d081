#pragma once
// The system's dialog to choose a file that is there.

#include <string>

#include "velmora/platform/system/system.h"

namespace velmora::services {

/// True when the user chose a file: its path and its name without folder are written to `fileName` and `fileTitle`.
/// Otherwise both stay as they were. The filter holds pairs of a caption and masks, divided by "|".
/// Chosen C-182: flags, folder to begin in and default extension are the system's: the one call leaves them alone.
/// Differs D-180: a path of more than 260 characters is not cut.
/// Errors: what the dialog raises, source "VELMORA.CommonDialog".
bool VBGetOpenFileName(system::Services& services, std::string& fileName, std::string& fileTitle,
                       const std::string& dialogTitle, const std::string& filter = "All (*.*)| *.*");

}  // namespace velmora::services
