#pragma once
// Whether nobody but its owner decides where a path leads. POSIX only: elsewhere each user has a temporary folder of
// his own.

#include <filesystem>
#include <optional>

#include <sys/types.h>

namespace velmora::machine {

/// The folder of this absolute path, as a path without symbolic links. nullopt when it is not a folder, when a link in
/// the path is owned by anybody but root and the user, or when a part of the path can be renamed by others (writable by
/// all without the sticky bit).
std::optional<std::filesystem::path> trustedFolder(const std::filesystem::path& path, uid_t user);

}  // namespace velmora::machine
