// What the dialect makes of a statement, and what it refuses by name.

#include "velmora/adapters/sqlite/emitters/translation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/database.h"

#include "../sample_database.h"
#include "one_table.h"

namespace velmora::test {

namespace {

using testing::HasSubstr;
using tsql::Kind;
namespace provider = sql::provider;

sqlite::Translation translated(std::string_view text) {
    OneTable catalog;
    return sqlite::translate(text, catalog);
}

std::string refusalOf(std::string_view text, long number = provider::syntax) {
    try {
        translated(text);
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), number) << text << ": " << error.description();
        return error.description();
    }
    ADD_FAILURE() << "accepted: " << text;
    return {};
}

Kind kindOf(const std::string& expression) {
    return translated("select " + expression + " from T").types.at(0).kind;
}

std::string valueOf(const std::string& expression) {
    return shown(openSampleDatabase()->execute("select " + expression));
}

}  // namespace

TEST(Dialect, TranslatesToTheEnginesWords) {
    const auto sql = [](std::string_view text) { return translated(text).steps.at(0); };
    EXPECT_EQ(sql("select top 1 i from [dbo].[T] order by 1 desc"),
              R"(SELECT "T"."i" FROM "main"."T" AS "T" ORDER BY 1 DESC LIMIT 1)");
    EXPECT_EQ(sql("select * from t x where d between '03/02/2026 00:00:00' and '03/02/2026 23:59:00' and t = N'a'"),
              R"(SELECT "x"."i", "x"."f", "x"."n", "x"."m", "x"."t", "x"."d", "x"."b", "x"."x" FROM "main"."T" AS "x" )"
              R"(WHERE (("x"."d" BETWEEN '2026-02-03 00:00:00' AND '2026-02-03 23:59:00') AND ("x"."t" = 'a')))");
    EXPECT_EQ(sql("insert into T (i, t) values (1, N'a''b')"),
              R"(INSERT INTO "main"."T" ("i", "t") VALUES (1, 'a''b'))");
    EXPECT_EQ(sql("update T set i = isnull(i, 0) + 1 where t is not null"),
              R"(UPDATE "main"."T" SET "i" = (ifnull("T"."i", 0) + 1) WHERE ("T"."t" IS NOT NULL))");
}

TEST(Dialect, ComparisonsOfColumnsStayOpenToIndexes) {
    for (const char* condition : {"t = 'x'", "d >= '01/01/2026'", "i = '7'", "f = 3"}) {
        const std::string sql = translated(std::string("select i from T where ") + condition).steps.at(0);
        EXPECT_THAT(sql, HasSubstr(std::string("WHERE (\"T\".\"") + condition[0] + "\" ")) << condition;
    }
}

TEST(Dialect, ExpressionsHaveTheirTypes) {
    EXPECT_EQ(kindOf("i + 1"), Kind::whole);
    EXPECT_EQ(kindOf("i + 1.5"), Kind::decimal);
    EXPECT_EQ(kindOf("i * f"), Kind::real);
    EXPECT_EQ(kindOf("i / 2"), Kind::whole);
    EXPECT_EQ(kindOf("n / 2"), Kind::decimal);
    EXPECT_EQ(kindOf("t + 'x'"), Kind::text);
    EXPECT_EQ(kindOf("max(d)"), Kind::date);
    EXPECT_EQ(kindOf("isnull(b, 0)"), Kind::bit);
    EXPECT_EQ(kindOf("case when i = 1 then f else 0 end"), Kind::real);
    EXPECT_EQ(kindOf("count(*)"), Kind::whole);
    EXPECT_EQ(kindOf("(select top 1 x from T)"), Kind::binary);
    EXPECT_EQ(kindOf("sum(m)"), Kind::decimal);
}

