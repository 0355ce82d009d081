// A connection's statements, on the driver that is always there.

#include "velmora/adapters/odbc/link.h"

#include <optional>

#include <gtest/gtest.h>

#include "velmora/platform/sql/db_error.h"

#include "support/temporary_folder.h"

namespace velmora::odbc {
namespace {

class LinkTest : public ::testing::Test {
  protected:
    SQLHANDLE nextStatement() {
        StatementHandle taken = link_->statements().take();
        SQLHANDLE handle = taken.get();
        link_->statements().giveBack(std::move(taken));
        return handle;
    }

    support::TemporaryFolder folder_;
    std::optional<Link> link_{std::in_place, "DRIVER=SQLite3;Database=" + folder_.file("taller.db"), Options{}};
};

TEST_F(LinkTest, AStatementThatRanToItsEndIsUsedAgain) {
    SQLHANDLE first = nextStatement();
    EXPECT_EQ(nextStatement(), first);
    for (int turn = 0; turn < 3; ++turn) {
        Cursor rows = link_->send("select 1 as a union all select 2");
        sql::Row row;
        int count = 0;
        while (rows.next(row)) {
            ++count;
        }
        EXPECT_EQ(count, 2);
        EXPECT_EQ(rows.columns().at(0).name, "a");
    }
    EXPECT_EQ(nextStatement(), first);
}

TEST_F(LinkTest, OtherColumnsAfterwardsAreDescribedAnew) {
    link_->send("CREATE TABLE T_A (i integer, t varchar(20))");
    link_->send("insert into T_A values (7, 'Z12')");
    EXPECT_EQ(link_->ask("select i from T_A"), sql::Value(7));
    EXPECT_EQ(link_->ask("select t from T_A"), sql::Value("Z12"));
    EXPECT_EQ(link_->send("select t, i from T_A").columns().size(), 2U);
}

TEST_F(LinkTest, WhatWasRefusedOrLeftOpenIsNotUsedAgain) {
    EXPECT_THROW(link_->send("select nothing from nowhere"), sql::DbError);
    {
        Cursor leftOpen = link_->send("select 1 union all select 2");
        sql::Row row;
        ASSERT_TRUE(leftOpen.next(row));
    }
    EXPECT_EQ(link_->ask("select 3"), sql::Value(3));
}

TEST_F(LinkTest, TwoStatementsMayBeOpenAndOneIsKept) {
    {
        const Cursor first = link_->send("select 1");
        const Cursor second = link_->send("select 2");
    }
    SQLHANDLE kept = nextStatement();
    EXPECT_EQ(nextStatement(), kept);
    link_.reset();
}

}  // namespace
}  // namespace velmora::odbc
