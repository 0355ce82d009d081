#include "velmora/platform/toolkit/search_words.h"

#include <algorithm>

#include "velmora/platform/runtime/text.h"

namespace velmora::toolkit {

namespace {

/// The letters from U+00E0 to U+00FF without their accents; a blank for what is no letter.
constexpr std::u32string_view latin1 = U"aaaaaaaceeeeiiiidnooooo ouuuuypy";
/// The letters from U+0100 to U+017F, capitals and small ones in turn, without their accents.
constexpr std::u32string_view latinExtended =
    U"aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkkllllllllllnnnnnnnnnoooooooorrrrrrsssssssstttttt"
    U"uuuuuuuuuuuuwwyyyzzzzzzs";

constexpr char32_t latin1Begin = 0xE0;
constexpr char32_t extendedBegin = 0x100;

static_assert(latin1Begin + latin1.size() == extendedBegin && latinExtended.size() == 0x80);

constexpr bool isAccent(char32_t c) {
    return c >= 0x300 && c <= 0x36F;
}

constexpr bool partsWords(char32_t c) {
    return c == U' ' || c == U'\t' || c == 0xA0;
}

char32_t withoutAccent(char32_t lower) {
    if (lower >= extendedBegin && lower < extendedBegin + latinExtended.size()) {
        return latinExtended[lower - extendedBegin];
    }
    const bool accented = lower >= latin1Begin && lower < extendedBegin && latin1[lower - latin1Begin] != U' ';
    return accented ? latin1[lower - latin1Begin] : lower;
}

}  // namespace

std::u32string plainLetters(std::string_view text) {
    std::u32string plain;
    for (const char32_t c : runtime::toCodePoints(runtime::LCase(text))) {
        if (!isAccent(c)) {
            plain += withoutAccent(c);
        }
    }
    return plain;
}

SearchWords::SearchWords(std::string_view filter) {
    const std::u32string plain = plainLetters(filter);
    auto begin = plain.begin();
    while (begin != plain.end()) {
        begin = std::find_if_not(begin, plain.end(), partsWords);
        const auto end = std::find_if(begin, plain.end(), partsWords);
        if (begin != end) {
            words_.emplace_back(begin, end);
        }
        begin = end;
    }
}

// Chosen C-482: a person who searches does not know how a name was written.
bool SearchWords::operator()(std::string_view text) const {
    const std::u32string plain = plainLetters(text);
    return std::ranges::all_of(words_,
                               [&](const std::u32string& word) { return plain.find(word) != std::u32string::npos; });
}

}  // namespace velmora::toolkit
