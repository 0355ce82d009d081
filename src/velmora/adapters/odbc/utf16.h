#pragma once
// Text between UTF-8, which the program holds, and UTF-16, which drivers take.

#include <string>
#include <string_view>

namespace velmora::odbc {

/// Bytes that are no UTF-8 become U+FFFD.
std::u16string toUtf16(std::string_view text);

/// Half a surrogate pair becomes U+FFFD.
std::string toUtf8(std::u16string_view text);

}  // namespace velmora::odbc
