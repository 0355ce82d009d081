#include "velmora/adapters/machine/own_folder.h"

#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora::machine {

namespace fs = std::filesystem;

namespace {

constexpr mode_t ownerAlone = 0700;
constexpr mode_t allModes = 07777;
constexpr mode_t writableByOthers = 0022;

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
