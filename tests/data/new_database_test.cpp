#include "velmora/data/new_database.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/data/schema.h"

#include "support/recording_connection.h"
#include "support/scripted_connection.h"
#include "support/sql_batches.h"

namespace velmora::data {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const runtime::Date now = runtime::Date::of(2026, 1, 15, 10, 0, 0);

TEST(NewDatabase, CreatesATableWithItsIdentityDefaultsAndCollation) {
    const auto statements = newDatabaseStatements("TALLER");
    EXPECT_THAT(statements,
                Contains("CREATE TABLE [dbo].[PARDPI] ([PARDPI_ID] [int] IDENTITY (1, 1) NOT NULL, "
                         "[PARDPI_NOM] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL, [PARDPI_ART] [int] NULL, "
                         "[PARDPI_HIERRO] [bit] NULL, [PARDPI_DISCO] [bit] NULL, "
                         "[PARDPI_MATP] [nvarchar] (150) COLLATE Modern_Spanish_CI_AS NULL, "
                         "[PARDPI_CRE] [bit] NOT NULL DEFAULT 0)"));
    EXPECT_THAT(statements, Contains("ALTER TABLE [dbo].[PARDPI] WITH NOCHECK ADD CONSTRAINT [PK_PARDPI] "
                                     "PRIMARY KEY CLUSTERED ( [PARDPI_ID] )"));
}

TEST(NewDatabase, CreatesTheGearsAsAnUpgradeDoes) {
    const auto statements = newDatabaseStatements("TALLER");
    const auto create = std::ranges::find(statements, createEng);
    ASSERT_NE(create, statements.end());
    EXPECT_EQ(*std::next(create), addKeyOfEng);
    // The literal and the definition tell the same columns.
    for (const ColumnDefinition& column : findTable("ENG")->columns) {
        EXPECT_THAT(std::string(createEng), HasSubstr("[" + std::string(column.name) + "]"));
    }
}

TEST(NewDatabase, IndexesWhatListsSearchBy) {
    EXPECT_THAT(newDatabaseStatements("TALLER"),
                Contains("CREATE INDEX [IX_PDM_Chain] ON [dbo].[PDM] (PDM_Tipo, PDM_Z)"));
    for (const IndexDefinition& index : indexes()) {
        ASSERT_NE(findTable(index.table), nullptr) << index.name;
        EXPECT_EQ(findTable(index.table)->catalog, Catalog::session) << index.name;
    }
}

TEST(NewDatabase, PutsTheDocumentsIntoTheirCatalogue) {
    EXPECT_THAT(newDatabaseStatements("TALLER"), Contains(StartsWith("CREATE TABLE DOCTALLER.dbo.dex (")));
}

TEST(NewDatabase, TheSchemasDocumentHasTheSameTablesAndKeys) {
    std::ifstream file(VELMORA_SOURCE_DIR "/docs/schema.sql");
    ASSERT_TRUE(file);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    std::vector<std::string> told;
    for (const std::string& batch : support::batchesOf(text)) {
        told.push_back(support::evenlySpaced(batch));
    }
    std::vector<std::string> expected;
    for (const std::string& statement : tableStatements("VELMORA")) {
        expected.push_back(support::evenlySpaced(statement));
    }
    EXPECT_EQ(told, expected);
}

TEST(NewDatabase, RunsOneStatementAtATimeInOneTransaction) {
    support::ScriptedConnection engine;
    support::RecordingConnection connection(engine);
    createDatabase(connection);
    const auto statements = newDatabaseStatements("TALLER");
    ASSERT_EQ(connection.log().size(), statements.size() + 3);
    EXPECT_EQ(connection.log()[0], "Select top 1 * from DOCTALLER.dbo.dex");
    EXPECT_EQ(connection.log()[1], "BEGIN");
    EXPECT_EQ(connection.log().back(), "COMMIT");
    EXPECT_TRUE(std::equal(statements.begin(), statements.end(), connection.log().begin() + 2));
}

TEST(NewDatabase, ARefusedStatementLeavesNothingBehind) {
    support::ScriptedConnection engine;
    support::RecordingConnection connection(engine);
    connection.refuse("[dbo].[PDM]");
    EXPECT_THROW(createDatabase(connection), sql::DbError);
    EXPECT_EQ(connection.log().back(), "ROLLBACK");
    EXPECT_THAT(connection.logged("COMMIT"), ElementsAre());
}

TEST(NewDatabase, ReadsOneStatementALine) {
    EXPECT_THAT(statementsOfLines("-- a heading\nINSERT A\r\n\n  INSERT B  \n  -- aside\nINSERT C -- not a comment"),
                ElementsAre("INSERT A", "INSERT B", "INSERT C -- not a comment"));
    EXPECT_THAT(statementsOfLines(""), ElementsAre());
}

TEST(NewDatabase, CountsDaysBackFromNow) {
    EXPECT_EQ(withDays("VALUES ('{today-15}','{today}','{today+17}')", now),
              "VALUES ('31/12/2025','15/01/2026','01/02/2026')");
    EXPECT_EQ(withDays("no day, an open {today", now), "no day, an open {today");
}

TEST(NewDatabase, DemoRowsAreInsertsWithNoDayLeftOpen) {
    const auto statements = demoStatements(now);
    EXPECT_GT(statements.size(), 500U);
    for (const std::string& statement : statements) {
        ASSERT_THAT(statement, StartsWith("INSERT INTO "));
        ASSERT_EQ(statement.find('{'), std::string::npos) << statement;
    }
}

TEST(NewDatabase, DemoRowsMoveWithTheDayOfTheirMaking) {
    const auto today = demoStatements(now);
    const auto tomorrow = demoStatements(runtime::Date{now.at + std::chrono::days{1}});
    ASSERT_EQ(today.size(), tomorrow.size());
    EXPECT_THAT(today, Contains(HasSubstr("'15/01/2026'")));
    EXPECT_THAT(tomorrow, Contains(HasSubstr("'16/01/2026'")));
    EXPECT_NE(today, tomorrow);
}

}  // namespace
}  // namespace velmora::data
