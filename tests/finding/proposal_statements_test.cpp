#include "velmora/finding/proposal_statements.h"

#include <algorithm>
#include <array>

#include <gmock/gmock.h>

#include "velmora/data/schema.h"

#include "support/proposal_workshop.h"

namespace velmora::finding {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

TEST(ProposalStatements, APatternTakesAccentsAndItsOwnSignsLiterally) {
    struct Row {
        const char* word;
        const char* literal;
    };
    const std::array rows{
        Row{"xyz", "N'%xyz%'"},         Row{"Lopez", "N'%L[oóòôöõ]p[eéèêë]z%'"},
        Row{"ÁÑ", "N'%[aáàâäã][nñ]%'"}, Row{"50%", "N'%50[%]%'"},
        Row{"b_1", "N'%b[_]1%'"},       Row{"[x]", "N'%[[]x]%'"},
        Row{"D'x", "N'%D''x%'"},        Row{"'; drop--", "N'%''; dr[oóòôöõ]p--%'"},
        Row{"^-", "N'%^-%'"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(containing(row.word), row.literal) << row.word;
    }
}

TEST(ProposalStatements, EachNamesItsRowsByAnIndexOrTheKey) {
    EXPECT_THAT(latestStatement(), HasSubstr("SELECT TOP 200 DPI_Id,"));
    EXPECT_THAT(latestStatement(), EndsWith(" FROM DPI ORDER BY DPI_Id DESC"));
    EXPECT_THAT(numberStatement(321), EndsWith(" WHERE DPI_Id = 321 ORDER BY DPI_Id DESC"));
    EXPECT_THAT(customerStatement(1001), EndsWith(" WHERE DPI_CodCliente = 1001 ORDER BY DPI_Fecha DESC"));
    EXPECT_THAT(toothingStatement({.teeth = 38}), EndsWith(" WHERE DPI_Z = 38 ORDER BY DPI_Id DESC"));
    EXPECT_THAT(toothingStatement({.teeth = 20, .size = 2.0, .isModule = true}),
                HasSubstr(" WHERE DPI_Z = 20 AND Dpi_Modulo BETWEEN 1.9949 AND 2.0051 "));
    EXPECT_THAT(textStatement({"abc", "xy"}, 500),
                EndsWith(" WHERE DPI_Id > 500 AND (DPI_NomCliente LIKE N'%[aáàâäã]b[cç]%' OR DPI_RefCli LIKE "
                         "N'%[aáàâäã]b[cç]%' OR DPI_PedCliente LIKE N'%[aáàâäã]b[cç]%') AND (DPI_NomCliente LIKE "
                         "N'%xy%' OR DPI_RefCli LIKE N'%xy%' OR DPI_PedCliente LIKE N'%xy%') ORDER BY DPI_Id DESC"));
}

// A list of proposals that were searched by other columns would be read to its end, row by row.
TEST(ProposalStatements, ThereAreIndexesForWhatTheySearchBy) {
    const auto isIndexed = [](std::string_view columns) {
        return std::ranges::any_of(data::indexes(), [&](const data::IndexDefinition& index) {
            return index.table == "DPI" && index.columns.starts_with(columns);
        });
    };
    EXPECT_TRUE(isIndexed("DPI_Z"));
    EXPECT_TRUE(isIndexed("DPI_CodCliente, DPI_Fecha"));
    EXPECT_EQ(data::findTable("DPI")->key, "DPI_Id");
}

}  // namespace
}  // namespace velmora::finding
