#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"
#include "velmora/shell/schema_upgrade.h"

#include "support/fake_screen.h"
#include "support/faulty_connection.h"
#include "support/recording_connection.h"

namespace velmora::shell {
namespace {

class SchemaUpgradeOnEngine : public ::testing::Test {
  protected:
    std::unique_ptr<sql::Connection> engine = sqlite::openDatabase(":memory:");
    support::RecordingConnection connection{*engine};
    support::ScriptedScreen screen;

    sql::Recordset run(std::string_view statement) { return engine->execute(statement); }

    /// The tables as an older release left them, with a row in each.
    void makeOldDatabase() {
        run("CREATE TABLE PARDPI ([PARDPI_ID] [int] IDENTITY (1, 1) NOT NULL, [PARDPI_NOM] [nvarchar] (60) NULL)");
        run("CREATE TABLE DPI ([DPI_Id] [int] IDENTITY (1, 1) NOT NULL, [DPI_Tipo] [int] NULL)");
        run("INSERT INTO PARDPI (PARDPI_NOM) VALUES (N'Disco')");
        run("INSERT INTO DPI (DPI_Tipo) VALUES (0)");
    }
};

TEST_F(SchemaUpgradeOnEngine, ANewDatabaseIsOnlyLookedAt) {
    data::createDatabase(*engine);
    EXPECT_TRUE(FnActualizarBD(connection, screen));
    EXPECT_EQ(connection.log().size(), 3U);
}

TEST_F(SchemaUpgradeOnEngine, RowsOfAnOldDatabaseHoldZerosAndEmptyTexts) {
    makeOldDatabase();
    EXPECT_TRUE(FnActualizarBD(connection, screen));
    EXPECT_TRUE(screen.messages.empty());
    const sql::Recordset row = run("select * from DPI");
    EXPECT_EQ(row["DPI_Modulo"], sql::Value(0.0));
    EXPECT_EQ(row["DPI_HERRAMIENTA"], sql::Value(""));
    EXPECT_EQ(row["DPI_Acopla"], sql::Value(0));
    EXPECT_EQ(row["DPI_Extra"], sql::Value(""));
    EXPECT_EQ(row["DPI_ProTex"], sql::Value(""));
    EXPECT_EQ(run("select PARDPI_CRE from PARDPI")[0], sql::Value(false));
    EXPECT_FALSE(run("select * from ENG").hasRows());
}

TEST_F(SchemaUpgradeOnEngine, ASecondStartChangesNothing) {
    makeOldDatabase();
    FnActualizarBD(connection, screen);
    connection.clear();
    EXPECT_TRUE(FnActualizarBD(connection, screen));
    EXPECT_EQ(connection.log().size(), 3U);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(SchemaUpgradeOnEngine, WhoIsOvertakenByAnotherProgramSaysNothing) {
    for (const char* statement : {"ALTER TABLE PARDPI", "ALTER TABLE DPI", "CREATE TABLE [dbo].[ENG]"}) {
        SCOPED_TRACE(statement);
        engine = sqlite::openDatabase(":memory:");
        makeOldDatabase();
        support::FaultyConnection late(*engine);
        support::ScriptedScreen ofTheOther;
        late.before(statement, [&] { EXPECT_TRUE(FnActualizarBD(*engine, ofTheOther)); });
        EXPECT_TRUE(FnActualizarBD(late, screen));
        EXPECT_TRUE(screen.messages.empty());
        EXPECT_TRUE(ofTheOther.messages.empty());
        engine->execute("select DPI_Extra from DPI");
    }
}

TEST_F(SchemaUpgradeOnEngine, AMissingMaterialsTableIsRaised) {
    EXPECT_THROW(FnActualizarBD(connection, screen), sql::DbError);
}

}  // namespace
}  // namespace velmora::shell
