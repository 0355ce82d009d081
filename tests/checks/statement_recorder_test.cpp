#include "statement_recorder.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace velmora::bench {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;

class StatementRecorderTest : public ::testing::Test {
  protected:
    StatementRecorderTest() {
        sqlite3_open(":memory:", &database_);
        run("create table piece (id integer primary key, teeth int)");
    }
    ~StatementRecorderTest() override { sqlite3_close(database_); }

    void run(const char* sql) { ASSERT_EQ(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr), SQLITE_OK); }

    void insert(int teeth) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database_, "insert into piece (teeth) values (?)", -1, &statement, nullptr);
        sqlite3_bind_int(statement, 1, teeth);
        EXPECT_EQ(sqlite3_step(statement), SQLITE_DONE);
        sqlite3_finalize(statement);
    }

    int count() {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database_, "select count(*) from piece", -1, &statement, nullptr);
        sqlite3_step(statement);
        const int pieces = sqlite3_column_int(statement, 0);
        sqlite3_finalize(statement);
        return pieces;
    }

    StatementRecorder recorder_;
    sqlite3* database_ = nullptr;
};

TEST_F(StatementRecorderTest, RecordsValuesInPlaceAndRowsFetched) {
    const Recording recording = recorder_.record([&] {
        run("begin");
        insert(17);
        insert(38);
        run("commit");
        run("select teeth from piece");
    });
    EXPECT_THAT(recording, ElementsAre(Field(&RecordedStatement::sql, "begin"),
                                       Field(&RecordedStatement::sql, "insert into piece (teeth) values (17)"),
                                       Field(&RecordedStatement::sql, "insert into piece (teeth) values (38)"),
                                       Field(&RecordedStatement::sql, "commit"),
                                       Field(&RecordedStatement::sql, "select teeth from piece")));
    EXPECT_EQ(recording.back().rows, 2);
}

TEST_F(StatementRecorderTest, TellsAStatementReadToItsEndFromOneThatIsLeftBefore) {
    insert(17);
    insert(38);
    const Recording recording = recorder_.record([&] {
        run("select teeth from piece");
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database_, "select teeth from piece", -1, &statement, nullptr);
        sqlite3_step(statement);
        sqlite3_finalize(statement);
    });
    EXPECT_THAT(recording,
                ElementsAre(Field(&RecordedStatement::ended, true), Field(&RecordedStatement::ended, false)));
    EXPECT_EQ(recording.back().rows, 1);
}

TEST_F(StatementRecorderTest, LeavesOutWhatTheProgramAsksForItsOwnSake) {
    EXPECT_THAT(recorder_.record([&] {
        run("PRAGMA schema_version");
        run("BEGIN");
        run("END");
    }),
                ElementsAre());
}

TEST_F(StatementRecorderTest, RecordsNothingOutsideOfTheWork) {
    insert(17);
    EXPECT_THAT(recorder_.record([] {}), ElementsAre());
    insert(38);
    EXPECT_THAT(recorder_.record([&] { insert(19); }), ElementsAre(Field(&RecordedStatement::rows, 0)));
}

TEST_F(StatementRecorderTest, LeavesOutWhatATriggerRuns) {
    run("create trigger twin after insert on piece when new.teeth < 10 begin insert into piece (teeth) values (99); "
        "end");
    const Recording recording = recorder_.record([&] { insert(5); });
    EXPECT_EQ(recording.size(), 1U);
    EXPECT_EQ(count(), 2);
    PreparedRecording(recording).replay();
    EXPECT_EQ(count(), 4);
}

TEST_F(StatementRecorderTest, ReplayDoesTheSameAgain) {
    const Recording recording = recorder_.record([&] {
        insert(17);
        run("select teeth from piece");
    });
    {
        PreparedRecording prepared(recording);
        prepared.replay();
        prepared.replay();
    }
    EXPECT_EQ(count(), 3);
}

TEST_F(StatementRecorderTest, ReplayTellsOfARefusal) {
    const Recording recording = recorder_.record([&] { insert(17); });
    run("drop table piece");
    EXPECT_THROW(PreparedRecording{recording}, std::runtime_error);
}

}  // namespace
}  // namespace velmora::bench
