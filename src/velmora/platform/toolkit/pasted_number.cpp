#include "velmora/platform/toolkit/pasted_number.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "velmora/platform/runtime/text.h"

namespace velmora::toolkit {

namespace {

constexpr std::size_t groupDigits = 3;

bool isDigit(char32_t c) {
    return c >= U'0' && c <= U'9';
}

/// The blank, and the unbreakable, thin and other blanks of typesetting.
bool isInnerBlank(char32_t c) {
    return c == U' ' || c == U'\u00a0' || (c >= U'\u2000' && c <= U'\u200b') || c == U'\u202f' || c == U'\ufeff';
}

/// A tab or a line break too: they end a cell of a sheet and never stand within a number.
bool isBlank(char32_t c) {
    return c < U' ' || isInnerBlank(c);
}

bool isSeparator(char32_t c) {
    return c == U'.' || c == U',' || isInnerBlank(c);
}

bool isMinus(char32_t c) {
    return c == U'-' || c == U'\u2212';
}

bool leads(char32_t c) {
    constexpr std::u32string_view signs = U"+Øø⌀∅€$";
    return signs.find(c) != std::u32string_view::npos;
}

/// A unit is short and holds nothing that could belong to a number.
bool isUnit(std::u32string_view text) {
    constexpr std::size_t longest = 12;
    constexpr std::u32string_view foreign = U"-\u2212+=,;:()*";
    return text.size() <= longest && std::ranges::none_of(text, [&](char32_t c) {
               return isDigit(c) || foreign.find(c) != std::u32string_view::npos;
           });
}

std::u32string_view trimmed(std::u32string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// Digits between separators: the pieces, and the separator before each piece but the first.
struct Pieces {
    std::vector<std::u32string> digits;
    std::u32string separators;
};

/// Every kind of blank is one kind of separator; none when two separators follow each other.
std::optional<Pieces> piecesOf(std::u32string_view body) {
    Pieces pieces{.digits = {U""}, .separators = {}};
    for (const char32_t c : body) {
        if (isDigit(c)) {
            pieces.digits.back() += c;
            continue;
        }
        if (pieces.digits.back().empty() && !pieces.separators.empty()) {
            return std::nullopt;
        }
        pieces.separators += isInnerBlank(c) ? U' ' : c;
        pieces.digits.emplace_back();
    }
    return pieces;
}

/// Index of the separator that is the decimal sign; the number of separators when there is none. It is the last one,
/// unless that is a blank, or stands between groups of which there are several.
std::size_t decimalSign(const std::u32string& separators) {
    if (separators.empty() || separators.back() == U' ' || std::ranges::count(separators, separators.back()) > 1) {
        return separators.size();
    }
    return separators.size() - 1;
}

/// Whether the pieces before the decimal sign are groups under one separator.
bool areGroups(const Pieces& pieces, std::size_t decimal) {
    if (decimal == 0) {
        return true;
    }
    const char32_t separator = pieces.separators.front();
    for (std::size_t i = 0; i < decimal; ++i) {
        if (pieces.separators[i] != separator || pieces.digits[i + 1].size() != groupDigits) {
            return false;
        }
    }
    return !pieces.digits.front().empty() && pieces.digits.front().size() <= groupDigits;
}

std::optional<PastedNumber> readBody(std::u32string_view body) {
    const std::optional<Pieces> pieces = piecesOf(body);
    if (!pieces) {
        return std::nullopt;
    }
    const std::size_t decimal = decimalSign(pieces->separators);
    const bool hasFraction = decimal < pieces->separators.size();
    if (!areGroups(*pieces, decimal)) {
        return std::nullopt;
    }
    std::u32string digits;
    for (std::size_t i = 0; i <= decimal; ++i) {
        digits += pieces->digits[i];
    }
    const std::u32string fraction = hasFraction ? pieces->digits.back() : std::u32string();
    if (digits.empty() && fraction.empty()) {
        return std::nullopt;
    }
    const bool couldBeGroup = hasFraction && decimal == 0 && pieces->separators.front() == U'.' &&
                              fraction.size() == groupDigits && !digits.empty() && digits.size() <= groupDigits &&
                              digits != U"0";
    return PastedNumber{.text = runtime::toUtf8(digits + (fraction.empty() ? U"" : U"," + fraction)),
                        .pointWasRead = couldBeGroup};
}

}  // namespace

std::optional<PastedNumber> pastedNumber(std::string_view text) {
    const std::u32string whole = runtime::toCodePoints(text);
    std::u32string_view rest = trimmed(whole);
    bool negative = false;
    while (!rest.empty() && (leads(rest.front()) || isBlank(rest.front()) || (isMinus(rest.front()) && !negative))) {
        negative = negative || isMinus(rest.front());
        rest.remove_prefix(1);
    }
    auto end = std::ranges::find_if_not(rest, [](char32_t c) { return isDigit(c) || isSeparator(c); }) - rest.begin();
    const std::u32string_view unit = rest.substr(static_cast<std::size_t>(end));
    const std::u32string_view body = trimmed(rest.substr(0, static_cast<std::size_t>(end)));
    std::optional<PastedNumber> number = isUnit(unit) ? readBody(body) : std::nullopt;
    if (number && negative) {
        number->text.insert(0, "-");
    }
    return number;
}

std::optional<std::string> pastedDay(std::string_view text) {
    const std::u32string whole = runtime::toCodePoints(text);
    std::vector<std::u32string> parts{U""};
    for (const char32_t c : trimmed(whole)) {
        if (isDigit(c)) {
            parts.back() += c;
        } else if (c == U'/' || c == U'-' || c == U'.') {
            parts.emplace_back();
        } else {
            return std::nullopt;
        }
    }
    const auto isShort = [](const std::u32string& part) { return !part.empty() && part.size() <= 2; };
    if (parts.size() != 3 || !isShort(parts[0]) || !isShort(parts[1]) ||
        (parts[2].size() != 2 && parts[2].size() != 4)) {
        return std::nullopt;
    }
    return runtime::toUtf8(parts[0] + U"/" + parts[1] + U"/" + parts[2]);
}

}  // namespace velmora::toolkit
