// Number to text: the 15 digits of the language, and the shortest digits that parse back to the same double.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "velmora/platform/runtime/decimal_digits.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::runtime {

std::string CStr(double value, const Locale& locale) {
    const Decimal number = toDecimal(value);
    if (number.count == 0) {
        return "0";
    }
    std::array<char, 40> buffer;
    char* at = buffer.data();
    if (number.negative) {
        *at++ = '-';
    }
    const bool plain =
        number.exponent < significantDigits && number.exponent >= -4 && number.decimals() <= significantDigits;
    const int whole = plain ? std::max(number.exponent, 0) : number.exponent;
    const int last = number.exponent - number.count + 1;
    for (int position = whole; position >= (plain ? std::min(last, 0) : last); --position) {
        *at++ = number.at(position);
        if (position == (plain ? 0 : whole) && position > last) {
            *at++ = locale.decimal;
        }
    }
    if (!plain) {
        *at++ = 'E';
        *at++ = number.exponent < 0 ? '-' : '+';
        const int exponent = std::abs(number.exponent);
        if (exponent < 10) {
            *at++ = '0';
        }
        at = std::to_chars(at, buffer.data() + buffer.size(), exponent).ptr;
    }
    return std::string(buffer.data(), at);
}

std::string CStr(std::int64_t value) {
    std::array<char, 24> buffer;
    return std::string(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr);
}

std::string shortest(double value) {
    requireFinite(value);
    if (value == 0) {
        return "0";
    }
    const double size = std::abs(value);
    const auto form = size >= 1e-5 && size < 1e15 ? std::chars_format::fixed : std::chars_format::scientific;
    std::array<char, 40> buffer;
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, form);
    return std::string(buffer.data(), written.ptr);
}

}  // namespace velmora::runtime
