// Focus and the order of its events.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/form.h"

namespace velmora::screen {
namespace {

using ::testing::ElementsAre;
using Insist = Form::Insist;

class FocusTest : public ::testing::Test {
  protected:
    FocusTest() {
        Text1.on(&TextBox::onGotFocus, {[this](int i) { note("got", i); }});
        Text1.on(&TextBox::onLostFocus, {[this](int i) {
            note("lost", i);
            if (inLostFocus) {
                inLostFocus();
            }
        }});
        form.setTabOrder({&Text1(0), &Text1(1), &Text1(2), &Text1(3)});
    }
    void note(const char* event, int i) { events.push_back(event + std::to_string(i)); }
    int focused() const { return form.activeControl() == nullptr ? -1 : form.activeControl()->index(); }
    long errorOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const runtime::RuntimeError& error) {
            return error.number();
        }
        return 0;
    }

    Form form{"f"};
    ControlArray<TextBox> Text1{form, "Text1", {{0, 3}}};
    std::vector<std::string> events;
    std::function<void()> inLostFocus;
};

TEST_F(FocusTest, LostFocusComesBeforeGotFocus) {
    form.moveFocus(Text1(0));
    form.moveFocus(Text1(1));
    Text1(2).setFocus();
    EXPECT_THAT(events, ElementsAre("got0", "lost0", "got1", "lost1", "got2"));
}

TEST_F(FocusTest, TheFieldThatIsLeftIsActiveWhileItsLostFocusRuns) {
    form.moveFocus(Text1(0));
    int active = -1;
    inLostFocus = [&] { active = focused(); };
    form.moveFocus(Text1(1));
    EXPECT_EQ(active, 0);
}

TEST_F(FocusTest, MovingToTheFieldThatHasItRaisesNothing) {
    form.moveFocus(Text1(0));
    events.clear();
    EXPECT_TRUE(form.moveFocus(Text1(0)));
    Text1(0).setFocus();
    EXPECT_THAT(events, ElementsAre());
}

TEST_F(FocusTest, AHiddenDisabledOrFramedAwayControlRefuses) {
    Frame frame(form, "fraCubo");
    Text1(3).setFrame(&frame);
    frame.setEnabled(false);
    Text1(1).setVisible(false);
    Text1(2).setEnabled(false);
    form.moveFocus(Text1(0));
    for (const int i : {1, 2, 3}) {
        EXPECT_FALSE(form.moveFocus(Text1(i))) << i;
        EXPECT_EQ(errorOf([&] { Text1(i).setFocus(); }), 5) << i;
    }
    EXPECT_EQ(focused(), 0);
    EXPECT_THAT(events, ElementsAre("got0"));
}

TEST_F(FocusTest, WhileTheFormIsDisabledNobodyTakesIt) {
    form.moveFocus(Text1(0));
    form.setEnabled(false);
    EXPECT_FALSE(form.moveFocus(Text1(1), Insist::yes));
    EXPECT_EQ(errorOf([&] { Text1(1).setFocus(); }), 5);
    form.tabForward();
    EXPECT_EQ(focused(), 0);
    form.setEnabled(true);
    EXPECT_TRUE(form.moveFocus(Text1(1)));
}

TEST_F(FocusTest, SetFocusInsideLostFocusWinsOverTheMove) {
    form.moveFocus(Text1(0));
    inLostFocus = [this] {
        inLostFocus = nullptr;
        Text1(3).setFocus();
    };
    form.moveFocus(Text1(1));
    EXPECT_EQ(focused(), 3);
    EXPECT_THAT(events, ElementsAre("got0", "lost0", "got3"));
}

TEST_F(FocusTest, SetFocusOnTheFieldThatIsLeftHoldsTheUserThere) {
    form.moveFocus(Text1(0));
    inLostFocus = [this] { Text1(0).setFocus(); };
    form.moveFocus(Text1(1));
    EXPECT_EQ(focused(), 0);
    EXPECT_THAT(events, ElementsAre("got0", "lost0", "got0"));
}

TEST_F(FocusTest, ADriverThatInsistsEndsOnTheControlThatItNamed) {
    form.moveFocus(Text1(0));
    inLostFocus = [this] { Text1(0).setFocus(); };
    EXPECT_TRUE(form.moveFocus(Text1(1), Insist::yes));
    EXPECT_EQ(focused(), 1);
    EXPECT_THAT(events, ElementsAre("got0", "lost0", "got1"));
}

TEST_F(FocusTest, TheLastOfSeveralSetFocusInsideLostFocusWins) {
    form.moveFocus(Text1(0));
    inLostFocus = [this] {
        Text1(3).setFocus();
        Text1(2).setFocus();
    };
    form.moveFocus(Text1(1));
    EXPECT_EQ(focused(), 2);
    EXPECT_THAT(events, ElementsAre("got0", "lost0", "got2"));
}

