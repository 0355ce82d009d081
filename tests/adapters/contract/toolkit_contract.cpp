#include "toolkit_contract.h"

#include <gmock/gmock.h>

#include "velmora/platform/runtime/errors.h"

namespace velmora::test {

namespace {

using screen::Control;
using screen::Key;
using screen::KeyDown;
using screen::KeyPress;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using toolkit::RowMove;

/// How often something happened.
std::size_t timesIn(const std::vector<std::string>& log, std::string_view event) {
    return static_cast<std::size_t>(std::ranges::count(log, event));
}

}  // namespace

void ToolkitContract::play(const std::function<void()>& part) {
    bool played = false;
    user->play(form, [&] {
        form.log.clear();
        part();
        played = true;
    });
    EXPECT_TRUE(played);
}

// Coming on the screen.

TEST_P(ToolkitContract, TheFirstTabStopHasTheFocusAndTheKeyboard) {
    play([&] {
        EXPECT_EQ(form.activeControl(), &form.field(0));
        EXPECT_TRUE(user->keyboardIsIn(form.field(0)));
    });
}

TEST_P(ToolkitContract, UnloadingEndsTheShow) {
    bool unloaded = false;
    form.onUnload = [&] { unloaded = true; };
    form.keyHandler = [&](KeyDown&) { form.unload(); };
    play([&] { user->key(Key::f9); });
    EXPECT_TRUE(unloaded);
}

// The road of a key.

TEST_P(ToolkitContract, TheFormSeesAKeyFirstThenTheFieldThenTheTextChanges) {
    play([&] {
        user->type(U"7");
        EXPECT_THAT(form.log, ElementsAre("key character", "press 55", "change field(0)=7"));
    });
}

TEST_P(ToolkitContract, EveryCharacterIsAKeyOfItsOwn) {
    play([&] {
        user->type(U"1ñ");
        EXPECT_THAT(form.log, ElementsAre("key character", "press 49", "change field(0)=1", "key character",
                                          "press 241", "change field(0)=1ñ"));
        EXPECT_EQ(user->reads(form.field(0)), "1ñ");
    });
}

TEST_P(ToolkitContract, EnterThatTheFormLetsThroughIsThirteenToTheField) {
    form.field(0).setText("7");
    play([&] {
        user->key(Key::enter);
        EXPECT_THAT(form.log, ElementsAre("key enter", "press 13"));
        EXPECT_EQ(form.field(0).text(), "7");
        EXPECT_EQ(form.activeControl(), &form.field(0));
    });
}

TEST_P(ToolkitContract, EscThatTheFormLetsThroughIsTwentySevenToTheField) {
    form.field(0).setText("7");
    play([&] {
        user->key(Key::escape);
        EXPECT_THAT(form.log, ElementsAre("key escape", "press 27"));
        EXPECT_EQ(form.field(0).text(), "7");
        EXPECT_FALSE(form.isUnloaded());
    });
}

TEST_P(ToolkitContract, EnterBreaksTheLineInAFieldOfSeveralLines) {
    play([&] {
        user->click(form.memo);
        user->type(U"a");
        user->key(Key::enter);
        user->type(U"b");
        EXPECT_EQ(form.memo.text(), "a\r\nb");
        EXPECT_EQ(timesIn(form.log, "press 13"), 1U);
    });
}

TEST_P(ToolkitContract, AFieldOfSeveralLinesMaySwallowEnter) {
    form.memo.onKeyPress = [](KeyPress& press) { press.character = press.character == 13 ? 0 : press.character; };
    play([&] {
        user->click(form.memo);
        user->type(U"a");
        user->key(Key::enter);
        user->type(U"b");
        EXPECT_EQ(form.memo.text(), "ab");
    });
}

TEST_P(ToolkitContract, EnterThatTheFormSwallowsReachesNoField) {
    form.keyHandler = [&](KeyDown& down) { form.passUsualKeys(down); };
    play([&] {
        user->key(Key::enter);
        EXPECT_THAT(form.log, ElementsAre("key enter", "lost field(0)", "got field(1)"));
        EXPECT_TRUE(user->keyboardIsIn(form.field(1)));
    });
}

TEST_P(ToolkitContract, EscThatUnloadsReachesNoField) {
    form.keyHandler = [&](KeyDown& down) { form.passKeysOfSideWindow(down); };
    play([&] {
        user->key(Key::escape);
        EXPECT_THAT(form.log, ElementsAre("key escape"));
        EXPECT_TRUE(form.isUnloaded());
    });
}

TEST_P(ToolkitContract, AKeyThatMovedTheFocusIsUsedUp) {
    form.keyHandler = [&](KeyDown&) { form.field(2).setFocus(); };
    play([&] {
        user->type(U"7");
        EXPECT_THAT(form.log, ElementsAre("key character", "lost field(0)", "got field(2)"));
        EXPECT_EQ(form.field(2).text(), "");
    });
}

TEST_P(ToolkitContract, AKeyMayBeTurnedIntoTab) {
    form.keyHandler = [](KeyDown& down) { down.key = Key::tab; };
    play([&] {
        user->key(Key::enter);
        EXPECT_THAT(form.log, ElementsAre("key enter", "lost field(0)", "got field(1)"));
    });
}

TEST_P(ToolkitContract, ThePadsDecimalKeyTypesTheCommaThatTheFormMakesOfIt) {
    form.keyHandler = [&](KeyDown& down) { form.passUsualKeys(down); };
    play([&] {
        user->type(U"3");
        user->key(Key::padDecimal);
        user->type(U"2");
        EXPECT_THAT(form.log, Contains("press 44"));
        EXPECT_EQ(form.field(0).text(), "3,2");
    });
}

TEST_P(ToolkitContract, ThePadsDecimalKeyIsAPointWhereTheFormLetsIt) {
    play([&] {
        user->key(Key::padDecimal);
        EXPECT_THAT(form.log, ElementsAre("key decimal", "press 46", "change field(0)=."));
    });
}

TEST_P(ToolkitContract, TheFormSeesEveryKeyOnceWhateverHasTheFocus) {
    std::vector<Control*> places{&form.field(0), &form.memo, &form.list, &form.check,
                                 &form.grid,     &form.save, &form.bar};
    play([&] {
        for (Control* place : places) {
            form.moveFocus(*place);
            form.log.clear();
            user->key(Key::f8);
            EXPECT_EQ(timesIn(form.log, "key f8"), 1U) << place->fullName();
            EXPECT_EQ(form.activeControl(), place);
        }
    });
}

TEST_P(ToolkitContract, AFunctionKeyBringsNoCharacter) {
    play([&] {
        user->key(Key::f5);
        EXPECT_THAT(form.log, ElementsAre("key f5"));
    });
}

// Typing.

TEST_P(ToolkitContract, KeyPressChangesAndSwallowsCharacters) {
    form.field(0).onKeyPress = [](KeyPress& press) {
        press.character = press.character == U'.' ? U',' : (press.character == U'x' ? 0 : press.character);
    };
    play([&] {
        user->type(U"1x.5");
        EXPECT_EQ(form.field(0).text(), "1,5");
        EXPECT_EQ(user->reads(form.field(0)), "1,5");
    });
}

TEST_P(ToolkitContract, BackspaceIsEightToTheFieldAndErases) {
    play([&] {
        user->type(U"98");
        form.log.clear();
        user->backspace();
        EXPECT_THAT(form.log, ElementsAre("key character", "press 8", "change field(0)=9"));
    });
}

TEST_P(ToolkitContract, TypingReplacesATextThatIsSelectedWhole) {
    form.field(0).setText("1045");
    form.field(0).onGotFocus = [&] { form.field(0).selectAll(); };
    play([&] {
        user->type(U"98");
        EXPECT_EQ(form.field(0).text(), "98");
    });
}

TEST_P(ToolkitContract, BackspaceEmptiesATextThatIsSelectedWhole) {
    form.field(0).setText("1045");
    form.field(0).onGotFocus = [&] { form.field(0).selectAll(); };
    play([&] {
        user->backspace();
        EXPECT_EQ(form.field(0).text(), "");
    });
}

TEST_P(ToolkitContract, ALockedFieldSeesKeysAndKeepsItsText) {
    form.field(0).setText("1045");
    form.field(0).setLocked(true);
    play([&] {
        user->type(U"9");
        user->backspace();
        EXPECT_THAT(form.log, ElementsAre("key character", "press 57", "key character", "press 8"));
        EXPECT_EQ(form.field(0).text(), "1045");
        EXPECT_EQ(user->reads(form.field(0)), "1045");
    });
}

TEST_P(ToolkitContract, ALockedFieldOfSeveralLinesKeepsItsLines) {
    form.memo.setLocked(true);
    form.setTabOrder({&form.memo});
    play([&] {
        user->key(Key::enter);
        EXPECT_EQ(form.memo.text(), "");
    });
}

TEST_P(ToolkitContract, WhatChangeMakesOfTheTextIsShown) {
    form.field(0).onChange = [&] { form.field(0).setText("arreglado"); };
    play([&] {
        user->type(U"9");
        EXPECT_EQ(user->reads(form.field(0)), "arreglado");
    });
}

TEST_P(ToolkitContract, AnErrorInChangeIsReadAndTheTextStands) {
    form.field(0).onChange = [] { runtime::raise(runtime::typeMismatch); };
    play([&] {
        user->type(U"9");
        EXPECT_THAT(user->errorsRead(), ElementsAre(HasSubstr(runtime::errorDescription(runtime::typeMismatch))));
        EXPECT_EQ(user->reads(form.field(0)), "9");
    });
}

// The focus.

TEST_P(ToolkitContract, TabFollowsTheModelsOrderBothWaysAndTheFormDoesNotSeeIt) {
    form.setTabOrder({&form.field(2), &form.field(0)});
    play([&] {
        user->key(Key::tab);
        EXPECT_EQ(form.activeControl(), &form.field(0));
        user->key(Key::tab);
        EXPECT_EQ(form.activeControl(), &form.field(2));
        user->key(Key::tab, true);
        EXPECT_EQ(form.activeControl(), &form.field(0));
        EXPECT_TRUE(user->keyboardIsIn(form.field(0)));
        EXPECT_THAT(form.log, Not(Contains("key tab")));
    });
}

TEST_P(ToolkitContract, TabPassesOverWhatCannotTakeTheFocus) {
    form.field(1).setEnabled(false);
    form.field(2).setTabStop(false);
    form.memo.setVisible(false);
    play([&] {
        user->key(Key::tab);
        EXPECT_EQ(form.activeControl(), &form.list);
    });
}

TEST_P(ToolkitContract, AClickTellsLostFocusBeforeGotFocus) {
    play([&] {
        user->click(form.field(1));
        EXPECT_THAT(form.log, ElementsAre("lost field(0)", "got field(1)"));
        EXPECT_TRUE(user->keyboardIsIn(form.field(1)));
    });
}

TEST_P(ToolkitContract, SetFocusInsideLostFocusWinsOverTab) {
    form.field(0).onLostFocus = [&] { form.field(2).setFocus(); };
    play([&] {
        user->key(Key::tab);
        EXPECT_EQ(form.activeControl(), &form.field(2));
        EXPECT_TRUE(user->keyboardIsIn(form.field(2)));
    });
}

TEST_P(ToolkitContract, AnErrorInLostFocusIsReadAndTheUserGoesOn) {
    form.field(0).onLostFocus = [] { runtime::raise(runtime::typeMismatch); };
    play([&] {
        user->click(form.field(1));
        user->type(U"9");
        EXPECT_THAT(user->errorsRead(), ElementsAre(HasSubstr(runtime::errorDescription(runtime::typeMismatch))));
        EXPECT_EQ(form.field(1).text(), "9");
    });
}

TEST_P(ToolkitContract, AClickOnWhatIsDisabledDoesNothing) {
    form.field(1).setEnabled(false);
    form.save.setEnabled(false);
    form.check.setEnabled(false);
    play([&] {
        user->click(form.field(1));
        user->click(form.save);
        user->click(form.check);
        EXPECT_THAT(form.log, IsEmpty());
        EXPECT_EQ(form.activeControl(), &form.field(0));
    });
}

TEST_P(ToolkitContract, ADisabledFormTakesNoInput) {
    play([&] {
        form.setEnabled(false);
        user->type(U"9");
        user->key(Key::tab);
        user->key(Key::f5);
        user->click(form.field(1));
        user->click(form.save);
        EXPECT_THAT(form.log, IsEmpty());
        form.setEnabled(true);
        user->type(U"9");
        EXPECT_EQ(form.field(0).text(), "9");
    });
}

// Buttons, boxes, bars.

TEST_P(ToolkitContract, AButtonTakesTheFocusBeforeItsClick) {
    play([&] {
        user->click(form.save);
        EXPECT_THAT(form.log, ElementsAre("lost field(0)", "click save"));
        EXPECT_EQ(form.activeControl(), &form.save);
    });
}

TEST_P(ToolkitContract, EnterAndSpacePressTheButtonThatHasTheFocus) {
    play([&] {
        form.moveFocus(form.save);
        form.log.clear();
        user->key(Key::enter);
        EXPECT_THAT(form.log, ElementsAre("key enter", "click save"));
        form.log.clear();
        user->type(U" ");
        EXPECT_THAT(form.log, ElementsAre("key character", "click save"));
        form.log.clear();
        user->type(U"a");
        EXPECT_THAT(form.log, ElementsAre("key character"));
    });
}

TEST_P(ToolkitContract, AltAndTheMarkedLetterPressAButtonAndTheFormDoesNotSeeIt) {
    play([&] {
        user->alt('g');
        EXPECT_THAT(form.log, ElementsAre("lost field(0)", "click save"));
        form.log.clear();
        form.save.setEnabled(false);
        user->alt('g');
        EXPECT_THAT(form.log, Not(Contains("click save")));
    });
}

TEST_P(ToolkitContract, ABoxIsTickedByMouseAndSpace) {
    play([&] {
        user->click(form.check);
        EXPECT_THAT(form.log, ElementsAre("lost field(0)", "ticked"));
        EXPECT_EQ(user->reads(form.check), "on");
        form.log.clear();
        user->type(U" ");
        EXPECT_THAT(form.log, ElementsAre("key character", "unticked"));
        EXPECT_EQ(user->reads(form.check), "off");
        user->key(Key::enter);
        EXPECT_EQ(user->reads(form.check), "off");
    });
}

TEST_P(ToolkitContract, ItemsOfABarCountFromOneWithTheirSeparators) {
    play([&] {
        user->clickItem(form.bar, 3);
        EXPECT_THAT(form.log, ElementsAre("lost field(0)", "item 3"));
        EXPECT_EQ(form.activeControl(), &form.bar);
    });
}

TEST_P(ToolkitContract, AltAndALetterPressAnItemOfABar) {
    play([&] {
        user->alt('v');
        EXPECT_THAT(form.log, ElementsAre("lost field(0)", "item 3"));
    });
}

// The grid.

TEST_P(ToolkitContract, RowKeysMoveTheSet) {
    play([&] {
        form.moveFocus(form.grid);
        form.log.clear();
        for (const RowMove move : {RowMove::down, RowMove::down, RowMove::up, RowMove::last, RowMove::first}) {
            user->row(move);
        }
        EXPECT_THAT(form.log, ElementsAre("row 1", "row 2", "row 1", "row 4", "row 0"));
    });
}

TEST_P(ToolkitContract, ACellsButtonFirstMovesTheRowThenTellsItsColumn) {
    play([&] {
        user->clickCell(form.grid, 2, 2);
        EXPECT_THAT(form.log, ElementsAre("lost field(0)", "row 2", "cell 2"));
        EXPECT_EQ(form.activeControl(), &form.grid);
    });
}

TEST_P(ToolkitContract, AKeyReachesTheGridAfterTheForm) {
    form.keyHandler = [](KeyDown& down) { down.key = down.key == Key::f9 ? Key::none : down.key; };
    play([&] {
        form.moveFocus(form.grid);
        form.log.clear();
        user->key(Key::f8);
        user->key(Key::f9);
        user->key(Key::enter);
        EXPECT_THAT(form.log, ElementsAre("key f8", "gridkey f8", "key f9", "key enter", "gridkey enter"));
    });
}

// What stands on the screen.

TEST_P(ToolkitContract, WhatCodeWritesIsShown) {
    play([&] {
        form.field(1).setText("12,70");
        form.memo.setText("uno\r\ndos");
        form.list.setListIndex(2);
        form.check.setChecked(true);
        form.save.setCaption("&Guardar");
        EXPECT_EQ(user->reads(form.field(1)), "12,70");
        EXPECT_EQ(user->reads(form.memo), "uno\r\ndos");
        EXPECT_EQ(user->reads(form.list), "H5");
        EXPECT_EQ(user->reads(form.check), "on");
        EXPECT_EQ(user->reads(form.save), "&Guardar");
    });
}

TEST_P(ToolkitContract, AFrameHidesAndDisablesWhatStandsInIt) {
    play([&] {
        EXPECT_TRUE(user->sees(form.framed));
        EXPECT_TRUE(user->looksEnabled(form.framed));
        form.frame.setEnabled(false);
        EXPECT_FALSE(user->looksEnabled(form.framed));
        form.frame.setEnabled(true);
        EXPECT_TRUE(user->looksEnabled(form.framed));
        form.frame.setVisible(false);
        EXPECT_FALSE(user->sees(form.framed));
        EXPECT_FALSE(user->sees(form.frame));
        form.frame.setVisible(true);
        EXPECT_TRUE(user->sees(form.framed));
    });
}

TEST_P(ToolkitContract, OfFramesThatShareAPlaceTheFirstVisibleOneIsShown) {
    play([&] {
        EXPECT_TRUE(user->sees(form.inFirst));
        EXPECT_FALSE(user->sees(form.inSecond)) << "its turn has not come";
        form.first.setVisible(false);
        EXPECT_FALSE(user->sees(form.inFirst));
        EXPECT_TRUE(user->sees(form.inSecond));
        form.second.setVisible(false);
        EXPECT_FALSE(user->sees(form.inSecond));
        form.first.setVisible(true);
        EXPECT_TRUE(user->sees(form.inFirst));
    });
}

TEST_P(ToolkitContract, ADisabledFormsFieldsKeepTheirLooks) {
    play([&] {
        form.setEnabled(false);
        EXPECT_TRUE(user->looksEnabled(form.field(0)));
        form.setEnabled(true);
    });
}

}  // namespace velmora::test
