#pragma once
// Converts texts between the model (UTF-8) and the system (UTF-16).

#include <string>
#include <string_view>

namespace velmora::win32 {

std::wstring toWide(std::string_view text);
/// Half a surrogate pair becomes the replacement character.
std::string fromWide(std::wstring_view text);
/// One character, as one or two units.
std::wstring toWide(char32_t character);

/// Every line ends with carriage return and line feed, as the system's controls want it.
std::wstring withLineEnds(std::wstring_view text);

}  // namespace velmora::win32
