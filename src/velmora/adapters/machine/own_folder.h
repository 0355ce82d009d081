#pragma once
// A folder for temporary files that only this user can enter.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include <sys/types.h>

#include "velmora/adapters/machine/temporary_folder.h"

namespace velmora::machine {

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
