#include "velmora/platform/toolkit/painted_number.h"

#include <algorithm>
#include <cstddef>

#include "velmora/platform/runtime/characters.h"

namespace velmora::toolkit {

int decimalsOf(std::string_view text) {
    if (text.starts_with('-')) {
        text.remove_prefix(1);
    }
    const std::size_t comma = text.find(',');
    const std::string_view whole = text.substr(0, comma);
    const std::string_view fraction = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
    const bool wholeIsRight = std::ranges::all_of(whole, [](char c) { return runtime::isDigit(c) || c == '.'; }) &&
                              std::ranges::any_of(whole, runtime::isDigit) && !whole.starts_with('.') &&
                              !whole.ends_with('.');
    return wholeIsRight && std::ranges::all_of(fraction, runtime::isDigit) ? static_cast<int>(fraction.size()) : -1;
}

// Chosen C-401: painting adds zeros and never rounds: the painted number is the one that is calculated with.
std::string paintedNumber(std::string_view text, int decimals) {
    std::string painted(text);
    const int present = decimalsOf(text);
    if (present < 0 || present >= decimals) {
        return painted;
    }
    if (text.find(',') == std::string_view::npos) {
        painted += ',';
    }
    return painted.append(static_cast<std::size_t>(decimals - present), '0');
}

// Chosen C-402: a number without room is painted as "###", like a column of a sheet that is too narrow.
std::string fittedNumber(const std::string& text, int room, const Advance& advance) {
    if (advance(text) <= room) {
        return text;
    }
    const int sign = std::max(advance("#"), 1);
    return std::string(static_cast<std::size_t>(std::max(room / sign, 1)), '#');
}

// Zeros that have no room are left out before the number is given up.
std::string paintedInField(std::string_view text, int decimals, int room, const Advance& advance) {
    const std::string padded = paintedNumber(text, decimals);
    return advance(padded) <= room ? padded : fittedNumber(std::string(text), room, advance);
}

}  // namespace velmora::toolkit
