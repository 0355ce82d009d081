#include "velmora/apps/workshop_file/folder_lock.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace velmora::workshop_file {

namespace {

void require(bool done) {
    if (!done) {
        throw std::system_error(errno, std::generic_category());
    }
}

}  // namespace

FolderLock::FolderLock(const std::filesystem::path& folder)
    : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    require(folder_ >= 0);
    while (::flock(folder_, LOCK_EX) != 0) {
        if (errno != EINTR) {
            const int reason = errno;
            ::close(folder_);
            throw std::system_error(reason, std::generic_category());
        }
    }
}

FolderLock::~FolderLock() {
    ::close(folder_);
}

void FolderLock::sync() const {
    require(::fsync(folder_) == 0);
}

std::filesystem::path folderOf(const std::filesystem::path& file) {
    return file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
}

void syncFile(const std::filesystem::path& file) {
    const int opened = ::open(file.c_str(), O_RDWR | O_CLOEXEC);
    require(opened >= 0);
    const bool synced = ::fsync(opened) == 0;
    const int reason = errno;
    ::close(opened);
    errno = reason;
    require(synced);
}

}  // namespace velmora::workshop_file
