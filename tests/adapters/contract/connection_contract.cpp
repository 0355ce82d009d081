#include "connection_contract.h"

#include <string>
#include <vector>

namespace velmora::test {

namespace {

namespace provider = sql::provider;
using runtime::Date;
using sql::Recordset;
using sql::Value;

std::vector<std::string> texts(Recordset rows) {
    std::vector<std::string> all;
    for (; !rows.eof(); rows.moveNext()) {
        all.push_back(rows[0].toText());
    }
    return all;
}

}  // namespace

Value ConnectionContract::scalar(std::string_view statement) {
    const Recordset rows = execute(statement);
    return rows.eof() ? Value("no row") : rows[std::size_t{0}];
}

long ConnectionContract::refusal(std::string_view statement) {
    try {
        execute(statement);
    } catch (const sql::DbError& error) {
        EXPECT_FALSE(error.description().empty());
        EXPECT_EQ(error.details().statement, statement);
        return error.number();
    }
    return 0;
}

// Transactions.

TEST_P(ConnectionContract, CommitAndRollbackWithNoTransactionAreRefused) {
    for (const auto operation : {&sql::Connection::commitTrans, &sql::Connection::rollbackTrans}) {
        try {
            ((*connection_).*operation)();
            FAIL();
        } catch (const sql::DbError& error) {
            EXPECT_EQ(error.number(), provider::noTransaction);
        }
    }
}

TEST_P(ConnectionContract, CommitKeepsAndRollbackUndoes) {
    execute("CREATE TABLE T_A (a int)");
    connection_->beginTrans();
    execute("insert into T_A (a) values (1)");
    connection_->commitTrans();
    connection_->beginTrans();
    execute("insert into T_A (a) values (2)");
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(2));
    connection_->rollbackTrans();
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(1));
}

TEST_P(ConnectionContract, TransactionsDoNotNest) {
    connection_->beginTrans();
    EXPECT_THROW(connection_->beginTrans(), sql::DbError);
    connection_->rollbackTrans();
    connection_->beginTrans();
    connection_->commitTrans();
}

TEST_P(ConnectionContract, TransactionRollsBackUnlessCommitted) {
    execute("CREATE TABLE T_A (a int)");
    {
        const sql::Transaction transaction(*connection_);
        execute("insert into T_A (a) values (1)");
    }
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(0));
    {
        sql::Transaction transaction(*connection_);
        execute("insert into T_A (a) values (1)");
        transaction.commit();
    }
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(1));
}

TEST_P(ConnectionContract, AFailedStatementLeavesTheTransactionOpen) {
    execute("CREATE TABLE T_A (a int NOT NULL)");
    connection_->beginTrans();
    execute("insert into T_A (a) values (1)");
    EXPECT_EQ(refusal("insert into T_A (a) values (null)"), provider::constraint);
    execute("insert into T_A (a) values (2)");
    connection_->commitTrans();
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(2));
}

// Refusals.

TEST_P(ConnectionContract, MissingTableHasItsNumber) {
    EXPECT_EQ(refusal("Select top 1 * from T_NOTHING"), provider::missingTable);
    EXPECT_EQ(refusal("insert into T_NOTHING (a) values (1)"), provider::missingTable);
    EXPECT_EQ(refusal("update T_NOTHING set a = 1"), provider::missingTable);
    EXPECT_EQ(refusal("delete from T_NOTHING where a = 1"), provider::missingTable);
}

TEST_P(ConnectionContract, UnknownColumnAndBadSyntaxAreSyntax) {
    execute("CREATE TABLE T_A (a int)");
    EXPECT_EQ(refusal("select b from T_A"), provider::syntax);
    EXPECT_EQ(refusal("select a from T_A where a = NUEVO"), provider::syntax);
    EXPECT_EQ(refusal("select a from T_A where a ="), provider::syntax);
    EXPECT_EQ(refusal("update T_A set b = 1"), provider::syntax);
    EXPECT_EQ(refusal("insert into T_A (b) values (1)"), provider::syntax);
}

