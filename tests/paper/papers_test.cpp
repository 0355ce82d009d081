#include "velmora/paper/papers.h"

#include <gmock/gmock.h>

#include "velmora/data/product_types.h"
#include "velmora/platform/runtime/errors.h"

#include "paper/sample_proposals.h"
#include "paper/sheet_text.h"

namespace velmora::paper {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class PapersTest : public ::testing::Test {
  protected:
    std::vector<Paper> papers(std::int32_t number, bool order = false) {
        return papersOf(proposals.connection(), number, order);
    }
    static std::vector<std::string> namesOf(const std::vector<Paper>& papers) {
        std::vector<std::string> names;
        for (const Paper& paper : papers) {
            names.push_back(paper.fileName + ": " + paper.sheet.title);
        }
        return names;
    }

    support::SampleProposals proposals;
};

TEST_F(PapersTest, CustomerAndShopHaveSheetsOfTheirOwn) {
    EXPECT_THAT(namesOf(papers(7)),
                ElementsAre("Propuesta_000007.pdf: Propuesta 000007", "HojaCorte_000007.pdf: Hoja de corte 000007"));
}

TEST_F(PapersTest, AnOrdersPaperIsTheShopsAlone) {
    EXPECT_THAT(namesOf(papers(7, true)), ElementsAre("HojaCorte_000007.pdf: Hoja de corte 000007"));
}

TEST_F(PapersTest, ANumberThatNoProposalHasIsRefused) {
    try {
        papers(99999);
        FAIL();
    } catch (const runtime::RuntimeError& e) {
        EXPECT_EQ(e.number(), 5);
        EXPECT_EQ(e.description(), "No existe la propuesta 099999");
    }
}

TEST_F(PapersTest, TheCustomersSheetShowsNoCost) {
    const auto both = papers(1);
    const std::string customers = support::sheetText(both[0].sheet);
    const std::string shops = support::sheetText(both[1].sheet);
    for (const char* cost : {"1,34",
                             "1,31",
                             "11,66",
                             "9,90",
                             "3,02",
                             "1,52",
                             "9,09",
                             "2,53",
                             "20,75",
                             "24,98",
                             "31,17",
                             "1,05",
                             "165",
                             "102",
                             "Aceros Consultados",
                             "Disco hierro S275JR",
                             "DIS-S275",
                             "Torno",
                             "Fijo sierra",
                             "Mano de obra"}) {
        EXPECT_THAT(customers, Not(HasSubstr(cost)));
        EXPECT_THAT(shops, HasSubstr(cost));
    }
}

TEST_F(PapersTest, WhatIsNotStoredIsLeftOut) {
    proposals.connection().execute("INSERT INTO DPI (DPI_Tipo, DPI_Fecha) VALUES (0, '15/01/2026')");
    EXPECT_EQ(support::sheetText(papers(16)[0].sheet),
              "=== Propuesta 000016\n"
              "    Fecha  15/01/2026\n"
              "\n"
              "--- Piñon Especial\n"
              "\n"
              "[Foot: Propuesta 000016]\n");
}

TEST_F(PapersTest, EveryTypeHasItsNameAndItsPriceOnPaper) {
    for (const data::ProductType& type : data::productTypes) {
        const std::int32_t number = support::SampleProposals::numberOf(type.number);
        proposals.set(number, "DPI_ImpTP=1234.5, DPI_Importe=24690");
        const std::string text = support::sheetText(papers(number)[0].sheet);
        EXPECT_THAT(text, HasSubstr("--- " + std::string(type.name) + "\n")) << type.number;
        EXPECT_THAT(text, HasSubstr("* Precio por pieza: 1.234,50 €\n* Importe total: 24.690,00 €\n")) << type.number;
    }
}

}  // namespace
}  // namespace velmora::paper
