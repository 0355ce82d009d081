#include "velmora/adapters/machine/temporary_folder.h"

#include <system_error>

#include <stdlib.h>
#include <unistd.h>

#include "velmora/adapters/machine/trusted_folder.h"

namespace velmora::machine {

namespace fs = std::filesystem;

std::optional<fs::path> temporaryRoot() {
    std::error_code failure;
    const fs::path root = fs::temp_directory_path(failure);
    if (failure || !root.is_absolute()) {
        return std::nullopt;
    }
    return trustedFolder(root, ::geteuid());
}

std::optional<fs::path> newFolder(const fs::path& root, const std::string& prefix) {
    std::string pattern = (root / (prefix + "-XXXXXX")).string();
    return ::mkdtemp(pattern.data()) == nullptr ? std::nullopt : std::optional<fs::path>(pattern);
}

}  // namespace velmora::machine
