#include "velmora/paper/proposal_sheets.h"

#include <algorithm>
#include <set>

#include <gmock/gmock.h>

#include "velmora/data/product_types.h"
#include "velmora/estimate/multiple_drawings.h"

namespace velmora::paper {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr int types = static_cast<int>(data::productTypes.size());

/// Every measure is there, and the total is that of no sum.
StoredProposal proposalOf(int type) {
    StoredProposal p;
    p.number = 7;
    p.type = type;
    p.measures = {.teeth = 21,
                  .pitch = 12.7,
                  .module = 4,
                  .exterior = 127.5,
                  .pitchDiameter = 121.5,
                  .root = 113,
                  .bore = 25,
                  .keyway = 8,
                  .hub = 80,
                  .hubWidth = 32.4,
                  .secondHub = 60,
                  .secondHubWidth = 30,
                  .rim = 7.2,
                  .totalWidth = 61.3,
                  .chainRim = 7,
                  .gap = 9.5,
                  .coreHeight = 16.5,
                  .toothHeight = 9,
                  .height = 40,
                  .length = 1000,
                  .width = 30};
    return p;
}

template <typename Kind>
std::vector<Kind> blocksOf(const Sheet& sheet) {
    std::vector<Kind> found;
    for (const Block& block : sheet.blocks) {
        if (const auto* kind = std::get_if<Kind>(&block)) {
            found.push_back(*kind);
        }
    }
    return found;
}

std::vector<Sheet> sheetsOf(const StoredProposal& p) {
    return {customerSheet(p), shopSheet(p)};
}

/// The values of the fields with this caption.
std::vector<std::string> valuesOf(const Sheet& sheet, const std::string& caption) {
    std::vector<std::string> values;
    for (const Fields& block : blocksOf<Fields>(sheet)) {
        for (const Field& field : block.fields) {
            if (field.caption == caption) {
                values.push_back(field.value);
            }
        }
    }
    return values;
}

/// The labels of a type's sketch that tell a total width.
std::set<int> totalLabels(int type) {
    switch (data::productType(type).shape) {
        case data::ProductShape::oneRim:
            return {static_cast<int>(estimate::PieceLabel::totalWidth),
                    static_cast<int>(estimate::PieceLabel::totalWidthOfTwoHubs)};
        case data::ProductShape::twoRims:
            return {static_cast<int>(estimate::DoubleLabel::totalWidth)};
        case data::ProductShape::threeRims:
            return {static_cast<int>(estimate::TripleLabel::totalWidth)};
        case data::ProductShape::variable:
            return {static_cast<int>(estimate::VariableLabel::totalWidth)};
        case data::ProductShape::rack:
            return {};
    }
    return {};
}

/// Their texts, without words.
std::vector<std::string> totalsInSketch(const Sheet& sheet, int type) {
    std::vector<std::string> totals;
    for (const SketchBlock& sketch : blocksOf<SketchBlock>(sheet)) {
        for (const auto& [label, text] : sketch.labels) {
            if (totalLabels(type).contains(label)) {
                totals.push_back(text.substr(text.find_last_of(' ') + 1));
            }
        }
    }
    return totals;
}

TEST(ProposalSheetsTest, WithoutACompanyThereIsNeitherHeadNorClosing) {
    EXPECT_FALSE(customerSheet(proposalOf(0)).letterhead);
    EXPECT_FALSE(customerSheet(proposalOf(0)).closing);
}

TEST(ProposalSheetsTest, TheValidityIsCountedFromTheProposalsDate) {
    StoredProposal p = proposalOf(0);
    p.created = runtime::Date::of(2026, 1, 20, 17, 30);
    EXPECT_EQ(customerSheet(p, {.validityDays = 15}).closing.value().validity, "Oferta válida hasta 04/02/2026");
    EXPECT_FALSE(customerSheet(p, {.validityDays = 0}).closing);
}

TEST(ProposalSheetsTest, WithoutADateOrOnceAcceptedNoValidityIsTold) {
    StoredProposal p = proposalOf(0);
    EXPECT_FALSE(customerSheet(p, {.validityDays = 15}).closing);
    p.created = runtime::Date::of(2026, 1, 20);
    p.accepted = runtime::Date::of(2026, 1, 22);
    EXPECT_FALSE(customerSheet(p, {.validityDays = 15}).closing);
    EXPECT_EQ(customerSheet(p, {.terms = "Portes debidos.", .validityDays = 15}).closing.value().validity, "");
}

TEST(ProposalSheetsTest, EmptyLinesOfTheCompanyAreLeftOut) {
    const auto head =
        customerSheet(proposalOf(0), {.address = "Calle 3\r\n\n  50001 Zaragoza\n", .email = "a@b.invalid"}).letterhead;
    ASSERT_TRUE(head);
    EXPECT_THAT(head->lines, ElementsAre("Calle 3", "50001 Zaragoza", "a@b.invalid"));
}

TEST(ProposalSheetsTest, ADiscNamesNoTotalWidth) {
    for (const int disc : {1, 6, 7, 9, 14}) {
        for (const Sheet& sheet : sheetsOf(proposalOf(disc))) {
            EXPECT_THAT(valuesOf(sheet, "Ancho total"), IsEmpty()) << disc << sheet.title;
            EXPECT_THAT(totalsInSketch(sheet, disc), IsEmpty()) << disc << sheet.title;
        }
    }
}

TEST(ProposalSheetsTest, EveryOtherWheelNamesTheStoredTotalWidth) {
    for (const int wheel : {0, 2, 3, 4, 5, 8, 10, 11, 12}) {
        for (const Sheet& sheet : sheetsOf(proposalOf(wheel))) {
            EXPECT_THAT(valuesOf(sheet, "Ancho total"), ElementsAre("61,3 mm")) << wheel << sheet.title;
        }
    }
}

TEST(ProposalSheetsTest, NoSheetNamesTwoTotalWidths) {
    for (int type = -1; type < types; ++type) {
        for (const Sheet& sheet : sheetsOf(proposalOf(type))) {
            const std::vector<std::string> drawn = totalsInSketch(sheet, type);
            EXPECT_LE(drawn.size(), 1u) << type;
            EXPECT_TRUE(drawn.empty() || drawn.front() == "61,3") << type << " " << drawn.front();
        }
    }
}

TEST(ProposalSheetsTest, TwoEqualHubsBearTheirTotalOnce) {
    for (const int type : {2, 3}) {
        EXPECT_THAT(totalsInSketch(customerSheet(proposalOf(type)), type), ElementsAre("61,3"));
    }
}

TEST(ProposalSheetsTest, UnlikeHubsBearTheirTotalWhereItIsTheirSum) {
    for (const int type : {10, 11}) {
        StoredProposal p = proposalOf(type);
        EXPECT_THAT(totalsInSketch(shopSheet(p), type), IsEmpty()) << "61,3 is another total";
        p.measures.totalWidth = 69.6;
        EXPECT_THAT(totalsInSketch(shopSheet(p), type), ElementsAre("69,6"));
        EXPECT_THAT(valuesOf(shopSheet(p), "Ancho total"), ElementsAre("69,6 mm"));
    }
}

TEST(ProposalSheetsTest, WithoutAStoredTotalUnlikeHubsHaveTheSumOfTheirWidths) {
    StoredProposal p = proposalOf(10);
    for (const std::optional<double> none : {std::optional<double>(), std::optional<double>(0)}) {
        p.measures.totalWidth = none;
        EXPECT_THAT(valuesOf(customerSheet(p), "Ancho total"), ElementsAre("69,6 mm"));
        EXPECT_THAT(totalsInSketch(customerSheet(p), 10), ElementsAre("69,6"));
    }
    p.measures.secondHubWidth = 0;
    EXPECT_THAT(valuesOf(customerSheet(p), "Ancho total"), IsEmpty()) << "of two widths there is no sum of three";
    EXPECT_THAT(totalsInSketch(customerSheet(p), 10), IsEmpty());
}

TEST(ProposalSheetsTest, APieceWithoutMeasuresHasNoSketch) {
    for (int type = -1; type < types; ++type) {
        StoredProposal p;
        p.type = type;
        for (const Sheet& sheet : sheetsOf(p)) {
            EXPECT_THAT(blocksOf<SketchBlock>(sheet), IsEmpty()) << type;
        }
        p.measures.exterior = p.measures.rim = p.measures.totalWidth = p.measures.height = p.measures.length = 0;
        for (const Sheet& sheet : sheetsOf(p)) {
            EXPECT_THAT(blocksOf<SketchBlock>(sheet), IsEmpty()) << type << ": zero is no measure";
        }
        p.measures.exterior = p.measures.length = 1000;
        for (const Sheet& sheet : sheetsOf(p)) {
            EXPECT_THAT(blocksOf<SketchBlock>(sheet), Not(IsEmpty())) << type;
        }
    }
}

TEST(ProposalSheetsTest, WhatIsANumberIsMarkedAsOne) {
    for (const Fields& block : blocksOf<Fields>(shopSheet(proposalOf(0)))) {
        for (const Field& field : block.fields) {
            const bool digits = !field.value.empty() && field.value.front() >= '0' && field.value.front() <= '9';
            EXPECT_EQ(field.number, digits) << field.caption << " " << field.value;
        }
    }
}

// The sum of a piece.

Table costsOf(const StoredProposal& p) {
    return blocksOf<Table>(shopSheet(p)).back();
}

/// "caption value" of each column.
std::vector<std::string> columnsOf(const Table& table) {
    std::vector<std::string> columns;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        columns.push_back(table.columns[i].caption + " " + table.total.at(i));
    }
    return columns;
}

