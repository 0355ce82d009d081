#pragma once
// Opens a file with the program that is associated with it.

#include <string_view>

#include "velmora/platform/system/system.h"

namespace velmora::services {

/// Chosen C-180: only the path is passed on. Show mode, parameters, folder and operation of the host's function have
/// their defaults in every call, and its special case of ".EXE" in the path has no effect. Errors: the failure's text
/// for the codes 0 to 32, source "VELMORA.GShell".
void ShellEx(system::Services& services, std::string_view path);

}  // namespace velmora::services
