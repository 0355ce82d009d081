#pragma once
// The machine's services: clock, folders, files and the programs that open them.

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/runtime/date.h"

namespace velmora::system {

class Clock {
  public:
    virtual ~Clock() = default;
    virtual runtime::Date now() const = 0;
    /// Waits for the given time. A clock of a test may return at once and advance its own time instead.
    virtual void pause(std::chrono::milliseconds time) const;
};

/// The machine's local time.
class SystemClock final : public Clock {
  public:
    runtime::Date now() const override;
};

struct OpenFileRequest {
    std::string title;
    std::string filter;  ///< "Todos (*.*)|*.*"
};

class Services {
  public:
    virtual ~Services() = default;
    /// A folder for printed papers, spreadsheets and opened documents that is accessible to this user only, with a
    /// trailing separator. Empty when there is none: callers then report error 76 and must not write anywhere else, the
    /// current folder included.
    virtual std::string temporaryFolder() const = 0;
    /// The chosen path; nullopt when the dialog was cancelled.
    virtual std::optional<std::string> openFileDialog(const OpenFileRequest& request) = 0;
    /// Opens a file with its associated program. Returns a number above 32 on success, an error code from 0 to 32 on
    /// failure.
    virtual int openWithAssociatedProgram(std::string_view path) = 0;
    /// Puts a text on the clipboard; false when the machine has none.
    virtual bool copyToClipboard(std::string_view /*text*/) { return false; }
};

}  // namespace velmora::system
