#include "velmora/estimate/rules.h"

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {
namespace {

template <typename Action>
long errorOf(Action&& action) {
    try {
        action();
    } catch (const runtime::RuntimeError& e) {
        return e.number();
    }
    return 0;
}

class Thicknesses final : public ThicknessList {
  public:
    explicit Thicknesses(std::vector<std::string> entries) : entries_(std::move(entries)) {}
    std::string List(int i) const override {
        return i >= 0 && i < ListCount() ? entries_[static_cast<std::size_t>(i)] : std::string();
    }
    int ListCount() const override { return static_cast<int>(entries_.size()); }

  private:
    std::vector<std::string> entries_;
};

// --- FnMultiplo ----------------------------------------------------------------------------------------------------

TEST(FnMultiploTest, BringsUpToTheNextMultipleOfFiveWhereAMultipleStays) {
    struct Row {
        double x;
        double expected;
    };
    for (const Row& row :
         {Row{20, 20}, Row{20.1, 25}, Row{23, 25}, Row{0, 0}, Row{0.01, 5}, Row{24.999, 25}, Row{25, 25}, Row{-3, 0}}) {
        EXPECT_EQ(FnMultiplo(row.x, 5), row.expected) << row.x;
    }
}

TEST(FnMultiploTest, ComparesWithAFifthWhateverTheStep) {
    struct Row {
        double x;
        int step;
        double kept;
        double roundedUp;  ///< an exact rounding up to a multiple of the step
    };
    // 0 is the only multiple of 10 whose tenth is its fifth: 20 / 10 is not Int(20 / 5).
    for (const Row& row : {Row{20, 10, 30, 20}, Row{12.5, 5, 15, 15}, Row{20, 5, 20, 20}}) {
        EXPECT_EQ(FnMultiplo(row.x, row.step), row.kept) << row.x << ", rounded up exactly " << row.roundedUp;
    }
}

TEST(FnMultiploTest, AStepOfZeroIsADivisionByZero) {
    EXPECT_EQ(errorOf([] { FnMultiplo(20, 0); }), runtime::divisionByZero);
}

// --- FnDmexterior --------------------------------------------------------------------------------------------------

TEST(FnDmexteriorTest, EachBoundOfTheTeethBelongsToTheLowerStep) {
    struct Row {
        double z;
        double expected;
    };
    for (const Row& row : {Row{1, 105}, Row{6, 105}, Row{7, 106}, Row{8, 106}, Row{9, 106}, Row{12, 106}, Row{13, 106},
                           Row{18, 106}, Row{19, 107}, Row{200, 107}}) {
        EXPECT_EQ(FnDmexterior(100, row.z, 10), row.expected) << row.z;
    }
}

TEST(FnDmexteriorTest, HalvesGoToTheEvenMillimetre) {
    EXPECT_EQ(FnDmexterior(100, 7, 10), 106) << "105.5";
    EXPECT_EQ(FnDmexterior(101, 7, 10), 106) << "106.5";
}

TEST(FnDmexteriorTest, FactorsShowAtALargeRoller) {
    struct Row {
        double z;
        double expected;
    };
    for (const Row& row : {Row{6, 500}, Row{6.5, 550}, Row{8, 550}, Row{8.5, 600}, Row{12, 600}, Row{12.5, 650},
                           Row{18, 650}, Row{18.5, 700}}) {
        EXPECT_EQ(FnDmexterior(0, row.z, 1000), row.expected) << row.z;
    }
}

// --- FnLlanta ------------------------------------------------------------------------------------------------------

TEST(FnLlantaTest, DeductsByWidthAndEachBoundBelongsToTheLowerStep) {
    struct Row {
        double ac;
        double expected;
    };
    for (const Row& row : {Row{7.75, 6}, Row{20, 18}, Row{20.5, 18}, Row{21, 18}, Row{22, 20}, Row{30, 28}, Row{31, 28},
                           Row{30.5, 28}, Row{100, 97}}) {
        EXPECT_EQ(FnLlanta(row.ac), row.expected) << row.ac;
    }
}

// --- scaledToFive --------------------------------------------------------------------------------------------------

TEST(ScaledToFiveTest, RisesToAMultipleOfFive) {
    struct Row {
        double dp;
        double k;
        double expected;
        double left;  ///< what stands in dp afterwards
    };
    for (const Row& row : {Row{101.3, 1, 105, 105}, Row{100.4, 1, 100, 100}, Row{153.79, 0.6, 95, 95},
                           Row{153.79, 0.4, 65, 65}, Row{100, 0.4, 40, 40}}) {
        double dp = row.dp;
        EXPECT_EQ(scaledToFive(dp, row.k), row.expected) << row.dp << " x " << row.k;
        EXPECT_EQ(dp, row.left) << row.dp << " x " << row.k;
    }
}

TEST(ScaledToFiveTest, AFactorOfZeroGivesTheWholePitchDiameterAndLeavesIt) {
    double dp = 101.5;
    EXPECT_EQ(scaledToFive(dp, 0), 102);
    EXPECT_EQ(dp, 101.5);
}

// --- pitchDiameter -------------------------------------------------------------------------------------------------

TEST(PitchDiameterTest, KeepsTwoDecimals) {
    EXPECT_EQ(pitchDiameter(12.7, 17), 69.12);
    EXPECT_EQ(pitchDiameter(12.7, 38), 153.79);
    EXPECT_EQ(pitchDiameter(9.525, 9), 27.85);
    EXPECT_EQ(pitchDiameter(10, 2), 10);
}

TEST(PitchDiameterTest, StandsOnTheShopsPiAndNotOnTheExactOne) {
    EXPECT_EQ(pitchDiameter(400, 120), 15280.58) << "15280.61 by the exact one";
}

TEST(PitchDiameterTest, NoTeethIsADivisionByZero) {
    EXPECT_EQ(errorOf([] { pitchDiameter(12.7, 0); }), runtime::divisionByZero);
}

// --- pulleyExterior ------------------------------------------------------------------------------------------------

TEST(PulleyExteriorTest, RaisesARootDiameterWithDecimalsToTheNextMillimetre) {
    struct Row {
        double root;
        double expected;
    };
    for (const Row& row : {Row{61.37, 62}, Row{61, 61}, Row{61.01, 62}, Row{61.99, 62}, Row{60.5, 61}, Row{6.1, 7},
                           Row{62, 62}, Row{0, 0}, Row{100, 100}}) {
        EXPECT_EQ(pulleyExterior(row.root), row.expected) << row.root;
    }
}

TEST(PulleyExteriorTest, DecimalsAreTheLastTwoCharactersOfTheHundredths) {
    EXPECT_EQ(pulleyExterior(6.1), 7) << "610 ends in 10";
    EXPECT_EQ(pulleyExterior(0.05), 1) << "5 alone is read as 5";
    EXPECT_EQ(pulleyExterior(61.004), 61) << "hundredths are rounded first";
}

TEST(PulleyExteriorTest, TheHalfGoesToTheEvenMillimetreWhereAWholeRiseWouldNot) {
    // 61.5 + 0.5 is whole already; 62.004 keeps its thousandths until the last rounding, which drops them.
    EXPECT_EQ(pulleyExterior(62.004), 62) << "63 by a whole rise";
}

// --- standsAtOrBefore ----------------------------------------------------------------------------------------------

TEST(StandsAtOrBeforeTest, ComparesTextsAndNotNumbers) {
    struct Row {
        const char* text;
        const char* limit;
        bool expected;
    };
    for (const Row& row : {Row{"105", "120", true}, Row{"98", "120", false}, Row{"130", "250", true},
                           Row{"62,00", "500", false}, Row{"120", "120", true}, Row{"120,00", "120", false},
                           Row{"1000", "120", true}, Row{"", "120", true}, Row{"30", "250", false}}) {
        EXPECT_EQ(standsAtOrBefore(row.text, row.limit), row.expected) << row.text << " / " << row.limit;
    }
}

// --- fnCorteGrueso -------------------------------------------------------------------------------------------------

TEST(FnCorteGruesoTest, TakesTheFirstThicknessAboveTheAllowedOne) {
    struct Row {
        double diameter;
        double thickness;
        double expected;
        double left;
    };
    const Thicknesses list({"6", "8", "10", "12", "15"});
    for (const Row& row : {Row{200, 8, 10, 9}, Row{200.5, 8, 12, 10}, Row{400, 8, 12, 10}, Row{400.5, 8, 12, 11},
                           Row{100, 7, 10, 8}, Row{100, 13.5, 15, 14.5}}) {
        double thickness = row.thickness;
        EXPECT_EQ(fnCorteGrueso(row.diameter, thickness, list), row.expected) << row.diameter << ", " << row.thickness;
        EXPECT_EQ(thickness, row.left);
    }
}

TEST(FnCorteGruesoTest, NeverTakesTheFirstEntry) {
    double thickness = 1;
    EXPECT_EQ(fnCorteGrueso(100, thickness, Thicknesses({"6", "8", "10"})), 8) << "6 would do";
}

TEST(FnCorteGruesoTest, ReadsThicknessesByTheLocale) {
    double thickness = 8;
    EXPECT_EQ(fnCorteGrueso(100, thickness, Thicknesses({"6", "9,5", "12"})), 9.5);
}

TEST(FnCorteGruesoTest, BeyondTheLastEntryItReadsAnEmptyOne) {
    double thickness = 15;
    EXPECT_EQ(errorOf([&] { fnCorteGrueso(100, thickness, Thicknesses({"6", "8", "10"})); }), runtime::typeMismatch);
    EXPECT_EQ(thickness, 16) << "the allowance stays with the caller";
}

/// A list that never ends and never grows.
class EndlessThin final : public ThicknessList {
  public:
    std::string List(int) const override { return "1"; }
    int ListCount() const override { return 5; }
};

TEST(FnCorteGruesoTest, TheCounterOverflowsAtSixteenBits) {
    double thickness = 8;
    EXPECT_EQ(errorOf([&] { fnCorteGrueso(100, thickness, EndlessThin{}); }), runtime::overflow);
}

// --- commercialThickness -------------------------------------------------------------------------------------------

TEST(CommercialThicknessTest, IsTheFirstStepAboveTheRim) {
    struct Row {
        int rim;
        int other;
        int iron;
    };
    for (const Row& row :
         {Row{0, 6, 6},    Row{5, 6, 6},    Row{6, 8, 8},    Row{9, 10, 10},  Row{10, 12, 12}, Row{12, 14, 15},
          Row{13, 14, 15}, Row{14, 15, 15}, Row{15, 16, 16}, Row{16, 18, 18}, Row{18, 20, 20}, Row{20, 22, 22},
          Row{22, 25, 25}, Row{25, 28, 30}, Row{28, 30, 30}, Row{30, 32, 35}, Row{32, 35, 35}, Row{35, 38, 40},
          Row{38, 40, 40}, Row{40, 42, 45}, Row{42, 45, 45}, Row{45, 50, 50}, Row{50, 55, 55}, Row{55, 60, 60},
          Row{59, 60, 60}, Row{60, 70, 0},  Row{70, 80, 0},  Row{79, 80, 0},  Row{80, 0, 0},   Row{500, 0, 0}}) {
        EXPECT_EQ(commercialThickness(row.rim, false), row.other) << row.rim;
        EXPECT_EQ(commercialThickness(row.rim, true), row.iron) << row.rim << " of iron";
    }
}

}  // namespace
}  // namespace velmora::estimate
