#pragma once
// One program at a time makes files in a folder.

#include <filesystem>

namespace velmora::workshop_file {

/// Held by this process until it is destroyed or the process ends, however that happens. POSIX only.
class FolderLock {
  public:
    /// Waits for whoever holds it. Errors: std::system_error when the folder cannot be opened.
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// Returns when the names of the folder are on the disk. Errors: std::system_error.
    void sync() const;

  private:
    int folder_;
};

/// The folder in which a file lies; the working folder of a name without one.
std::filesystem::path folderOf(const std::filesystem::path& file);

/// Returns when the file is on the disk. Errors: std::system_error.
void syncFile(const std::filesystem::path& file);

}  // namespace velmora::workshop_file
