#pragma once
// A folder for temporary files that nobody but this user can enter.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include <sys/types.h>

namespace velmora::machine {

/// The folder of this absolute path, as a path without links. None when it is no folder, when a link on the way was
/// laid by somebody other than root and the user, or when anybody may rename what lies on the way (writable by all
/// without the sticky bit).
std::optional<std::filesystem::path> trustedFolder(const std::filesystem::path& path, uid_t user);

/// The folder that the system gives to temporary files (TMPDIR and its kin, else /tmp), if it can be trusted. None for
/// a relative path: which folder that is hangs on the current one.
std::optional<std::filesystem::path> temporaryRoot();

/// A new folder below `root`, named after `prefix` and six random letters; mode 0700. None when it cannot be made.
std::optional<std::filesystem::path> newFolder(const std::filesystem::path& root, const std::string& prefix);

/// One folder of this program and user below the temporary one, made when it is first asked for, mode 0700. It stays:
/// what was opened from it is still being read when the program ends.
class OwnFolder {
  public:
    struct Options {
        std::string name = "velmora";
        std::function<std::optional<std::filesystem::path>()> root = temporaryRoot;
        std::optional<uid_t> user = {};  ///< whose folder it must be; the process's effective user when none is given
    };
    OwnFolder();
    explicit OwnFolder(Options options);

    /// "velmora-1000" below the temporary folder. Where something stands at that name that is not this user's own
    /// folder, a link, say, or a folder of somebody else or one that others could write in: a new folder with a random
    /// name, the same one for the life of this object. Looked at anew with every call. None when neither can be had.
    std::optional<std::filesystem::path> path();

  private:
    Options options_;
    std::optional<std::filesystem::path> other_;  ///< in the place of one that is not ours
};

}  // namespace velmora::machine
