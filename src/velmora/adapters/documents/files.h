#pragma once
// Where documents are written, and the way to the program that shows them.

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "velmora/platform/system/system.h"

class QIODevice;

namespace velmora::documents {

/// A name that every file system takes: characters that one of them refuses become blanks, blanks and points at the
/// end go, and what is too long is cut. Empty when nothing is left.
std::string fileName(std::string_view wanted);

/// Where a file of this name lies in the temporary folder. Error 76 when the machine has no such folder.
std::string temporaryPath(const system::Services& services, std::string_view name);

/// Opens a file with its associated program. Error 75, which tells where the file lies, when none opens it.
void openDocument(system::Services& services, std::string_view path);

/// Error 75: the file cannot be written, and why.
[[noreturn]] void refuseToWrite(std::string_view path, std::string_view reason);

/// A file that is written beside its final name and takes that name only when it is whole: a failure, or an end half
/// way, leaves nothing behind, and what stood there before stays.
class NewFile {
  public:
    /// Makes the draft, empty, in place of what an earlier run left of it; a link there is not followed. Error 75, with
    /// the reason, when that cannot be done.
    explicit NewFile(std::string path);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Where to write meanwhile.
    const std::string& draft() const { return draft_; }
    /// Gives the file its name. Error 75 when that cannot be done.
    void keep();

  private:
    std::string path_;
    std::string draft_;
};

/// Writes the draft of a file through a device of the toolkit; it is still to be kept. Error 75 when `write` answers
/// false or the device takes no more.
std::unique_ptr<NewFile> draftFile(const std::string& path, const std::function<bool(QIODevice&)>& write);

/// The same, and kept.
void writeFile(const std::string& path, const std::function<bool(QIODevice&)>& write);

}  // namespace velmora::documents
