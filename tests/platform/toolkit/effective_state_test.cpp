#include "velmora/platform/toolkit/effective_state.h"

#include <gtest/gtest.h>

#include "velmora/platform/screen/sketch.h"

namespace velmora::toolkit {
namespace {

using namespace screen;
namespace lay = screen::layout;

/// An outer frame with an inner one, and two groups in one shared place.
class EffectiveStateTest : public ::testing::Test {
  protected:
    EffectiveStateTest() {
        sketch.place(0, label);
        form.setLayout(lay::column(
            lay::group(outer, lay::column(lay::group(inner, lay::field("a", box)))),
            lay::takeTurns(lay::group(first, lay::field("b", inFirst)),
                           lay::group(second, lay::column(lay::field("c", inSecond), lay::plain(sketch))))));
    }
    const Layout& turns() const { return form.layout().children[1]; }

    Form form{"frm"};
    Frame outer{form, "outer"};
    Frame inner{form, "inner"};
    Frame first{form, "first"};
    Frame second{form, "second"};
    TextBox box{form, "box"};
    TextBox inFirst{form, "inFirst"};
    TextBox inSecond{form, "inSecond"};
    TextBox label{form, "label"};
    Sketch sketch{form, "sketch"};
};

TEST_F(EffectiveStateTest, AWarningIsSeenWhereSomethingCanBeEntered) {
    EXPECT_FALSE(looksWarned(box));
    box.setWarning("Sin precio");
    EXPECT_TRUE(looksWarned(box));
    inner.setEnabled(false);
    EXPECT_FALSE(looksWarned(box));
    inner.setEnabled(true);
    box.setWarning("");
    EXPECT_FALSE(looksWarned(box));
}

TEST_F(EffectiveStateTest, LooksEnabledFollowsTheFramesAndNotTheForm) {
    EXPECT_TRUE(looksEnabled(box));
    form.setEnabled(false);
    EXPECT_TRUE(looksEnabled(box));
    outer.setEnabled(false);
    EXPECT_FALSE(looksEnabled(box));
    outer.setEnabled(true);
    box.setEnabled(false);
    EXPECT_FALSE(looksEnabled(box));
}

TEST_F(EffectiveStateTest, AControlHiddenByItselfKeepsItsRoomAndOneHiddenWithItsFrameDoesNot) {
    EXPECT_TRUE(widgetStateOf(box, {}).shown);
    box.setVisible(false);
    EXPECT_FALSE(widgetStateOf(box, {}).shown);
    EXPECT_TRUE(widgetStateOf(box, {}).keepsRoom);
    outer.setVisible(false);
    EXPECT_FALSE(widgetStateOf(box, {}).keepsRoom);
    EXPECT_FALSE(widgetStateOf(outer, {}).shown);
    EXPECT_FALSE(widgetStateOf(outer, {}).keepsRoom) << "a frame";
}

TEST_F(EffectiveStateTest, AFrameWhoseWidgetLiesAroundHidesByItself) {
    outer.setVisible(false);
    EXPECT_TRUE(widgetStateOf(box, {&inner}).shown) << "the inner frame's widget goes with the outer one's";
    EXPECT_FALSE(widgetStateOf(inner, {}).shown);
}

TEST_F(EffectiveStateTest, AControlStandsInTheFramesAroundItsFrame) {
    EXPECT_TRUE(standsIn(box, inner));
    EXPECT_TRUE(standsIn(box, outer));
    EXPECT_TRUE(standsIn(inner, outer));
    EXPECT_FALSE(standsIn(outer, outer));
    EXPECT_FALSE(standsIn(box, first));
}

TEST_F(EffectiveStateTest, OfThoseThatShareAPlaceTheFirstVisibleIsShown) {
    EXPECT_EQ(shownTurn(turns()), 0U);
    first.setVisible(false);
    EXPECT_EQ(shownTurn(turns()), 1U);
    second.setVisible(false);
    EXPECT_EQ(shownTurn(turns()), 2U) << "none of them";
}

TEST_F(EffectiveStateTest, WhatStandsWhereAnotherHasItsTurnIsNotSeen) {
    EXPECT_TRUE(isSeen(inFirst));
    EXPECT_FALSE(isSeen(inSecond));
    EXPECT_FALSE(isSeen(second));
    EXPECT_FALSE(isSeen(label)) << "on a sketch that is covered";
    EXPECT_TRUE(inSecond.isVisible()) << "though it is visible by itself";
    first.setVisible(false);
    EXPECT_FALSE(isSeen(inFirst));
    EXPECT_TRUE(isSeen(inSecond));
    EXPECT_TRUE(isSeen(label));
}

TEST_F(EffectiveStateTest, ACaptionOfSeveralFieldsIsSeenBesideTheOneThatIsShown) {
    Label caption(form, "caption");
    form.setLayout(lay::takeTurns(lay::field(caption, inFirst), lay::field(caption, inSecond)));
    EXPECT_TRUE(isSeen(caption));
    inFirst.setVisible(false);
    EXPECT_TRUE(isSeen(caption));
}

TEST_F(EffectiveStateTest, WhatNoLayoutHoldsIsSeenWhenItIsVisible) {
    TextBox loose(form, "loose");
    EXPECT_TRUE(isSeen(loose));
    loose.setVisible(false);
    EXPECT_FALSE(isSeen(loose));
}

}  // namespace
}  // namespace velmora::toolkit
