#pragma once
// Messages about the rows of reference data that are written.

#include <string>

#include "velmora/platform/screen/screen.h"

namespace velmora::reference {

inline constexpr const char* lineBreak = "\r\n";

/// Shows, with the critical icon, why nothing was written.
void refuse(screen::Screen& screen, const std::string& words, const char* title = "");

}  // namespace velmora::reference
