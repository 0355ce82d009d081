#include "velmora/platform/runtime/text.h"

#include <gtest/gtest.h>

#include "golden.h"

namespace velmora::runtime {
namespace {

using test::errorOf;

TEST(Text, LengthCountsUtf16Units) {
    EXPECT_EQ(Len(""), 0U);
    EXPECT_EQ(Len("Piñón"), 5U);
    EXPECT_EQ(Len("12 €"), 4U);
    EXPECT_EQ(Len("😀"), 2U);
    EXPECT_EQ(Len("a😀b"), 4U);
}

TEST(Text, LeftNeverCutsACharacter) {
    EXPECT_EQ(Left("Piñón", 3), "Piñ");
    EXPECT_EQ(Left("a😀b", 1), "a");
    EXPECT_EQ(Left("a😀b", 2), "a");
    EXPECT_EQ(Left("a😀b", 3), "a😀");
    EXPECT_EQ(Left("a😀b", 99), "a😀b");
    EXPECT_EQ(Left("abc", 0), "");
}

TEST(Text, RightNeverCutsACharacter) {
    EXPECT_EQ(Right("Piñón", 3), "ñón");
    EXPECT_EQ(Right("a😀b", 1), "b");
    EXPECT_EQ(Right("a😀b", 2), "b");
    EXPECT_EQ(Right("a😀b", 3), "😀b");
    EXPECT_EQ(Right("a😀b", 99), "a😀b");
    EXPECT_EQ(Right("abc", 0), "");
}

TEST(Text, MidNeverCutsACharacter) {
    EXPECT_EQ(Mid("Piñón", 3), "ñón");
    EXPECT_EQ(Mid("Piñón", 3, 2), "ñó");
    EXPECT_EQ(Mid("a😀b", 2, 2), "😀");
    EXPECT_EQ(Mid("a😀b", 2, 1), "");
    EXPECT_EQ(Mid("a😀b", 3, 2), "b");
    EXPECT_EQ(Mid("a😀b", 3, 1), "");
    EXPECT_EQ(Mid("abc", 4), "");
    EXPECT_EQ(Mid("abc", 99, 5), "");
    EXPECT_EQ(errorOf([] { Mid("abc", 0); }), 5);
}

TEST(Text, PiecesOfAnySizeStayWholeCharacters) {
    const std::string text = "ñ😀€a😀";
    for (std::size_t cut = 0; cut <= Len(text) + 1; ++cut) {
        for (const std::string& piece : {Left(text, cut), Right(text, cut), Mid(text, cut + 1)}) {
            EXPECT_EQ(toCodePoints(piece).find(U'\uFFFD'), std::u32string::npos) << cut;
            EXPECT_LE(Len(piece), Len(text));
        }
    }
}

TEST(Text, TrimTakesSpacesOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("\ta\n"), "\ta\n");
}

TEST(Text, ReplaceTurnsEveryOccurrence) {
    EXPECT_EQ(Replace("1.234.567", ".", ""), "1234567");
    EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Replace("a'b", "'", "''"), "a''b");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
    EXPECT_EQ(Replace("abc", "x", "y"), "abc");
}

TEST(Text, CapitalsKnowTheAccentedLetters) {
    EXPECT_EQ(UCase("piñón àéïõü ÿ žő ß 12€"), "PIÑÓN ÀÉÏÕÜ Ÿ ŽŐ ß 12€");
    EXPECT_EQ(LCase("PIÑÓN ÀÉÏÕÜ Ÿ ŽŐ × 12€"), "piñón àéïõü ÿ žő × 12€");
    EXPECT_EQ(UCase("÷"), "÷");
    EXPECT_EQ(UCase("Ł"), "Ł");
    EXPECT_EQ(LCase("Ł"), "ł");
}

TEST(Text, InvalidBytesCountAsTheReplacementCharacter) {
    struct {
        const char* text;
        std::u32string codes;
    } const rows[]{
        {"\xFF", U"\uFFFD"},
        {"a\xC3", U"a\uFFFD"},
        {"\xC3(", U"\uFFFD("},
        {"\xE2\x82", U"\uFFFD\uFFFD"},
        {"\xC0\x80", U"\uFFFD\uFFFD"},                      // overlong
        {"\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD"},            // half a pair
        {"\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last character
    };
    for (const auto& row : rows) {
        EXPECT_EQ(toCodePoints(row.text), row.codes) << row.text;
        EXPECT_EQ(Len(row.text), row.codes.size());
    }
}

TEST(Text, CodePointsComeBackAsTheSameText) {
    const std::string text = "Piñón 12,5 € 😀\u07FF\uFFFF";
    EXPECT_EQ(toUtf8(toCodePoints(text)), text);
    EXPECT_EQ(toUtf8(U'ñ'), "ñ");
    EXPECT_EQ(toUtf8(static_cast<char32_t>(0xD800)), "\uFFFD");
    EXPECT_EQ(toUtf8(static_cast<char32_t>(0x110000)), "\uFFFD");
}

}  // namespace
}  // namespace velmora::runtime
