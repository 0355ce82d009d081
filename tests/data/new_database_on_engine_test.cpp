#include <string>

#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"
#include "velmora/data/schema.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::data {
namespace {

const runtime::Date madeAt = runtime::Date::of(2026, 1, 15, 10, 0, 0);

class NewDatabaseOnEngine : public ::testing::Test {
  protected:
    std::unique_ptr<sql::Connection> connection =
        sqlite::openDatabase(":memory:", {.clock = [] { return madeAt; }, .catalog = "TALLER"});

    void SetUp() override { createDatabase(*connection); }

    sql::Recordset run(std::string_view statement) { return connection->execute(statement); }
};

TEST_F(NewDatabaseOnEngine, EveryColumnStandsWhereTheSchemaPutsIt) {
    for (const TableDefinition& table : tables()) {
        const sql::Recordset rows =
            run("select top 1 * from " + catalogPrefix(table.catalog, "TALLER") + std::string(table.name));
        ASSERT_EQ(rows.columns().size(), table.columns.size()) << table.name;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            EXPECT_EQ(rows.columns()[i].name, table.columns[i].name) << table.name;
        }
    }
}

TEST_F(NewDatabaseOnEngine, AnUpgradeFindsNothingMissing) {
    EXPECT_NO_THROW(run("Select top 1 * from ENG"));
    EXPECT_NO_THROW(run("Select top 1 PARDPI_CRE from PARDPI"));
    EXPECT_NO_THROW(run("Select top 1 DPI_MODULO,DPI_HERRAMIENTA,DPI_ACOPLA,DPI_EXTRA,DPI_PROTEX from dpi"));
}

TEST_F(NewDatabaseOnEngine, ANewProposalHasItsDateOnlyWhenReadBack) {
    run("INSERT INTO DPI (DPI_Tipo) VALUES (0)");
    const sql::Recordset rows = run("SELECT DPI_Fecha,DPI_CosteCorteDisco FROM DPI where DPI_Id = 1");
    EXPECT_EQ(runtime::CStr(rows["DPI_Fecha"].toDate()), "15/01/2026 10:00:00");
    EXPECT_TRUE(rows["DPI_CosteCorteDisco"].isNull());
}

TEST_F(NewDatabaseOnEngine, TheNewerColumnsFillThemselves) {
    run("INSERT INTO DPI (DPI_Tipo) VALUES (0)");
    const sql::Recordset rows = run("select * from DPI");
    EXPECT_EQ(rows["DPI_Modulo"], sql::Value(0.0));
    EXPECT_EQ(rows["DPI_HERRAMIENTA"], sql::Value(""));
    EXPECT_EQ(rows["DPI_Acopla"], sql::Value(0));
    EXPECT_EQ(rows["DPI_EXTRA"], sql::Value(""));
    EXPECT_EQ(rows["DPI_ProTex"], sql::Value(""));
}

TEST_F(NewDatabaseOnEngine, ChainValuesOfAPlainSprocketStayNull) {
    run("INSERT INTO DPI (DPI_Tipo,DPI_PDM_Tipo,DPI_PDM_b1,DPI_PDM_x,DPI_PDM_h1,DPI_PDM_Texto) "
        "VALUES (0, Null , Null , Null , Null , Null )");
    const sql::Recordset rows = run("select * from DPI");
    for (const char* column : {"DPI_PDM_Tipo", "DPI_PDM_b1", "DPI_PDM_x", "DPI_PDM_h1", "DPI_PDM_Texto"}) {
        EXPECT_TRUE(rows[column].isNull()) << column;
    }
}

TEST_F(NewDatabaseOnEngine, ADifferentSpellingReachesTheSameColumn) {
    run("INSERT INTO PDM (PDm_tipo,PDM_Z) VALUES (3,17)");
    EXPECT_TRUE(run("Select * from PDM where PDm_tipo = 3 AND PDm_z=17").hasRows());
    run("INSERT INTO modpi (moDPI_dpi,MODPI_IMPORTE) VALUES (5,1.5)");
    EXPECT_EQ(run("select MoDpi_Importe from MoDpi where MoDpi_Dpi=5")[0], sql::Value(1.5));
    run("INSERT INTO DPI (dpi_artdisco) VALUES (12)");
    EXPECT_EQ(run("select * from DPI")["DPI_ArtDisco"], sql::Value(12));
}

TEST_F(NewDatabaseOnEngine, AKeyIsNeverGivenTwice) {
    run("INSERT INTO DPI (DPI_Tipo) VALUES (0)");
    run("INSERT INTO DPI (DPI_Tipo) VALUES (1)");
    run("delete from DPI where DPI_Id = 2");
    run("INSERT INTO DPI (DPI_Tipo) VALUES (2)");
    EXPECT_EQ(run("SELECT MAX(DPI_Id) FROM DPI")[0], sql::Value(3));
}

TEST_F(NewDatabaseOnEngine, ARolledBackInsertLeavesItsKeyFree) {
    run("INSERT INTO DPI (DPI_Tipo) VALUES (0)");
    connection->beginTrans();
    run("INSERT INTO DPI (DPI_Tipo) VALUES (1)");
    connection->rollbackTrans();
    run("INSERT INTO DPI (DPI_Tipo) VALUES (2)");
    EXPECT_EQ(run("SELECT MAX(DPI_Id) FROM DPI")[0], sql::Value(2));
}

TEST_F(NewDatabaseOnEngine, AHostKeyIsGivenOnce) {
    run("INSERT INTO ART (ART_ID) VALUES (1)");
    EXPECT_THROW(run("INSERT INTO ART (ART_ID) VALUES (1)"), sql::DbError);
}

TEST_F(NewDatabaseOnEngine, ATextTooLongIsRefusedWithItsColumnNotCut) {
    const std::string longText(101, 'x');
    try {
        run("INSERT INTO DPI (DPI_NomCliente) VALUES (N'" + longText + "')");
        FAIL() << "a text of 101 characters went into 100";
    } catch (const sql::DbError& error) {
        EXPECT_NE(error.description().find("DPI_NomCliente"), std::string::npos) << error.description();
    }
    EXPECT_NO_THROW(run("INSERT INTO DPI (DPI_NomCliente) VALUES (N'" + std::string(100, 'x') + "')"));
}

TEST_F(NewDatabaseOnEngine, ANewDatabaseRefusesToLieBesideTheDocumentsOfAnother) {
    run("DROP TABLE DPI");
    try {
        createDatabase(*connection);
        FAIL() << "the documents would turn up on new proposals";
    } catch (const sql::DbError& e) {
        EXPECT_NE(e.description().find("DOCTALLER"), std::string::npos) << e.description();
    }
    EXPECT_THROW(run("select top 1 DPI_Id from DPI"), sql::DbError);
}

TEST_F(NewDatabaseOnEngine, DocumentsTakeTheirRows) {
    run("INSERT INTO DOCTALLER.dbo.Dex (Dex_Doc,Dex_Fic,Dex_Idexp,Dex_Fecha) VALUES (Null,N'a.pdf',7,getdate())");
    EXPECT_EQ(run("Select isnull(max(dex_id),1) from DOCTALLER.dbo.dex")[0], sql::Value(1));
}

TEST_F(NewDatabaseOnEngine, ASecondCreationIsRefusedAndChangesNothing) {
    run("INSERT INTO DPI (DPI_Tipo) VALUES (0)");
    EXPECT_THROW(createDatabase(*connection), sql::DbError);
    EXPECT_EQ(run("select count(*) from DPI")[0], sql::Value(1));
}

}  // namespace
}  // namespace velmora::data
