// Changes of rows that are prepared once for all their values.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::test {

namespace {

std::unique_ptr<sql::Connection> openWithRows(bool preparesByShape = true) {
    auto connection = sqlite::openDatabase(
        ":memory:", {.clock = [] { return runtime::Date::of(2026, 1, 15, 10); }, .preparesByShape = preparesByShape});
    connection->execute(
        "CREATE TABLE T (Id int IDENTITY (1, 1), i int, s smallint, f float, n numeric(18, 0), m numeric(10, 2), g "
        "money, "
        "t nvarchar(5), l ntext, d datetime, b bit, x image)");
    connection->execute("insert into T (i, t) values (1, N'uno')");
    connection->execute("insert into T (i, t) values (2, N'dos')");
    return connection;
}

std::string contentOf(sql::Connection& connection) {
    std::string content;
    for (sql::Recordset rows = connection.execute("select * from T order by Id"); !rows.eof(); rows.moveNext()) {
        for (std::size_t column = 0; column < rows.columns().size(); ++column) {
            content += (rows[column].isNull()    ? "null"
                        : rows[column].isBytes() ? "bytes"
                                                 : rows[column].toText()) +
                       '|';
        }
        content += '\n';
    }
    return content;
}

std::string answerTo(sql::Connection& connection, const std::string& statement) {
    try {
        connection.execute(statement);
    } catch (const sql::DbError& error) {
        return std::to_string(error.number()) + ' ' + error.description();
    }
    return {};
}

/// The columns of T with every kind of literal, fit or not.
std::vector<std::string> changes() {
    const std::vector<std::string> columns = {"i", "s", "f", "n", "m", "g", "t", "l", "d", "b", "x"};
    const std::vector<std::string> literals = {
        "0",        "1",      "-7",      "40000",    "1.5",          "-2.345",       "2.5",  "1e3",
        "-1.25e-2", "9e18",   "1e300",   "'x'",      "N'ñ€'",        "''",           "'12'", "'-3.5'",
        "'1e2'",    "'true'", "'False'", "'abcdef'", "'15/02/2026'", "'2026-02-30'", "null", "- -5",
        "+4",       "-null",  "-'5'",    "-(3)",     "1 + 1",        "'a' + 'b'",    "0x01", "12345678901234567890"};
    std::vector<std::string> all;
    for (const std::string& column : columns) {
        for (const std::string& literal : literals) {
            all.push_back("insert into T (" + column + ") values (" + literal + ")");
            all.push_back("update T set " + column + " = " + literal + " where Id = 1");
            all.push_back("update T set l = 'found' where " + column + " = " + literal);
            all.push_back("delete from T where " + literal + " < " + column);
        }
    }
    for (const char* statement :
         {"insert into T (i, t, d) values (1, 'a', '1/2/2026'), (2, 'b', '2/2/2026')",
          "insert into T (i, t) select 5, 'cinco' from T where i = 2", "update T set i = i + 3 where i in (1, 2)",
          "update T set t = case when i = 1 then 'x' else 'y' end where i between 1 and 2",
          "update T set i = (select max(i) from T where i < 9) where t like 'u%'",
          "delete from T where i = 1 and (t = 'uno' or f > 2.5) and not d is null", "delete T where 1 = 1"}) {
        all.emplace_back(statement);
    }
    return all;
}

}  // namespace

TEST(Changes, DoTheSameAsWithTheirLiteralsInTheText) {
    const auto given = openWithRows();
    const auto written = openWithRows(false);
    for (const std::string& statement : changes()) {
        EXPECT_EQ(answerTo(*given, statement), answerTo(*written, statement)) << statement;
        ASSERT_EQ(contentOf(*given), contentOf(*written)) << statement;
    }
}

TEST(Changes, AreRunWithTheValuesOfEachText) {
    const auto connection = openWithRows();
    for (int i = 10; i < 20; ++i) {
        const std::string number = std::to_string(i);
        connection->execute("insert into T (i, f, t, d) values (" + number + ", " + number + ".5, 't" + number +
                            "', '" + number + "/03/2026')");
        connection->execute("update T set m = -" + number + ".255 where t = 't" + number + "'");
    }
    sql::Recordset rows = connection->execute("select i, f, t, d, m from T where i >= 10 order by i");
    for (int i = 10; i < 20; ++i, rows.moveNext()) {
        const std::string number = std::to_string(i);
        EXPECT_EQ(rows["i"].toLong(), i);
        EXPECT_EQ(rows["f"].toDouble(), i + 0.5);
        EXPECT_EQ(rows["t"].toText(), "t" + number);
        EXPECT_EQ(rows["d"].toText(), number + "/03/2026");
        EXPECT_EQ(rows["m"].toDouble(), -(i + 0.26));
    }
}

TEST(Changes, ARefusedValueLeavesTheNextOnesAlone) {
    const auto connection = openWithRows();
    const auto typed = [&](const std::string& value) {
        return answerTo(*connection, "update T set t = '" + value + "' where Id = 1");
    };
    EXPECT_EQ(typed("tres"), "");
    EXPECT_NE(typed("demasiado"), "");
    EXPECT_EQ(connection->execute("select t from T where Id = 1")[0].toText(), "tres");
    EXPECT_EQ(typed("seis"), "");
    EXPECT_EQ(connection->execute("select t from T where Id = 1")[0].toText(), "seis");
}

TEST(Changes, ALiteralThatIsNoParameterIsNotTakenForAnother) {
    const auto connection = openWithRows();
    for (const int added : {3, 40, 3}) {
        connection->execute("update T set i = i + " + std::to_string(added) + " where Id = 1");
    }
    EXPECT_EQ(connection->execute("select i from T where Id = 1")[0].toLong(), 1 + 3 + 40 + 3);
}

TEST(Changes, AnErrorHasTheTextWithItsValues) {
    const auto connection = openWithRows();
    connection->execute("update T set t = 'a' where Id = 1");
    try {
        connection->execute("update T set t = 'demasiado' where Id = 2");
        FAIL() << "a long text was stored";
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.details().statement, "update T set t = 'demasiado' where Id = 2");
    }
}

TEST(Changes, AColumnThatHasBecomeWiderTakesLongerTexts) {
    const auto connection = openWithRows();
    connection->execute("update T set t = 'a' where Id = 1");
    connection->execute("alter table T drop column t");
    connection->execute("alter table T add t nvarchar(20)");
    connection->execute("update T set t = 'demasiado' where Id = 1");
    EXPECT_EQ(connection->execute("select t from T where Id = 1")[0].toText(), "demasiado");
}

}  // namespace velmora::test
