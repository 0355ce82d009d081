#include "velmora/data/indexes.h"

#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <gmock/gmock.h>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"
#include "velmora/data/schema.h"

#include "support/recording_connection.h"

namespace velmora::data {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAreArray;

class IndexesTest : public ::testing::Test {
  protected:
    /// How many of the schema's indexes are there already: creating one again is refused.
    std::size_t present() {
        std::size_t count = 0;
        for (const std::string& statement : indexStatements()) {
            engine->beginTrans();
            try {
                engine->execute(statement);
            } catch (const sql::DbError&) {
                ++count;
            }
            engine->rollbackTrans();
        }
        return count;
    }

    std::unique_ptr<sql::Connection> engine = sqlite::openDatabase(":memory:");
};

TEST_F(IndexesTest, ANewDatabaseHasThemAll) {
    createDatabase(*engine);
    EXPECT_EQ(present(), indexes().size());
}

TEST_F(IndexesTest, AnOlderDatabaseGetsThoseThatItLacks) {
    createDatabase(*engine);
    engine->execute("DROP INDEX [IX_MoDpi_Dpi] ON [dbo].[MoDpi]");
    engine->execute("DROP INDEX [IX_DPI_Toothing] ON [dbo].[DPI]");
    ASSERT_EQ(present(), indexes().size() - 2);
    addMissingIndexes(*engine);
    EXPECT_EQ(present(), indexes().size());
    EXPECT_NO_THROW(addMissingIndexes(*engine));
}

TEST_F(IndexesTest, ATableThatIsNotThereIsLeftOut) {
    createDatabase(*engine);
    engine->execute("DROP TABLE PDM");
    EXPECT_NO_THROW(addMissingIndexes(*engine));
}

TEST_F(IndexesTest, OneThatIsKnownIsNotTried) {
    createDatabase(*engine);
    support::RecordingConnection connection(*engine);
    addMissingIndexes(connection, [](std::string_view table, std::string_view index) {
        return table != "MoDpi" || index != "IX_MoDpi_Dpi";
    });
    EXPECT_THAT(connection.log(), ElementsAre(StartsWith("CREATE INDEX [IX_MoDpi_Dpi] ON [dbo].[MoDpi]")));
}

TEST_F(IndexesTest, ABusyDatabaseIsAnErrorAndNotAMissingIndex) {
    support::RecordingConnection connection(*engine);
    connection.refuse("IX_DPI_Fecha", sql::provider::timeout, "Ocupada");
    EXPECT_THROW(addMissingIndexes(connection), sql::DbError);
}

TEST(IndexesDocument, ProposesWhatAnEmbeddedDatabaseHas) {
    std::ifstream file(VELMORA_SOURCE_DIR "/docs/indexes.sql");
    ASSERT_TRUE(file);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_THAT(statementsOfLines(text), UnorderedElementsAreArray(indexStatements()));
}

TEST(Indexes, CoverTheToothingTheTrackingListAndTheLabour) {
    EXPECT_THAT(indexStatements(), Contains("CREATE INDEX [IX_DPI_Toothing] ON [dbo].[DPI] (DPI_Z, DPI_Pas, DPI_AC, "
                                            "DPI_Rodillo, DPI_Tipo, DPI_Fecha)"));
    EXPECT_THAT(indexStatements(), Contains("CREATE INDEX [IX_DPI_Type] ON [dbo].[DPI] (DPI_Tipo, DPI_Fecha)"));
    EXPECT_THAT(indexStatements(), Contains("CREATE INDEX [IX_DPI_TypeKey] ON [dbo].[DPI] (DPI_Tipo)"));
    EXPECT_THAT(indexStatements(),
                Contains("CREATE INDEX [IX_DPI_CustomerDate] ON [dbo].[DPI] (DPI_CodCliente, DPI_Fecha)"));
    EXPECT_THAT(indexStatements(), Contains("CREATE INDEX [IX_MoDpi_Dpi] ON [dbo].[MoDpi] (MoDpi_Dpi)"));
    EXPECT_THAT(indexStatements(), Contains("CREATE INDEX [IX_OBM_Machine] ON [dbo].[OBM] (OBM_MAQ)"));
}

}  // namespace
}  // namespace velmora::data