TEST_P(ConnectionContract, NullIntoAColumnThatRefusesItIsAConstraint) {
    execute("CREATE TABLE T_A (a int NOT NULL, b int)");
    EXPECT_EQ(refusal("insert into T_A (b) values (1)"), provider::constraint);
    execute("insert into T_A (a, b) values (1, null)");
    EXPECT_EQ(refusal("update T_A set a = Null "), provider::constraint);
}

TEST_P(ConnectionContract, ATextTooLongIsRefusedAndNothingIsCut) {
    execute("CREATE TABLE T_A (a nvarchar(5))");
    execute("insert into T_A (a) values (N'ñandú')");
    EXPECT_EQ(refusal("insert into T_A (a) values (N'ñandúe')"), provider::truncation);
    EXPECT_EQ(refusal("update T_A set a = a + 'x'"), provider::truncation);
    EXPECT_EQ(scalar("select a from T_A"), Value("ñandú"));
}

TEST_P(ConnectionContract, TextLengthCountsUtf16Units) {
    execute("CREATE TABLE T_A (a nvarchar(3))");
    execute("insert into T_A (a) values (N'a\U0001F529')");
    EXPECT_EQ(refusal("insert into T_A (a) values (N'ab\U0001F529')"), provider::truncation);
}

TEST_P(ConnectionContract, AnEmptyTextIsNoNumber) {
    execute("CREATE TABLE T_A (a int, b float)");
    EXPECT_EQ(refusal("insert into T_A (a) values ('')"), provider::conversion);
    EXPECT_EQ(refusal("insert into T_A (b) values (N'')"), provider::conversion);
    EXPECT_EQ(refusal("insert into T_A (a) values ('uno')"), provider::conversion);
    EXPECT_EQ(refusal("insert into T_A (b) values ('12,5')"), provider::conversion);
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(0));
}

TEST_P(ConnectionContract, ADuplicateKeyIsAConstraint) {
    execute("CREATE TABLE T_A (a int NOT NULL, CONSTRAINT [PK_T_A] PRIMARY KEY CLUSTERED (a))");
    execute("insert into T_A (a) values (1)");
    EXPECT_EQ(refusal("insert into T_A (a) values (1)"), provider::constraint);
}

// Types and conversions.

TEST_P(ConnectionContract, EveryTypeComesBackAsItself) {
    execute("CREATE TABLE T_A (i int, b bit, f float, n numeric(18, 0), t nvarchar(20), l ntext, d datetime, x image)");
    execute(
        "insert into T_A (i, b, f, n, t, l, d, x) values "
        "(7, 1, 12, 123456789012, N'Piñón', 'largo', convert(datetime,'15/01/2026',103), 0x00FF10)");
    const Recordset row = execute("select * from T_A");
    EXPECT_EQ(row["i"], Value(7));
    EXPECT_EQ(row["b"], Value(true));
    EXPECT_EQ(row["f"], Value(12.0));
    EXPECT_EQ(row["n"].toDouble(), 123456789012.0);
    EXPECT_EQ(row["t"], Value("Piñón"));
    EXPECT_EQ(row["l"], Value("largo"));
    EXPECT_EQ(row["d"], Value(Date::of(2026, 1, 15)));
    EXPECT_EQ(row["x"], Value(sql::Bytes{std::byte{0x00}, std::byte{0xFF}, std::byte{0x10}}));
}

TEST_P(ConnectionContract, NullsComeBackAsNull) {
    execute("CREATE TABLE T_A (i int, b bit, f float, t nvarchar(20), d datetime, x image)");
    execute("insert into T_A (i) values ( Null )");
    const Recordset row = execute("select * from T_A");
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_TRUE(row[i].isNull()) << i;
    }
}

TEST_P(ConnectionContract, AFloatAsTextKeepsSixDigits) {
    execute("CREATE TABLE T_A (f float)");
    const std::vector<std::pair<std::string, std::string>> cases = {{"12.5", "12.5"},      {"123456.7", "123457"},
                                                                    {"1000000", "1e+006"}, {"0.1", "0.1"},
                                                                    {"30", "30"},          {"-2.25", "-2.25"}};
    for (const auto& [number, text] : cases) {
        execute("delete from T_A");
        execute("insert into T_A (f) values (" + number + ")");
        EXPECT_EQ(scalar("select cast(f as nvarchar) from T_A"), Value(text)) << number;
    }
}

