#include "velmora/adapters/sqlite/emitters/parameters.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/emitters/translation.h"
#include "velmora/platform/sql/db_error.h"

#include "one_table.h"

namespace velmora::test {

namespace {

struct Made {
    std::string sql;
    std::vector<sql::Value> values;
    std::vector<std::string> fixed{};  ///< their texts
};

Made made(std::string_view statement) {
    OneTable catalog;
    const tsql::Shape shape = tsql::shapeOf(statement);
    const auto translation = sqlite::translate(statement, catalog, shape);
    Made result{.sql = translation.steps.at(0),
                .values = sqlite::valuesOf(translation.parameters, shape.literals).value()};
    for (const tsql::Literal& literal : sqlite::fixedLiterals(translation.parameters, shape.literals)) {
        result.fixed.push_back(literal.text);
    }
    return result;
}

/// The parameters of a statement, to be given the values of others of its shape.
std::vector<sqlite::Parameter> parametersOf(std::string_view statement) {
    OneTable catalog;
    return sqlite::translate(statement, catalog, tsql::shapeOf(statement)).parameters;
}

}  // namespace

TEST(Parameters, AreTheLiteralsThatAreStored) {
    const Made insert = made("insert into T (i, f, n, m, t, d, b) values (5, '2.5', 2.6, 1.005, 'a', '3/4/2026', 7)");
    EXPECT_EQ(insert.sql, R"(INSERT INTO "main"."T" ("i", "f", "n", "m", "t", "d", "b") VALUES (?, ?, ?, ?, ?, ?, ?))");
    EXPECT_EQ(insert.values, (std::vector<sql::Value>{5, 2.5, 3, 1.01, "a", "2026-04-03 00:00:00", 1}));
    EXPECT_TRUE(insert.fixed.empty());
}

TEST(Parameters, AreTheLiteralsThatAreCompared) {
    const Made update = made("update T set t = 'x' where i = -3 and d >= '1/1/2026' and 'a' <> t");
    EXPECT_EQ(update.sql,
              R"(UPDATE "main"."T" SET "t" = ? WHERE (("T"."i" = ?) AND ("T"."d" >= ?) AND (? <> "T"."t")))");
    EXPECT_EQ(update.values, (std::vector<sql::Value>{"x", -3, "2026-01-01 00:00:00", "a"}));
}

/// A column takes any of them, in its own way.
TEST(Parameters, ThatAreStoredMayBeOfAnyKind) {
    const auto parameters = parametersOf("update T set f = 5");
    const auto valueOf = [&](const std::string& literal) {
        return sqlite::valuesOf(parameters, tsql::shapeOf("update T set f = " + literal).literals).value().at(0);
    };
    EXPECT_EQ(valueOf("2.5"), sql::Value(2.5));
    EXPECT_EQ(valueOf("'2.5'"), sql::Value(2.5));
    EXPECT_EQ(valueOf("1e3"), sql::Value(1000.0));
    EXPECT_EQ(valueOf("null"), sql::Value());
    EXPECT_EQ(valueOf("12345678901234567890"), sql::Value(12345678901234567890.0));
}

TEST(Parameters, ThatAreComparedAreOfOneKind) {
    const auto parameters = parametersOf("delete from T where t = 'a'");
    EXPECT_TRUE(sqlite::valuesOf(parameters, tsql::shapeOf("delete from T where t = ''").literals));
    EXPECT_FALSE(sqlite::valuesOf(parameters, tsql::shapeOf("delete from T where t = 5").literals));
    EXPECT_FALSE(sqlite::valuesOf(parameters, tsql::shapeOf("delete from T where t = null").literals));
}

TEST(Parameters, AMinusStandsBeforeANumberOnly) {
    const auto parameters = parametersOf("update T set f = -5");
    EXPECT_EQ(sqlite::valuesOf(parameters, tsql::shapeOf("update T set f = -2.5").literals).value().at(0),
              sql::Value(-2.5));
    EXPECT_FALSE(sqlite::valuesOf(parameters, tsql::shapeOf("update T set f = -null").literals));
    EXPECT_FALSE(sqlite::valuesOf(parameters, tsql::shapeOf("update T set f = -'5'").literals));
}

TEST(Parameters, AreNotWhatStandsInAnExpressionAListOrASelect) {
    EXPECT_EQ(made("update T set i = i + 1").fixed, (std::vector<std::string>{"1"}));
    EXPECT_EQ(made("update T set i = case when f > 1 then 2 end").fixed, (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(made("delete from T where i in (1, 2)").fixed, (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(made("update T set i = (select max(i) from T where i < 9)").fixed, (std::vector<std::string>{"9"}));
    EXPECT_EQ(made("insert into T (t) select 'x' from T where i = 5").fixed, (std::vector<std::string>{"x", "5"}));
}

TEST(Parameters, OfASetAreComparedInItsOwnCondition) {
    const Made set = made("select top 2 i + 7 from T x where i = 38 and f >= 12.7 and t <> 'a' order by 1");
    EXPECT_EQ(
        set.sql,
        R"(SELECT ("x"."i" + 7) FROM "main"."T" AS "x" WHERE (("x"."i" = ?) AND ("x"."f" >= ?) AND ("x"."t" <> ?)) ORDER BY 1 LIMIT 2)");
    EXPECT_EQ(set.values, (std::vector<sql::Value>{38, 12.7, "a"}));
    EXPECT_EQ(made("select * from (select i from T where i = 8) y where i > 9").fixed, (std::vector<std::string>{"8"}));
    EXPECT_EQ(made("select i from T where i in (select i from T where f = 8) group by i having max(i) > 9").fixed,
              (std::vector<std::string>{"8", "9"}));
}

/// By these the engine chooses another index.
TEST(Parameters, OfASetAreNotTheSmallestNumbers) {
    EXPECT_EQ(made("select i from T where i = 0 and f = -1 and n = 2").fixed, (std::vector<std::string>{"0", "1"}));
    const auto parameters = parametersOf("select * from T where i = 5");
    EXPECT_TRUE(sqlite::valuesOf(parameters, tsql::shapeOf("select * from T where i = 2").literals));
    EXPECT_FALSE(sqlite::valuesOf(parameters, tsql::shapeOf("select * from T where i = 1").literals));
    EXPECT_FALSE(sqlite::valuesOf(parameters, tsql::shapeOf("select * from T where i = null").literals));
}

TEST(Parameters, AStatementOfVeryManyRowsKeepsTheRestInItsText) {
    std::string statement = "insert into T (i) values (0)";
    for (int row = 1; row < 1200; ++row) {
        statement += ", (" + std::to_string(row) + ")";
    }
    const Made insert = made(statement);
    EXPECT_EQ(insert.values.size(), 1000u);
    EXPECT_EQ(insert.fixed.size(), 200u);
    EXPECT_EQ(insert.fixed.front(), "1000");
}

TEST(Parameters, AValueThatDoesNotFitIsRefusedAsInAText) {
    const auto parameters = parametersOf("update T set t = 'a', d = '1/1/2026'");
    const auto refused = [&](std::string_view statement, long number) {
        try {
            sqlite::valuesOf(parameters, tsql::shapeOf(statement).literals);
        } catch (const sql::DbError& error) {
            return error.number() == number;
        }
        return false;
    };
    EXPECT_TRUE(refused("update T set t = 'abcdef', d = '1/1/2026'", sql::provider::truncation));
    EXPECT_TRUE(refused("update T set t = 'a', d = '31/2/2026'", sql::provider::conversion));
}

}  // namespace velmora::test
