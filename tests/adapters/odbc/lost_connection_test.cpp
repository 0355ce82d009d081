// A server that goes away while programs work on it, and comes back.

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/database.h"
#include "velmora/platform/sql/db_error.h"

#include "cut_line.h"
#include "server_under_test.h"
#include "support/proposal_workshop.h"

namespace velmora::odbc {
namespace {

using sql::Value;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

class LostConnection : public ::testing::Test {
  protected:
    std::string throughTheLine() const {
        return withValue(withValue(server_, "SERVER", "127.0.0.1"), "PORT", std::to_string(line_.port()));
    }
    static long refusal(const std::function<void()>& work) {
        try {
            work();
        } catch (const sql::DbError& error) {
            return error.number();
        }
        return 0;
    }

    std::string server_ = readConnectionText(*test::testServer());
    test::CutLine line_{valueOf(server_, "SERVER"), valueOf(server_, "PORT")};
};

TEST_F(LostConnection, EveryOperationFailsUntilTheConnectionIsMadeAnew) {
    test::dropTestTables(server_);
    const auto connection = openDatabase(throughTheLine(), {.loginStatement = "SET DATEFORMAT mdy"});
    connection->execute("CREATE TABLE T_A (i int, d datetime)");
    connection->execute("insert into T_A (i, d) values (1, '10/01/2026')");
    sql::Recordset set = connection->execute("select * from T_A");
    EXPECT_FALSE(connection->takeLoss());
    line_.cut();

    const auto select = [&] { connection->execute("select * from T_A"); };
    EXPECT_EQ(refusal(select), sql::provider::failure);
    EXPECT_EQ(refusal(select), sql::provider::failure) << "no statement reconnects by itself";
    EXPECT_FALSE(connection->isAlive());
    EXPECT_EQ(refusal([&] { connection->beginTrans(); }), sql::provider::failure);
    EXPECT_EQ(refusal([&] { connection->rollbackTrans(); }), sql::provider::noTransaction);
    EXPECT_EQ(set["i"], Value(1)) << "a set keeps its rows";
    EXPECT_EQ(refusal([&] { set.requery(); }), sql::provider::failure);
    EXPECT_TRUE(connection->takeLoss());
    EXPECT_FALSE(connection->takeLoss());
    EXPECT_FALSE(connection->isAlive());
    EXPECT_TRUE(connection->takeLoss()) << "it was met again";

    EXPECT_EQ(refusal([&] { connection->reconnect(); }), sql::provider::failure);
    EXPECT_FALSE(connection->isAlive());
    line_.mend();
    EXPECT_FALSE(connection->isAlive()) << "only reconnect() does it";
    connection->reconnect();
    EXPECT_TRUE(connection->isAlive());
    EXPECT_FALSE(connection->takeLoss());
    EXPECT_EQ(connection->execute("select count(*) from T_A where d = '10/01/2026'")[std::size_t{0}], Value(1))
        << "the settings are made again";
}

TEST_F(LostConnection, WhatStoodInATransactionIsUndone) {
    test::dropTestTables(server_);
    const auto connection = openDatabase(throughTheLine());
    connection->execute("CREATE TABLE T_A (i int)");
    for (const bool noticed : {false, true}) {
        line_.mend();
        connection->reconnect();
        connection->beginTrans();
        connection->execute("insert into T_A (i) values (1)");
        line_.cut();
        if (noticed) {
            EXPECT_EQ(refusal([&] { connection->execute("insert into T_A (i) values (2)"); }), sql::provider::failure);
            EXPECT_FALSE(connection->takeLoss()) << "whoever began it ends it first";
            EXPECT_EQ(refusal([&] { connection->rollbackTrans(); }), sql::provider::failure);
        } else {
            EXPECT_EQ(refusal([&] { connection->commitTrans(); }), sql::provider::failure);
        }
        EXPECT_EQ(refusal([&] { connection->rollbackTrans(); }), sql::provider::noTransaction);
        EXPECT_TRUE(connection->takeLoss());
    }
    line_.mend();
    connection->reconnect();
    EXPECT_EQ(connection->execute("select count(*) from T_A")[std::size_t{0}], Value(0));
    sql::Transaction transaction(*connection);
    transaction.commit();
}

TEST_F(LostConnection, AListThatIsStillBeingReadTellsIt) {
    test::dropTestTables(server_);
    const auto connection = openDatabase(throughTheLine());
    connection->execute("CREATE TABLE T_A (t nvarchar(4000))");
    connection->execute("insert into T_A (t) values (N'" + std::string(4000, 'x') + "')");
    for (int i = 0; i < 13; ++i) {
        connection->execute("insert into T_A (t) select t from T_A");
    }
    sql::Recordset list = connection->execute("select t from T_A");
    line_.cut();
    EXPECT_EQ(refusal([&] { list.moveLast(); }), sql::provider::failure);
    EXPECT_TRUE(connection->takeLoss());
    line_.mend();
    connection->reconnect();
    EXPECT_EQ(refusal([&] { list.moveLast(); }), sql::provider::failure) << "what did not come does not come";
    EXPECT_FALSE(connection->takeLoss()) << "the connection is another one";
    EXPECT_TRUE(connection->isAlive());
    list.requery();
    EXPECT_EQ(list.recordCount(), 8192u);
}

TEST_F(LostConnection, TheFormKeepsWhatWasTypedAndSavesItOnceConnectedAgain) {
    test::dropAllTables(server_);
    support::fillWorkshop(*openDatabase(server_));
    auto opened = openDatabase(throughTheLine());
    ServerConnection& connection = *opened;
    {
        support::ProposalWorkshop shop(std::move(opened));
        shop.enterToothing();
        shop.enterCustomerAndUnits();
        const std::vector<std::string> typed = shop.texts();
        line_.cut();
        shop.screen.messages.clear();
        shop.key(screen::Key::f5);
        EXPECT_THAT(shop.screen.messageTexts(), ElementsAre("La conexión con la Base de Datos se perdió"));
        EXPECT_THAT(shop.texts(), ElementsAreArray(typed));
        EXPECT_TRUE(connection.takeLoss());

        line_.mend();
        connection.reconnect();
        shop.saveNewProposal();
        EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
    }
    test::dropAllTables(server_);
}

TEST_F(LostConnection, AServerThatFallsSilentCountsAsLostAfterAWhile) {
    const auto connection = openDatabase(throughTheLine(), {.statementTimeout = std::chrono::seconds(1)});
    EXPECT_TRUE(connection->isAlive());
    line_.silence();
    EXPECT_EQ(refusal([&] { connection->execute("select 1"); }), sql::provider::failure);
    EXPECT_TRUE(connection->takeLoss());
    EXPECT_FALSE(connection->isAlive());
    line_.cut();
    line_.mend();
    connection->reconnect();
    EXPECT_TRUE(connection->isAlive());
}

TEST_F(LostConnection, AServerThatIsNotThereIsTold) {
    line_.cut();
    try {
        openDatabase(throughTheLine());
        FAIL();
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::failure);
        EXPECT_THAT(error.description(), HasSubstr("El servidor no está en marcha o no responde"));
    }
}

}  // namespace
}  // namespace velmora::odbc
