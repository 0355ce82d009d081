#include "velmora/estimate/gears.h"

#include <gmock/gmock.h>

#include "velmora/platform/sql/db_error.h"

#include "wired_fields.h"

namespace velmora::support {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Gear 1: module 4, 40 teeth, exterior 168. Gear 2: module 2, 20 teeth, exterior 44. Gear 3, a disc of module 4.
class GearsTest : public WiredFields {
  protected:
    GearsTest() {
        const std::vector<std::string> columns{"ENG_Modulo", "ENG_Z",  "ENG_Paso", "ENG_Dp", "ENG_Di", "ENG_De",
                                               "ENG_Dm",     "ENG_D1", "ENG_H",    "ENG_A",  "ENG_B",  "ENG_C"};
        const std::string statement = "Select * from eng where eng_id=";
        database.answerAllThatBegin(statement, columns);
        database.answer(statement + "1", columns, {{4, 40, 12.57, 160, 150, 168, 95, 24, 9, 65, 40, 25}});
        database.answer(statement + "2", columns, {{2, 20, 6.28, 40, 35, 44, 20, 10, 4.5, 30, 20, 10}});
        database.answer(statement + "3", columns, {{4, 40, 12.57, 160, 150, 168, 0, 24, 9, 0, 40, 0}});
    }
    void takeOver(std::int32_t id) { parts().gears.takeOver(id); }
    const std::string& text(int i) { return fields().Text1(i).text(); }
};

TEST_F(GearsTest, ARowFillsTheCommonMeasures) {
    chooseType(8);
    takeOver(1);
    const std::vector<std::pair<int, const char*>> expected{
        {1, "40"},  {0, "12,57"}, {8, "0"},  {2, "0"},   {7, "24"}, {3, "160"}, {4, "150"}, {15, "168"},
        {16, "95"}, {6, "9"},     {11, "0"}, {17, "65"}, {9, "40"}, {5, "0"},   {10, "25"}};
    for (const auto& [i, value] : expected) {
        EXPECT_EQ(text(i), value) << i;
    }
    EXPECT_EQ(fields().txtModulo.text(), "4");
}

TEST_F(GearsTest, WhatAGearHasNotIsZeroAlsoWhenItHeldValues) {
    chooseType(8);
    for (const int i : {11, 5, 8, 2}) {
        fields().Text1(i).setText("7");
    }
    takeOver(1);
    for (const int i : {11, 5, 8, 2}) {
        EXPECT_EQ(text(i), "0") << i;
    }
}

TEST_F(GearsTest, TheModuleTakesThePlaceOfChainWidthAndRoller) {
    chooseType(8);
    takeOver(1);
    EXPECT_EQ(fields().Label1(16).caption(), "Modulo");
    EXPECT_FALSE(fields().Text1(8).visible());
    EXPECT_FALSE(fields().Text1(2).visible());
    EXPECT_FALSE(fields().Label1(11).visible());
    EXPECT_TRUE(fields().txtModulo.visible());
    EXPECT_FALSE(fields().txtModulo.enabled());
    EXPECT_EQ(form().activeControl(), &fields().Text1(12));
}

TEST_F(GearsTest, TheDiscsRowAndPricesFollowTheNewSizes) {
    chooseType(8);
    connection.clear();
    takeOver(1);
    EXPECT_THAT(
        connection.log(),
        ElementsAre("Select * from eng where eng_id=1",
                    "SELECT PARDPI.*,ART.* FROM PARDPI INNER JOIN ART ON PARDPI_ART = ART_ID WHERE PARDPI_ID= 1"));
    EXPECT_EQ(fields().Text4(1).text(), "173") << "exterior + 5";
    EXPECT_EQ(fields().Text4(0).text(), "42") << "the first thickness above a rim of 40";
    EXPECT_EQ(fields().Text4(4).text(), "7,75") << "173² × 42 × 6,165 / 10⁶";
    EXPECT_EQ(fields().txtPesu(16).text(), "8,65") << "173 × 0,05";
    EXPECT_EQ(fields().txtPesu(22).text(), "19,5") << "7,75 × 1,4 + 8,65";
    EXPECT_EQ(fields().Text4(2).text(), "100") << "hub 95 + 5";
    EXPECT_EQ(fields().Text4(3).text(), "28") << "hub width 25 + 3";
}

TEST_F(GearsTest, ASmallGearIsOneRound) {
    chooseType(8);
    takeOver(2);
    EXPECT_EQ(fields().Text4(1).text(), "49");
    EXPECT_EQ(fields().Text4(0).text(), "33") << "total width 30 + 3";
    EXPECT_EQ(fields().Text4(2).text(), "0,00");
}

TEST_F(GearsTest, ASmallGearLeavesTheHubOfALargeOneThatWasChosenBefore) {
    chooseType(8);
    takeOver(1);
    EXPECT_EQ(fields().txtPesu(25).text(), "4,78");
    takeOver(2);
    EXPECT_EQ(fields().Text4(2).text(), "100");
    EXPECT_EQ(fields().txtPesu(25).text(), "4,78");
    EXPECT_TRUE(fields().fraCubo.enabled());
}

TEST_F(GearsTest, WithoutARowNothingChanges) {
    chooseType(8);
    fields().Text1(1).setText("33");
    const std::string label = fields().Label1(16).caption();
    connection.clear();
    for (const int id : {0, 99}) {
        takeOver(id);
    }
    EXPECT_EQ(text(1), "33");
    EXPECT_EQ(fields().Label1(16).caption(), label);
    EXPECT_TRUE(fields().Text1(8).visible());
    EXPECT_THAT(connection.logged("PARDPI"), IsEmpty());
}

TEST_F(GearsTest, LeavingAFieldOfAGearChangesNothingButItsMask) {
    chooseType(8);
    takeOver(1);
    for (const int i : {0, 1, 9, 10, 15, 16, 17}) {
        const std::string disc = fields().Text4(0).text();
        enter(fields().Text1(i), text(i));
        leave();
        EXPECT_EQ(fields().Text4(0).text(), disc) << i;
    }
    EXPECT_EQ(text(3), "160");
    EXPECT_EQ(text(17), "65,00");
}

TEST_F(GearsTest, AGearDiscOfATotalWidthOfZeroIsCutByItsRim) {
    chooseType(9);
    takeOver(3);
    EXPECT_EQ(text(17), "0");
    EXPECT_EQ(fields().Text4(0).text(), "42");
    EXPECT_EQ(fields().Text4(5).text(), "0") << "a hub that is not there weighs nothing";
}

TEST_F(GearsTest, ARefusedLookUpReachesTheCallerAndChangesNothing) {
    chooseType(8);
    fields().Text1(1).setText("33");
    connection.refuse("from eng");
    EXPECT_THROW(takeOver(1), sql::DbError);
    EXPECT_EQ(text(1), "33");
}

}  // namespace
}  // namespace velmora::support
