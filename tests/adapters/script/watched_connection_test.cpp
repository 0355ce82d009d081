#include "velmora/adapters/script/watched_connection.h"

#include <gtest/gtest.h>

#include "workbench.h"

namespace velmora::script::testing {
namespace {

class WatchedConnectionTest : public ::testing::Test {
  protected:
    WatchedConnectionTest() {
        database.answers("select a from t", {{"a"}}, {{1}, {2}});
        watched.onStatement([this](std::string_view statement) { told.emplace_back(statement); });
    }

    /// The provider's error number; 0 without an error.
    long numberOf(const std::function<void()>& deed) {
        try {
            deed();
        } catch (const sql::DbError& e) {
            return e.number();
        } catch (const runtime::RuntimeError&) {
            return 0;
        }
        return 0;
    }

    FakeConnection database;
    WatchedConnection watched{database};
    std::vector<std::string> told;
};

TEST_F(WatchedConnectionTest, TellsStatementsToTheLetterAndPassesRowsOn) {
    sql::Recordset rows = watched.execute("select a from t");
    EXPECT_EQ(told, std::vector<std::string>{"select a from t"});
    EXPECT_EQ(rows.recordCount(), 2u);
    rows.moveNext();
    EXPECT_EQ(rows["A"].toLong(), 2);
}

TEST_F(WatchedConnectionTest, WatchesAStatementThatIsRunAgain) {
    sql::Recordset rows = watched.execute("select a from t");
    rows.requery();
    rows.requery();
    EXPECT_EQ(told.size(), 3u);
    watched.refuseNext("from t");
    EXPECT_EQ(numberOf([&] { rows.requery(); }), sql::provider::failure);
    EXPECT_EQ(database.log.size(), 3u);
}

TEST_F(WatchedConnectionTest, RefusesOnceAndOnlyWhatHoldsTheText) {
    watched.refuseNext("from t");
    EXPECT_EQ(numberOf([&] { watched.execute("select FROM T"); }), sql::provider::missingTable);
    EXPECT_EQ(numberOf([&] { watched.execute("select a from t"); }), sql::provider::failure);
    EXPECT_EQ(numberOf([&] { watched.execute("select a from t"); }), 0);
    EXPECT_EQ(told.size(), 3u) << "a refused statement is told too";
    EXPECT_EQ(database.log, (std::vector<std::string>{"select FROM T", "select a from t"}));
}

TEST_F(WatchedConnectionTest, NamesTheRefusedStatement) {
    watched.refuseNext("t");
    try {
        watched.execute("select a from t");
        FAIL() << "the statement was to be refused";
    } catch (const sql::DbError& e) {
        EXPECT_EQ(e.details().statement, "select a from t");
    }
}

TEST_F(WatchedConnectionTest, OnceLostFailsInEverythingAndUndoesTheTransaction) {
    watched.beginTrans();
    watched.lose();
    EXPECT_FALSE(watched.isAlive());
    EXPECT_EQ(database.log, (std::vector<std::string>{"begin", "rollback"}));
    EXPECT_EQ(numberOf([&] { watched.execute("select a from t"); }), sql::provider::failure);
    EXPECT_EQ(numberOf([&] { watched.beginTrans(); }), sql::provider::failure);
    EXPECT_EQ(numberOf([&] { watched.commitTrans(); }), sql::provider::failure);
    EXPECT_EQ(numberOf([&] { watched.rollbackTrans(); }), sql::provider::failure);
    EXPECT_EQ(numberOf([&] { watched.currentCatalog(); }), sql::provider::failure);
    EXPECT_EQ(database.log.size(), 2u);
}

TEST_F(WatchedConnectionTest, AColumnWrittenThroughASetIsRefusedByItsNameAndAfterTheLoss) {
    sql::Recordset rows = watched.execute("select a from t");
    const auto write = [&] { rows.updateBinary("A", sql::Bytes{std::byte{1}}); };
    EXPECT_THROW(write(), runtime::RuntimeError) << "the rows of the bench are in memory";
    EXPECT_EQ(numberOf(write), 0) << "and that is no error of a provider";
    watched.refuseNext("update a");
    EXPECT_EQ(numberOf(write), sql::provider::failure);
    EXPECT_EQ(told.size(), 1u) << "it is no statement of the program";
    watched.lose();
    EXPECT_EQ(numberOf(write), sql::provider::failure);
}

TEST_F(WatchedConnectionTest, LostOutsideATransactionUndoesNothing) {
    watched.beginTrans();
    watched.commitTrans();
    watched.lose();
    EXPECT_EQ(database.log, (std::vector<std::string>{"begin", "commit"}));
}

}  // namespace
}  // namespace velmora::script::testing
