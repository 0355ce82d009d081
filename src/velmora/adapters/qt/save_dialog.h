#pragma once
// The desktop's dialog for the file that something is to be written to.

#include <optional>
#include <string>

namespace velmora::qt {

/// Proposes a name in the user's documents folder and asks before it replaces a file. The ending of the proposed name
/// is added to a name without one. nullopt when cancelled.
std::optional<std::string> chooseTarget(const std::string& title, const std::string& fileName);

}  // namespace velmora::qt
