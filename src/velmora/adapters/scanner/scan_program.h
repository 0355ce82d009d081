#pragma once
// Where velmora-scan lies.

#include <filesystem>
#include <string>

namespace velmora::scanner {

/// Seen from the folder of the running program: beside it, as in a build, or where an installation has it. Where there
/// is neither, the place beside it, so that the error on starting it names a path.
std::string scanProgram(const std::filesystem::path& programs);

/// The folder of the running program; the current folder where the system does not tell it.
std::filesystem::path ownFolder();

}  // namespace velmora::scanner
