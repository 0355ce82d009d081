// The order of rows that a statement asks for in none.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/sqlite/emitters/translation.h"
#include "velmora/adapters/sqlite/link.h"
#include "velmora/adapters/sqlite/table_reader.h"

#include "raw_database.h"
#include "sample_database.h"
#include "support/temporary_folder.h"

namespace velmora::test {

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class RowOrder : public testing::Test {
  protected:
    void run(const std::string& statement) { connection_->execute(statement); }
    std::string rows(const std::string& statement) { return shown(connection_->execute(statement)); }

    std::unique_ptr<sql::Connection> connection_ = sqlite::openDatabase(":memory:");
};

/// A link to a database in memory whose tables are read anew for each statement.
class PlannedStatements : public testing::Test, protected sqlite::Catalog {
  protected:
    std::string schemaOf(const tsql::TableName&) override { return "main"; }
    std::shared_ptr<const sqlite::Table> table(const tsql::TableName& name) override {
        return std::make_shared<const sqlite::Table>(sqlite::readTable(link_, "main", name.name));
    }

    void run(const std::string& statement) {
        for (const std::string& step : sqlite::translate(statement, *this).steps) {
            link_.run(step);
        }
    }
    std::string translated(const std::string& statement) { return sqlite::translate(statement, *this).steps.front(); }
    /// How the engine means to read the rows, a line for each table and each sort.
    std::string plan(const std::string& statement) { return planOf(translated(statement)); }
    std::string planOf(const std::string& ofTheEngine) {
        const auto explained = link_.prepare("EXPLAIN QUERY PLAN " + ofTheEngine);
        std::string lines;
        while (explained->step()) {
            lines += explained->value(3, tsql::Kind::text).toText() + "\n";
        }
        return lines;
    }

    sqlite::Link link_{std::string(sqlite::inMemory), {}};
};

constexpr const char* sorted = "TEMP B-TREE";

}  // namespace

TEST_F(RowOrder, IsThatOfTheKeyWhateverIndexHelps) {
    run("CREATE TABLE PDM (PDM_ID int IDENTITY (1, 1) PRIMARY KEY, PDM_Tipo int, PDM_Z float)");
    run("insert into PDM (PDM_Tipo, PDM_Z) values (3, 30), (1, 9), (3, 12), (3, 21)");
    const std::string list = "Select * from PDM where PDM_Tipo = 3";
    const std::string byKey = "1|3|30.0/3|3|12.0/4|3|21.0";
    EXPECT_EQ(rows(list), byKey);
    run("CREATE INDEX IX_PDM_Chain ON PDM (PDM_Tipo, PDM_Z)");
    EXPECT_EQ(rows(list), byKey);
    EXPECT_EQ(rows("Select PDM_Z from PDM where PDM_Tipo = 3"), "30.0/12.0/21.0");
}

TEST_F(RowOrder, OfAnOlderFileIsThatOfANewOne) {
    const support::TemporaryFolder folder;
    const auto listed = [&] {
        return shown(sqlite::openDatabase(folder.file("taller.db"))->execute("select Z from T where Tipo = 3"));
    };
    {
        const auto older = sqlite::openDatabase(folder.file("taller.db"));
        older->execute("CREATE TABLE T (Id int NOT NULL, Tipo int, Z float)");
        older->execute("ALTER TABLE T ADD CONSTRAINT PK_T PRIMARY KEY (Id)");
        older->execute("insert into T values (7, 3, 12), (2, 3, 30), (5, 3, 21)");
    }
    EXPECT_EQ(listed(), "30.0/21.0/12.0");
    sqlite::openDatabase(folder.file("taller.db"))->execute("CREATE INDEX IX ON T (Tipo, Z)");
    EXPECT_EQ(listed(), "30.0/21.0/12.0");
}

TEST_F(RowOrder, OfAKeyOfSeveralColumnsFollowsThemInTheKeysOrder) {
    run("CREATE TABLE T (a int, t nvarchar(5), CONSTRAINT PK_T PRIMARY KEY (t, a))");
    run("insert into T values (2, 'b'), (1, N'ñ'), (9, 'B'), (1, 'b'), (5, 'a')");
    EXPECT_EQ(rows("select t, a from T"), "a|5/b|1/b|2/B|9/ñ|1");
}

TEST_F(RowOrder, WithoutAKeyIsThatOfInsertion) {
    run("CREATE TABLE T (a int, b int)");
    run("insert into T values (3, 1), (1, 1), (2, 1)");
    run("CREATE INDEX IX ON T (b, a)");
    run("CREATE UNIQUE INDEX IX_Unique ON T (a)");  // takes NULL: no key
    EXPECT_EQ(rows("select a from T"), "3/1/2");
    EXPECT_EQ(rows("select a from T where b = 1"), "3/1/2");
}

