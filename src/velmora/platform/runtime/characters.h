#pragma once
// Character classes for texts that hold numbers and dates: ASCII only, independent of the process's locale.

namespace velmora::runtime {

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr char small(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool isLetterOrDigit(char c) {
    return isDigit(c) || (small(c) >= 'a' && small(c) <= 'z');
}

}  // namespace velmora::runtime
