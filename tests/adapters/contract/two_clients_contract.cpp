// What two clients of one database do to each other, and what they do not.

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include "connection_contract.h"

namespace velmora::test {

namespace {

using sql::Recordset;
using sql::Value;

/// Long enough for whoever does not wait to get on.
constexpr std::chrono::milliseconds moment{200};

/// The number after the highest, as orders are numbered. Inside a transaction.
int insertTheNextNumber(sql::Connection& connection) {
    const Value highest = connection.execute("select max(n) from T_Numbers")[std::size_t{0}];
    const int next = highest.isNull() ? 1 : highest.toLong() + 1;
    connection.execute("insert into T_Numbers (n) values (" + std::to_string(next) + ")");
    return next;
}

}  // namespace

TEST_P(SharedDatabaseContract, TheSecondOfTwoThatBeginWaitsUntilTheFirstHasCommitted) {
    execute("CREATE TABLE T_Numbers (n int)");
    connection_->beginTrans();
    std::atomic<bool> begun = false;
    int second = 0;
    std::thread client([&] {
        sql::Transaction transaction(*other_);
        begun = true;
        second = insertTheNextNumber(*other_);
        transaction.commit();
    });
    std::this_thread::sleep_for(moment);
    EXPECT_FALSE(begun);
    const int first = insertTheNextNumber(*connection_);
    std::this_thread::sleep_for(moment);
    EXPECT_FALSE(begun);
    connection_->commitTrans();
    client.join();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2) << "the second reads what the first has written";
}

TEST_P(SharedDatabaseContract, TheSecondOfTwoThatBeginWaitsUntilTheFirstHasGivenUp) {
    execute("CREATE TABLE T_Numbers (n int)");
    connection_->beginTrans();
    insertTheNextNumber(*connection_);
    std::atomic<bool> begun = false;
    int second = 0;
    std::thread client([&] {
        sql::Transaction transaction(*other_);
        begun = true;
        second = insertTheNextNumber(*other_);
        transaction.commit();
    });
    std::this_thread::sleep_for(moment);
    EXPECT_FALSE(begun);
    connection_->rollbackTrans();
    client.join();
    EXPECT_EQ(second, 1) << "a number that was undone is given again";
}

TEST_P(SharedDatabaseContract, ATransactionThatHasOnlyReadHoldsTheOthersToo) {
    execute("CREATE TABLE T_Numbers (n int)");
    connection_->beginTrans();
    execute("select max(n) from T_Numbers");
    std::atomic<bool> begun = false;
    std::thread client([&] {
        sql::Transaction transaction(*other_);
        begun = true;
        transaction.commit();
    });
    std::this_thread::sleep_for(moment);
    EXPECT_FALSE(begun);
    connection_->commitTrans();
    client.join();
    EXPECT_TRUE(begun);
}

TEST_P(SharedDatabaseContract, TwoClientsNeverGiveTheSameNumber) {
    execute("CREATE TABLE T_Numbers (n int)");
    constexpr int each = 30;
    const auto client = [](sql::Connection& connection) {
        for (int i = 0; i < each; ++i) {
            sql::Transaction transaction(connection);
            insertTheNextNumber(connection);
            transaction.commit();
        }
    };
    std::thread second([&] { client(*other_); });
    client(*connection_);
    second.join();
    EXPECT_EQ(scalar("select count(distinct n) from T_Numbers"), Value(2 * each));
    EXPECT_EQ(scalar("select max(n) from T_Numbers"), Value(2 * each));
}

TEST_P(SharedDatabaseContract, AnOpenListHoldsUpNoWriter) {
    execute("CREATE TABLE T_List (n int)");
    execute("insert into T_List (n) values (1)");
    for (int i = 0; i < 11; ++i) {
        execute("insert into T_List (n) select n from T_List");
    }
    Recordset list = execute("select n from T_List order by n");
    ASSERT_TRUE(list.hasRows());
    const auto begun = std::chrono::steady_clock::now();
    for (sql::Connection* writer : {connection_.get(), other_.get()}) {
        sql::Transaction transaction(*writer);
        writer->execute("update T_List set n = n + 1");
        transaction.commit();
        writer->execute("insert into T_List (n) values (0)");
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(2));
    list.moveLast();
    EXPECT_EQ(list.position(), 2047u);
    EXPECT_EQ(list["n"], Value(1));
    EXPECT_EQ(scalar("select max(n) from T_List"), Value(3)) << "who asks anew sees what was written";
}

}  // namespace velmora::test
