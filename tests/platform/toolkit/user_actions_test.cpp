#include "velmora/platform/toolkit/user_actions.h"

#include <gmock/gmock.h>

#include "velmora/platform/runtime/errors.h"

namespace velmora::toolkit {
namespace {

using screen::TextBox;
using ::testing::ElementsAre;

class UserActionsTest : public ::testing::Test, protected ActionWindow {
  protected:
    UserActionsTest() {
        form.setTabOrder({&first, &second});
        form.activate();
    }

    void showError(std::exception_ptr error) override {
        try {
            std::rethrow_exception(error);
        } catch (const runtime::RuntimeError& e) {
            log.push_back("error " + std::to_string(e.number()));
        }
        if (inErrorBox) {
            inErrorBox();
        }
    }
    void moveKeyboard() override { log.emplace_back("keyboard"); }

    screen::Form form{"frm"};
    TextBox first{form, "first"};
    TextBox second{form, "second"};
    std::vector<std::string> log;
    std::function<void()> inErrorBox;
    UserActions actions{form, *this};
};

TEST_F(UserActionsTest, TheKeyboardMovesOnceAfterTheOutermostAction) {
    actions.run([&] {
        actions.run([&] { log.emplace_back("inner"); });
        log.emplace_back("outer");
    });
    EXPECT_THAT(log, ElementsAre("inner", "outer", "keyboard"));
}

TEST_F(UserActionsTest, TheOutermostActionRemovesTheNoteOfTheOneBefore) {
    actions.run([&] { form.status().tellNote("Falta Z"); });
    EXPECT_EQ(form.status().note(), "Falta Z");
    actions.run([&] {
        EXPECT_EQ(form.status().note(), "");
        form.status().tellNote("Solo lectura");
        actions.run([] {});
    });
    EXPECT_EQ(form.status().note(), "Solo lectura");
}

TEST_F(UserActionsTest, AnErrorIsShownAndTheKeyboardMoves) {
    actions.run([] { runtime::raise(runtime::typeMismatch); });
    EXPECT_THAT(log, ElementsAre("error 13", "keyboard"));
}

TEST_F(UserActionsTest, WhatTheUserDoesInAnErrorBoxIsPartOfTheAction) {
    inErrorBox = [&] { actions.run([&] { log.emplace_back("in the box"); }); };
    actions.run([] { runtime::raise(runtime::typeMismatch); });
    EXPECT_THAT(log, ElementsAre("error 13", "in the box", "keyboard"));
}

TEST_F(UserActionsTest, AControlDisabledOrHiddenWithTheFocusGivesItOn) {
    actions.run([&] { first.setEnabled(false); });
    EXPECT_EQ(form.activeControl(), &second);
    first.setEnabled(true);
    actions.run([&] { second.setVisible(false); });
    EXPECT_EQ(form.activeControl(), &first);
}

TEST_F(UserActionsTest, WhileTheFormTakesNoInputTheFocusStays) {
    actions.run([&] { form.setEnabled(false); });
    EXPECT_EQ(form.activeControl(), &first);
    form.setEnabled(true);
    actions.run([&] {
        first.setEnabled(false);
        form.unload();
    });
    EXPECT_EQ(form.activeControl(), &first);
}

TEST_F(UserActionsTest, TurningToAControlTellsWhetherTheFocusGotThere) {
    EXPECT_TRUE(actions.turnTo(second));
    EXPECT_TRUE(actions.turnTo(second)) << "it is there already";
    first.setEnabled(false);
    EXPECT_FALSE(actions.turnTo(first));
    first.setEnabled(true);
    second.onLostFocus = [&] { second.setFocus(); };
    EXPECT_FALSE(actions.turnTo(first)) << "the field that is left holds it";
}

TEST_F(UserActionsTest, AControlThatGotFocusDisablesIsNotReached) {
    second.onGotFocus = [&] { second.setEnabled(false); };
    EXPECT_FALSE(actions.turnTo(second));
}

}  // namespace
}  // namespace velmora::toolkit
