#include "velmora/apps/desktop/reconnection.h"

#include <deque>

#include <gmock/gmock.h>

#include "velmora/platform/sql/db_error.h"

#include "support/fake_screen.h"

namespace velmora::desktop {
namespace {

using screen::Answer;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// A server that refuses to be connected as often as a test says.
class AwayServer final : public odbc::ServerConnection {
  public:
    bool lost = true;
    int refusals = 0;
    int attempts = 0;

    bool takeLoss() override { return std::exchange(lost, false); }
    void reconnect() override {
        ++attempts;
        if (refusals-- > 0) {
            throw sql::DbError(sql::provider::failure, "El servidor no responde.");
        }
    }

    sql::Recordset execute(std::string_view) override { return {}; }
    void beginTrans() override {}
    void commitTrans() override {}
    void rollbackTrans() override {}
    std::string currentCatalog() const override { return "TALLER"; }
    bool isAlive() override { return true; }
};

class Reconnection : public ::testing::Test {
  protected:
    AwayServer server_;
    support::ScriptedScreen screen_;
};

TEST_F(Reconnection, WithoutALossNothingIsAsked) {
    server_.lost = false;
    offerToReconnect(server_, screen_);
    EXPECT_THAT(screen_.messages, IsEmpty());
    EXPECT_EQ(server_.attempts, 0);
}

TEST_F(Reconnection, AYesConnectsAgain) {
    screen_.queue(Answer::yes);
    offerToReconnect(server_, screen_);
    EXPECT_EQ(server_.attempts, 1);
    offerToReconnect(server_, screen_);
    EXPECT_THAT(screen_.messageTexts(),
                ElementsAre(AllOf(HasSubstr("perdido la conexión"), HasSubstr("¿Desea conectar de nuevo?"))));
}

TEST_F(Reconnection, ANoLeavesItUntilTheLossIsMetAgain) {
    screen_.queue(Answer::no);
    offerToReconnect(server_, screen_);
    offerToReconnect(server_, screen_);
    EXPECT_EQ(server_.attempts, 0);
    EXPECT_EQ(screen_.messages.size(), 1u);
    server_.lost = true;
    screen_.queue(Answer::yes);
    offerToReconnect(server_, screen_);
    EXPECT_EQ(server_.attempts, 1);
}

TEST_F(Reconnection, AFailureIsToldAndAskedAboutAgain) {
    server_.refusals = 2;
    screen_.queue(Answer::yes);
    screen_.queue(Answer::yes);
    screen_.queue(Answer::no);
    offerToReconnect(server_, screen_);
    EXPECT_EQ(server_.attempts, 2);
    EXPECT_THAT(screen_.messageTexts(), ElementsAre(HasSubstr("perdido"), HasSubstr("El servidor no responde."),
                                                    HasSubstr("El servidor no responde.")));
}

}  // namespace
}  // namespace velmora::desktop
