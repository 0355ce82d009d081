#pragma once
// The system's folder for temporary files, and new folders in it.

#include <filesystem>
#include <optional>
#include <string>

namespace velmora::machine {

/// The system's folder for temporary files, if it can be trusted: on POSIX TMPDIR, TMP, TEMP or TEMPDIR, else /tmp;
/// on Windows the user's own. nullopt for a relative path, which would depend on the current folder.
std::optional<std::filesystem::path> temporaryRoot();

/// A new folder below `root`, named `prefix`, a hyphen and random letters, which only this user can enter. nullopt when
/// it cannot be created.
std::optional<std::filesystem::path> newFolder(const std::filesystem::path& root, const std::string& prefix);

}  // namespace velmora::machine
