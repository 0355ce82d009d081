#pragma once
// Opens a file with the program that is associated with it.

#include <string_view>

#include "velmora/platform/system/system.h"

namespace velmora::services {

/// Chosen C-180: the path alone is handed on. Show mode, parameters, folder and operation of the host's function keep
/// their defaults in every call, and its note of ".EXE" in the path changes nothing.
/// Errors: the failure's text for the codes 0 to 32, source "VELMORA.GShell".
void ShellEx(system::Services& services, std::string_view path);

}  // namespace velmora::services