StoredProposal priced(double saw, double units, double piece) {
    StoredProposal p = proposalOf(0);
    p.material = 10;
    p.labourAmount = 2.5;
    p.subcontracted = 0;
    p.others = 1;
    p.saw = saw;
    p.units = units;
    p.piece = piece;
    p.total = piece * units;
    return p;
}

TEST(ProposalSheetsTest, AWholeSawChargeStandsAsItIs) {
    const Table table = costsOf(priced(4, 2, 17.5));
    EXPECT_THAT(columnsOf(table),
                ElementsAre("Material 10,00", "Mano de obra 2,50", "Subcontratados 0,00", "Varios 1,00",
                            "Fijo sierra 4,00", "Total pieza 17,50", "Piezas 2", "Importe total 35,00"));
    EXPECT_EQ(table.note, "");
}

TEST(ProposalSheetsTest, ASpreadSawChargeStandsAsTheShareOfOnePieceAndIsSaid) {
    const Table table = costsOf(priced(4, 3, 14.83));
    EXPECT_THAT(columnsOf(table),
                ElementsAre("Material 10,00", "Mano de obra 2,50", "Subcontratados 0,00", "Varios 1,00",
                            "Fijo sierra 1,33", "Total pieza 14,83", "Piezas 3", "Importe total 44,49"));
    EXPECT_EQ(table.note, "Fijo de sierra (4,00 €) repartido entre las 3 piezas del lote: 1,33 € por pieza.");
}

