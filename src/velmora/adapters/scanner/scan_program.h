#pragma once
// Location of velmora-scan.

#include <filesystem>
#include <string>

namespace velmora::scanner {

/// Relative to the folder of the running program: beside it, as in a build, or where an installation has it. When it is
/// in neither, the path beside it, so that the error on starting it names a path.
std::string scanProgram(const std::filesystem::path& programs);

/// The folder of the running program; the current folder where the system cannot tell.
std::filesystem::path ownFolder();

}  // namespace velmora::scanner