TEST(Dialect, NamesWhatItDoesNotKnow) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"select i from T union select i from T", "UNION"},
        {"select soundex(t) from T", "SOUNDEX"},
        {"select i into X from T", "INTO"},
        {"select i from T for xml auto", "FOR"},
        {"select i from T with (nolock)", "WITH"},
        {"select top 5 percent i from T", "PERCENT"},
        {"select rank() over (order by i) from T", "OVER"},
        {"select @x", "@"},
        {"select i from T where i = ?", "?"},
        {"exec sp_who", "EXEC"},
        {"truncate table T", "TRUNCATE"},
        {"merge T", "MERGE"},
        {"declare @a int", "@"},
        {"create view V as select i from T", "view"},
        {"create table X (a uniqueidentifier)", "uniqueidentifier"},
        {"create table X (a int references T (i))", "FOREIGN KEY"},
        {"create table X (a nvarchar(5) collate Latin1_General_BIN)", "Latin1_General_BIN"},
        {"create table X (a int identity(1, 2))", "IDENTITY"},
        {"alter table T alter column i float", "ALTER TABLE"},
        {"update T set i = 1 from T", "FROM"},
        {"select cast(d as nvarchar) from T", "datetime"},
        {"select d + 1 from T", "datetime"},
        {"select i from T where d = 5", "datetime"},
        {"select convert(datetime, '01/02/2026', 101)", "101"},
        {"select datediff(week, d, d) from T", "week"},
        {"select i from server.cat.dbo.T", "servidor"},
        {"begin tran", "BEGIN"},
        {"set nocount on", "nocount"},
    };
    for (const auto& [text, name] : cases) {
        EXPECT_THAT(refusalOf(text), HasSubstr(name)) << text;
    }
}

TEST(Dialect, RefusesASecondStatement) {
    for (const char* text : {"select 1; delete from T", "select i from T delete from T", "delete from T; select 1",
                             "update T set i = 1 update T set i = 2", "select 1;;"}) {
        EXPECT_THAT(refusalOf(text), HasSubstr("una instrucción")) << text;
    }
    EXPECT_NO_THROW(translated("select 1;"));
}

TEST(Dialect, RefusesWhatIsNotWellFormed) {
    for (const char* text : {"",
                             "  ",
                             "select",
                             "select i from",
                             "select i from T where",
                             "select (i from T",
                             "select i, from T",
                             "select i from T where i",
                             "select i = 1 from T",
                             "select i from T where not i",
                             "insert into T (i) values (1, 2)",
                             "insert into T (i, i) values (1, 2)",
                             "insert into T (i) values",
                             "update T set",
                             "select i from T order by 9",
                             "select i from T where i in ()",
                             "select case i end from T",
                             "select count(*, *) from T",
                             "select isnull(i) from T",
                             "select i from T where 1 and 2",
                             "select x.i from T",
                             "select x.* from T",
                             "select i from T a, T b",
                             "select sum(t) from T",
                             "select (select i, f from T) from T",
                             "select * from (select i from T)",
                             "select i i i from T",
                             "select T.i.i.i.i.i from T",
                             "create table X ()",
                             "create table X (a int, a int)",
                             "select t - t from T",
                             "select -t from T"}) {
        refusalOf(text);
    }
}

TEST(Dialect, RefusesExpressionsThatAreTooDeep) {
    const auto repeated = [](std::string_view piece, int times) {
        std::string text;
        for (int i = 0; i < times; ++i) {
            text += piece;
        }
        return text;
    };
    EXPECT_THAT(refusalOf("select " + repeated("(", 5000) + "1" + repeated(")", 5000)), HasSubstr("anidada"));
    EXPECT_THAT(refusalOf("select " + repeated("- ", 5000) + "1"), HasSubstr("anidada"));
    EXPECT_THAT(refusalOf("select 1" + repeated(" + 1", 5000)), HasSubstr("anidada"));
    EXPECT_THAT(refusalOf("select i from T where " + repeated("not ", 5000) + "i = 1"), HasSubstr("anidada"));
    EXPECT_NO_THROW(translated("select i from T where i = 1" + repeated(" and i = 1", 500)));
}

TEST(Dialect, RefusesValuesThatDoNotFitTheirColumn) {
    EXPECT_THAT(refusalOf("insert into T (t) values ('abcdef')", provider::truncation), HasSubstr("'t'"));
    EXPECT_THAT(refusalOf("update T set t = 'abcdef'", provider::truncation), HasSubstr("'t'"));
    EXPECT_THAT(refusalOf("insert into T (f) values ('')", provider::conversion), HasSubstr("'f'"));
    refusalOf("insert into T (d) values ('31/02/2026')", provider::conversion);
    refusalOf("insert into T (i) values ('1,5')", provider::conversion);
    refusalOf("select i from T where i = 'x'", provider::conversion);
    refusalOf("select i from NADA", provider::missingTable);
}