TEST_P(ConnectionContract, PlusJoinsTextsAndAddsNumbers) {
    execute("CREATE TABLE T_A (f float, i int, t nvarchar(20))");
    execute("insert into T_A (f, i, t) values (1.5, 2, 'x')");
    EXPECT_EQ(scalar("select t + ' ' + t from T_A"), Value("x x"));
    EXPECT_EQ(scalar("select f + i from T_A"), Value(3.5));
    EXPECT_EQ(scalar("select i + '3' from T_A"), Value(5));
    EXPECT_EQ(refusal("select i + t from T_A"), provider::conversion);
    EXPECT_TRUE(scalar("select t + null from T_A").isNull());
}

TEST_P(ConnectionContract, IntegersDivideToIntegers) {
    execute("CREATE TABLE T_A (i int, f float)");
    execute("insert into T_A (i, f) values (7, 7)");
    EXPECT_EQ(scalar("select i / 2 from T_A"), Value(3));
    EXPECT_EQ(scalar("select -i / 2 from T_A"), Value(-3));
    EXPECT_EQ(scalar("select f / 2 from T_A"), Value(3.5));
    EXPECT_NE(refusal("select i / 0 from T_A"), 0);
}

TEST_P(ConnectionContract, TextsAreComparedWithNumbersAsNumbers) {
    execute("CREATE TABLE T_A (i int, t nvarchar(10))");
    execute("insert into T_A (i, t) values (7, '007')");
    EXPECT_EQ(scalar("select count(*) from T_A where i = '7'"), Value(1));
    EXPECT_EQ(scalar("select count(*) from T_A where t = 7"), Value(1));
    EXPECT_EQ(scalar("select count(*) from T_A where t = '7'"), Value(0));
}

TEST_P(ConnectionContract, BitsCompareWithOneAndZero) {
    execute("CREATE TABLE T_A (b bit NOT NULL)");
    execute("insert into T_A (b) values (1)");
    execute("insert into T_A (b) values (0)");
    execute("insert into T_A (b) values (5)");
    EXPECT_EQ(scalar("select count(*) from T_A where b=1"), Value(2));
    EXPECT_EQ(scalar("select count(*) from T_A where b = 0"), Value(1));
}

TEST_P(ConnectionContract, MaxOfNothingIsNull) {
    execute("CREATE TABLE T_A (i int, f float)");
    EXPECT_TRUE(scalar("select max(i) from T_A").isNull());
    EXPECT_EQ(scalar("select isnull(max(i),0)+1 from T_A"), Value(1));
    EXPECT_TRUE(scalar("select isnull(max(i),0)+1 from T_A").isWhole());
    EXPECT_EQ(scalar("select isnull(sum(f),0) as Importe from T_A"), Value(0.0));
}

TEST_P(ConnectionContract, CaseAnswersTheFirstThatHolds) {
    execute("CREATE TABLE T_A (i int)");
    execute("insert into T_A (i) values (1)");
    execute("insert into T_A (i) values (9)");
    EXPECT_EQ(texts(execute(
                  "select (case when i=0 then 'cero' when i=1 then 'uno' else '' end) as Tipo from T_A order by i")),
              (std::vector<std::string>{"uno", ""}));
    EXPECT_EQ(texts(execute("select case i when 1 then 'uno' else 'otro' end from T_A order by i desc")),
              (std::vector<std::string>{"otro", "uno"}));
}

TEST_P(ConnectionContract, RoundGoesAwayFromZero) {
    EXPECT_EQ(scalar("select round(cast(2.5 as float), 0)").toDouble(), 3);
    EXPECT_EQ(scalar("select round(cast(-2.345 as float), 2)").toDouble(), -2.35);
}

// Dates.