TEST_F(RowOrder, DecidesWhichRowsATopTakes) {
    run("CREATE TABLE T (Id int IDENTITY (1, 1) PRIMARY KEY, a int, b int)");
    run("insert into T (a, b) values (3, 1), (1, 1), (2, 1)");
    run("CREATE INDEX IX ON T (b, a)");
    EXPECT_EQ(rows("select top 1 a from T where b = 1"), "3");
    EXPECT_EQ(rows("select top 2 a from T where b = 1"), "3/1");
    EXPECT_EQ(rows("select (select top 1 a from T where b = 1)"), "3");
    EXPECT_EQ(rows("select x.a from (select top 2 a from T where b = 1) as x order by x.a"), "1/3");
}

TEST_F(RowOrder, OfAJoinIsByTheFirstTablesKeyThenByTheOthers) {
    run("CREATE TABLE OPE (Id int NOT NULL PRIMARY KEY, Nom nvarchar(5))");
    run("CREATE TABLE OBM (Ope int, Maq int, Ptr int)");
    run("insert into OPE values (2, 'b'), (1, 'a')");
    run("insert into OBM values (2, 7, 20), (1, 7, 12), (2, 7, 10), (1, 7, 11)");
    run("CREATE INDEX IX ON OBM (Maq, Ptr)");
    const std::string byOperator = "a|12/a|11/b|20/b|10";
    EXPECT_EQ(rows("select Nom, Ptr from OPE inner join OBM on Id = Ope where Maq = 7"), byOperator);
    EXPECT_EQ(rows("select Nom, Ptr from OPE, OBM where Id = Ope and Maq = 7"), byOperator);
    EXPECT_EQ(rows("select Nom, Ptr from OPE left join OBM on Id = Ope"), byOperator);
    EXPECT_EQ(rows("select Nom, Ptr from OBM inner join OPE on Id = Ope where Maq = 7"), "b|20/a|12/b|10/a|11");
}

TEST_F(RowOrder, OfCopiedRowsDecidesTheirNumbers) {
    run("CREATE TABLE T (Id int NOT NULL PRIMARY KEY, a int)");
    run("CREATE TABLE Copia (Id int IDENTITY (1, 1) PRIMARY KEY, a int)");
    run("insert into T values (2, 5), (1, 9), (3, 7)");
    run("CREATE INDEX IX ON T (a)");
    run("insert into Copia (a) select a from T where a > 0");
    EXPECT_EQ(rows("select Id, a from Copia"), "1|9/2|5/3|7");
}

TEST_F(RowOrder, ALongSetKeepsItInBothDirections) {
    run("CREATE TABLE T (Id int NOT NULL PRIMARY KEY, Resto int)");
    std::string values;
    for (int id = 3000; id > 0; --id) {
        values += (values.empty() ? "(" : ", (") + std::to_string(id) + ", " + std::to_string(id % 7) + ")";
    }
    run("insert into T values " + values);
    run("CREATE INDEX IX ON T (Resto)");
    sql::Recordset set = connection_->execute("select Id from T where Resto >= 0");
    EXPECT_EQ(set.recordCount(), 3000u);
    for (const int position : {2999, 0, 1500, 2047, 31}) {
        set.moveTo(static_cast<std::size_t>(position));
        EXPECT_EQ(set[std::size_t{0}], sql::Value(position + 1));
    }
}

TEST_F(RowOrder, AViewGivesItsRowsAsItReadsThem) {
    const support::TemporaryFolder folder;
    {
        RawDatabase raw(folder.file("taller.db"));
        raw.run("CREATE TABLE T (a int)");
        raw.run("INSERT INTO T VALUES (2), (1)");
        raw.run("CREATE VIEW V AS SELECT a FROM T ORDER BY a");
    }
    EXPECT_EQ(shown(sqlite::openDatabase(folder.file("taller.db"))->execute("select * from V")), "1/2");
}

TEST_F(PlannedStatements, OnlyRowsOfTablesGetAnOrder) {
    run("CREATE TABLE T (Id int IDENTITY (1, 1) PRIMARY KEY, a int)");
    EXPECT_THAT(translated("select a from T"), HasSubstr("ORDER BY \"T\".\"Id\""));
    EXPECT_THAT(translated("select isnull(a, 0) + 1 from T x"), HasSubstr("ORDER BY \"x\".\"Id\""));
    for (const char* statement :
         {"select max(a) from T", "select isnull(max(a), 0) + 1 from T", "select count(*) from T",
          "select a, sum(Id) from T group by a", "select distinct a from T", "select 1",
          "select max(Id) from T where a in (select a from T)", "select count(*) from T where exists (select a from T)",
          "update T set a = (select max(a) from T)", "delete from T where a = 1"}) {
        EXPECT_THAT(translated(statement), Not(HasSubstr("ORDER BY"))) << statement;
    }
    EXPECT_THAT(translated("select a from T order by a desc"), Not(HasSubstr("Id")));
}

