#pragma once
// The suites that every engine behind a data connection runs:
//   INSTANTIATE_TEST_SUITE_P(Sqlite, ConnectionContract, testing::Values(EngineUnderTest{"File", makeFile}), nameOf);
// and, where several clients can share one database, SharedDatabaseContract likewise.

#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "velmora/platform/sql/connection.h"

namespace velmora::test {

/// A database, and its documents' catalogue, that hold none of the suites' tables, all of whose names begin with "T_".
/// It outlives the connections to it.
class DatabaseUnderTest {
  public:
    virtual ~DatabaseUnderTest() = default;
    /// Another client with every call.
    virtual std::unique_ptr<sql::Connection> connect() = 0;
};

struct EngineUnderTest {
    std::string name;
    std::function<std::unique_ptr<DatabaseUnderTest>()> make;
};

inline void PrintTo(const EngineUnderTest& engine, std::ostream* out) {
    *out << engine.name;
}

inline std::string nameOf(const testing::TestParamInfo<EngineUnderTest>& engine) {
    return engine.param.name;
}

class ConnectionContract : public testing::TestWithParam<EngineUnderTest> {
  protected:
    void SetUp() override {
        database_ = GetParam().make();
        connection_ = database_->connect();
        ASSERT_NE(connection_, nullptr);
    }

    sql::Recordset execute(std::string_view statement) { return connection_->execute(statement); }
    /// The first column of the first row.
    sql::Value scalar(std::string_view statement);
    /// The number of the error with which the statement is refused; 0 when it is not.
    long refusal(std::string_view statement);

    std::unique_ptr<DatabaseUnderTest> database_;
    std::unique_ptr<sql::Connection> connection_;
};

/// What two clients of one database may rely on.
class SharedDatabaseContract : public ConnectionContract {
  protected:
    void SetUp() override {
        ConnectionContract::SetUp();
        other_ = database_->connect();
        ASSERT_NE(other_, nullptr);
    }

    std::unique_ptr<sql::Connection> other_;
};

}  // namespace velmora::test