TEST_F(FocusTest, LeavingTakesTheFocusOffUnlessTheFieldHoldsIt) {
    form.moveFocus(Text1(0));
    form.leaveFocus();
    EXPECT_EQ(focused(), -1);
    EXPECT_THAT(events, ElementsAre("got0", "lost0"));
    form.moveFocus(Text1(0));
    inLostFocus = [this] { Text1(0).setFocus(); };
    form.leaveFocus();
    EXPECT_EQ(focused(), 0);
    form.leaveFocus(Insist::yes);
    EXPECT_EQ(focused(), -1);
}

TEST_F(FocusTest, LeavingWithNothingActiveIsQuiet) {
    form.leaveFocus();
    EXPECT_THAT(events, ElementsAre());
}

TEST_F(FocusTest, AnErrorInLostFocusFinishesTheMoveAndThenGoesOn) {
    form.moveFocus(Text1(0));
    inLostFocus = [] { runtime::raise(runtime::typeMismatch); };
    EXPECT_EQ(errorOf([&] { form.moveFocus(Text1(1)); }), 13);
    EXPECT_EQ(focused(), 1);
    EXPECT_THAT(events, ElementsAre("got0", "lost0", "got1"));
    inLostFocus = nullptr;
    form.moveFocus(Text1(2));
    EXPECT_EQ(focused(), 2) << "the form is not left in the middle of a move";
}

TEST_F(FocusTest, AnErrorInGotFocusReachesTheUserWithTheFocusThere) {
    Text1(1).onGotFocus = [] { runtime::raise(runtime::overflow); };
    form.moveFocus(Text1(0));
    EXPECT_EQ(errorOf([&] { form.moveFocus(Text1(1)); }), 6);
    EXPECT_EQ(focused(), 1);
}

TEST_F(FocusTest, ATargetThatLeavingDisablesDoesNotTakeIt) {
    form.moveFocus(Text1(0));
    inLostFocus = [this] { Text1(1).setEnabled(false); };
    EXPECT_FALSE(form.moveFocus(Text1(1)));
    EXPECT_EQ(focused(), -1);
    EXPECT_THAT(events, ElementsAre("got0", "lost0"));
}

TEST_F(FocusTest, TheTabKeyPassesOverWhatLeavingHides) {
    form.moveFocus(Text1(0));
    inLostFocus = [this] { Text1(1).setVisible(false); };
    form.tabForward();
    EXPECT_EQ(focused(), 2);
}

TEST_F(FocusTest, TheTabKeyGoesRoundAndPassesOverWhatIsNoStop) {
    Text1(1).setTabStop(false);
    Text1(2).setEnabled(false);
    form.moveFocus(Text1(0));
    form.tabForward();
    EXPECT_EQ(focused(), 3);
    form.tabForward();
    EXPECT_EQ(focused(), 0);
    form.tabBackward();
    EXPECT_EQ(focused(), 3);
    EXPECT_TRUE(form.moveFocus(Text1(1))) << "a field that is no stop still takes a click";
}

TEST_F(FocusTest, TheTabKeyStaysWhereNothingElseCanTakeIt) {
    form.moveFocus(Text1(0));
    for (const int i : {1, 2, 3}) {
        Text1(i).setEnabled(false);
    }
    events.clear();
    form.tabForward();
    EXPECT_EQ(focused(), 0);
    EXPECT_THAT(events, ElementsAre());
}

TEST_F(FocusTest, AnUnloadInsideLostFocusGivesTheFocusToNobody) {
    form.moveFocus(Text1(0));
    inLostFocus = [this] { form.unload(); };
    EXPECT_FALSE(form.moveFocus(Text1(1)));
    EXPECT_THAT(events, ElementsAre("got0", "lost0"));
}

TEST_F(FocusTest, AControlThatGoesTakesTheFocusWithIt) {
    {
        const TextBox passing(form, "txtPaso");
        form.moveFocus(*form.find("txtPaso"));
        EXPECT_EQ(form.activeControl(), &passing);
    }
    EXPECT_EQ(form.activeControl(), nullptr);
    EXPECT_EQ(form.find("txtPaso"), nullptr);
}

TEST_F(FocusTest, AControlWhosePlaceAnotherHasIsNoStop) {
    Frame shown(form, "shown");
    Frame covered(form, "covered");
    form.setLayout(layout::column(layout::plain(Text1(0)),
                                  layout::takeTurns(layout::group(shown, layout::plain(Text1(1))),
                                                    layout::group(covered, layout::plain(Text1(2)))),
                                  layout::plain(Text1(3))));
    form.moveFocus(Text1(1));
    form.tabForward();
    EXPECT_EQ(focused(), 3);
    shown.setVisible(false);
    form.tabBackward();
    EXPECT_EQ(focused(), 2);
}

}  // namespace
}  // namespace velmora::screen
