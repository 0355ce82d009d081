#pragma once
// Ends a script before its last line.

#include <exception>
#include <string>
#include <utility>

namespace velmora::script {

/// Exit statuses of a script.
enum class Status { ok = 0, checkFailed = 1, wrong = 2, unanswered = 3 };

/// Unwinds the running operations and the open forms. Deliberately not a RuntimeError, so that no error trap catches
/// it.
class Ending : public std::exception {
  public:
    Ending(Status status, std::string reason) : status_(status), reason_(std::move(reason)) {}
    Status status() const { return status_; }
    const char* what() const noexcept override { return reason_.c_str(); }

  private:
    Status status_;
    std::string reason_;
};

}  // namespace velmora::script
