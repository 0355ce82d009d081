#include "velmora/platform/runtime/text.h"

#include <algorithm>

#include "velmora/platform/runtime/errors.h"

namespace velmora::runtime {

namespace {

constexpr char32_t replacement = 0xFFFD;

struct Character {
    char32_t code = replacement;
    std::size_t bytes = 1;

    std::size_t units() const { return code > 0xFFFF ? 2 : 1; }
};

constexpr bool continues(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// The first character of a text that is not empty.
Character firstOf(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) {
        return {lead, 1};
    }
    const std::size_t bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < bytes) {
        return {};
    }
    char32_t code = lead & (0xFFU >> (bytes + 1));
    for (std::size_t i = 1; i < bytes; ++i) {
        if (!continues(text[i])) {
            return {};
        }
        code = (code << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    const bool overlong = (bytes == 3 && code < 0x800) || (bytes == 4 && code < 0x10000);
    const bool noCharacter = (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF;
    return overlong || noCharacter ? Character{} : Character{code, bytes};
}

struct Cut {
    std::size_t bytes = 0;  ///< whole characters before the cut
    std::size_t over = 0;   ///< bytes of a character that the cut would split
};

Cut cutAt(std::string_view text, std::size_t units) {
    Cut cut;
    while (units > 0 && cut.bytes < text.size()) {
        const Character character = firstOf(text.substr(cut.bytes));
        if (character.units() > units) {
            cut.over = character.bytes;
            break;
        }
        units -= character.units();
        cut.bytes += character.bytes;
    }
    return cut;
}

std::string_view behind(std::string_view text, std::size_t units) {
    const Cut cut = cutAt(text, units);
    return text.substr(cut.bytes + cut.over);
}

void append(std::string& text, char32_t code) {
    if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
        code = replacement;
    }
    const auto put = [&](char32_t bits) { text += static_cast<char>(static_cast<unsigned char>(bits)); };
    const auto putRest = [&](unsigned shift) { put(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0U | (code >> 6U));
        putRest(0);
    } else if (code < 0x10000) {
        put(0xE0U | (code >> 12U));
        putRest(6);
        putRest(0);
    } else {
        put(0xF0U | (code >> 18U));
        putRest(12);
        putRest(6);
        putRest(0);
    }
}

// ---- upper and lower case

/// A range whose lower-case letters follow the upper-case ones at a fixed distance, every `step`-th character of the
/// range being upper case.
struct LetterRange {
    char32_t first;  ///< upper case
    char32_t last;
    char32_t step;
    char32_t distance;
};

constexpr LetterRange letterRanges[]{
    {U'A', U'Z', 1, 32},  {0xC0, 0xD6, 1, 32},  {0xD8, 0xDE, 1, 32},  {0x100, 0x12E, 2, 1},
    {0x132, 0x136, 2, 1}, {0x139, 0x147, 2, 1}, {0x14A, 0x176, 2, 1}, {0x179, 0x17D, 2, 1},
};

constexpr char32_t capitalDiaeresisY = 0x178;  // its lower-case letter is far away, in Latin-1
constexpr char32_t smallDiaeresisY = 0xFF;

bool belongs(char32_t code, char32_t first, char32_t last, char32_t step) {
    return code >= first && code <= last && (code - first) % step == 0;
}

char32_t capital(char32_t code) {
    if (code == smallDiaeresisY) {
        return capitalDiaeresisY;
    }
    for (const LetterRange& range : letterRanges) {
        if (belongs(code, range.first + range.distance, range.last + range.distance, range.step)) {
            return code - range.distance;
        }
    }
    return code;
}

char32_t smallLetter(char32_t code) {
    if (code == capitalDiaeresisY) {
        return smallDiaeresisY;
    }
    for (const LetterRange& range : letterRanges) {
        if (belongs(code, range.first, range.last, range.step)) {
            return code + range.distance;
        }
    }
    return code;
}

template <typename Change>
std::string mapped(std::string_view text, Change change) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Character character = firstOf(text);
        const char32_t changed = change(character.code);
        if (changed == character.code) {
            result += text.substr(0, character.bytes);
        } else {
            append(result, changed);
        }
        text.remove_prefix(character.bytes);
    }
    return result;
}

}  // namespace

std::size_t Len(std::string_view text) {
    std::size_t units = 0;
    while (!text.empty()) {
        const Character character = firstOf(text);
        units += character.units();
        text.remove_prefix(character.bytes);
    }
    return units;
}

std::string Left(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, cutAt(text, count).bytes));
}

std::string Right(std::string_view text, std::size_t count) {
    const std::size_t length = Len(text);
    return std::string(count >= length ? text : behind(text, length - count));
}

std::string Mid(std::string_view text, std::size_t start, std::size_t count) {
    if (start == 0) {
        raise(invalidProcedureCall);
    }
    const Cut before = cutAt(text, start - 1);
    if (before.over > 0 && count > 0) {
        --count;  // the half at the start counts, though it is left out
    }
    return Left(text.substr(before.bytes + before.over), count);
}

std::string Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
    if (from.empty()) {
        return std::string(text);
    }
    std::string result;
    result.reserve(text.size());
    for (;;) {
        const std::size_t at = text.find(from);
        result += text.substr(0, at);
        if (at == std::string_view::npos) {
            return result;
        }
        result += to;
        text.remove_prefix(at + from.size());
    }
}

std::string UCase(std::string_view text) {
    return mapped(text, capital);
}

std::string LCase(std::string_view text) {
    return mapped(text, smallLetter);
}

std::u32string toCodePoints(std::string_view text) {
    std::u32string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Character character = firstOf(text);
        result += character.code;
        text.remove_prefix(character.bytes);
    }
    return result;
}

std::string toUtf8(std::u32string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char32_t code : text) {
        append(result, code);
    }
    return result;
}

std::string toUtf8(char32_t character) {
    std::string result;
    append(result, character);
    return result;
}

}  // namespace velmora::runtime
