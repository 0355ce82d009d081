#include "velmora/adapters/tsql/one_statement.h"

#include <gtest/gtest.h>

#include "velmora/platform/sql/db_error.h"

namespace velmora::tsql {
namespace {

TEST(OneStatement, ASecondStatementIsRefused) {
    try {
        refuseSecondStatement("Select 1; delete from DPI");
        FAIL();
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::syntax);
        EXPECT_EQ(error.details().statement, "Select 1; delete from DPI");
    }
}

TEST(OneStatement, ASemicolonAtTheEndOrWithinATextIsNone) {
    EXPECT_NO_THROW(refuseSecondStatement("Select 1;"));
    EXPECT_NO_THROW(refuseSecondStatement("Select * from DPI where DPI_Ref = 'a; b'"));
    EXPECT_NO_THROW(refuseSecondStatement("Select 1"));
}

TEST(OneStatement, WhatIsNoStatementIsLeftToTheServer) {
    EXPECT_NO_THROW(refuseSecondStatement("Select 'a; b"));
}

}  // namespace
}  // namespace velmora::tsql