TEST_P(ConnectionContract, DatesCompareWithTextsDayFirst) {
    execute("CREATE TABLE T_A (a int, d datetime)");
    execute("insert into T_A (a, d) values (1, '03/02/2026 23:59:00')");
    execute("insert into T_A (a, d) values (2, '04/02/2026')");
    execute("insert into T_A (a, d) values (3, null)");
    const auto found = [&](const std::string& condition) {
        std::string all;
        for (const std::string& text :
             texts(execute("select cast(a as nvarchar) from T_A where " + condition + " order by a"))) {
            all += text;
        }
        return all;
    };
    EXPECT_EQ(found("(d BETWEEN '03/02/2026 00:00:00' and '03/02/2026 23:59:00') "), "1");
    EXPECT_EQ(found("d = '04/02/2026'"), "2");
    EXPECT_EQ(found("d < '04/02/2026 00:00:00'"), "1");
    EXPECT_EQ(found("d >= '03/02/2026 23:59:00'"), "12");
    EXPECT_EQ(found("d <= '3/2/2026'"), "");
    EXPECT_EQ(found("'04/02/2026' = d"), "2");
    EXPECT_EQ(found("( not d is null ) "), "12");
    EXPECT_EQ(refusal("select a from T_A where d = '31/02/2026'"), provider::conversion);
}

TEST_P(ConnectionContract, DateDifferenceCountsMidnights) {
    execute("CREATE TABLE T_A (d datetime)");
    execute("insert into T_A (d) values ('14/01/2026 23:59:59')");
    EXPECT_EQ(scalar("select datediff(day,d,'15/01/2026 00:00:00') from T_A"), Value(1));
    EXPECT_EQ(scalar("select datediff(day,d,'14/01/2026 00:00:00') from T_A"), Value(0));
    EXPECT_EQ(scalar("select datediff(day,'15/04/2026',d) from T_A"), Value(-91));
}

TEST_P(ConnectionContract, AColumnDefaultFillsTheDate) {
    execute("CREATE TABLE T_A (a int, d datetime NOT NULL DEFAULT getdate())");
    execute("insert into T_A (a) values (1)");
    EXPECT_TRUE(scalar("select d from T_A").isDate());
    EXPECT_EQ(scalar("select datediff(day,d,getdate()) from T_A"), Value(0));
    execute("update T_A set d = getdate() ");
    EXPECT_TRUE(scalar("select d from T_A").isDate());
}

// Texts.

TEST_P(ConnectionContract, TextComparisonIsBlindToCaseAndTrailingBlanksNotToAccents) {
    execute("CREATE TABLE T_A (t nvarchar(20))");
    execute("insert into T_A (t) values (N'Piñón')");
    EXPECT_EQ(scalar("select count(*) from T_A where t = N'PIÑÓN'"), Value(1));
    EXPECT_EQ(scalar("select count(*) from T_A where t = N'piñón   '"), Value(1));
    EXPECT_EQ(scalar("select count(*) from T_A where t = N'piñon'"), Value(0));
    EXPECT_EQ(scalar("select count(*) from T_A where t = N'pinón'"), Value(0));
    EXPECT_EQ(scalar("select count(*) from T_A where t + '' = N'PIÑÓN'"), Value(1));
    EXPECT_EQ(scalar("select count(*) from T_A where t IN ('x', N'PIÑÓN')"), Value(1));
    EXPECT_EQ(scalar("select count(*) from T_A where t like N'PIÑ%'"), Value(1));
    EXPECT_EQ(scalar("select count(*) from T_A where t like N'pin%'"), Value(0));
}

TEST_P(ConnectionContract, EneSortsBetweenNAndO) {
    execute("CREATE TABLE T_A (t nvarchar(20))");
    for (const std::string text : {"ola", "nz", "Ñu", "na", "ñandú", "NB", "áb", "az"}) {
        execute("insert into T_A (t) values (N'" + text + "')");
    }
    const std::vector<std::string> sorted = {"áb", "az", "na", "NB", "nz", "ñandú", "Ñu", "ola"};
    EXPECT_EQ(texts(execute("select t from T_A order by t")), sorted);
    EXPECT_EQ(scalar("select max(t) from T_A"), Value("ola"));
}

