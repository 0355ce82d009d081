#include "velmora/adapters/odbc/opening.h"

#include <functional>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include "velmora/adapters/odbc/database.h"
#include "velmora/platform/sql/long_run.h"

#include "support/temporary_folder.h"

namespace velmora::odbc {
namespace {

/// Joined with itself three times: more than any machine counts while a test runs.
constexpr const char* endless = "select a.n from T a, T b, T c where a.n + b.n + c.n < 0 order by a.n desc";
constexpr int tableRows = 1024;

class OpeningTest : public ::testing::Test {
  protected:
    std::function<bool()> answer = [] { return true; };
    int asked = 0;
    int ended = 0;

    struct Run final : sql::LongRun {
        explicit Run(OpeningTest& test) : test_(test) {}
        ~Run() override { ++test_.ended; }
        bool mayGoOn() override {
            ++test_.asked;
            return test_.answer();
        }
        OpeningTest& test_;
    };

    void SetUp() override {
        connection->execute("CREATE TABLE T (k integer primary key, n int)");
        connection->execute("insert into T (n) values (1)");
        for (int filled = 1; filled < tableRows; filled *= 2) {
            connection->execute("insert into T (n) select k from T");
        }
    }
    static sql::DbError errorOf(const std::function<void()>& work) {
        try {
            work();
        } catch (const sql::DbError& error) {
            return error;
        }
        throw std::logic_error("no error");
    }

    support::TemporaryFolder folder;
    std::unique_ptr<sql::Connection> open(std::chrono::milliseconds longRunAfter) {
        return openDatabase("DRIVER=SQLite3;Timeout=200;Database=" + folder.file("taller.db"),
                            {.longRun = [this] { return std::make_unique<Run>(*this); }, .longRunAfter = longRunAfter});
    }
    std::unique_ptr<sql::Connection> connection = open(std::chrono::milliseconds(20));
};

TEST_F(OpeningTest, AQueryThatMayNotGoOnEndsAndTheConnectionWorksOn) {
    const sql::Recordset before = connection->execute("select k from T order by k");
    answer = [] { return false; };
    ended = 0;
    for (int turn = 1; turn <= 2; ++turn) {
        const sql::DbError error = errorOf([&] { connection->execute(endless); });
        EXPECT_EQ(error.number(), sql::cancelled);
        EXPECT_EQ(error.details().sqlState, "HY008");
        EXPECT_EQ(error.description(), "La consulta se ha cancelado.");
        EXPECT_EQ(error.details().statement, endless);
        EXPECT_EQ(ended, turn) << "the window is gone with the statement";
    }
    EXPECT_EQ(before.recordCount(), static_cast<std::size_t>(tableRows)) << "an open set keeps its rows";
    connection->beginTrans();
    connection->execute("update T set n = 7 where k = 1");
    connection->commitTrans();
    EXPECT_EQ(connection->execute("select n from T where k = 1")[std::size_t{0}].toLong(), 7);
}

TEST_F(OpeningTest, AQueryThatMayGoOnGivesItsRows) {
    const sql::Recordset set =
        connection->execute("select sum(c) from (select 1 as c from T a, T b where b.k <= 400 order by a.n desc, b.k)");
    EXPECT_EQ(set[std::size_t{0}].toLong(), tableRows * 400);
    EXPECT_GT(asked, 0);
}

TEST_F(OpeningTest, AShortQueryAsksNobodyAndItsErrorsAreItsOwn) {
    connection = open(std::chrono::seconds(30));
    EXPECT_EQ(connection->execute("select n from T where k < 5 order by k").recordCount(), 4U);
    EXPECT_NE(errorOf([&] { connection->execute("select x from Nowhere order by x"); }).number(), sql::cancelled);
    EXPECT_EQ(connection->execute("select n from T where n like '1%' order by k")[std::size_t{0}].toLong(), 1);
    EXPECT_EQ(asked, 0);
}

TEST_F(OpeningTest, WhatTheProgramRaisesWhenItIsAskedEndsTheQuery) {
    answer = []() -> bool { throw std::runtime_error("the window cannot be shown"); };
    EXPECT_THROW(connection->execute(endless), std::runtime_error);
    EXPECT_EQ(connection->execute("select count(*) from T")[std::size_t{0}].toLong(), tableRows);
}

TEST_F(OpeningTest, NobodyIsAskedInsideATransaction) {
    connection->beginTrans();
    connection->execute("select sum(n) from (select a.n from T a, T b where b.k < 400 order by a.n desc, b.k)");
    connection->rollbackTrans();
    EXPECT_EQ(asked, 0);
}

TEST_F(OpeningTest, OtherStatementsRunWhileTheProgramIsAsked) {
    long seen = 0;
    answer = [&] {
        seen = connection->execute("select count(*) from T")[std::size_t{0}].toLong();
        return false;
    };
    EXPECT_EQ(errorOf([&] { connection->execute(endless); }).number(), sql::cancelled);
    EXPECT_EQ(seen, tableRows);
}

TEST(MayRunLong, QueriesThatSortOrSearchAreAskedAbout) {
    EXPECT_TRUE(mayRunLong("select * from DPI order by DPI_Fecha"));
    EXPECT_TRUE(mayRunLong("SELECT CLI_COD FROM CLI WHERE CLI_NOM LIKE '%a%'"));
    EXPECT_FALSE(mayRunLong("select * from DPI where DPI_ID=6"));
    EXPECT_FALSE(mayRunLong("UPDATE DPI SET DPI_Obs = 'select order by '"));
}

}  // namespace
}  // namespace velmora::odbc
