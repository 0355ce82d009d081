#include "velmora/adapters/odbc/utf16.h"

#include <algorithm>
#include <cstddef>

#include "velmora/platform/runtime/text.h"

namespace velmora::odbc {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t firstOfTwoUnits = 0x10000;
constexpr char32_t highSurrogates = 0xD800;
constexpr char32_t lowSurrogates = 0xDC00;
constexpr char32_t behindSurrogates = 0xE000;

bool isHigh(char32_t unit) {
    return unit >= highSurrogates && unit < lowSurrogates;
}

bool isLow(char32_t unit) {
    return unit >= lowSurrogates && unit < behindSurrogates;
}

bool isAscii(char16_t unit) {
    return unit < 0x80;
}

}  // namespace

std::u16string toUtf16(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    for (const char32_t point : runtime::toCodePoints(text)) {
        if (point < firstOfTwoUnits) {
            units += static_cast<char16_t>(point);
        } else {
            const char32_t offset = point - firstOfTwoUnits;
            units += static_cast<char16_t>(highSurrogates + (offset >> 10U));
            units += static_cast<char16_t>(lowSurrogates + (offset & 0x3FFU));
        }
    }
    return units;
}

std::string toUtf8(std::u16string_view text) {
    // Most texts of a set.
    if (std::ranges::all_of(text, isAscii)) {
        return {text.begin(), text.end()};
    }
    std::u32string points;
    points.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t unit = text[i];
        if (isHigh(unit) && i + 1 < text.size() && isLow(text[i + 1])) {
            ++i;
            points.push_back(firstOfTwoUnits + ((unit - highSurrogates) << 10U) + (char32_t{text[i]} - lowSurrogates));
        } else {
            points += isHigh(unit) || isLow(unit) ? replacement : unit;
        }
    }
    return runtime::toUtf8(points);
}

}  // namespace velmora::odbc