TEST(ProposalSheetsTest, OfOnePieceTheChargeIsNotSpread) {
    EXPECT_EQ(costsOf(priced(4, 1, 17.5)).note, "");
}

TEST(ProposalSheetsTest, ATotalThatIsNoSumGetsAColumnForTheDifference) {
    const Table table = costsOf(priced(4, 2, 100));
    EXPECT_THAT(columnsOf(table), ElementsAre("Material 10,00", "Mano de obra 2,50", "Subcontratados 0,00",
                                              "Varios 1,00", "Fijo sierra 4,00", "Diferencia 82,50",
                                              "Total pieza 100,00", "Piezas 2", "Importe total 200,00"));
    EXPECT_EQ(table.note, "");
}

TEST(ProposalSheetsTest, WithoutAPriceNothingIsSummed) {
    StoredProposal p = priced(4, 2, 0);
    p.piece.reset();
    EXPECT_THAT(columnsOf(costsOf(p)),
                ElementsAre("Material 10,00", "Mano de obra 2,50", "Subcontratados 0,00", "Varios 1,00",
                            "Fijo sierra 4,00", "Total pieza ", "Piezas 2", "Importe total 0,00"));
}

TEST(ProposalSheetsTest, AChargeOverNoPiecesIsNotDivided) {
    EXPECT_THAT(columnsOf(costsOf(priced(4, 0, 17.5)))[4], "Fijo sierra 4,00");
    EXPECT_THAT(columnsOf(costsOf(priced(4, 0, 15)))[5], "Diferencia -2,50");
}

}  // namespace
}  // namespace velmora::paper
