// Statements that wait for another process that writes: the program is told so.

#include "velmora/adapters/sqlite/lock_wait.h"

#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace velmora::sqlite {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LockWaitTest : public ::testing::Test {
  protected:
    LockWaitTest() {
        other->execute("CREATE TABLE T (n int)");
        other->execute("insert into T (n) values (1)");
    }

    std::unique_ptr<sql::Connection> open(milliseconds busyTimeout, milliseconds waitingAfter) {
        Options options;
        options.busyTimeout = busyTimeout;
        options.waitingAfter = waitingAfter;
        options.waiting = [this](bool waits) {
            told.push_back(waits);
            onTold();
        };
        return openDatabase(path, std::move(options));
    }

    support::TemporaryFolder folder;
    const std::string path = folder.file("taller.db");
    const std::unique_ptr<sql::Connection> other = openDatabase(path);
    std::vector<bool> told;
    std::function<void()> onTold = [] {};
};

TEST_F(LockWaitTest, ALongWaitIsToldOnceAndItsEndToo) {
    const auto connection = open(milliseconds(30000), milliseconds(20));
    other->beginTrans();
    std::jthread ending;
    onTold = [&] {
        if (told.size() == 1) {
            ending = std::jthread([this] {
                std::this_thread::sleep_for(milliseconds(150));
                other->commitTrans();
            });
        }
    };
    connection->execute("update T set n = 2");
    EXPECT_THAT(told, ElementsAre(true, false));
    connection->beginTrans();
    connection->execute("update T set n = 3");
    connection->commitTrans();
    EXPECT_EQ(told.size(), 2u) << "nobody is in the way any more";
}

TEST_F(LockWaitTest, AWaitThatFailsIsToldToHaveEnded) {
    const auto connection = open(milliseconds(200), milliseconds(20));
    other->beginTrans();
    try {
        connection->beginTrans();
        FAIL() << "the other one still writes";
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::timeout);
    }
    EXPECT_THAT(told, ElementsAre(true, false));
}

TEST_F(LockWaitTest, AShortWaitIsNotTold) {
    const auto connection = open(milliseconds(100), milliseconds(20000));
    other->beginTrans();
    EXPECT_THROW(connection->beginTrans(), sql::DbError);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(LockWaitTest, ReadingWaitsForNobody) {
    const auto connection = open(milliseconds(100), milliseconds(1));
    other->beginTrans();
    other->execute("update T set n = 2");
    EXPECT_EQ(connection->execute("select n from T")[0].toLong(), 1);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(LockWaitTest, WhatTheProgramRaisesDoesNotEndTheStatement) {
    const auto connection = open(milliseconds(30000), milliseconds(1));
    other->beginTrans();
    onTold = [&] {
        if (told.size() == 1) {
            other->commitTrans();
        }
        throw std::runtime_error("no window");
    };
    connection->execute("update T set n = 2");
    EXPECT_THAT(told, ElementsAre(true, false));
}

TEST_F(LockWaitTest, OnlyTheThreadThatOpenedTheDatabaseIsTold) {
    const auto tell = toldOnce([this](bool waits) { told.push_back(waits); });
    std::jthread([&] { tell(true); }).join();
    EXPECT_THAT(told, IsEmpty());
    tell(true);
    EXPECT_THAT(told, ElementsAre(true));
}

}  // namespace
}  // namespace velmora::sqlite
