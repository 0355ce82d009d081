#pragma once
// The system's dialog to choose an existing file.

#include <string>

#include "velmora/platform/system/system.h"

namespace velmora::services {

/// True when the user chose a file: its path and its name without folder are written to `fileName` and `fileTitle`;
/// otherwise both stay as they were. The filter consists of pairs of caption and masks, separated by "|". Chosen C-182:
/// flags, initial folder and default extension are the system's defaults, since no caller sets them. Differs D-180: a
/// path of more than 260 characters is not truncated. Errors: those of the dialog, source "VELMORA.CommonDialog".
bool VBGetOpenFileName(system::Services& services, std::string& fileName, std::string& fileTitle,
                       const std::string& dialogTitle, const std::string& filter = "All (*.*)| *.*");

}  // namespace velmora::services
