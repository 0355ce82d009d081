#include <gtest/gtest.h>

#include "workbench.h"

namespace velmora::script::testing {
namespace {

TEST(Typing, ReplacesASelectedTextAndAppendsOtherwise) {
    EXPECT_EQ(
        play("open banco\nset Text1(0) 99\nset Text1(1) 1\ntype Text1(0) 12\ntype Text1(0) 3\nprint Text1(0)").out,
        "Text1(0) = \"123\"\n");
}

TEST(Typing, OverTheVeryTextThatWasSelectedLosesTheSelection) {
    EXPECT_EQ(play("open banco\nset Text1(0) 5\nset Text1(1) 1\ntype Text1(0) 55\nprint Text1(0)").out,
              "Text1(0) = \"55\"\n");
}

TEST(Typing, RaisesChangeForEveryCharacter) {
    EXPECT_EQ(play("open banco\ntype Text1(0) ab\nclose").events, "got0 change0 change0 unload");
}

TEST(Typing, LetsKeyPressChangeAndSwallowCharacters) {
    EXPECT_EQ(play("open banco\ntype Text1(1) 1x2.5\nprint Text1(1)").out, "Text1(1) = \"12,5\"\n");
}

TEST(Typing, CountsCharactersNotBytes) {
    EXPECT_EQ(play("open banco\ntype Text1(0) ñu\nkey BACKSPACE\nprint Text1(0)").out, "Text1(0) = \"ñ\"\n");
}

TEST(Typing, ABackspaceEmptiesASelectedText) {
    EXPECT_EQ(play("open banco\nset Text1(0) 99\nfocus Text1(1)\nfocus Text1(0)\nkey BACKSPACE\nprint Text1(0)").out,
              "Text1(0) = \"\"\n");
}

TEST(Typing, ThePadsDecimalKeyArrivesAsTheFormTurnedIt) {
    EXPECT_EQ(play("open banco\ntype Text1(1) 1\nkey DECIMAL\nprint Text1(1)").out, "Text1(1) = \"1,\"\n");
}

TEST(Typing, ALineBreakIsTheEnterKeyWhichTheFormSeesFirst) {
    EXPECT_EQ(play("open banco\ntype Text1(0) \"1\\n2\"\nprint Text1(0) Text1(1)").out,
              "Text1(0) = \"1\"\nText1(1) = \"2\"\n");
}

TEST(Typing, EnterMovesOnAndAMovingKeyDoesNotMoveTheFocusFirst) {
    EXPECT_EQ(play("open banco\nkey ENTER\nkey F5\nclose").events, "got0 lost0 got1 F5 unload");
}

TEST(Typing, TabMovesOn) {
    EXPECT_EQ(play("open banco\nkey TAB\nkey TAB\nkey TAB\nclose").events,
              "got0 lost0 got1 lost1 got2 lost2 got0 unload");
}

TEST(Typing, GoesIntoAnEditableList) {
    EXPECT_EQ(
        play("open banco\nset cboLibre Ab\ntype cboLibre c\nprint cboLibre\nset cboLibre Disco\nprint cboLibre").out,
        "cboLibre = -1 \"Abc\"\ncboLibre = 1 \"Disco\"\n");
}

TEST(Typing, SeveralLinesAreHeldWithCarriageReturns) {
    const Played played = play("open banco\nset txtNotas \"a\\nb\"\nprint txtNotas\ncall longitud txtNotas");
    EXPECT_EQ(played.out, "txtNotas = \"a\\nb\"\nlongitud = 4\n");
    EXPECT_EQ(play("open banco\nset Text1(0) \"a\\nb\"\ncall longitud Text1(0)").out, "longitud = 3\n");
}

}  // namespace
}  // namespace velmora::script::testing
