// Rows and transactions that another client of the server holds: who cannot go on is told so, and may try again.

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include <gmock/gmock.h>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/database.h"
#include "velmora/platform/sql/db_error.h"

#include "server_under_test.h"
#include "support/proposal_workshop.h"

namespace velmora::odbc {
namespace {

using sql::Value;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

constexpr const char* saved = "Datos Grabados satisfactoriamente";
constexpr const char* refused = "Error en la actualizacion del registro\r\n";
constexpr const char* victim =
    "Otro usuario trabajaba con los mismos datos y el servidor ha deshecho lo de este. Vuelva a intentarlo.";
constexpr const char* rowInUse = "Otro usuario está usando los mismos datos y no termina. Vuelva a intentarlo.";
constexpr const char* anotherSaves = "Otro usuario está grabando y no termina. Vuelva a intentarlo.";

/// Longer than some servers wait before they look for a deadlock: then the one that waits last is the victim.
constexpr std::chrono::milliseconds untilTheOtherIsNotTheVictim{1300};
constexpr std::chrono::milliseconds impatient{300};

class BusyServer : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        test::dropAllTables(*test::testServer());
        support::fillWorkshop(*openDatabase(*test::testServer()));
    }
    static void TearDownTestSuite() { test::dropAllTables(*test::testServer()); }

    BusyServer() {
        test::dropTestTables(server_);
        other_ = connect({.loginStatement = "SET DEADLOCK_PRIORITY HIGH"});
        other_->execute("delete from DPI");
        other_->execute("CREATE TABLE T_A (i int)");
        other_->execute("insert into T_A (i) values (1)");
    }

    std::unique_ptr<ServerConnection> connect(Options options = {}) const {
        return openDatabase(server_, std::move(options));
    }

    /// Another program holds these rows: its transactions do not take the adapter's application lock.
    void otherHolds(const std::string& update) {
        other_->execute("BEGIN TRANSACTION");
        other_->execute(update);
    }
    void otherEnds() { other_->execute("COMMIT TRANSACTION"); }

    /// To be called by a client in a transaction, after otherHolds(): it holds the row of T_A, and the other one waits
    /// for that. Once the client waits for what the other one holds, both are in a deadlock.
    void letTheOtherWaitFor(sql::Connection& client) {
        client.execute("update T_A set i = i + 1");
        waiting_ = std::jthread([this] {
            other_->execute("update T_A set i = i + 10");
            otherEnds();
        });
        std::this_thread::sleep_for(untilTheOtherIsNotTheVictim);
    }

    /// A stored proposal with a changed number of pieces.
    static void changeAStoredProposal(support::ProposalWorkshop& shop) {
        shop.saveNewProposal();
        shop.set("txtPesu(11)", "5");
        shop.leave();
    }
    /// Saves and is refused with these words; saves again once `then` has run.
    static void saveTwice(support::ProposalWorkshop& shop, const std::string& words,
                          const std::function<void()>& then) {
        const auto typed = shop.texts();
        shop.screen.messages.clear();
        shop.key(screen::Key::f5);
        EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(refused + words));
        EXPECT_THAT(shop.texts(), ElementsAreArray(typed));
        EXPECT_TRUE(shop.form().enabled());
        then();
        EXPECT_EQ(shop.query("select DPI_Unidades from DPI"), "3");
        shop.screen.messages.clear();
        shop.key(screen::Key::f5);
        EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(saved));
        EXPECT_EQ(shop.query("select DPI_Unidades from DPI"), "5");
    }

    std::string server_ = readConnectionText(*test::testServer());
    std::unique_ptr<sql::Connection> other_;
    std::jthread waiting_;
};

TEST_F(BusyServer, ADeadlocksVictimIsUndoneAndMayTryAgain) {
    const auto connection = connect({.loginStatement = "SET DEADLOCK_PRIORITY LOW"});
    connection->execute("CREATE TABLE T_B (i int)");
    connection->execute("insert into T_B (i) values (1)");
    for (const bool rollsBack : {true, false}) {
        connection->beginTrans();
        otherHolds("update T_B set i = i + 10");
        letTheOtherWaitFor(*connection);
        try {
            connection->execute("update T_B set i = i + 1");
            ADD_FAILURE() << "no deadlock";
        } catch (const sql::DbError& error) {
            EXPECT_EQ(error.number(), sql::provider::timeout);
            EXPECT_EQ(error.description(), victim);
        }
        waiting_.join();
        EXPECT_THROW(connection->execute("update T_B set i = i + 1"), sql::DbError)
            << "it would be written outside of the transaction";
        if (rollsBack) {
            EXPECT_NO_THROW(connection->rollbackTrans()) << "it has been undone";
        } else {
            EXPECT_THROW(connection->commitTrans(), sql::DbError);
        }
    }
    EXPECT_EQ(other_->execute("select i from T_A")[std::size_t{0}], Value(21));
    EXPECT_EQ(other_->execute("select i from T_B")[std::size_t{0}], Value(21));
    sql::Transaction transaction(*connection);
    connection->execute("update T_B set i = i + 1");
    transaction.commit();
    EXPECT_EQ(other_->execute("select i from T_B")[std::size_t{0}], Value(22));
}

TEST_F(BusyServer, ARowThatAnotherProgramHoldsEndsTheStatementAloneNotTheTransaction) {
    const auto connection = connect({.lockTimeout = impatient});
    connection->execute("CREATE TABLE T_B (i int)");
    connection->execute("insert into T_B (i) values (1)");
    otherHolds("update T_A set i = 7");
    connection->beginTrans();
    connection->execute("update T_B set i = 2");
    try {
        connection->execute("update T_A set i = 8");
        ADD_FAILURE() << "it has not waited";
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::timeout);
        EXPECT_EQ(error.description(), rowInUse);
    }
    otherEnds();
    connection->execute("update T_A set i = i + 1");
    connection->commitTrans();
    EXPECT_EQ(other_->execute("select i from T_A")[std::size_t{0}], Value(8));
    EXPECT_EQ(other_->execute("select i from T_B")[std::size_t{0}], Value(2));
}

TEST_F(BusyServer, AFormThatIsADeadlocksVictimKeepsWhatWasTypedAndSavesItAtTheNextAttempt) {
    support::ProposalWorkshop shop(connect({.loginStatement = "SET DEADLOCK_PRIORITY LOW"}));
    changeAStoredProposal(shop);
    shop.faults.before("UPDATE DPI", [&] {
        otherHolds("update DPI set DPI_Z = DPI_Z");
        letTheOtherWaitFor(*shop.database);
    });
    saveTwice(shop, victim, [&] { waiting_.join(); });
}

TEST_F(BusyServer, AFormWhoseRowAnotherProgramHoldsKeepsWhatWasTypedAndSavesItAtTheNextAttempt) {
    support::ProposalWorkshop shop(connect({.lockTimeout = impatient}));
    changeAStoredProposal(shop);
    otherHolds("update DPI set DPI_Z = DPI_Z");
    saveTwice(shop, rowInUse, [&] { otherEnds(); });
}

TEST_F(BusyServer, AFormThatMeetsAnotherClientsTransactionKeepsWhatWasTypedAndSavesItAtTheNextAttempt) {
    support::ProposalWorkshop shop(connect({.lockTimeout = impatient}));
    changeAStoredProposal(shop);
    other_->beginTrans();
    saveTwice(shop, anotherSaves, [&] { other_->rollbackTrans(); });
}

}  // namespace
}  // namespace velmora::odbc
