#pragma once
// Texts of the language. A text is UTF-8; positions and lengths count UTF-16 units as the language does, and a
// character is never cut in half.

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora::runtime {

/// Length in UTF-16 units.
std::size_t Len(std::string_view text);

/// The first or the last `count` units. A character that the cut would split is left out whole.
std::string Left(std::string_view text, std::size_t count);
std::string Right(std::string_view text, std::size_t count);

/// `count` units from the 1-based `start`. Error 5 when start is 0.
std::string Mid(std::string_view text, std::size_t start, std::size_t count = static_cast<std::size_t>(-1));

/// Strips blanks (the space character only) from both ends.
std::string Trim(std::string_view text);

/// Every occurrence of `from` replaced by `to`; an empty `from` changes nothing.
std::string Replace(std::string_view text, std::string_view from, std::string_view to);

/// Upper and lower case of the Latin alphabet, accented letters and ñ included.
std::string UCase(std::string_view text);
std::string LCase(std::string_view text);

/// The characters of a UTF-8 text; an invalid byte counts as U+FFFD.
std::u32string toCodePoints(std::string_view text);
std::string toUtf8(std::u32string_view text);
std::string toUtf8(char32_t character);

}  // namespace velmora::runtime
