// Text to number: CDbl, IsNumeric, Val, and the whole numbers of 16 and 32 bits.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

#include "velmora/platform/runtime/characters.h"
#include "velmora/platform/runtime/decimal_digits.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/number_reading.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/plain_number.h"

namespace velmora::runtime {

namespace {

template <typename Whole>
Whole toWholeType(double value) {
    using Limits = std::numeric_limits<Whole>;
    if (!(value > static_cast<double>(Limits::min()) - 1 && value < static_cast<double>(Limits::max()) + 1)) {
        raise(overflow);
    }
    const double whole = Scaled(value, 0).halfEven();
    if (whole < static_cast<double>(Limits::min()) || whole > static_cast<double>(Limits::max())) {
        raise(overflow);
    }
    return static_cast<Whole>(whole);
}

/// &HFFFF is -1 in 16 bits: the digits are a bit pattern, sign bit included.
template <typename Whole>
Whole toWholeType(std::string_view text, const Locale& locale) {
    const Reading reading = readNumber(text, locale);
    const double value = valueOf(reading);
    using Bits = std::make_unsigned_t<Whole>;
    if (reading.radix && value <= static_cast<double>(std::numeric_limits<Bits>::max())) {
        return static_cast<Whole>(static_cast<Bits>(value));
    }
    return toWholeType<Whole>(value);
}

}  // namespace

double CDbl(std::string_view text, const Locale& locale) {
    return valueOf(readNumber(text, locale));
}

bool IsNumeric(std::string_view text, const Locale& locale) {
    return readNumber(text, locale).outcome == Outcome::number;
}

std::int16_t CInt(double value) {
    return toWholeType<std::int16_t>(value);
}

std::int16_t CInt(std::string_view text, const Locale& locale) {
    return toWholeType<std::int16_t>(text, locale);
}

std::int32_t CLng(double value) {
    return toWholeType<std::int32_t>(value);
}

std::int32_t CLng(std::string_view text, const Locale& locale) {
    return toWholeType<std::int32_t>(text, locale);
}

double Val(std::string_view text) {
    std::string packed;
    packed.reserve(text.size());
    std::ranges::copy_if(text, std::back_inserter(packed),
                         [](char c) { return c != ' ' && c != '\t' && c != '\n' && c != '\r'; });
    const std::string_view rest = packed;
    std::size_t at = !rest.empty() && (rest[0] == '-' || rest[0] == '+') ? 1 : 0;
    const bool negative = at == 1 && rest[0] == '-';
    PlainNumber number(rest.size());
    bool fraction = false;
    for (; at < rest.size(); ++at) {
        if (isDigit(rest[at])) {
            number.digit(rest[at]);
        } else if (rest[at] == '.' && !fraction) {
            number.point();
            fraction = true;
        } else {
            break;
        }
    }
    if (number.empty()) {
        return 0;
    }
    if (at < rest.size() && (small(rest[at]) == 'e' || small(rest[at]) == 'd')) {
        std::size_t first = at + 1;
        const bool below = first < rest.size() && rest[first] == '-';
        first += first < rest.size() && (below || rest[first] == '+') ? 1U : 0U;
        const std::size_t end = std::min(rest.find_first_not_of("0123456789", first), rest.size());
        if (end > first) {
            number.exponent(below, rest.substr(first, end - first));
        }
    }
    const double value = valueOf(number.value());
    return negative ? -value : value;
}

}  // namespace velmora::runtime
