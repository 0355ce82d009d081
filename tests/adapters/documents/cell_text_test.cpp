#include "velmora/adapters/documents/cell_text.h"

#include <gtest/gtest.h>

#include "velmora/platform/runtime/text.h"

namespace velmora::documents {
namespace {

struct Row {
    const char* what;
    std::string text;
    std::string cell;
};

const std::string replacement = runtime::toUtf8(char32_t{0xFFFD});

TEST(CellTextTest, HoldsWhatTheFormatHasAPlaceFor) {
    const Row rows[] = {
        {"plain", "Piñón 1/2''", "Piñón 1/2''"},
        {"lines and tabs", "uno\r\ndos\rtres\tcuatro", "uno\ndos\ntres\tcuatro"},
        {"rare letters", "€ 漢 😀", "€ 漢 😀"},
        {"controls", "a\x01z\x1F\x0B\x7F.", "a z   ."},
        {"U+FFFE", "a\xEF\xBF\xBEz", "a" + replacement + "z"},
        {"U+FFFF", "a\xEF\xBF\xBFz", "a" + replacement + "z"},
        {"U+1FFFE", "a\xF0\x9F\xBF\xBEz", "a" + replacement + "z"},
        {"U+FDD0", "a\xEF\xB7\x90z", "a" + replacement + "z"},
        {"U+FFFD stays", replacement, replacement},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(cellText(row.text), row.cell) << row.what;
        EXPECT_EQ(cellText(row.cell), row.cell) << row.what;
    }
}

TEST(CellTextTest, HalfOfAPairIsNoCharacter) {
    const std::string cell = cellText("a\xED\xA0\x80z");
    EXPECT_EQ(cell.find("\xED"), std::string::npos);
    EXPECT_TRUE(cell.starts_with("a" + replacement)) << cell;
    EXPECT_TRUE(cell.ends_with("z"));
}

TEST(CellTextTest, WhatIsPlainIsLeftAsItIs) {
    for (const char* text : {"", "Piñón", "a\tb\nc", "€ 漢"}) {
        EXPECT_TRUE(isPlainCellText(text)) << text;
        EXPECT_EQ(cellText(text), text);
    }
    for (const std::string& text :
         {std::string("a\rb"), std::string("a\0b", 3), std::string("\x01"), std::string("\x7F"),
          std::string("\xEF\xBF\xBE"), std::string("\xC3"), std::string("\xC3(")}) {
        EXPECT_FALSE(isPlainCellText(text)) << text;
    }
}

TEST(CellTextTest, ATextTakesTheRoomOfItsWidestLine) {
    EXPECT_EQ(pixelsOfText(""), 0);
    EXPECT_EQ(pixelsOfText("12345"), 5 * pixelsOfText("0"));
    EXPECT_EQ(pixelsOfText("12\n12345\n1"), pixelsOfText("12345"));
    EXPECT_GT(pixelsOfText("MW"), pixelsOfText("00"));
    EXPECT_GE(pixelsOfText("ili"), pixelsOfText("000")) << "a reader may lack the narrow font";
    EXPECT_LT(pixelsOfText("ñ"), 2 * pixelsOfText("0")) << "a letter of two bytes is one letter";
    EXPECT_LT(pixelsOfText(std::string(100'000, 'x')), 4000) << "of a long text the beginning is enough";
}

}  // namespace
}  // namespace velmora::documents
