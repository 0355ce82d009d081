#pragma once
// Text between UTF-8, which the program holds, and UTF-16, which COM takes.

#include <string>
#include <string_view>

namespace velmora::com {

/// Bytes that are no UTF-8 become U+FFFD.
std::wstring toWide(std::string_view utf8);

/// Half a surrogate pair becomes U+FFFD.
std::string fromWide(std::wstring_view utf16);

}  // namespace velmora::com