TEST_P(ConnectionContract, QuotesAreDoubled) {
    execute("CREATE TABLE T_A (t nvarchar(20))");
    execute("insert into T_A (t) values (N'ISO 3/8''''')");
    EXPECT_EQ(scalar("select t from T_A where t = 'ISO 3/8'''''"), Value("ISO 3/8''"));
}

// Tables.

TEST_P(ConnectionContract, IdentityNumbersItselfAndNeverUsesAKeyAgain) {
    execute(
        "CREATE TABLE [dbo].[T_A] ([Id] [numeric](18, 0) IDENTITY (1, 1) NOT NULL ,[a] [int] NOT NULL ) ON [PRIMARY]");
    execute("insert into T_A (a) values (10)");
    execute("insert into T_A (a) values (20)");
    EXPECT_EQ(scalar("select max(ID) from T_A").toLong(), 2);
    execute("delete from T_A where id = 2");
    execute("insert into T_A (a) values (30)");
    EXPECT_EQ(scalar("select max(id) from T_A").toLong(), 3);
}

TEST_P(ConnectionContract, APrimaryKeyCanBeAddedLater) {
    execute(
        "CREATE TABLE [dbo].[T_A] ([Id] [numeric](18, 0) IDENTITY (1, 1) NOT NULL ,[a] [int] NOT NULL ) ON [PRIMARY]");
    execute(
        "ALTER TABLE [dbo].[T_A] WITH NOCHECK ADD CONSTRAINT [PK_T_A] PRIMARY KEY  CLUSTERED ( [Id] )  ON [PRIMARY]");
    EXPECT_NE(refusal("ALTER TABLE [dbo].[T_A] WITH NOCHECK ADD CONSTRAINT [PK_T_A] PRIMARY KEY  CLUSTERED ( [Id] )  "
                      "ON [PRIMARY]"),
              0);
    execute("insert into T_A (a) values (1)");
    EXPECT_EQ(scalar("select id from T_A").toLong(), 1);
}

TEST_P(ConnectionContract, AddedColumnsFillExistingRows) {
    execute("CREATE TABLE T_A (a int)");
    execute("insert into T_A (a) values (1)");
    execute(
        "ALTER TABLE T_A ADD [m] [float] NOT NULL  DEFAULT 0 WITH VALUES ,"
        "[h] [nvarchar] (15) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES ,"
        "[b] [bit] NOT NULL DEFAULT 0 WITH VALUES ");
    const Recordset row = execute("select * from T_A");
    EXPECT_EQ(row["M"], Value(0.0));
    EXPECT_EQ(row["H"], Value(""));
    EXPECT_EQ(row["B"], Value(false));
}

TEST_P(ConnectionContract, AddingColumnsIsAllOrNothing) {
    execute("CREATE TABLE T_A (a int)");
    EXPECT_NE(
        refusal("ALTER TABLE T_A ADD b int NOT NULL DEFAULT 0 WITH VALUES ,a int NOT NULL DEFAULT 0 WITH VALUES "), 0);
    EXPECT_EQ(execute("select * from T_A").columns().size(), 1u);
}

TEST_P(ConnectionContract, ColumnsAnswerInAnyCaseAndByPosition) {
    execute("CREATE TABLE T_Piñones (Opi_Id int, Opi_Piñon nvarchar(10))");
    execute("insert into T_PIÑONES (opi_id, OPI_PIÑON) values (4, 'a')");
    const Recordset row = execute("select opi_piñon as Nombre, T_piñones.*, OPI_ID from t_piñones");
    ASSERT_EQ(row.columns().size(), 4u);
    EXPECT_EQ(row["NOMBRE"], Value("a"));
    EXPECT_EQ(row[std::size_t{1}], Value(4));
    EXPECT_EQ(row[std::size_t{2}], Value("a"));
    EXPECT_EQ(row[std::size_t{3}], Value(4));
    EXPECT_EQ(row["opi_piÑon"], Value("a"));
}