TEST(Dialect, IntegerColumnsDropDecimalsAndNumericRoundsThem) {
    const auto connection = openSampleDatabase();
    connection->execute("CREATE TABLE T (i int, n numeric(18, 0), m numeric(10, 2), f float, t nvarchar(20), b bit)");
    connection->execute("insert into T (i, n, m, f, t, b) values (2.7, 2.7, 2.345, 3, 12.5, 7)");
    EXPECT_EQ(shown(connection->execute("select * from T")), "2|3|2.35|3.0|12.5|true");
    connection->execute("update T set i = '-4', n = f * 1.5, m = 2, t = i, b = 0");
    EXPECT_EQ(shown(connection->execute("select * from T")), "-4|5|2.0|3.0|2|false");
    connection->execute("update T set t = f / 3");
    EXPECT_EQ(shown(connection->execute("select t, cast(m as nvarchar) from T")), "1|2.00");
    EXPECT_THROW(connection->execute("update T set i = 3000000000"), sql::DbError);
}

TEST(Dialect, Functions) {
    EXPECT_EQ(valueOf("isnull(null, 'x')"), "x");
    EXPECT_EQ(valueOf("coalesce(null, 2, 3.5)"), "2.0");
    EXPECT_EQ(valueOf("len('ñandú  ')"), "5");
    EXPECT_EQ(valueOf("left('ñandú', 2) + right('ñandú', 2) + substring('ñandú', 2, 3)"), "ñadúand");
    EXPECT_EQ(valueOf("upper('ñandú') + lower('ÑU')"), "ÑANDÚñu");
    EXPECT_EQ(valueOf("ltrim('  a ') + 'b' + rtrim(' c  ')"), "a b c");
    EXPECT_EQ(valueOf("abs(-3)"), "3");
    EXPECT_EQ(valueOf("round(2.5, 0)"), "3.0");
    EXPECT_EQ(valueOf("round(-1.005, 2)"), "-1.01");
    EXPECT_EQ(valueOf("round(1234.5, -2)"), "1200.0");
    EXPECT_EQ(valueOf("getdate()"), "2026-01-15 10:00:00");
    EXPECT_EQ(valueOf("year(getdate()) * 10000 + month(getdate()) * 100 + day(getdate())"), "20260115");
    EXPECT_EQ(valueOf("dateadd(day, -90, getdate())"), "2025-10-17 10:00:00");
    EXPECT_EQ(valueOf("dateadd(month, 1, '31/01/2026')"), "2026-02-28 00:00:00");
    EXPECT_EQ(valueOf("datediff(month, '31/12/2025', getdate())"), "1");
    EXPECT_EQ(valueOf("datediff(year, '31/12/2025', getdate())"), "1");
    EXPECT_EQ(valueOf("datediff(hour, '15/01/2026 08:59:59', getdate())"), "2");
    EXPECT_EQ(valueOf("convert(nvarchar(10), getdate(), 103)"), "15/01/2026");
    EXPECT_EQ(valueOf("convert(nvarchar(8), getdate(), 112)"), "20260115");
    EXPECT_EQ(valueOf("convert(datetime,'05/02/2026 9:05',103)"), "2026-02-05 09:05:00");
    EXPECT_EQ(valueOf("cast('abcdef' as nvarchar(3))"), "abc");
    EXPECT_EQ(valueOf("cast(7.9 as int)"), "7");
    EXPECT_EQ(valueOf("cast('7' as float)"), "7.0");
    EXPECT_EQ(valueOf("7 % 3"), "1");
    EXPECT_EQ(valueOf("- -3"), "3");
    EXPECT_EQ(valueOf("-(-3)"), "3");
    EXPECT_EQ(valueOf("2 + 3 * 4 - 6 / 4"), "13");
    EXPECT_EQ(valueOf("0xff"), "0xFF");
}

TEST(Dialect, GroupsAndDistinctFollowTheCollation) {
    const auto connection = openSampleDatabase();
    connection->execute("CREATE TABLE T (t nvarchar(20), i int)");
    connection->execute("insert into T values ('Eje', 1), ('EJE ', 2), (N'Ejé', 4)");
    EXPECT_EQ(shown(connection->execute("select sum(i) from T group by t order by 1")), "3/4");
    EXPECT_EQ(connection->execute("select distinct t from T").recordCount(), 2u);
    EXPECT_EQ(connection->execute("select distinct t + '' from T").recordCount(), 2u);
    EXPECT_EQ(shown(connection->execute("select count(distinct t) from T")), "2");
    EXPECT_EQ(shown(connection->execute("select x.t from (select t, i from T) as x where x.t = N'EJÉ'")), "Ejé");
    EXPECT_EQ(shown(connection->execute("select sum(i) as Total from T group by t having sum(i) > 3")), "4");
}

