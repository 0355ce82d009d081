#include "velmora/platform/toolkit/key_stroke.h"

#include <gtest/gtest.h>

namespace velmora::toolkit {
namespace {

using screen::Key;

TEST(KeyStrokeTest, KeysThatAreNoLettersBringTheirCharacter) {
    struct Row {
        Key key;
        char32_t character;
    };
    for (const Row& row : {Row{Key::enter, 13}, Row{Key::escape, 27}, Row{Key::comma, U','}, Row{Key::padDecimal, U'.'},
                           Row{Key::tab, 0}, Row{Key::f5, 0}, Row{Key::none, 0}}) {
        const KeyStroke stroke = strokeOf(row.key, true);
        EXPECT_EQ(stroke.key, row.key);
        EXPECT_TRUE(stroke.shift);
        EXPECT_EQ(stroke.character, row.character);
    }
}

TEST(KeyStrokeTest, ACharacterIsTypedByItsKey) {
    struct Row {
        char32_t typed;
        Key key;
        char32_t character;
    };
    for (const Row& row : {Row{U'7', Key::character, U'7'}, Row{U',', Key::comma, U','}, Row{U'\n', Key::enter, 13},
                           Row{U'\r', Key::enter, 13}, Row{backspace, Key::character, 8}}) {
        const KeyStroke stroke = strokeTyping(row.typed);
        EXPECT_EQ(stroke.key, row.key);
        EXPECT_FALSE(stroke.shift);
        EXPECT_EQ(stroke.character, row.character);
    }
}

TEST(KeyStrokeTest, OnlyTextAndBackspaceEditAField) {
    EXPECT_TRUE(editsText(U'a'));
    EXPECT_TRUE(editsText(U' '));
    EXPECT_TRUE(editsText(U'ñ'));
    EXPECT_TRUE(editsText(backspace));
    EXPECT_FALSE(editsText(0));
    EXPECT_FALSE(editsText(carriageReturn));
    EXPECT_FALSE(editsText(escape));
}

}  // namespace
}  // namespace velmora::toolkit