TEST_F(PlannedStatements, NothingIsSortedWhereRowsAreReadByTheKey) {
    run("CREATE TABLE DPI (Id int IDENTITY (1, 1) PRIMARY KEY, Tipo int, Nom nvarchar(20))");
    run("CREATE TABLE Lineas (Id int IDENTITY (1, 1) PRIMARY KEY, Dpi int)");
    run("CREATE INDEX IX_Lineas ON Lineas (Dpi)");
    run("CREATE TABLE CLI (Id int NOT NULL, Nom nvarchar(20))");
    run("ALTER TABLE CLI ADD CONSTRAINT PK_CLI PRIMARY KEY (Id)");
    run("CREATE TABLE RUT (Maq int)");
    for (const char* statement :
         {"select * from DPI", "select * from DPI where Nom like 'a%'", "select * from DPI where Id = 5",
          "select top 1 * from DPI", "select * from CLI", "select * from CLI where Id = 5", "select top 1 * from CLI",
          "select * from RUT where Maq = 1", "select * from Lineas where Dpi = 5",
          "select * from DPI left join CLI on Tipo = CLI.Id", "select * from DPI inner join Lineas on DPI.Id = Dpi"}) {
        EXPECT_THAT(plan(statement), Not(HasSubstr(sorted))) << statement;
    }
    run("CREATE INDEX IX_DPI ON DPI (Tipo, Nom)");
    EXPECT_THAT(plan("select * from DPI where Tipo = 3"), HasSubstr(sorted));
    EXPECT_THAT(plan("select * from DPI where Tipo = 3 order by Nom"), Not(HasSubstr(sorted)));
}

TEST_F(PlannedStatements, ALongSetHasTwoOtherWaysToItsFirstRows) {
    run("CREATE TABLE DPI (Id int IDENTITY (1, 1) PRIMARY KEY, Fecha datetime, Cliente int, Nom nvarchar(20))");
    run("CREATE INDEX IX_Fecha ON DPI (Fecha)");
    run("CREATE INDEX IX_Cliente ON DPI (Cliente, Fecha)");
    const auto made = sqlite::translate("select * from DPI where Cliente between 1 and 3 order by Fecha desc", *this);
    EXPECT_THAT(planOf(made.steps.front()), HasSubstr(sorted));
    EXPECT_THAT(planOf(made.walkStatement), AllOf(HasSubstr("USING INDEX DPI.IX_Fecha"), Not(HasSubstr(sorted))));
    EXPECT_THAT(planOf(made.keysStatement), AllOf(HasSubstr("USING COVERING INDEX DPI.IX_Cliente"), HasSubstr(sorted)));
    for (const char* statement :
         {"select * from DPI order by Fecha", "select top 5 * from DPI where Cliente = 1 order by Fecha",
          "select Cliente from DPI where Cliente = 1 group by Cliente order by Cliente",
          "select a.Id from DPI a inner join DPI b on a.Id = b.Id where a.Cliente = 1 order by a.Fecha"}) {
        EXPECT_THAT(sqlite::translate(statement, *this).walkStatement, IsEmpty()) << statement;
    }
    const auto byItem = sqlite::translate("select Fecha as f from DPI where Cliente = 1 order by f", *this);
    EXPECT_THAT(byItem.keysStatement, IsEmpty());
    EXPECT_THAT(byItem.walkStatement, Not(IsEmpty()));
}

TEST_F(PlannedStatements, TheOrderOfATableIsReadFromItsKeys) {
    const auto orderOf = [this](const std::string& name) { return sqlite::readTable(link_, "main", name).rowOrder; };
    link_.run("CREATE TABLE Numbered (a INTEGER PRIMARY KEY AUTOINCREMENT, b int NOT NULL UNIQUE)");
    link_.run("CREATE TABLE Keyed (a int, b int, PRIMARY KEY (b, a))");
    link_.run("CREATE TABLE Later (a int, b int NOT NULL, c int NOT NULL)");
    link_.run("CREATE UNIQUE INDEX \"Later.Half\" ON Later (b) WHERE a > 1");
    link_.run("CREATE UNIQUE INDEX \"Later.Sum\" ON Later (b + c)");
    link_.run("CREATE UNIQUE INDEX \"Later.Nullable\" ON Later (b, a)");
    link_.run("CREATE UNIQUE INDEX \"Later.PK_Later\" ON Later (c, b)");
    link_.run("CREATE UNIQUE INDEX \"Later.Second\" ON Later (b)");
    link_.run("CREATE TABLE Bare (a int)");
    link_.run("CREATE TABLE Taken (RowId int)");
    link_.run("CREATE VIEW Seen AS SELECT a FROM Bare");
    EXPECT_THAT(orderOf("Numbered"), ElementsAre("a"));
    EXPECT_THAT(orderOf("Keyed"), ElementsAre("b", "a"));
    EXPECT_THAT(orderOf("Later"), ElementsAre("c", "b"));
    EXPECT_THAT(orderOf("Bare"), ElementsAre("rowid"));
    EXPECT_THAT(orderOf("Taken"), ElementsAre("_rowid_"));
    EXPECT_THAT(orderOf("Seen"), IsEmpty());
}

}  // namespace velmora::test
