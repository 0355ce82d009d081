#pragma once
// What a script shows as it happens: lines, errors, messages.

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

    /// Writes the text and ends the line.
    void line(std::string_view text);
    /// Writes lines that are ended already.
    void lines(std::string_view text) { out_ << text; }
    /// error number=13 description="…"
    void error(const runtime::RuntimeError& error);
    /// message icon=… title="…" text="…" buttons=… answer=…, and keeps the text for expect-message.
    void message(const screen::MessageBox& box, std::string_view answer);

    /// Runs what a user's deed sets going. An error that nothing in it trapped is shown and ends it there: false.
    template <typename Deed>
    bool guard(Deed&& deed) {
        try {
            deed();
            return true;
        } catch (const runtime::RuntimeError& e) {
            error(e);
            return false;
        }
    }

    /// True when a message with this text was shown and no earlier check has passed over it; it and those before it
    /// are then checked off. Line breaks of every kind are alike.
    bool takeMessage(std::string_view text);
    /// The text shown last, "" before the first.
    std::string lastMessage() const { return lastMessage_; }

  private:
    std::ostream& out_;
    std::deque<std::string> unchecked_;
    std::string lastMessage_;
};

/// As scripts and messages write them: critical, yesno, cancel.
std::string_view nameOf(screen::Icon icon);
std::string_view nameOf(screen::Buttons buttons);
std::string_view nameOf(screen::Answer answer);

}  // namespace velmora::script
