#include "velmora/adapters/tsql/statement_shape.h"

#include <gtest/gtest.h>

#include "velmora/platform/sql/db_error.h"

namespace velmora::tsql {

TEST(StatementShape, HoldsWhatIsNoLiteral) {
    const Shape shape = shapeOf("update T set a = N'x''y', b=-1.50 where c >= 7 and [d 1] = 2e3 or f is null -- 5");
    EXPECT_EQ(shape.text, "update T set a = ?, b=-? where c >= ? and [d 1] = ? or f is ? -- 5");
    ASSERT_EQ(shape.literals.size(), 5u);
    EXPECT_EQ(shape.literals[0].form, Form::text);
    EXPECT_EQ(shape.literals[0].text, "x'y");
    EXPECT_EQ(shape.literals[0].place, 17u);
    EXPECT_EQ(shape.literals[1].text, "1.50");
    EXPECT_EQ(shape.literals[2].text, "7");
    EXPECT_EQ(shape.literals[3].text, "2e3");
    EXPECT_EQ(shape.literals[4].form, Form::null);
}

TEST(StatementShape, IsTheSameForStatementsThatDifferInTheirValues) {
    EXPECT_EQ(shapeOf("delete from T where a = 'x' and b = 1").text,
              shapeOf("delete from T where a = '' and b = 22").text);
    for (const char* value : {"'1'", "1.0", "1e3", "NULL", "99999999999999999999"}) {
        EXPECT_EQ(shapeOf(std::string("update T set a = ") + value).text, "update T set a = ?") << value;
    }
    EXPECT_NE(shapeOf("update T set a = 1").text, shapeOf("update T set a = -1").text);
}

TEST(StatementShape, KeepsBinaryValues) {
    EXPECT_EQ(shapeOf("update T set a = 0x0102").text, "update T set a = 0x0102");
}

TEST(StatementShape, IsRefusedWhereTheTokensAre) {
    EXPECT_THROW(shapeOf("update T set a = 'x"), sql::DbError);
    EXPECT_THROW(shapeOf("update T set a = ?"), sql::DbError);
}

TEST(StatementShape, ChangesBeginWithOneOfThreeWords) {
    for (const char* text : {"INSERT INTO T (a) values (1)", " \n update T set a = 1", "Delete\tT"}) {
        EXPECT_TRUE(changesRows(text)) << text;
    }
    for (const char* text : {"", " ", "select 1", "updated", "create table T (a int)", "alter table T add b int"}) {
        EXPECT_FALSE(changesRows(text)) << text;
    }
}

}  // namespace velmora::tsql
