#include "velmora/adapters/machine/own_folder.h"

#include <string_view>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora::machine {

namespace fs = std::filesystem;

namespace {

constexpr mode_t ownerAlone = 0700;
constexpr mode_t allModes = 07777;
constexpr mode_t writableByOthers = 0022;
constexpr int mostLinks = 40;

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int operator*() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }

  private:
    int number_;
};

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

/// Whether this folder is the user's own and closed to all others; sets mode 0700 if necessary.
bool isOurs(const fs::path& folder, uid_t user) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status {};
    if (!opened || ::fstat(*opened, &status) != 0 || status.st_uid != user) {
        return false;
    }
    // Others may already have placed links inside.
    if ((status.st_mode & writableByOthers) != 0) {
        return false;
    }
    return (status.st_mode & allModes) == ownerAlone || ::fchmod(*opened, ownerAlone) == 0;
}

}  // namespace

std::optional<fs::path> trustedFolder(const fs::path& path, uid_t user) {
    return trustedWay(path, user, 0);
}

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

OwnFolder::OwnFolder() : OwnFolder(Options{}) {}

OwnFolder::OwnFolder(Options options) : options_(std::move(options)) {}

// Differs D-260: a private folder instead of the system's temporary folder itself: names there can be guessed, and any
// user of the machine may have placed a link there or may read what is written.
std::optional<fs::path> OwnFolder::path() {
    const std::optional<fs::path> root = options_.root();
    if (!root) {
        return std::nullopt;
    }
    const uid_t user = options_.user.value_or(::geteuid());
    const fs::path folder = *root / (options_.name + "-" + std::to_string(user));
    ::mkdir(folder.c_str(), ownerAlone);
    if (isOurs(folder, user)) {
        return folder;
    }
    if (!other_ || !isOurs(*other_, ::geteuid())) {
        other_ = newFolder(*root, options_.name);
    }
    return other_;
}

}  // namespace velmora::machine
