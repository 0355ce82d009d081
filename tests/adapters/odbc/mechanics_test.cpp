// What the adapter does with any driver, on an embedded one that is always there. Statements are such as the driver's
// engine and a server both understand. The driver takes narrow text only, to which the driver manager cuts every UTF-16
// unit, and loses some sequences of bytes above 127: texts here are of ASCII, or short and of Latin-1. What lies beyond
// is tested on a server.

#include <functional>

#include <gmock/gmock.h>

#include "velmora/adapters/odbc/database.h"
#include "velmora/platform/sql/db_error.h"

#include "support/temporary_folder.h"

namespace velmora::odbc {
namespace {

using sql::Value;
using ::testing::HasSubstr;
using ::testing::Not;
namespace provider = sql::provider;

class OdbcMechanics : public ::testing::Test {
  protected:
    ~OdbcMechanics() override { connection_.reset(); }

    std::string text() const { return "DRIVER=SQLite3;Timeout=200;Database=" + folder_.file("taller.db"); }
    sql::Recordset execute(std::string_view statement) { return connection_->execute(statement); }
    sql::Value scalar(std::string_view statement) { return execute(statement)[std::size_t{0}]; }
    long refusal(const std::function<void()>& work) {
        try {
            work();
        } catch (const sql::DbError& error) {
            EXPECT_FALSE(error.description().empty());
            return error.number();
        }
        return 0;
    }

    support::TemporaryFolder folder_;
    std::unique_ptr<sql::Connection> connection_ = openDatabase(text());
};

TEST_F(OdbcMechanics, EveryTypeComesBackAsItself) {
    execute("CREATE TABLE T_A (i integer, f double, t varchar(20), d timestamp, x blob)");
    execute("insert into T_A values (7, 1.5, 'Piñón', '2026-01-15 10:20:30', x'00FF10')");
    execute("insert into T_A (i) values (null)");
    sql::Recordset rows = execute("select * from T_A");
    EXPECT_EQ(rows["I"], Value(7));
    EXPECT_EQ(rows["f"], Value(1.5));
    EXPECT_EQ(rows["t"], Value("Piñón"));
    EXPECT_EQ(rows["d"], Value(runtime::Date::of(2026, 1, 15, 10, 20, 30)));
    EXPECT_EQ(rows["x"], Value(sql::Bytes{std::byte{0}, std::byte{255}, std::byte{16}}));
    rows.moveNext();
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_TRUE(rows[i].isNull()) << i;
    }
}

TEST_F(OdbcMechanics, LongTextsAndBinariesComeInPieces) {
    execute("CREATE TABLE T_A (t text, x blob)");
    std::string text;
    while (text.size() < 300'000) {
        text += "Rueda dentada " + std::to_string(text.size()) + ";";
    }
    execute("insert into T_A values ('" + text + "', zeroblob(200001))");
    const sql::Recordset row = execute("select * from T_A");
    EXPECT_TRUE(row["t"] == Value(text));
    EXPECT_TRUE(row["x"] == Value(sql::Bytes(200'001)));
}

TEST_F(OdbcMechanics, AChangeAnswersAClosedSetAndAnEmptySetIsOpen) {
    EXPECT_FALSE(execute("CREATE TABLE T_A (i integer)").isOpen());
    EXPECT_FALSE(execute("insert into T_A values (1)").isOpen());
    const sql::Recordset none = execute("select i from T_A where i = 2");
    EXPECT_TRUE(none.isOpen());
    EXPECT_TRUE(none.eof());
    EXPECT_EQ(none.columns().size(), 1u);
}

TEST_F(OdbcMechanics, SeveralSetsStandSideBySideAndKeepTheirRows) {
    execute("CREATE TABLE T_A (i integer)");
    execute("insert into T_A values (0)");
    for (int i = 0; i < 12; ++i) {
        execute("insert into T_A select i + (select count(*) from T_A) from T_A");
    }
    sql::Recordset first = execute("select i from T_A order by i");
    sql::Recordset second = execute("select i from T_A order by i desc");
    EXPECT_EQ(first.recordCount(), 4096u);
    first.moveLast();
    EXPECT_EQ(first[std::size_t{0}], Value(4095));
    EXPECT_EQ(second[std::size_t{0}], Value(4095));
    second.moveTo(4000);
    EXPECT_EQ(second[std::size_t{0}], Value(95));
    execute("delete from T_A");
    first.moveTo(2000);
    EXPECT_EQ(first[std::size_t{0}], Value(2000));
    first.requery();
    EXPECT_TRUE(first.eof());
}

TEST_F(OdbcMechanics, CommitKeepsRollbackUndoesAndNeitherRunsAlone) {
    execute("CREATE TABLE T_A (i integer)");
    EXPECT_EQ(refusal([&] { connection_->commitTrans(); }), provider::noTransaction);
    EXPECT_EQ(refusal([&] { connection_->rollbackTrans(); }), provider::noTransaction);
    connection_->beginTrans();
    EXPECT_EQ(refusal([&] { connection_->beginTrans(); }), provider::transactionOpen);
    execute("insert into T_A values (1)");
    connection_->commitTrans();
    connection_->beginTrans();
    execute("insert into T_A values (2)");
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(2));
    connection_->rollbackTrans();
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(1));
}

TEST_F(OdbcMechanics, ATransactionIsUndoneWithItsConnection) {
    execute("CREATE TABLE T_A (i integer)");
    connection_->beginTrans();
    execute("insert into T_A values (1)");
    connection_ = openDatabase(text());
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(0));
}

TEST_F(OdbcMechanics, ARefusalTellsTheStatementAndTheConnectionGoesOn) {
    try {
        execute("select nothing from nowhere");
        FAIL();
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.details().statement, "select nothing from nowhere");
        EXPECT_EQ(error.details().sqlState.size(), 5u);
        EXPECT_FALSE(error.description().starts_with("["));
    }
    EXPECT_TRUE(connection_->isAlive());
    EXPECT_EQ(scalar("select 1"), Value(1));
}

TEST_F(OdbcMechanics, AnOpenSetOutlivesItsConnection) {
    execute("CREATE TABLE T_A (i integer)");
    execute("insert into T_A values (0)");
    for (int i = 0; i < 10; ++i) {
        execute("insert into T_A select i + (select count(*) from T_A) from T_A");
    }
    sql::Recordset rows = execute("select i from T_A order by i");
    connection_.reset();
    rows.moveTo(1000);
    EXPECT_EQ(rows[std::size_t{0}], Value(1000));
}

TEST(OdbcConnecting, AMissingDriverIsToldInWordsWithoutThePassword) {
    try {
        openDatabase("DRIVER=NoHayTalControlador;UID=a;PWD=geheim");
        FAIL();
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), provider::failure);
        EXPECT_THAT(error.description(), HasSubstr("controlador"));
        EXPECT_THAT(error.description(), Not(HasSubstr("geheim")));
    }
}

TEST(OdbcConnecting, AFileThatIsNoneIsNamed) {
    try {
        openDatabase("/no/hay/tal/archivo");
        FAIL();
    } catch (const sql::DbError& error) {
        EXPECT_THAT(error.description(), HasSubstr("/no/hay/tal/archivo"));
    }
}

}  // namespace
}  // namespace velmora::odbc
