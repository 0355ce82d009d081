#pragma once
// The machine around the program: the clock, folders, files and the programs that open them.

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
    /// Returns when so much time has passed. The machine's time, unless a clock of its own makes it pass otherwise.
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
    /// A folder for papers, sheets and viewed documents that nobody but this user can enter, with a separator at its
    /// end. Empty when there is none: whoever writes says so (error 76) and never writes elsewhere, the current folder
    /// least of all.
    virtual std::string temporaryFolder() const = 0;
    /// The path chosen; none when the dialog was left.
    virtual std::optional<std::string> openFileDialog(const OpenFileRequest& request) = 0;
    /// Opens a file with its associated program. Gives a number above 32, or a failure's code from 0 to 32.
    virtual int openWithAssociatedProgram(std::string_view path) = 0;
};

}  // namespace velmora::system
