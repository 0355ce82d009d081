#pragma once
// A folder for temporary files that only this user can enter.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include <sys/types.h>

namespace velmora::machine {

/// The folder of this absolute path, as a path without symbolic links. nullopt when it is not a folder, when a link in
/// the path is owned by anybody but root and the user, or when a part of the path can be renamed by others (writable by
/// all without the sticky bit).
std::optional<std::filesystem::path> trustedFolder(const std::filesystem::path& path, uid_t user);

/// The system's folder for temporary files (TMPDIR, TMP, TEMP or TEMPDIR, else /tmp), if it can be trusted. nullopt for
/// a relative path, which would depend on the current folder.
std::optional<std::filesystem::path> temporaryRoot();

/// A new folder below `root`, named `prefix` followed by six random letters; mode 0700. nullopt when it cannot be
/// created.
std::optional<std::filesystem::path> newFolder(const std::filesystem::path& root, const std::string& prefix);

/// One folder per program and user below the temporary one, created on first use with mode 0700. It is never removed:
/// other programs may still have its files open when this one ends.
class OwnFolder {
  public:
    struct Options {
        std::string name = "velmora";
        std::function<std::optional<std::filesystem::path>()> root = temporaryRoot;
        std::optional<uid_t> user = {};  ///< owner that the folder must have; by default the process's effective user
    };
    OwnFolder();
    explicit OwnFolder(Options options);

    /// "velmora-1000" below the temporary folder. When that name is taken by anything but this user's own folder (a
    /// link, a folder of another user, one that others can write to): a new folder with a random name, the same one for
    /// the lifetime of this object. Checked again on every call. nullopt when neither is available.
    std::optional<std::filesystem::path> path();

  private:
    Options options_;
    std::optional<std::filesystem::path> other_;  ///< replaces a folder that is not ours
};

}  // namespace velmora::machine
