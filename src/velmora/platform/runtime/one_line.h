#pragma once
// Texts with line ends in files whose entries are lines.

#include <string>
#include <string_view>

namespace velmora::runtime {

/// The text without line ends: "\n", "\r" and "\\" stand for a line feed, a carriage return and a backslash.
std::string inOneLine(std::string_view text);

/// The text that inOneLine was given. A backslash before another character stands for that character.
std::string fromOneLine(std::string_view line);

}  // namespace velmora::runtime
