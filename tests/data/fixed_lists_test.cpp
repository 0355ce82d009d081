#include "velmora/data/fixed_lists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/data/chains.h"
#include "velmora/data/schema.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::data {
namespace {

using ::testing::ElementsAre;

TEST(FixedLists, ChainsStandInTheOrderThatIsStored) {
    EXPECT_THAT(chains, ElementsAre("ISO 3/8''", "ISO 1/2''", "ISO 5/8''", "ISO 3/4''", "ISO 1''", "ISO 1 1/4''",
                                    "ISO 1 1/2''", "ISO 1 3/4''", "ISO 2''", "ISO 2 1/2''", "ASA 35 3/8''",
                                    "ASA 40 1/2''", "ASA 50 5/8''", "ASA 60 3/4''", "ASA 80 1''", "ASA 100 1 1/4''",
                                    "ASA 120 1 1/2''", "ASA 140 1 3/4''", "ASA 160 2''", "ASA 180 2 1/2''"));
}

TEST(FixedLists, AChainEndsInTwoApostrophesAndNoQuoteMark) {
    for (const std::string_view chain : chains) {
        EXPECT_TRUE(chain.ends_with("''")) << chain;
        EXPECT_EQ(chain.find('"'), std::string_view::npos) << chain;
    }
}

TEST(FixedLists, ToolsFitTheirColumn) {
    EXPECT_THAT(herramientas, ElementsAre("Broca", "H7", "H5"));
    const ColumnDefinition* column = findColumn(*findTable("DPI"), "DPI_HERRAMIENTA");
    for (const std::string_view tool : herramientas) {
        EXPECT_LE(runtime::Len(tool), static_cast<std::size_t>(column->width));
    }
}

TEST(FixedLists, HistoryFilterAndGearFamiliesStandInOrder) {
    EXPECT_THAT(filtrosHistorico, ElementsAre("Solo Aceptados", "Solo Pendientes", "Todos"));
    EXPECT_EQ(filtrosHistorico[todos], "Todos");
    EXPECT_THAT(familiasEngranaje, ElementsAre("Engranajes", "Engranaje Disco"));
}

}  // namespace
}  // namespace velmora::data