TEST(Dialect, AnAliasGoesBeforeAColumnInAnOrdering) {
    const auto connection = openSampleDatabase();
    EXPECT_EQ(shown(connection->execute("select -CLI_ID as CLI_COD from CLI order by CLI_COD")), "-2/-1");
    EXPECT_EQ(shown(connection->execute("select CLI_ID, CLI.* from CLI order by CLI_COD desc")).substr(0, 8),
              "2|2|1002");
}

TEST(Dialect, IndexesBelongToTheirTable) {
    const auto connection = openSampleDatabase();
    connection->execute("CREATE NONCLUSTERED INDEX [IX] ON [dbo].[CLI] ([CLI_NOM] DESC, CLI_COD) ON [PRIMARY]");
    connection->execute("CREATE UNIQUE INDEX IX ON ART (ART_COD)");
    EXPECT_THROW(connection->execute("insert into ART (ART_ID, ART_COD) values (9, 'r-f114 ')"), sql::DbError);
    connection->execute("DROP INDEX ART.IX");
    connection->execute("DROP INDEX IX ON CLI");
    connection->execute("insert into ART (ART_ID, ART_COD) values (9, 'r-f114 ')");
    EXPECT_THROW(connection->execute("DROP INDEX ART.IX"), sql::DbError);
}

TEST(Dialect, ATableIsDroppedAndMadeAnew) {
    const auto connection = openSampleDatabase();
    EXPECT_EQ(connection->execute("select * from PRO").columns().size(), 1u);
    connection->execute("DROP TABLE PRO");
    EXPECT_THROW(connection->execute("select * from PRO"), sql::DbError);
    connection->execute("CREATE TABLE PRO (a int, b int)");
    EXPECT_EQ(connection->execute("select * from PRO").columns().size(), 2u);
    connection->execute("ALTER TABLE PRO DROP COLUMN b");
    EXPECT_EQ(connection->execute("select * from PRO").columns().size(), 1u);
}

TEST(Dialect, AColumnWorkedOutHasNoNameUnlessGiven) {
    const auto translation = translated("select max(i), i, T.F, i + 1 as Suma, (t) from T");
    std::vector<std::string> names;
    for (const sql::Column& column : translation.columns) {
        names.push_back(column.name);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"", "i", "F", "Suma", "t"}));
}

TEST(Dialect, AKeyAddedLaterRefusesDuplicates) {
    const auto connection = openSampleDatabase();
    connection->execute("CREATE TABLE T (a int NOT NULL)");
    connection->execute("insert into T values (1), (1)");
    EXPECT_THROW(connection->execute("ALTER TABLE T WITH NOCHECK ADD CONSTRAINT PK_T PRIMARY KEY CLUSTERED (a)"),
                 sql::DbError);
    connection->execute("delete from T");
    connection->execute("ALTER TABLE T WITH NOCHECK ADD CONSTRAINT PK_T PRIMARY KEY CLUSTERED (a)");
    connection->execute("insert into T values (1)");
    EXPECT_THROW(connection->execute("insert into T values (1)"), sql::DbError);
}

TEST(Dialect, AGivenKeyIsTakenAndNumberingGoesOnBehindIt) {
    const auto connection = openSampleDatabase();
    connection->execute("SET IDENTITY_INSERT PDM ON");
    connection->execute("insert into PDM (PDM_ID, PDM_Tipo) values (40, 1)");
    connection->execute("SET IDENTITY_INSERT PDM OFF");
    connection->execute("insert into PDM (PDM_Tipo) values (1)");
    EXPECT_EQ(shown(connection->execute("select max(PDM_ID) from PDM")), "41");
    EXPECT_THROW(connection->execute("insert into PDM (PDM_ID, PDM_Tipo) values (null, 1)"), sql::DbError);
    EXPECT_THROW(connection->execute("update PDM set PDM_ID = 7"), sql::DbError);
}

}  // namespace velmora::test
