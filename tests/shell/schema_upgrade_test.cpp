#include "velmora/shell/schema_upgrade.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/data/schema.h"

#include "support/fake_screen.h"
#include "support/faulty_connection.h"
#include "support/recording_connection.h"
#include "support/scripted_connection.h"

namespace velmora::shell {
namespace {

using ::testing::ElementsAre;

constexpr const char* probePardpi = "Select top 1 * from PARDPI";
constexpr const char* probeDpi = "Select top 1 * from dpi";
constexpr const char* probeEng = "Select top 1 * from ENG";
constexpr const char* failurePardpi = "Error Grave. No fué posible actualizar la tabla PARDPI";
constexpr const char* failureDpi = "Error Grave. No fué posible actualizar la tabla DPI";
constexpr const char* failureEng = "Error Grave. No fué posible actualizar la tabla ENG";

class SchemaUpgradeTest : public ::testing::Test {
  protected:
    support::ScriptedConnection engine;
    support::RecordingConnection connection{engine};
    support::ScriptedScreen screen;

    SchemaUpgradeTest() {
        engine.answer(probePardpi, {"PARDPI_ID", "PARDPI_CRE"});
        engine.answer(probeDpi, dpiWithout({}));
        engine.answer(probeEng, {"ENG_Id"});
    }

