#include "velmora/reference/value_rules.h"

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::reference {
namespace {

struct Cut {
    double z;
    double paso;
    double dp;
    const char* worked;  ///< the pitch diameter before its decimals are cut
};

class FnDpCadenaTest : public ::testing::TestWithParam<Cut> {};

TEST_P(FnDpCadenaTest, IsCutNotRounded) {
    const Cut& row = GetParam();
    EXPECT_DOUBLE_EQ(FnDpCadena(row.z, row.paso), row.dp) << row.worked;
}

INSTANTIATE_TEST_SUITE_P(Chains, FnDpCadenaTest,
                         ::testing::Values(Cut{17, 12.7, 69.11, "69,1156678488106: rounded it is 69,12"},
                                           Cut{10, 9.525, 30.82, "30,8234777940394"},
                                           Cut{38, 12.7, 153.79, "153,791124124278"},
                                           Cut{57, 12.7, 230.54, "230,540690889977"},
                                           Cut{6, 10, 19.99, "19,9999575855858: 3.1416 is not quite half a turn"},
                                           Cut{6, 50, 99.99, "99,9997879279292"},
                                           Cut{25, 63.5, 506.64, "506,64816095718: rounded it is 506,65"},
                                           Cut{95, 63.5, 1920.54, "1920,54992806243: rounded it is 1920,55"},
                                           Cut{120, 50.8, 1940.63, "1940,6342037067"},
                                           Cut{3.5, 12.7, 16.24, "16,2438825074499: half a tooth"},
                                           Cut{17, -12.7, -69.11, "-69,1156678488106"},
                                           Cut{1, 12.7, -1728735.48, "-1728735,48352673"}));

INSTANTIATE_TEST_SUITE_P(WithoutAComma, FnDpCadenaTest,
                         ::testing::Values(Cut{17, 27.92999127524485, 15,
                                               "152, whose text is 1520000: cut as a number it stays 152"},
                                           Cut{17, 12.678746039420359, 69, "69, whose text is 690000"},
                                           Cut{17, 0.9187497130014753, 50, "5, whose text is 50000"},
                                           Cut{17, 183.74994260029507, 10, "1000, whose text is 10000000"}));

INSTANTIATE_TEST_SUITE_P(LargeAndSmall, FnDpCadenaTest,
                         ::testing::Values(Cut{17, 1e9, 5442178570.77, "5442178570,77249"},
                                           Cut{17, 1e12, 5442178570772.49, "5442178570772,49"},
                                           Cut{17, 1e14, 5.44, "544217857077249, with the zeros 5,44217857077249E+18"},
                                           Cut{2, 4e14, 4, "400000000002698, with the zeros 4,00000000002698E+18"},
                                           Cut{17, 1e-6, 0, "5,44217857077249E-06, with the zeros E-060000"}));

TEST(FnDpCadenaEdgeTest, NoTeethOrNoPitchGiveNothing) {
    EXPECT_EQ(FnDpCadena(0, 12.7), 0);
    EXPECT_EQ(FnDpCadena(17, 0), 0);
    EXPECT_EQ(FnDpCadena(0, 0), 0);
}

TEST(FnDpCadenaEdgeTest, ZerosBehindAnExponentAreTooLarge) {
    try {
        FnDpCadena(17, 1e15);
        FAIL() << "5,44217857077249E+150000 is no number";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), runtime::overflow);
    }
}

TEST(GearMeasuresTest, ModuleTwoAndTwentyTeeth) {
    const GearMeasures m = gearMeasures(2, 20);
    EXPECT_EQ(m.paso, 6.28);
    EXPECT_EQ(m.dp, 40);
    EXPECT_EQ(m.de, 44);
    EXPECT_EQ(m.di, 35);
}

TEST(GearMeasuresTest, TipAndRootStandOnTheRoundedPitchDiameter) {
    // 0,12625 × 7 is 0,88375, rounded 0,88; with it 1,1325 and 0,564375.
    const GearMeasures m = gearMeasures(0.12625, 7);
    EXPECT_EQ(m.dp, 0.88);
    EXPECT_EQ(m.de, 1.13) << "1,14 on 0,88375";
    EXPECT_EQ(m.di, 0.56) << "0,57 on 0,88375";
}

TEST(GearMeasuresTest, ThePitchStandsOnTheShopsPi) {
    EXPECT_EQ(gearMeasures(2000, 20).paso, 6283.2) << "6283,19 by the exact one";
}

}  // namespace
}  // namespace velmora::reference