TEST_P(ConnectionContract, JoinsAndSubSelects) {
    execute("CREATE TABLE T_A (a int, n nvarchar(10))");
    execute("CREATE TABLE T_B (b int, a int)");
    execute("insert into T_A (a, n) values (1, 'uno')");
    execute("insert into T_A (a, n) values (2, 'dos')");
    execute("insert into T_B (b, a) values (10, 1)");
    EXPECT_EQ(texts(execute("select n from T_A inner join T_B on T_A.a = T_B.a")), (std::vector<std::string>{"uno"}));
    EXPECT_EQ(texts(execute("select n from T_A left join T_B on T_A.a = T_B.a where b is null")),
              (std::vector<std::string>{"dos"}));
    EXPECT_EQ(scalar("select (select n from T_A where T_A.a = T_B.a) as Nombre from T_B"), Value("uno"));
    EXPECT_EQ(scalar("select count(*) from T_A where a in (select a from T_B)"), Value(1));
    EXPECT_EQ(scalar("select count(*) from T_A x where not exists (select * from T_B y where y.a = x.a)"), Value(1));
}

TEST_P(ConnectionContract, TopTakesTheFirst) {
    execute("CREATE TABLE T_A (a int)");
    for (int i = 1; i <= 5; ++i) {
        execute("insert into T_A (a) values (" + std::to_string(i) + ")");
    }
    EXPECT_EQ(scalar("select top 1 a from T_A order by a desc "), Value(5));
    EXPECT_EQ(execute("select top 3 * from T_A order by a").recordCount(), 3u);
}

TEST_P(ConnectionContract, UpdateAndDeleteTouchWhatTheirClauseSays) {
    execute("CREATE TABLE T_A (a int, f float)");
    for (int i = 1; i <= 3; ++i) {
        execute("insert into T_A (a, f) values (" + std::to_string(i) + ", 0)");
    }
    execute("update T_A set f = a * 1.5, a = a + 10 where a >= 2");
    execute("delete from T_A where a = 12");
    EXPECT_EQ(scalar("select sum(f) from T_A"), Value(4.5));
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(2));
}

TEST_P(ConnectionContract, ChangesAnswerAClosedSet) {
    EXPECT_FALSE(execute("CREATE TABLE T_A (a int)").isOpen());
    EXPECT_FALSE(execute("insert into T_A (a) values (1)").isOpen());
    EXPECT_FALSE(execute("delete from T_A").isOpen());
    EXPECT_TRUE(execute("select * from T_A").isOpen());
}

TEST_P(ConnectionContract, DocumentsLieInACatalogueOfTheirOwn) {
    const std::string prefix = "DOC" + connection_->currentCatalog() + ".dbo.";
    EXPECT_EQ(refusal("select * from " + prefix + "T_dex"), provider::missingTable);
    execute("CREATE TABLE " + prefix +
            "T_dex (Dex_Id int IDENTITY (1, 1) NOT NULL, Dex_Doc image NULL, Dex_Fic nvarchar(200))");
    connection_->beginTrans();
    execute("insert into " + prefix + "T_Dex (Dex_Doc,Dex_Fic) values (Null,N'plano.pdf')");
    EXPECT_EQ(scalar("Select isnull(max(dex_id),1) from " + prefix + "T_dex"), Value(1));
    connection_->commitTrans();
    execute("update " + prefix + "T_Dex set Dex_Doc = 0x255044 where Dex_Id= 1");
    EXPECT_EQ(scalar("Select Dex_Doc,Dex_Fic from " + prefix + "T_Dex where Dex_Id= 1"),
              Value(sql::Bytes{std::byte{0x25}, std::byte{0x50}, std::byte{0x44}}));
    EXPECT_EQ(refusal("select * from T_dex"), provider::missingTable);
}

// Files in a column.

/// Bytes of every value in no order that repeats soon.
sql::Bytes fileOf(std::size_t size) {
    sql::Bytes content(size);
    std::uint32_t state = 1;
    for (std::byte& each : content) {
        state = state * 1664525u + 1013904223u;
        each = static_cast<std::byte>(state >> 24u);
    }
    return content;
}

