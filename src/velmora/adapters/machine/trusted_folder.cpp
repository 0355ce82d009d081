#include "velmora/adapters/machine/trusted_folder.h"

#include <system_error>

#include <sys/stat.h>

namespace velmora::machine {

namespace fs = std::filesystem;

namespace {

constexpr int mostLinks = 40;

bool mayRenameIn(const struct stat& folder) {
    return (folder.st_mode & S_IWOTH) != 0 && (folder.st_mode & S_ISVTX) == 0;
}

/// The path with its symbolic links resolved one by one; nullopt when a link or folder of it is not trusted.
std::optional<fs::path> trustedWay(const fs::path& path, uid_t user, int links) {
    fs::path way = path.root_path();
    const fs::path below = path.relative_path();
    for (auto part = below.begin(); part != below.end(); ++part) {
        if (part->empty() || *part == ".") {
            continue;
        }
        const fs::path next = *part == ".." ? way.parent_path() : way / *part;
        struct stat status {};
        if (::lstat(next.c_str(), &status) != 0) {
            return std::nullopt;
        }
        if (S_ISLNK(status.st_mode)) {
            if ((status.st_uid != 0 && status.st_uid != user) || links >= mostLinks) {
                return std::nullopt;
            }
            std::error_code failure;
            fs::path target = way / fs::read_symlink(next, failure);
            if (failure) {
                return std::nullopt;
            }
            while (++part != below.end()) {
                target /= *part;
            }
            return trustedWay(target, user, links + 1);
        }
        if (!S_ISDIR(status.st_mode) || mayRenameIn(status)) {
            return std::nullopt;
        }
        way = next;
    }
    return way;
}

}  // namespace

std::optional<fs::path> trustedFolder(const fs::path& path, uid_t user) {
    return trustedWay(path, user, 0);
}

}  // namespace velmora::machine
