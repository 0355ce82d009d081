#include "velmora/platform/sql/in_transaction.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/recording_connection.h"
#include "support/scripted_connection.h"

namespace velmora::sql {
namespace {

using ::testing::ElementsAre;

/// Refuses commits, rollbacks, or both, and leaves the transaction as it is.
class RefusingConnection final : public ForwardingConnection {
  public:
    using ForwardingConnection::ForwardingConnection;
    void commitTrans() override {
        if (refusesCommit) {
            throw DbError(provider::failure, "commit");
        }
        ForwardingConnection::commitTrans();
    }
    void rollbackTrans() override {
        if (refusesRollback) {
            throw DbError(provider::failure, "rollback");
        }
        ForwardingConnection::rollbackTrans();
    }
    bool refusesCommit = false;
    bool refusesRollback = false;
};

class InTransactionTest : public ::testing::Test {
  protected:
    support::ScriptedConnection engine;
    RefusingConnection refusing{engine};
    support::RecordingConnection connection{refusing};
};

TEST_F(InTransactionTest, WhatGoesWellIsCommitted) {
    EXPECT_TRUE(inTransaction(connection, [&] {
        connection.execute("work");
        return true;
    }));
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "work", "COMMIT"));
}

TEST_F(InTransactionTest, WhatIsGivenUpIsUndone) {
    EXPECT_FALSE(inTransaction(connection, [] { return false; }));
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "ROLLBACK"));
}

TEST_F(InTransactionTest, WhateverIsThrownUndoesItAndGoesOn) {
    EXPECT_THROW(inTransaction(connection, []() -> bool { throw DbError(provider::failure, "no"); }), DbError);
    EXPECT_THROW(inTransaction(connection, []() -> bool { throw std::runtime_error("no"); }), std::runtime_error);
    EXPECT_THROW(inTransaction(connection, []() -> bool { throw 7; }), int);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "ROLLBACK", "BEGIN", "ROLLBACK", "BEGIN", "ROLLBACK"));
}

TEST_F(InTransactionTest, ACommitThatFailsLeavesNothingOpen) {
    refusing.refusesCommit = true;
    EXPECT_THROW(inTransaction(connection, [] { return true; }), DbError);
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "COMMIT", "ROLLBACK"));
    EXPECT_THROW(engine.rollbackTrans(), DbError) << "nothing is open any more";
}

TEST_F(InTransactionTest, AnUndoingThatFailsDoesNotHideTheFirstFailure) {
    refusing.refusesRollback = true;
    try {
        inTransaction(connection, []() -> bool { throw DbError(provider::failure, "first"); });
        FAIL() << "swallowed";
    } catch (const DbError& error) {
        EXPECT_EQ(error.description(), "first");
    }
    EXPECT_FALSE(inTransaction(connection, [] { return false; }));
}

}  // namespace
}  // namespace velmora::sql
