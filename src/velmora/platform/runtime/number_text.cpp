// Number to text: the 15 digits of the language, and the shortest digits that parse back to the same double.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "velmora/platform/runtime/decimal_digits.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::runtime {

namespace {

/// The text of a number that has at most two decimals, which most of the program's numbers have; none for another one.
/// A double that is the nearest to such a number of at most fifteen digits has those digits.
std::optional<std::string> textOfHundredths(double value, char decimal) {
    constexpr double hundred = 100;
    constexpr double beyondFifteenDigits = 1e15;
    const double size = std::abs(value);
    const double product = size * hundred + 0.5;
    if (!(product < beyondFifteenDigits)) {
        return std::nullopt;
    }
    const auto hundredths = static_cast<std::uint64_t>(product);
    if (static_cast<double>(hundredths) / hundred != size) {
        return std::nullopt;
    }
    std::array<char, 24> buffer;
    char* at = buffer.data();
    if (value < 0) {
        *at++ = '-';
    }
    at = std::to_chars(at, buffer.data() + buffer.size(), hundredths / 100).ptr;
    if (const auto rest = static_cast<int>(hundredths % 100); rest != 0) {
        *at++ = decimal;
        *at++ = static_cast<char>('0' + rest / 10);
        if (rest % 10 != 0) {
            *at++ = static_cast<char>('0' + rest % 10);
        }
    }
    return std::string(buffer.data(), at);
}

}  // namespace

std::string CStr(double value, const Locale& locale) {
    if (auto usual = textOfHundredths(value, locale.decimal)) {
        return std::move(*usual);
    }
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
