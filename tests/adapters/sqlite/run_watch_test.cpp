// Statements that run long: the program is asked whether they may go on.

#include "velmora/adapters/sqlite/run_watch.h"

#include <functional>
#include <memory>
#include <stdexcept>

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace velmora::sqlite {
namespace {

/// Joined with itself four times: more than any machine counts while a test runs.
constexpr const char* endless = "select a.n from T a, T b, T c, T d where a.n + b.n + c.n + d.n < 0 order by a.n desc";
constexpr int rows = 1024;

class RunWatchTest : public ::testing::Test {
  protected:
    /// What the program answers each time it is asked.
    std::function<bool()> answer = [] { return false; };
    int asked = 0;
    int begun = 0;
    int ended = 0;

    struct Run final : LongRun {
        explicit Run(RunWatchTest& test) : test_(test) { ++test_.begun; }
        ~Run() override { ++test_.ended; }
        bool mayGoOn() override {
            ++test_.asked;
            return test_.answer();
        }
        RunWatchTest& test_;
    };

    std::unique_ptr<sql::Connection> open(const std::string& path) {
        Options options;
        options.longRun = [this] { return std::make_unique<Run>(*this); };
        options.longRunAfter = std::chrono::milliseconds(1);
        return openDatabase(path, std::move(options));
    }
    static void fill(sql::Connection& connection) {
        connection.execute("CREATE TABLE T (k int IDENTITY (1, 1) PRIMARY KEY, n int)");
        connection.execute("insert into T (n) values (1)");
        for (int filled = 1; filled < rows; filled *= 2) {
            connection.execute("insert into T (n) select k from T");
        }
    }
    static long numberOf(const std::function<void()>& work) {
        try {
            work();
        } catch (const sql::DbError& error) {
            EXPECT_EQ(error.description(), "La consulta se ha cancelado.");
            EXPECT_EQ(error.details().statement, endless);
            return error.number();
        }
        return 0;
    }

    support::TemporaryFolder folder;
    std::unique_ptr<sql::Connection> connection = open(folder.file("taller.db"));
    void SetUp() override { fill(*connection); }
};

TEST_F(RunWatchTest, AStatementThatMayNotGoOnEndsAndTheConnectionWorksOn) {
    sql::Recordset before = connection->execute("select k from T order by k");
    EXPECT_EQ(numberOf([&] { connection->execute(endless); }), cancelled);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(begun, 1);
    EXPECT_EQ(ended, 1) << "the window is gone with the statement";
    EXPECT_EQ(before.recordCount(), static_cast<std::size_t>(rows)) << "an open set keeps its rows";
    connection->beginTrans();
    connection->execute("update T set n = 0 where k = 1");
    connection->commitTrans();
    EXPECT_EQ(connection->execute("select n from T where k = 1")[std::size_t{0}].toLong(), 0);
    EXPECT_EQ(numberOf([&] { connection->execute(endless); }), cancelled) << "and again";
}

TEST_F(RunWatchTest, ItIsAskedUntilTheUserHasEnough) {
    answer = [this] { return asked < 20; };
    EXPECT_EQ(numberOf([&] { connection->execute(endless); }), cancelled);
    EXPECT_EQ(asked, 20);
    EXPECT_EQ(begun, 1);
}

TEST_F(RunWatchTest, AStatementThatMayGoOnAnswers) {
    answer = [] { return true; };
    const auto count = connection->execute("select count(*) from T a, T b where a.n + b.n >= 0")[std::size_t{0}];
    EXPECT_EQ(count.toLong(), rows * rows);
    EXPECT_GT(asked, 0);
    EXPECT_EQ(ended, begun);
}

TEST_F(RunWatchTest, WhatTheProgramDoesMeanwhileRunsBesideTheStatement) {
    int seen = 0;
    sql::Recordset list = connection->execute("select k from T order by k");
    answer = [&] {
        if (asked == 1) {
            seen = connection->execute("select count(*) from T")[std::size_t{0}].toLong();
            list.moveLast();
        }
        return false;
    };
    EXPECT_EQ(numberOf([&] { connection->execute(endless); }), cancelled);
    EXPECT_EQ(seen, rows);
    EXPECT_EQ(list["k"].toLong(), rows);
    EXPECT_EQ(connection->execute("select max(k) from T")[std::size_t{0}].toLong(), rows);
}

TEST_F(RunWatchTest, AnErrorOfTheProgramComesOutAsItself) {
    answer = []() -> bool { throw std::runtime_error("the window failed"); };
    EXPECT_THROW(connection->execute(endless), std::runtime_error);
    EXPECT_EQ(connection->execute("select max(k) from T")[std::size_t{0}].toLong(), rows);
}

TEST_F(RunWatchTest, InsideATransactionAndInMemoryNobodyIsAsked) {
    constexpr const char* longer = "select count(*) from T a, T b where a.n + b.n >= 0";
    connection->beginTrans();
    EXPECT_EQ(connection->execute(longer)[std::size_t{0}].toLong(), rows * rows);
    connection->rollbackTrans();
    const auto inMemoryOnly = open(":memory:");
    fill(*inMemoryOnly);
    EXPECT_EQ(inMemoryOnly->execute(longer)[std::size_t{0}].toLong(), rows * rows);
    EXPECT_EQ(asked, 0);
}

}  // namespace
}  // namespace velmora::sqlite
