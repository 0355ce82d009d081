#pragma once
// The suite that every engine behind a data connection runs:
//   INSTANTIATE_TEST_SUITE_P(Sqlite, ConnectionContract, testing::Values(EngineUnderTest{"Sqlite", open}));

#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "velmora/platform/sql/connection.h"

namespace velmora::test {

struct EngineUnderTest {
    std::string name;
    /// A connection to a database, and to its documents' catalogue, that hold none of the suite's tables, all of
    /// whose names begin with "T_".
    std::function<std::unique_ptr<sql::Connection>()> open;
};

inline void PrintTo(const EngineUnderTest& engine, std::ostream* out) {
    *out << engine.name;
}

class ConnectionContract : public testing::TestWithParam<EngineUnderTest> {
  protected:
    void SetUp() override {
        connection_ = GetParam().open();
        ASSERT_NE(connection_, nullptr);
    }

    sql::Recordset execute(std::string_view statement) { return connection_->execute(statement); }
    /// The first column of the first row.
    sql::Value scalar(std::string_view statement);
    /// The number of the error with which the statement is refused; 0 when it is not.
    long refusal(std::string_view statement);

    std::unique_ptr<sql::Connection> connection_;
};

}  // namespace velmora::test