/// The documents' table with three rows; gives the name to select from.
std::string documentsTable(sql::Connection& connection) {
    const std::string table = "DOC" + connection.currentCatalog() + ".dbo.T_Dex";
    connection.execute("CREATE TABLE " + table +
                       " (Dex_Id int IDENTITY (1, 1) PRIMARY KEY, Dex_Doc image NULL, Dex_Fic nvarchar(200))");
    for (const char* name : {"a.pdf", "b.pdf", "c.pdf"}) {
        connection.execute("insert into " + table + " (Dex_Doc,Dex_Fic) values (Null,N'" + name + "')");
    }
    return table;
}

TEST_P(ConnectionContract, AFileIsWrittenThroughTheSetThatHoldsItsRow) {
    const std::string table = documentsTable(*connection_);
    const sql::Bytes content = fileOf(4096);
    Recordset row = execute("select * from " + table + " where Dex_Id= 2");
    row.updateBinary("dex_doc", content);
    EXPECT_EQ(row["Dex_Doc"], Value(content)) << "the set shows it";
    EXPECT_EQ(row["Dex_Fic"], Value("b.pdf"));
    EXPECT_EQ(scalar("Select Dex_Doc from " + table + " where Dex_Id= 2"), Value(content));
    EXPECT_EQ(scalar("select count(*) from " + table + " where Dex_Doc is null"), Value(2)) << "no other row";
    row.updateBinary(1, sql::Bytes{std::byte{7}});
    EXPECT_EQ(scalar("Select Dex_Doc from " + table + " where Dex_Id= 2"), Value(sql::Bytes{std::byte{7}}));
}

TEST_P(ConnectionContract, AnEmptyFileIsNotNull) {
    const std::string table = documentsTable(*connection_);
    execute("select * from " + table + " where Dex_Id= 1").updateBinary("Dex_Doc", {});
    EXPECT_EQ(scalar("select count(*) from " + table + " where Dex_Doc is null"), Value(2));
    EXPECT_EQ(scalar("select Dex_Doc from " + table + " where Dex_Id= 1"), Value(sql::Bytes{}));
}

TEST_P(ConnectionContract, AFileOfFiftyMegabytesComesBackByteForByte) {
    const std::string table = documentsTable(*connection_);
    const sql::Bytes content = fileOf(50 * 1024 * 1024);
    execute("select * from " + table + " where Dex_Id= 3").updateBinary("Dex_Doc", content);
    const Recordset row = execute("select Dex_Doc,Dex_Fic from " + table + " where Dex_Id= 3");
    EXPECT_TRUE(row["Dex_Doc"] == Value(content));
}

TEST_P(ConnectionContract, WhatIsWrittenThroughASetCountsWithItsTransaction) {
    const std::string table = documentsTable(*connection_);
    connection_->beginTrans();
    execute("select * from " + table + " where Dex_Id= 1").updateBinary("Dex_Doc", fileOf(100));
    connection_->rollbackTrans();
    EXPECT_EQ(scalar("select Dex_Doc from " + table + " where Dex_Id= 1"), Value());
}

TEST_P(ConnectionContract, OnlyABinaryColumnOfOneRowOfOneTableIsWrittenThroughASet) {
    const std::string table = documentsTable(*connection_);
    execute("CREATE TABLE T_NoKey (n int, doc image)");
    execute("insert into T_NoKey (n) values (1)");
    const auto refusalOf = [&](const std::string& statement, std::string_view column) {
        try {
            execute(statement).updateBinary(column, fileOf(10));
        } catch (const runtime::RuntimeError& error) {
            return error.number();
        }
        return 0L;
    };
    EXPECT_EQ(refusalOf("select * from " + table + " where Dex_Id= 1", "Dex_Fic"), 3251) << "a text";
    EXPECT_EQ(refusalOf("select Dex_Doc from " + table, "Dex_Doc"), 3251) << "without the key";
    EXPECT_EQ(refusalOf("select distinct Dex_Id,Dex_Doc from " + table, "Dex_Doc"), 3251);
    EXPECT_EQ(
        refusalOf("select a.Dex_Id,a.Dex_Doc from " + table + " a inner join " + table + " b on a.Dex_Id=b.Dex_Id",
                  "Dex_Doc"),
        3251);
    EXPECT_EQ(refusalOf("select * from T_NoKey", "doc"), 3251);
    EXPECT_EQ(refusalOf("select * from " + table + " where Dex_Id= 9", "Dex_Doc"), 3021);
    EXPECT_EQ(refusalOf("select * from " + table + " where Dex_Id= 1", "Dex_Docs"), 3265);
    EXPECT_EQ(scalar("select count(*) from " + table + " where Dex_Doc is null"), Value(3)) << "nothing was written";
}

