// Format: numbers and numeric texts under a mask.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/decimal_digits.h"
#include "velmora/platform/runtime/number_reading.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::runtime {

namespace {

struct NumberMask {
    int leastWhole = 0;     ///< minimum number of digits before the decimal sign
    int leastDecimals = 0;  ///< minimum number of digits after it
    int mostDecimals = 0;
    bool point = false;
    bool grouped = false;
    std::string_view before;  ///< literal text around the digits
    std::string_view behind;
};

NumberMask parseMask(std::string_view mask) {
    NumberMask result;
    constexpr std::string_view placeholders = "0#,.";
    const std::size_t first = mask.find_first_of(placeholders);
    if (first == std::string_view::npos) {
        result.before = mask;
        return result;
    }
    const std::size_t end = std::min(mask.find_first_not_of(placeholders, first), mask.size());
    result.before = mask.substr(0, first);
    result.behind = mask.substr(end);
    for (const char c : mask.substr(first, end - first)) {
        if (c == '.') {
            result.point = true;
        } else if (c == ',') {
            result.grouped = true;
        } else if (result.point) {
            ++result.mostDecimals;
            result.leastDecimals = c == '0' ? result.mostDecimals : result.leastDecimals;
        } else {
            result.leastWhole += c == '0' || result.leastWhole > 0 ? 1 : 0;
        }
    }
    return result;
}

std::string write(const Decimal& number, const NumberMask& mask, const Locale& locale) {
    std::string result;
    const int whole = std::max(mask.leastWhole, number.count > 0 ? number.exponent + 1 : 0);
    result.reserve(mask.before.size() + mask.behind.size() + static_cast<std::size_t>(std::max(whole, 0)) * 4 / 3 +
                   static_cast<std::size_t>(mask.mostDecimals) + 4);
    if (number.negative) {
        result += '-';
    }
    result += mask.before;
    for (int position = whole - 1; position >= 0; --position) {
        result += number.at(position);
        if (mask.grouped && position > 0 && position % 3 == 0) {
            result += locale.thousands;
        }
    }
    if (mask.point) {
        result += locale.decimal;
        const int decimals = std::clamp(number.decimals(), mask.leastDecimals, mask.mostDecimals);
        for (int position = 1; position <= decimals; ++position) {
            result += number.at(-position);
        }
    }
    result += mask.behind;
    return result;
}

bool isDateMask(std::string_view mask) {
    return mask.find_first_of("dmyhnsDMYHNS") != std::string_view::npos &&
           mask.find_first_of("0#") == std::string_view::npos;
}

}  // namespace

std::string Format(double value, std::string_view mask, const Locale& locale) {
    if (mask.empty()) {
        return CStr(value, locale);
    }
    if (isDateMask(mask)) {
        return Format(fromSerial(value), mask);
    }
    const NumberMask parsed = parseMask(mask);
    Decimal number = toDecimal(value);
    roundAway(number, parsed.mostDecimals);
    return write(number, parsed, locale);
}

std::string Format(std::string_view text, std::string_view mask, const Locale& locale) {
    if (isDateMask(mask) && IsDate(text)) {
        return Format(CDate(text), mask);
    }
    const Reading reading = readNumber(text, locale);
    if (reading.outcome != Outcome::number) {
        return std::string(text);
    }
    return Format(reading.value, mask, locale);
}

}  // namespace velmora::runtime