    static std::vector<std::string> dpiWithout(const std::vector<std::string>& missing) {
        std::vector<std::string> columns = {"DPI_Id"};
        for (const char* column : {"DPI_Modulo", "DPI_HERRAMIENTA", "DPI_Acopla", "DPI_Extra", "DPI_ProTex"}) {
            if (std::ranges::find(missing, column) == missing.end()) {
                columns.emplace_back(column);
            }
        }
        return columns;
    }
    void expectFailure(const char* text) {
        ASSERT_EQ(screen.messages.size(), 1U);
        EXPECT_EQ(screen.messages[0].text, text);
        EXPECT_EQ(screen.messages[0].icon, screen::Icon::critical);
        EXPECT_EQ(screen.messages[0].buttons, screen::Buttons::ok);
        EXPECT_EQ(screen.messages[0].title, "");
    }
};

TEST_F(SchemaUpgradeTest, AnUpToDateDatabaseIsOnlyLookedAt) {
    EXPECT_TRUE(FnActualizarBD(connection, screen));
    EXPECT_THAT(connection.log(), ElementsAre(probePardpi, probeDpi, probeEng));
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(SchemaUpgradeTest, AddsTheRackFlag) {
    engine.answer(probePardpi, {"PARDPI_ID", "PARDPI_NOM"});
    msActualizarPARDPI(connection, screen);
    EXPECT_THAT(connection.log(),
                ElementsAre(probePardpi, "ALTER TABLE PARDPI ADD [PARDPI_CRE] [bit] NOT NULL DEFAULT 0 WITH VALUES "));
}

TEST_F(SchemaUpgradeTest, OneMissingColumnComesWithoutALeadingComma) {
    engine.answer(probeDpi, dpiWithout({"DPI_Extra"}));
    msActualizarDPI(connection, screen);
    EXPECT_THAT(connection.log(),
                ElementsAre(probeDpi,
                            "ALTER TABLE DPI ADD [DPI_EXTRA] [nvarchar] (200) COLLATE Modern_Spanish_CI_AS NOT NULL "
                            "DEFAULT '' WITH VALUES "));
}

TEST_F(SchemaUpgradeTest, TwoMissingColumnsAreJoinedByOneComma) {
    engine.answer(probeDpi, dpiWithout({"DPI_Acopla", "DPI_Modulo"}));
    msActualizarDPI(connection, screen);
    EXPECT_THAT(connection.log(),
                ElementsAre(probeDpi,
                            "ALTER TABLE DPI ADD [Dpi_Modulo] [float] NOT NULL  DEFAULT 0 WITH VALUES ,"
                            "[Dpi_Acopla] [int] NOT NULL DEFAULT 0 WITH VALUES "));
}

TEST_F(SchemaUpgradeTest, AnOldTableGetsAllFiveColumnsInOneStatement) {
    engine.answer(probeDpi, {"DPI_Id"});
    msActualizarDPI(connection, screen);
    EXPECT_THAT(
        connection.log(),
        ElementsAre(probeDpi,
                    "ALTER TABLE DPI ADD [Dpi_Modulo] [float] NOT NULL  DEFAULT 0 WITH VALUES ,"
                    "[DPI_HERRAMIENTA] [nvarchar] (15) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES ,"
                    "[Dpi_Acopla] [int] NOT NULL DEFAULT 0 WITH VALUES ,"
                    "[DPI_EXTRA] [nvarchar] (200) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES ,"
                    "[DPI_ProTex] [nvarchar] (35) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES "));
}

TEST_F(SchemaUpgradeTest, DoubledAndTrailingBlanksOfTheStatementsStay) {
    engine.answer(probeDpi, dpiWithout({"DPI_Modulo"}));
    msActualizarDPI(connection, screen);
    EXPECT_EQ(connection.log().back(), "ALTER TABLE DPI ADD [Dpi_Modulo] [float] NOT NULL  DEFAULT 0 WITH VALUES ");
}

TEST_F(SchemaUpgradeTest, AColumnInAnotherCaseOrAmongBlanksIsThere) {
    engine.answer(probePardpi, {"pardpi_id", " pardpi_Cre  "});
    engine.answer(probeDpi, {"dpi_modulo ", "Dpi_Herramienta", " DPI_ACOPLA", "dpi_extra", "DPI_PROTEX"});
    FnActualizarBD(connection, screen);
    EXPECT_THAT(connection.log(), ElementsAre(probePardpi, probeDpi, probeEng));
}

TEST_F(SchemaUpgradeTest, ASecondStartChangesNothing) {
    engine.answer(probePardpi, {"PARDPI_ID"});
    msActualizarPARDPI(connection, screen);
    engine.answer(probePardpi, {"PARDPI_ID", "PARDPI_CRE"});
    connection.clear();
    msActualizarPARDPI(connection, screen);
    EXPECT_THAT(connection.log(), ElementsAre(probePardpi));
}

TEST_F(SchemaUpgradeTest, ARefusedColumnIsToldAndTheOthersGoOn) {
    engine.answer(probePardpi, {"PARDPI_ID"});
    connection.refuse("ALTER TABLE PARDPI");
    EXPECT_TRUE(FnActualizarBD(connection, screen));
    expectFailure(failurePardpi);
    EXPECT_EQ(connection.log().back(), probeEng);
}

TEST_F(SchemaUpgradeTest, AColumnThatIsRefusedIsToldAlsoWhenTheTableCannotBeLookedAtAgain) {
    engine.answer(probePardpi, {"PARDPI_ID"});
    connection.refuse("ALTER TABLE PARDPI");
    support::FaultyConnection faulty(connection);
    faulty.failAt(2);
    msActualizarPARDPI(faulty, screen);
    expectFailure(failurePardpi);
}

TEST_F(SchemaUpgradeTest, ARefusedAdditionToTheProposalsIsTold) {
    engine.answer(probeDpi, {"DPI_Id"});
    connection.refuse("ALTER TABLE DPI");
    EXPECT_TRUE(FnActualizarBD(connection, screen));
    expectFailure(failureDpi);
}

TEST_F(SchemaUpgradeTest, AMissingMaterialsTableIsRaised) {
    engine.fail(probePardpi, sql::provider::missingTable);
    EXPECT_THROW(msActualizarPARDPI(connection, screen), sql::DbError);
    EXPECT_THROW(FnActualizarBD(connection, screen), sql::DbError);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(SchemaUpgradeTest, AMissingProposalsTableIsRaised) {
    engine.fail(probeDpi, sql::provider::missingTable);
    EXPECT_THROW(msActualizarDPI(connection, screen), sql::DbError);
}

TEST_F(SchemaUpgradeTest, AMissingGearsTableIsCreatedWithItsKey) {
    engine.fail(probeEng, sql::provider::missingTable);
    EXPECT_TRUE(FnActualizarBD(connection, screen));
    EXPECT_THAT(connection.log(),
                ElementsAre(probePardpi, probeDpi, probeEng,
                            "CREATE TABLE [dbo].[ENG] ([ENG_Id] [numeric](18, 0) IDENTITY (1, 1) NOT NULL ,"
                            "[ENG_Tipo] [int] NOT NULL ,[ENG_Modulo] [float] NOT NULL ,[ENG_Z]   [float] NOT NULL,"
                            "[ENG_Paso]  [float] NOT NULL ,[ENG_Dp]  [float] NOT NULL ,[ENG_Di] [float] NOT NULL,"
                            "[ENG_De]  [float] NOT NULL ,[ENG_Dm] [float] NOT NULL ,[ENG_D1]  [float] NOT NULL ,"
                            "[ENG_H] [float] NOT NULL,[ENG_A]  [float] NOT NULL ,[ENG_B] [float] NOT NULL ,"
                            "[ENG_C] [float] NOT NULL  ) ON [PRIMARY]",
                            "ALTER TABLE [dbo].[ENG] WITH NOCHECK ADD CONSTRAINT [PK_ENG] PRIMARY KEY  CLUSTERED "
                            "( [ENG_Id] )  ON [PRIMARY]"));
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(SchemaUpgradeTest, AnyOtherFailureOfTheGearsProbeIsNothingToDo) {
    engine.fail(probeEng, sql::provider::failure);
    EXPECT_TRUE(FnActualizarBD(connection, screen));
    EXPECT_EQ(connection.log().back(), probeEng);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(SchemaUpgradeTest, ARefusedGearsTableEndsWithoutItsKey) {
    engine.fail(probeEng, sql::provider::missingTable);
    connection.refuse("CREATE TABLE [dbo].[ENG]");
    EXPECT_FALSE(FnActualizarBD(connection, screen));
    expectFailure(failureEng);
    EXPECT_THAT(connection.log(), ElementsAre(probePardpi, probeDpi, probeEng, data::createEng, probeEng));
}

TEST_F(SchemaUpgradeTest, ARefusedKeyLeavesTheTableWithoutItForGood) {
    engine.fail(probeEng, sql::provider::missingTable);
    connection.refuse("ADD CONSTRAINT [PK_ENG]");
    EXPECT_FALSE(FnActualizarBD(connection, screen));
    expectFailure(failureEng);
    // The table stands now: the next start finds it and does not add the key.
    engine.answer(probeEng, {"ENG_Id"});
    connection.clear();
    EXPECT_TRUE(FnActualizarBD(connection, screen));
    EXPECT_THAT(connection.log(), ElementsAre(probePardpi, probeDpi, probeEng));
}

}  // namespace
}  // namespace velmora::shell
