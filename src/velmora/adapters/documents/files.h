#pragma once
// Writing documents, and opening them with their program.

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "velmora/platform/system/system.h"

class QIODevice;

namespace velmora::documents {

/// A file name valid on every file system: forbidden characters become blanks, trailing blanks and points are removed,
/// and long names are truncated. Empty when nothing is left.
std::string fileName(std::string_view wanted);

/// The path of a file with this name in the temporary folder. Error 76 when the machine has no such folder.
std::string temporaryPath(const system::Services& services, std::string_view name);

/// Opens a file with its associated program. Error 75, with the path in its description, when no program opens it.
void openDocument(system::Services& services, std::string_view path);

/// Raises error 75: the file cannot be written, with the reason.
[[noreturn]] void refuseToWrite(std::string_view path, std::string_view reason);

/// A file written under a temporary name and renamed when it is complete: a failure half way leaves nothing behind and
/// an existing file unchanged.
class NewFile {
  public:
    /// Creates the empty draft, replacing what an earlier run has left; a link there is not followed. Error 75, with
    /// the reason, when that fails.
    explicit NewFile(std::string path);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Path to write to until `keep`.
    const std::string& draft() const { return draft_; }
    /// Renames the draft to its final name. Error 75 when that fails.
    void keep();

  private:
    std::string path_;
    std::string draft_;
};

/// Writes the draft of a file through a device of the toolkit; the caller must call `keep`. Error 75 when `write`
/// returns false or the device fails.
std::unique_ptr<NewFile> draftFile(const std::string& path, const std::function<bool(QIODevice&)>& write);

/// The same, including `keep`.
void writeFile(const std::string& path, const std::function<bool(QIODevice&)>& write);

}  // namespace velmora::documents
