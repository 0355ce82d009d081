#include "velmora/adapters/sqlite/emitters/catalog.h"

#include <gtest/gtest.h>

#include "velmora/adapters/tsql/parser.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::sqlite {

namespace {

Table defined(const char* statement) {
    const tsql::StatementTree tree = tsql::parse(statement);
    return definedTable("main", std::get<tsql::CreateTable>(tree));
}

}  // namespace

TEST(DefinedTable, TellsEachColumnsTraitsApart) {
    const Table table = defined(
        "CREATE TABLE T (Id int IDENTITY (1, 1) NOT NULL, Ref nvarchar(15) NOT NULL, Nota ntext, "
        "CONSTRAINT PK_T PRIMARY KEY (Id))");
    struct Expected {
        const char* name;
        bool identity, key, notNull;
    };
    for (const Expected& expected : {Expected{"Id", true, true, true}, Expected{"Ref", false, false, true},
                                     Expected{"Nota", false, false, false}}) {
        const TableColumn* column = table.column(expected.name);
        ASSERT_NE(column, nullptr) << expected.name;
        EXPECT_EQ(column->identity, expected.identity) << expected.name;
        EXPECT_EQ(column->key, expected.key) << expected.name;
        EXPECT_EQ(column->notNull, expected.notNull) << expected.name;
    }
}

TEST(DefinedTable, AKeyOfTwoColumnsMakesNeitherTheKeyByItself) {
    const Table table = defined("CREATE TABLE T (a int, b int, CONSTRAINT PK_T PRIMARY KEY (a, b))");
    EXPECT_FALSE(table.column("a")->key);
    EXPECT_FALSE(table.column("b")->key);
    EXPECT_TRUE(defined("CREATE TABLE T (a int PRIMARY KEY, b int)").column("A")->key);
    EXPECT_FALSE(defined("CREATE TABLE T (a int UNIQUE, b int)").column("a")->key);
}

TEST(DefinedTable, RefusesAColumnThatIsThereTwice) {
    EXPECT_THROW(defined("CREATE TABLE T (a int, A int)"), sql::DbError);
}

}  // namespace velmora::sqlite
