#pragma once
// How a script ends before its last line.

#include <exception>
#include <string>
#include <utility>

namespace velmora::script {

/// Exit statuses of a script.
enum class Status { ok = 0, checkFailed = 1, wrong = 2, unanswered = 3 };

/// Unwinds the operations that are running and the forms that are open. It is no run-time error of the language, so
/// that no error trap of theirs holds it up.
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
