#include "velmora/estimate/price_ladder.h"

#include "velmora/data/product_types.h"
#include "velmora/estimate/field_names.h"
#include "velmora/platform/runtime/numbers.h"

#include "wired_fields.h"

namespace velmora::support {
namespace {

namespace measure = estimate::measure;
namespace money = estimate::money;

using estimate::LadderBasis;
using estimate::LadderStep;
using estimate::SawCharge;

constexpr std::array someNumbers{1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0, 3.0, 7.0, 250.0};

class PriceLadderTest : public WiredFields {
  protected:
    double amount(int i) { return estimate::number(fields().txtPesu(i)); }
    LadderBasis basis() {
        return {.piece = amount(money::piece),
                .parts = {.material = amount(money::material),
                          .sawCharge = amount(money::sawCharge),
                          .labour = amount(money::labour),
                          .subcontracted = amount(money::subcontracted),
                          .sundries = amount(money::sundries)}};
    }
    void priceAPiece(int type) {
        openAnew();
        chooseType(type);
        if (type == data::rack) {
            enter(fields().Text1(measure::rackModule), "4");
            enter(fields().Text1(measure::rackHeight), "40");
            enter(fields().Text1(measure::rackLength), "1000");
            enter(fields().Text1(measure::rackWidth), "40");
            leave();
        } else {
            enterLargeSprocket();
        }
        enter(fields().txtPesu(money::labour), "12,35");
        enter(fields().txtPesu(money::sundries), "1,1");
        enter(fields().txtPesu(money::pieces), "3");
        enter(fields().txtPesu(money::sawCharge), "10");
        leave();
    }
    void expectOnForm(const LadderStep& step, const std::string& when) {
        EXPECT_EQ(amount(money::piece), step.piece) << when;
        EXPECT_EQ(amount(money::lot), step.lot) << when;
    }
};

TEST_F(PriceLadderTest, EachStepIsWhatTheFormShowsForThatNumberOfPieces) {
    for (const int type : {0, 1, 2, 3, 10, 11, 13}) {
        priceAPiece(type);
        for (const LadderStep& step : estimate::priceLadder(basis(), SawCharge::asItStands, someNumbers)) {
            enter(fields().txtPesu(money::pieces), runtime::CStr(step.pieces));
            leave();
            expectOnForm(step, "type " + std::to_string(type) + ", pieces " + runtime::CStr(step.pieces));
            EXPECT_GT(step.lot, 0);
        }
    }
}

TEST_F(PriceLadderTest, WithTheSawChargeSpreadItIsWhatTheFormSumsUpAfterThatCharge) {
    for (const int type : {0, 1, 2, 3, 10, 11, 13}) {
        priceAPiece(type);
        for (const LadderStep& step : estimate::priceLadder(basis(), SawCharge::spread, someNumbers)) {
            enter(fields().txtPesu(money::pieces), runtime::CStr(step.pieces));
            parts().totals.msRecalcularImportes(money::sawCharge);
            parts().totals.msRecalcularImportes(money::piece);
            expectOnForm(step, "type " + std::to_string(type) + ", pieces " + runtime::CStr(step.pieces));
        }
    }
}

TEST_F(PriceLadderTest, OnlyTheSawChargeIsSpread) {
    const LadderBasis basis{.piece = 20,
                            .parts = {.material = 5, .sawCharge = 10, .labour = 3, .subcontracted = 1, .sundries = 1}};
    const auto steps = estimate::priceLadder(basis, SawCharge::spread, std::array{1.0, 2.0, 3.0});
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[0].piece, 20);
    EXPECT_EQ(steps[1].piece, 15);
    EXPECT_EQ(steps[2].piece, 13.33);
    EXPECT_EQ(steps[2].lot, 39.99);
}

TEST_F(PriceLadderTest, WithoutASawChargeATypedPieceKeepsItsPrice) {
    const LadderBasis basis{.piece = 7.5,
                            .parts = {.material = 5, .sawCharge = 0, .labour = 0, .subcontracted = 0, .sundries = 0}};
    for (const SawCharge saw : {SawCharge::asItStands, SawCharge::spread}) {
        const auto steps = estimate::priceLadder(basis, saw, std::array{4.0});
        ASSERT_EQ(steps.size(), 1U);
        EXPECT_EQ(steps[0].piece, 7.5);
        EXPECT_EQ(steps[0].lot, 30);
    }
}

TEST_F(PriceLadderTest, NumbersThatAreNotPositiveHaveNoStep) {
    const LadderBasis basis{.piece = 7,
                            .parts = {.material = 6, .sawCharge = 1, .labour = 0, .subcontracted = 0, .sundries = 0}};
    EXPECT_TRUE(estimate::priceLadder(basis, SawCharge::spread, std::array{0.0, -3.0}).empty());
}

}  // namespace
}  // namespace velmora::support
