#include "velmora/paper/price_sheets.h"

#include <gmock/gmock.h>

#include "velmora/paper/proposal_sheets.h"

namespace velmora::paper {
namespace {

using ::testing::ElementsAre;

std::size_t placeOfLadder(const Sheet& sheet) {
    for (std::size_t i = 0; i < sheet.blocks.size(); ++i) {
        const auto* table = std::get_if<Table>(&sheet.blocks[i]);
        if (table != nullptr && table->title == "Precios según la cantidad") {
            return i;
        }
    }
    return sheet.blocks.size();
}

StoredProposal pricedProposal() {
    StoredProposal p;
    p.number = 7;
    p.type = 0;
    p.material = 5;
    p.labourAmount = 3;
    p.saw = 10;
    p.piece = 18;
    p.units = 3;
    p.total = 54;
    p.remarks = "Plazo: dos semanas";
    return p;
}

TEST(PriceSheetsTest, TheCustomersSheetHasTheLadderBelowItsPrices) {
    const StoredProposal p = pricedProposal();
    Sheet sheet = customerSheet(p);
    addLadder(sheet, p, {.saw = estimate::SawCharge::asItStands, .pieces = {1, 10}});
    const std::size_t place = placeOfLadder(sheet);
    ASSERT_LT(place, sheet.blocks.size());
    EXPECT_TRUE(std::holds_alternative<Figures>(sheet.blocks[place - 1]));
    EXPECT_TRUE(std::holds_alternative<Paragraph>(sheet.blocks[place + 1])) << "the remarks stay last";
    EXPECT_THAT(std::get<Table>(sheet.blocks[place]).rows,
                ElementsAre(ElementsAre("1", "18,00", "18,00"), ElementsAre("10", "18,00", "180,00")));
}

TEST(PriceSheetsTest, TheSawChargeIsSpreadOnPaperAsWanted) {
    const StoredProposal p = pricedProposal();
    Sheet sheet = customerSheet(p);
    addLadder(sheet, p, {.saw = estimate::SawCharge::spread, .pieces = {1, 10}});
    EXPECT_THAT(std::get<Table>(sheet.blocks.at(placeOfLadder(sheet))).rows,
                ElementsAre(ElementsAre("1", "18,00", "18,00"), ElementsAre("10", "9,00", "90,00")));
}

TEST(PriceSheetsTest, ASheetWithoutPricesHasTheLadderAtItsEnd) {
    Sheet sheet{.title = "Propuesta", .name = "Propuesta", .heading = {}, .blocks = {Paragraph{"Notas", "x"}}};
    addLadder(sheet, pricedProposal(), {.saw = estimate::SawCharge::asItStands, .pieces = {2}});
    EXPECT_EQ(placeOfLadder(sheet), 1U);
}

TEST(PriceSheetsTest, ALadderHasASheetOfItsOwn) {
    const std::vector<estimate::LadderStep> steps{{.pieces = 2.5, .piece = 1234.5, .lot = 3086.25}};
    const Sheet sheet = ladderSheet("Disco, propuesta 7", steps);
    EXPECT_EQ(sheet.heading.at(0).value, "Disco, propuesta 7");
    EXPECT_THAT(std::get<Table>(sheet.blocks.at(0)).rows, ElementsAre(ElementsAre("2,5", "1.234,50", "3.086,25")));
}

estimate::Explanation figure(estimate::Topic topic, const std::string& title) {
    return {.field = nullptr,
            .topic = topic,
            .title = title,
            .unit = "mm",
            .shown = "12",
            .rule = "Otra medida",
            .inputs = {},
            .steps = {},
            .rounding = "ninguno",
            .result = "12",
            .obstacle = {}};
}

TEST(PriceSheetsTest, EachTopicOfTheExplanationIsATable) {
    const std::vector<estimate::Explanation> figures{figure(estimate::Topic::measures, "Ø Fondo"),
                                                     figure(estimate::Topic::measures, "Ø Exterior"),
                                                     figure(estimate::Topic::price, "Importe Total")};
    const Sheet sheet = explanationSheet("Disco, propuesta 7", figures);
    ASSERT_EQ(sheet.blocks.size(), 2U);
    const auto& measures = std::get<Table>(sheet.blocks[0]);
    EXPECT_EQ(measures.title, "Medidas");
    EXPECT_EQ(std::get<Table>(sheet.blocks[1]).title, "Precio");
    const std::string words = "Regla: Otra medida\nResultado: 12 mm\nRedondeo: ninguno";
    EXPECT_THAT(measures.rows,
                ElementsAre(ElementsAre("Ø Fondo", "12 mm", words), ElementsAre("Ø Exterior", "12 mm", words)));
}

}  // namespace
}  // namespace velmora::paper
