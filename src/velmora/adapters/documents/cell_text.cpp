#include "velmora/adapters/documents/cell_text.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "velmora/platform/runtime/text.h"

namespace velmora::documents {

namespace {

constexpr std::size_t longestText = 32767;
constexpr std::size_t bytesMeasured = 400;  ///< wider than any column gets
constexpr char32_t replacement = 0xFFFD;

/// Number of continuation bytes after the first byte of a sequence; nullopt for an invalid first byte and for rare
/// letters.
std::optional<std::size_t> following(unsigned char first) {
    if (first < 0x80) {
        return 0;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        return 1;
    }
    return first >= 0xE1 && first <= 0xEC ? std::optional<std::size_t>(2) : std::nullopt;
}

constexpr bool isKeptControl(char32_t c) {
    return c == U'\t' || c == U'\n';
}

/// Characters that the format's markup cannot contain: surrogates, and the last two code points of each plane.
constexpr bool isNoCharacter(char32_t c) {
    return (c >= 0xD800 && c <= 0xDFFF) || (c & 0xFFFE) == 0xFFFE || (c >= 0xFDD0 && c <= 0xFDEF);
}

char32_t fit(char32_t c) {
    if (isNoCharacter(c)) {
        return replacement;
    }
    return (c < U' ' && !isKeptControl(c)) || c == 0x7F ? U' ' : c;
}

// Pixels in the format's default font, 11 points at 96 dots per inch. Narrow letters count as a digit, because programs
// without that font use another, usually wider one.
constexpr int digitPixels = 7;
constexpr int capitalPixels = 10;
constexpr int widePixels = 13;
constexpr std::string_view wide = "MWmw@%";
constexpr int accentedPixels = 9;
constexpr int otherPixels = 15;

int pixelsOf(char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    if (byte < 0x80) {
        if (wide.find(letter) != std::string_view::npos) {
            return widePixels;
        }
        return letter >= 'A' && letter <= 'Z' ? capitalPixels : digitPixels;
    }
    if ((byte & 0xC0) == 0x80) {
        return 0;  // combined with the letter before
    }
    return byte < 0xD0 ? accentedPixels : otherPixels;
}

}  // namespace

bool isPlainCellText(const std::string& text) {
    if (text.size() > longestText) {
        return false;
    }
    for (std::size_t i = 0; i < text.size();) {
        const auto first = static_cast<unsigned char>(text[i]);
        const auto count = following(first);
        if (!count || fit(first) != first || i + *count >= text.size()) {
            return false;
        }
        for (std::size_t end = ++i + *count; i < end; ++i) {
            if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
                return false;
            }
        }
    }
    return true;
}

// Chosen C-213: a cell holds at most 32.767 units; a longer text is truncated and ends in an ellipsis. Differs D-270:
// noncharacters would make the file unreadable, and control characters would appear as codes.
std::string cellText(const std::string& text) {
    std::u32string characters =
        runtime::toCodePoints(runtime::Replace(runtime::Replace(text, "\r\n", "\n"), "\r", "\n"));
    // The library reads a text up to its first zero.
    std::erase(characters, U'\0');
    std::ranges::transform(characters, characters.begin(), fit);
    std::string result = runtime::toUtf8(characters);
    if (result.size() > longestText && runtime::Len(result) > longestText) {
        result = runtime::Left(result, longestText - 1) + "…";
    }
    return result;
}

int pixelsOfText(std::string_view text) {
    int widest = 0;
    int line = 0;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\n') {
            line = 0;
            begin = at + 1;
        } else if (at - begin < bytesMeasured) {
            line += pixelsOf(text[at]);
            widest = std::max(widest, line);
        }
    }
    return widest;
}

}  // namespace velmora::documents
