#include "velmora/platform/toolkit/painted_number.h"

#include <gtest/gtest.h>

namespace velmora::toolkit {
namespace {

TEST(PaintedNumberTest, ZerosAreAddedUpToTheDecimalsOfTheColumn) {
    EXPECT_EQ(paintedNumber("12,7", 2), "12,70");
    EXPECT_EQ(paintedNumber("38", 2), "38,00");
    EXPECT_EQ(paintedNumber("12,", 2), "12,00");
    EXPECT_EQ(paintedNumber("-1.234,5", 2), "-1.234,50");
    EXPECT_EQ(paintedNumber("38", 0), "38");
}

TEST(PaintedNumberTest, NoDigitIsTakenAway) {
    EXPECT_EQ(paintedNumber("12,7053", 2), "12,7053");
    EXPECT_EQ(paintedNumber("12,70", 0), "12,70");
}

TEST(PaintedNumberTest, OtherTextsStay) {
    for (const char* text : {"", "-", ",", "15/01/2026", "12 mm", "Ø 12", "1,2,3", ".5", "1.", "12:30"}) {
        EXPECT_EQ(paintedNumber(text, 2), text);
        EXPECT_EQ(decimalsOf(text), -1) << text;
    }
}

TEST(PaintedNumberTest, ANumberWithoutRoomIsNeverCut) {
    const Advance tenEach = [](const std::string& text) { return static_cast<int>(text.size()) * 10; };
    EXPECT_EQ(fittedNumber("12,70", 50, tenEach), "12,70");
    EXPECT_EQ(fittedNumber("12,70", 49, tenEach), "####");
    EXPECT_EQ(fittedNumber("12,70", 3, tenEach), "#");
}

}  // namespace
}  // namespace velmora::toolkit
