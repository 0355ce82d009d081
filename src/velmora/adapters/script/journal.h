#pragma once
// The output of a running script: lines, errors, messages.

#include <deque>
#include <ostream>
#include <string>
#include <string_view>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::script {

class Journal {
  public:
    explicit Journal(std::ostream& out) : out_(out) {}
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// Writes the text and a line end, and passes them on at once: what was said stays said when the process is killed.
    void line(std::string_view text);
    /// The same for lines that already have their line ends.
    void lines(std::string_view text) { out_ << text << std::flush; }
    /// error number=13 description="…"
    void error(const runtime::RuntimeError& error);
    /// message icon=… title="…" text="…" buttons=… answer=…, and keeps the text for expect-message.
    void message(const screen::MessageBox& box, std::string_view answer);

    /// Runs the consequences of a user action. An error that nothing inside traps is printed and ends it: false.
    template <typename Action>
    bool guard(Action&& action) {
        try {
            action();
            return true;
        } catch (const runtime::RuntimeError& e) {
            error(e);
            return false;
        }
    }

    /// True when a message with this text was shown since the last match; that message and all before it are then
    /// consumed. All kinds of line breaks compare equal.
    bool takeMessage(std::string_view text);
    /// The text shown last; "" before the first.
    std::string lastMessage() const { return lastMessage_; }

  private:
    std::ostream& out_;
    std::deque<std::string> unchecked_;
    std::string lastMessage_;
};

/// Names as used in scripts and messages: critical, yesno, cancel.
std::string_view nameOf(screen::Icon icon);
std::string_view nameOf(screen::Buttons buttons);
std::string_view nameOf(screen::Answer answer);

}  // namespace velmora::script
