#include "velmora/estimate/price.h"

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"

namespace velmora::estimate {
namespace {

TEST(PriceTest, CentsAreRoundedHalfAwayFromZero) {
    struct Row {
        double amount;
        double cents;
    };
    for (const Row& row : {Row{0, 0}, Row{1.004, 1}, Row{1.005, 1.01}, Row{2.675, 2.68}, Row{0.125, 0.13},
                           Row{-1.005, -1.01}, Row{1234567.895, 1234567.9}}) {
        EXPECT_EQ(cents(row.amount), row.cents) << row.amount;
    }
}

// --- The saw -------------------------------------------------------------------------------------------------------

TEST(PriceTest, ARoundIsCutByItsDiameter) {
    struct Row {
        double diameter;
        double rate;
        double cut;
    };
    for (const Row& row : {Row{215, 0.01, 2.15}, Row{215, 0.015, 3.23}, Row{100, 0.02, 2}, Row{85, 0.0333, 2.83},
                           Row{0, 0.5, 0}, Row{120, 0, 0}}) {
        EXPECT_EQ(sawCut(row.diameter, row.rate), row.cut) << row.diameter << " x " << row.rate;
    }
}

TEST(PriceTest, TwoHubsCostTheRoundedCutOfOneTwice) {
    EXPECT_EQ(hubsSawCut(85, 0.0333, 1), 2.83);
    EXPECT_EQ(hubsSawCut(85, 0.0333, 2), 5.66) << "2,8305 is rounded before it is doubled";
    EXPECT_EQ(hubsSawCut(85, 0.017, 2), 2.9);
    EXPECT_EQ(sawCut(2 * 85, 0.017), 2.89) << "both cuts at once would be a cent less";
}

TEST(PriceTest, ABarIsCutAlongTheLargerOfItsSidesAndNotRounded) {
    struct Row {
        double length;
        double thickness;
        double rate;
        double cut;
    };
    for (const Row& row :
         {Row{60, 45, 0.015625, 0.9375}, Row{45, 60, 0.015625, 0.9375}, Row{50, 50, 0.5, 25}, Row{0, 0, 0.5, 0}}) {
        EXPECT_EQ(barSawCut(row.length, row.thickness, row.rate), row.cut) << row.length << "|" << row.thickness;
    }
}

// --- A line of stock -----------------------------------------------------------------------------------------------

struct LineRow {
    StockLine line;
    double twice;
    double once;
};

TEST(PriceTest, ALineOfStockIsItsMaterialAndItsCut) {
    for (const LineRow& row : {
             LineRow{{.weight = 2.5, .price = 3, .cut = 1.25}, 8.75, 8.75},
             LineRow{{.weight = 10.01, .price = 1.4, .cut = 2.15}, 16.16, 16.16},
             LineRow{{.weight = 0, .price = 1.4, .cut = 2.15}, 2.15, 2.15},
             LineRow{{.weight = 3.27, .price = 1.85, .cut = 0}, 6.05, 6.05},
         }) {
        EXPECT_EQ(lineRoundedTwice(row.line), row.twice) << row.line.weight;
        EXPECT_EQ(lineRoundedOnce(row.line), row.once) << row.line.weight;
    }
}

// On paper each product is half a cent; as a number it is a little less or more.
TEST(PriceTest, WithACutInWholeCentsTheTwoRoundingsOfALineAgree) {
    for (const LineRow& row : {
             LineRow{{.weight = 1.14, .price = 1.25, .cut = 2.1}, 3.53, 3.53},
             LineRow{{.weight = 1.66, .price = 1.25, .cut = 0.85}, 2.93, 2.93},
             LineRow{{.weight = 2.05, .price = 3.1, .cut = 4.5}, 10.86, 10.86},
             LineRow{{.weight = 1.75, .price = 3.1, .cut = 0.85}, 6.28, 6.28},
             LineRow{{.weight = 1.9, .price = 2.35, .cut = 2.1}, 6.57, 6.57},
         }) {
        EXPECT_EQ(lineRoundedTwice(row.line), row.twice) << row.line.weight << " x " << row.line.price;
        EXPECT_EQ(lineRoundedOnce(row.line), row.once) << row.line.weight << " x " << row.line.price;
    }
}

TEST(PriceTest, WithThousandthsInTheCutTheTwoRoundingsOfALineDifferByACent) {
    for (const LineRow& row : {
             LineRow{{.weight = 1.5, .price = 1.33, .cut = 0.005}, 2.01, 2},
             LineRow{{.weight = 1.2, .price = 1.12, .cut = 0.002}, 1.34, 1.35},
             LineRow{{.weight = 2.5, .price = 1.235, .cut = 2.155}, 5.25, 5.24},
             LineRow{{.weight = 4.07, .price = 1.4, .cut = 1.006}, 6.71, 6.7},
         }) {
        EXPECT_EQ(lineRoundedTwice(row.line), row.twice) << row.line.weight << " x " << row.line.price;
        EXPECT_EQ(lineRoundedOnce(row.line), row.once) << row.line.weight << " x " << row.line.price;
    }
}

TEST(PriceTest, ABarsLineKeepsWhatIsBehindTheCents) {
    EXPECT_EQ(barLine({.weight = 2, .price = 1.5, .cut = 0.9375}), 3.9375);
    EXPECT_EQ(barLine({.weight = 0, .price = 1.5, .cut = 0.9375}), 0.9375);
    EXPECT_EQ(lineRoundedOnce({.weight = 2, .price = 1.5, .cut = 0.9375}), 3.94);
}

// --- Piece and lot -------------------------------------------------------------------------------------------------

TEST(PriceTest, TheMaterialOfAPieceIsDiscAndHub) {
    EXPECT_EQ(materialOf(10.005, 5), 15.01);
    EXPECT_EQ(materialOf(10, 0), 10);
    EXPECT_EQ(materialOf(0.1, 0.2), 0.3);
}

TEST(PriceTest, APieceIsTheSumOfItsParts) {
    EXPECT_EQ(piecePrice({.material = 10, .sawCharge = 4, .labour = 2.5, .subcontracted = 0, .sundries = 1}), 17.5);
    EXPECT_EQ(piecePrice({.material = 1, .sawCharge = 0, .labour = 0, .subcontracted = 0, .sundries = 0}), 1);
    EXPECT_EQ(piecePrice({.material = 0, .sawCharge = 1, .labour = 0, .subcontracted = 0, .sundries = 0}), 1);
    EXPECT_EQ(piecePrice({.material = 0, .sawCharge = 0, .labour = 1, .subcontracted = 0, .sundries = 0}), 1);
    EXPECT_EQ(piecePrice({.material = 0, .sawCharge = 0, .labour = 0, .subcontracted = 1, .sundries = 0}), 1);
    EXPECT_EQ(piecePrice({.material = 0, .sawCharge = 0, .labour = 0, .subcontracted = 0, .sundries = 1}), 1);
    EXPECT_EQ(piecePrice({.material = 1.004, .sawCharge = 0, .labour = 2.004, .subcontracted = 0, .sundries = 0}), 3.01)
        << "the parts are not rounded, only their sum";
}

TEST(PriceTest, TheCutInABarsAmountIsWhatItsMaterialInWholeCentsLeaves) {
    EXPECT_DOUBLE_EQ(cutInBarLine(25, 10, 2), 5);
    EXPECT_DOUBLE_EQ(cutInBarLine(20, 10, 2), 0);
    EXPECT_DOUBLE_EQ(cutInBarLine(3.5, 1.5, 1.67), 0.99) << "the material, 2,505, is 2,51";
    EXPECT_DOUBLE_EQ(cutInBarLine(10, 10, 2), -10) << "an amount typed below its material";
}

TEST(PriceTest, ALotIsThePieceByThePieces) {
    EXPECT_EQ(lotPrice(17.5, 3), 52.5);
    EXPECT_EQ(lotPrice(17.5, 0), 0);
    EXPECT_EQ(lotPrice(1.01, 0.5), 0.51);
}

TEST(PriceTest, ASpreadChargeIsAShareInWholeCents) {
    EXPECT_EQ(spreadSawCharge(4, 2), 2);
    EXPECT_EQ(spreadSawCharge(10, 3), 3.33);
    EXPECT_EQ(spreadSawCharge(20, 3), 6.67);
    EXPECT_EQ(spreadSawCharge(0, 3), 0);
    EXPECT_EQ(spreadSawCharge(-4, 2), -2);
}

TEST(PriceTest, AChargeCannotBeSpreadOverNoPieces) {
    struct Row {
        double charge;
        int error;
    };
    for (const Row& row : {Row{4, runtime::divisionByZero}, Row{0, runtime::overflow}}) {
        try {
            static_cast<void>(spreadSawCharge(row.charge, 0));
            ADD_FAILURE() << row.charge << " is spread over none";
        } catch (const runtime::RuntimeError& e) {
            EXPECT_EQ(e.number(), row.error) << row.charge;
        }
    }
}

}  // namespace
}  // namespace velmora::estimate
