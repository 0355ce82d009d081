#include "velmora/adapters/script/journal.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "velmora/adapters/script/shown_text.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::script {

namespace {

template <std::size_t count, typename Enumeration>
std::string_view nameIn(const std::array<std::string_view, count>& names, Enumeration value) {
    return names.at(static_cast<std::size_t>(value));
}

}  // namespace

std::string_view nameOf(screen::Icon icon) {
    return nameIn(std::to_array<std::string_view>({"none", "critical", "question", "exclamation", "information"}),
                  icon);
}

std::string_view nameOf(screen::Buttons buttons) {
    return nameIn(std::to_array<std::string_view>({"ok", "yesno", "yesnocancel"}), buttons);
}

std::string_view nameOf(screen::Answer answer) {
    return nameIn(std::to_array<std::string_view>({"ok", "yes", "no", "cancel"}), answer);
}

void Journal::line(std::string_view text) {
    out_ << text << '\n' << std::flush;
}

void Journal::error(const runtime::RuntimeError& error) {
    line("error number=" + runtime::CStr(std::int64_t{error.number()}) +
         " description=" + inQuotes(error.description()));
}

void Journal::message(const screen::MessageBox& box, std::string_view answer) {
    std::string all = "message icon=";
    all.append(nameOf(box.icon)).append(" title=").append(inQuotes(box.title));
    all.append(" text=").append(inQuotes(box.text)).append(" buttons=").append(nameOf(box.buttons));
    line(all.append(" answer=").append(answer));
    lastMessage_ = withPlainBreaks(box.text);
    unchecked_.push_back(lastMessage_);
}

// Chosen C-267: a check matches only messages after the one matched last, so two checks of the same text need two
// boxes.
bool Journal::takeMessage(std::string_view text) {
    const auto found = std::ranges::find(unchecked_, withPlainBreaks(text));
    if (found == unchecked_.end()) {
        return false;
    }
    unchecked_.erase(unchecked_.begin(), std::next(found));
    return true;
}

}  // namespace velmora::script
