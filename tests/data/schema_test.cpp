#include "velmora/data/schema.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/runtime/text.h"

namespace velmora::data {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

std::vector<std::string_view> columnsOf(std::string_view table) {
    std::vector<std::string_view> names;
    for (const ColumnDefinition& column : findTable(table)->columns) {
        names.push_back(column.name);
    }
    return names;
}

TEST(Schema, NamesEveryTableOnce) {
    std::vector<std::string_view> names;
    for (const TableDefinition& table : tables()) {
        names.push_back(table.name);
    }
    EXPECT_THAT(names, ElementsAre("DPI", "PARDPI", "PDM", "ENG", "MoDpi", "Calculos", "materiales", "ART", "CLI",
                                   "RSEC", "MAQ", "OPE", "OBM", "PRO", "CAC", "LAC", "REC", "Cav", "Lav", "ORDEN",
                                   "OrdPiñones", "Mat", "RUT", "dex"));
}

TEST(Schema, NoTableHasAColumnTwiceOrAKeyThatIsNoColumn) {
    for (const TableDefinition& table : tables()) {
        std::set<std::string> seen;
        for (const ColumnDefinition& column : table.columns) {
            EXPECT_TRUE(seen.insert(runtime::UCase(column.name)).second) << table.name << "." << column.name;
            EXPECT_EQ(column.type == ColumnType::text, column.width > 0) << table.name << "." << column.name;
        }
        EXPECT_TRUE(table.key.empty() || findColumn(table, table.key)) << table.name;
    }
}

TEST(Schema, GridsBoundByPositionFindTheirColumns) {
    EXPECT_THAT(columnsOf("MoDpi"), ElementsAre("MoDpi_Id", "MoDpi_Dpi", "MoDpi_Ope", "MoDpi_Maq", "MoDpi_Minutos",
                                                "MoDpi_Pvp", "MoDpi_Tiempo", "MoDpi_Importe"));
    EXPECT_THAT(columnsOf("PARDPI"), ElementsAre("PARDPI_ID", "PARDPI_NOM", "PARDPI_ART", "PARDPI_HIERRO",
                                                 "PARDPI_DISCO", "PARDPI_MATP", "PARDPI_CRE"));
    EXPECT_THAT(columnsOf("PDM"), ElementsAreArray({"PDM_ID", "PDM_Tipo", "PDM_Titulo", "PDM_Z", "PDM_Paso", "PDM_AC",
                                                    "PDM_Rodillo", "PDM_b1", "PDM_b2", "PDM_X", "PDM_H1", "PDM_De",
                                                    "PDM_Dp", "PDM_Df", "PDM_Dm", "PDM_D2", "PDM_A"}));
}

TEST(Schema, BehindAColumnThatOlderDatabasesLackStandNoOthers) {
    for (const TableDefinition& table : tables()) {
        const auto newer = [](const ColumnDefinition& column) { return !column.addedAs.empty(); };
        const auto first = std::ranges::find_if(table.columns, newer);
        EXPECT_TRUE(std::all_of(first, table.columns.end(), newer)) << table.name;
    }
}

TEST(Schema, TheServerAssignsTheKeysThatTheProgramLeavesOut) {
    std::vector<std::string_view> assigned;
    for (const TableDefinition& table : tables()) {
        for (const ColumnDefinition& column : table.columns) {
            if (column.identity) {
                assigned.push_back(column.name);
            }
        }
    }
    EXPECT_THAT(assigned,
                ElementsAre("DPI_Id", "PARDPI_ID", "PDM_ID", "ENG_Id", "MoDpi_Id", "ORDEN_ID", "Opi_Id", "Dex_Id"));
}

TEST(Schema, NewerColumnsStandLastAsAnUpgradeLeavesThem) {
    const auto columns = columnsOf("DPI");
    const std::vector<std::string_view> last(columns.end() - 5, columns.end());
    EXPECT_THAT(last, ElementsAre("Dpi_Modulo", "DPI_HERRAMIENTA", "Dpi_Acopla", "DPI_EXTRA", "DPI_ProTex"));
}

TEST(Schema, OwnTablesAndTheHostsAreToldApart) {
    std::vector<std::string_view> own;
    for (const TableDefinition& table : tables()) {
        if (table.owner == Owner::program) {
            own.push_back(table.name);
        }
    }
    EXPECT_THAT(own, ElementsAre("DPI", "PARDPI", "PDM", "ENG", "MoDpi", "Calculos"));
}

TEST(Schema, ADifferentSpellingReachesTheSameColumn) {
    EXPECT_EQ(findColumn(*findTable("pdm"), "PDm_tipo"), findColumn(*findTable("PDM"), "PDM_Tipo"));
    EXPECT_EQ(findColumn(*findTable("MODPI"), "moDPI_dpi"), findColumn(*findTable("MoDpi"), "MoDpi_Dpi"));
    EXPECT_EQ(findColumn(*findTable("dpi"), "dpi_artdisco"), findColumn(*findTable("DPI"), "DPI_ArtDisco"));
    ASSERT_NE(findColumn(*findTable("dpi"), "dpi_artdisco"), nullptr);
    EXPECT_EQ(findColumn(*findTable("DPI"), "DPI_Nothing"), nullptr);
    EXPECT_EQ(findTable("NOTHING"), nullptr);
}

TEST(Schema, TextsThatAreHandedOnFitWhereTheyGo) {
    const auto width = [](std::string_view table, std::string_view column) {
        return findColumn(*findTable(table), column)->width;
    };
    EXPECT_LE(width("CLI", "CLI_NOM"), width("DPI", "DPI_NomCliente"));
    EXPECT_LE(width("CLI", "CLI_COMER"), width("DPI", "DPI_NomCliente"));
    EXPECT_LE(width("DPI", "DPI_NomCliente"), width("ORDEN", "ORDEN_NOM"));
    EXPECT_LE(width("DPI", "DPI_RefCli"), width("ORDEN", "ORDEN_REF"));
    EXPECT_LE(width("DPI", "DPI_PedCliente"), width("ORDEN", "ORDEN_PED"));
    EXPECT_LE(width("ART", "ART_COD"), width("Mat", "Mat_Art"));
    EXPECT_LE(width("ART", "ART_COD"), width("ORDEN", "ORDEN_ART"));
    EXPECT_LE(width("ART", "ART_COD"), width("LAC", "LAC_CODART"));
    EXPECT_LE(width("ART", "ART_DES"), width("Mat", "Mat_Des"));
}

TEST(Schema, DocumentsLieInTheirOwnCatalogue) {
    EXPECT_EQ(catalogPrefix(findTable("dex")->catalog, "TALLER"), "DOCTALLER.dbo.");
    EXPECT_EQ(catalogPrefix(findTable("DPI")->catalog, "TALLER"), "");
}

}  // namespace
}  // namespace velmora::data
