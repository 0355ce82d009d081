#include "velmora/platform/session/checked_write.h"

#include <chrono>
#include <deque>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_screen.h"
#include "support/recording_connection.h"
#include "support/scripted_connection.h"
#include "support/stopped_clock.h"

namespace velmora::session {
namespace {

using screen::Answer;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace std::chrono_literals;

class WatchingScreen final : public support::ScriptedScreen {
  public:
    explicit WatchingScreen(support::RecordingConnection& connection) : connection_(connection) {}

    Answer show(const screen::MessageBox& box) override {
        logAtQuestion = connection_.log();
        return ScriptedScreen::show(box);
    }
    std::vector<std::string> logAtQuestion;

  private:
    support::RecordingConnection& connection_;
};

class CheckedWriteTest : public ::testing::Test {
  protected:
    /// Each read finds the next state; the last one is repeated.
    Written write(std::deque<RowState> states) {
        return writeChecked(connection, screen, clock,
                            {.look =
                                 [this, states]() mutable {
                                     connection.execute("look");
                                     const RowState state = states.front();
                                     if (states.size() > 1) {
                                         states.pop_front();
                                     }
                                     return state;
                                 },
                             .write =
                                 [this] {
                                     connection.execute("write");
                                     return accepts;
                                 },
                             .question = "¿Encima?"});
    }

    support::ScriptedConnection engine;
    support::RecordingConnection connection{engine};
    WatchingScreen screen{connection};
    support::StoppedClock clock;
    bool accepts = true;
};

TEST_F(CheckedWriteTest, ARowAsShownIsWrittenInTheTransactionOfItsLook) {
    EXPECT_EQ(write({RowState::asShown}), Written::yes);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "look", "write", "COMMIT"));
    EXPECT_THAT(screen.messages, IsEmpty());
}

TEST_F(CheckedWriteTest, ARefusalOfTheDatabaseIsUndone) {
    accepts = false;
    EXPECT_EQ(write({RowState::asShown}), Written::refused);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "look", "write", "ROLLBACK"));
}

TEST_F(CheckedWriteTest, AClosedRowIsNotWrittenAndNothingIsAsked) {
    EXPECT_EQ(write({RowState::closed}), Written::closed);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "look", "ROLLBACK"));
    EXPECT_THAT(screen.messages, IsEmpty());
}

TEST_F(CheckedWriteTest, TheQuestionHoldsNobodyAndTheRowIsLookedAtAgain) {
    screen.queue(Answer::yes);
    EXPECT_EQ(write({RowState::changed}), Written::yes);
    EXPECT_THAT(screen.logAtQuestion, ElementsAre("BEGIN", "look", "ROLLBACK"));
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "look", "ROLLBACK", "BEGIN", "look", "write", "COMMIT"));
    ASSERT_THAT(screen.messageTexts(), ElementsAre("¿Encima?"));
    EXPECT_EQ(screen.messages[0].icon, screen::Icon::exclamation);
    EXPECT_EQ(screen.messages[0].buttons, screen::Buttons::yesNo);
    EXPECT_EQ(screen.messages[0].defaultButton, 2) << "Enter does not write over another's work";
}

TEST_F(CheckedWriteTest, OnNoNothingIsWritten) {
    screen.queue(Answer::no);
    EXPECT_EQ(write({RowState::changed}), Written::declined);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "look", "ROLLBACK"));
}

TEST_F(CheckedWriteTest, WhatClosesWhileTheUserReadsIsStillNotWritten) {
    screen.queue(Answer::yes);
    EXPECT_EQ(write({RowState::changed, RowState::closed}), Written::closed);
    EXPECT_THAT(connection.logged("write"), IsEmpty());
}

TEST_F(CheckedWriteTest, ARowInUseIsWaitedForWithNoTransactionOpenWhileTheWindowPaints) {
    EXPECT_EQ(write({RowState::inUse, RowState::inUse, RowState::asShown}), Written::yes);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "look", "ROLLBACK", "BEGIN", "look", "ROLLBACK", "BEGIN", "look",
                                              "write", "COMMIT"));
    EXPECT_EQ(screen.yields, 2);
    EXPECT_THAT(clock.pauses, ElementsAre(50ms, 50ms));
    EXPECT_THAT(screen.pointers, ElementsAre(screen::Pointer::hourglass, screen::Pointer::normal));
    EXPECT_THAT(screen.work, ElementsAre("Esperando a otro usuario…", ""));
}

TEST_F(CheckedWriteTest, TheUserIsAskedOnceHoweverOftenTheRowChanges) {
    screen.queue(Answer::yes);
    EXPECT_EQ(write({RowState::changed, RowState::inUse, RowState::changed}), Written::yes);
    EXPECT_EQ(screen.messages.size(), 1u);
}

TEST_F(CheckedWriteTest, WhateverAStepThrowsLeavesNothingOpen) {
    const CheckedWrite steps{.look = []() -> RowState { throw std::bad_alloc(); }, .write = {}, .question = {}};
    EXPECT_THROW(writeChecked(connection, screen, clock, steps), std::bad_alloc);
    const CheckedWrite failing{.look = [] { return RowState::asShown; },
                               .write = []() -> bool { throw std::runtime_error("no"); },
                               .question = {}};
    EXPECT_THROW(writeChecked(connection, screen, clock, failing), std::runtime_error);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "ROLLBACK", "BEGIN", "ROLLBACK"));
}

}  // namespace
}  // namespace velmora::session