TEST_P(ConnectionContract, ARowThatIsGoneIsNotWritten) {
    const std::string table = documentsTable(*connection_);
    Recordset row = execute("select * from " + table + " where Dex_Id= 1");
    execute("delete from " + table + " where Dex_Id= 1");
    try {
        row.updateBinary("Dex_Doc", fileOf(10));
        FAIL() << "no error";
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), provider::rowGone);
    }
}

// Result sets.

TEST_P(ConnectionContract, AnEmptySetIsOpenAtBothEnds) {
    execute("CREATE TABLE T_A (a int)");
    const Recordset rows = execute("select a from T_A");
    EXPECT_TRUE(rows.isOpen());
    EXPECT_TRUE(rows.eof());
    EXPECT_TRUE(rows.bof());
    EXPECT_FALSE(rows.hasRows());
    EXPECT_EQ(rows.recordCount(), 0u);
    EXPECT_EQ(rows.columns().size(), 1u);
}

TEST_P(ConnectionContract, ALongListIsReadForwardBackwardAndFromItsEnd) {
    execute("CREATE TABLE T_A (a int)");
    constexpr int count = 3000;
    for (int from = 0; from < count; from += 500) {
        std::string rows;
        for (int i = from; i < from + 500; ++i) {
            rows += (rows.empty() ? "(" : ", (") + std::to_string(i) + ")";
        }
        execute("insert into T_A (a) values " + rows);
    }
    Recordset rows = execute("select a from T_A order by a");
    EXPECT_EQ(rows.recordCount(), static_cast<std::size_t>(count));
    rows.moveLast();
    EXPECT_EQ(rows["a"], Value(count - 1));
    for (int i = count - 1; i > 0; --i) {
        rows.movePrevious();
    }
    EXPECT_EQ(rows["a"], Value(0));
    rows.moveTo(1500);
    EXPECT_EQ(rows["a"], Value(1500));
    rows.find("a=2999");
    EXPECT_EQ(rows.position(), 2999u);
    rows.moveNext();
    EXPECT_TRUE(rows.eof());
}

TEST_P(ConnectionContract, AnOpenListDoesNotHinderWrites) {
    execute("CREATE TABLE T_A (a int)");
    std::string values = "(0)";
    for (int i = 1; i < 900; ++i) {
        values += ", (" + std::to_string(i) + ")";
    }
    execute("insert into T_A (a) values " + values);
    execute("insert into T_A (a) select a + 900 from T_A");
    Recordset rows = execute("select a from T_A order by a");
    connection_->beginTrans();
    execute("insert into T_A (a) values (5000)");
    connection_->commitTrans();
    rows.moveTo(1500);
    EXPECT_EQ(rows["a"], Value(1500));
    rows.requery();
    EXPECT_EQ(rows.position(), 0u);
    EXPECT_EQ(rows.recordCount(), 1801u);
}

TEST_P(ConnectionContract, TheSameTextCanBeOpenTwice) {
    execute("CREATE TABLE T_A (a int)");
    execute("insert into T_A (a) values (1)");
    execute("insert into T_A (a) values (2)");
    Recordset first = execute("select a from T_A order by a");
    Recordset second = execute("select a from T_A order by a");
    first.moveNext();
    EXPECT_EQ(first["a"], Value(2));
    EXPECT_EQ(second["a"], Value(1));
}

TEST_P(ConnectionContract, AConnectionIsAlive) {
    EXPECT_TRUE(connection_->isAlive());
}

}  // namespace velmora::test
