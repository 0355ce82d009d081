#include "velmora/estimate/rack.h"

#include <gmock/gmock.h>

#include "velmora/platform/runtime/errors.h"

#include "wired_fields.h"

namespace velmora::support {
namespace {

using ::testing::IsEmpty;

/// The bar of material 8: formula 1, factor 7,85, cost 1, sale 2, rate 0,05.
class RackTest : public WiredFields {
  protected:
    RackTest() { chooseType(13); }

    const std::string& text(int i) { return fields().Text1(i).text(); }
    const std::string& sketch(int i) { return fields().txtCre(i).text(); }
    void leaveWith(int i, std::string_view value) {
        enter(fields().Text1(i), value);
        leave();
    }
    /// Module 4, height 40, length 1000, width 50.
    void enterBar() {
        leaveWith(19, "4");
        leaveWith(22, "40");
        leaveWith(24, "1000");
        leaveWith(25, "50");
    }
};

TEST_F(RackTest, ModuleTwoHasAPitchOf628AndATeethHeightOf450) {
    leaveWith(19, "2");
    EXPECT_EQ(text(20), "6,28");
    EXPECT_EQ(text(21), "4,50");
}

TEST_F(RackTest, ThePitchStandsOnTheShopsPi) {
    leaveWith(19, "1000");
    EXPECT_EQ(text(20), "3.141,60") << "3.141,59 by the exact one";
}

TEST_F(RackTest, AHeightOfTheTeethOrLessIsRefusedAndTheSketchKeepsItsValues) {
    enterBar();
    for (const char* low : {"9", "8,99", "0"}) {
        screen.messages.clear();
        leaveWith(22, low);
        ASSERT_EQ(screen.messages.size(), 1u) << low;
        EXPECT_EQ(screen.messages[0].text, "Atención, el valor de H no puede ser igual o inferior al de h");
        EXPECT_EQ(screen.messages[0].icon, screen::Icon::critical);
        EXPECT_EQ(screen.messages[0].title, "");
        EXPECT_EQ(sketch(1), "40,00") << low;
        EXPECT_EQ(text(23), "31,00") << low;
        EXPECT_EQ(fields().Text4(52).text(), "40,00") << low;
    }
    screen.messages.clear();
    leaveWith(22, "9,01");
    EXPECT_THAT(screen.messages, IsEmpty());
    EXPECT_EQ(text(23), "0,01");
}

TEST_F(RackTest, TheSketchRepeatsTheMeasuresAndTheBarTakesItsSizes) {
    enterBar();
    const std::vector<std::string> expected{"9,00", "40,00", "31,00", "1000,00", "40,00", "50,00"};
    for (int i = 0; i <= 5; ++i) {
        EXPECT_EQ(sketch(i), expected[static_cast<std::size_t>(i)]) << i;
    }
    EXPECT_EQ(fields().Text4(50).text(), "50,00");
    EXPECT_EQ(fields().Text4(51).text(), "1000,00");
    EXPECT_EQ(fields().Text4(52).text(), "40,00");
    EXPECT_EQ(fields().Text4(53).text(), "15,70") << "1000 × 50 × 40 × 7,85 / 10⁶";
}

TEST_F(RackTest, WhatIsWorkedOutIsNeverTyped) {
    for (const int i : {20, 21, 23}) {
        fields().Text1(i).setEnabled(true);
    }
    leaveWith(25, "50");
    for (const int i : {20, 21, 23}) {
        EXPECT_FALSE(fields().Text1(i).enabled()) << i;
    }
}

TEST_F(RackTest, TheCutRunsAlongTheLargerOfWidthAndHeight) {
    enterBar();
    fields().cboMatCre.setListIndex(0);
    EXPECT_EQ(fields().txtPesu(54).text(), "1");
    EXPECT_EQ(fields().txtPesu(56).text(), "2");
    EXPECT_EQ(fields().txtPesu(55).text(), "2,50") << "50 × 0,05";
    EXPECT_EQ(fields().txtPesu(57).text(), "33,90") << "15,70 × 2 + 2,50";
    leaveWith(22, "60");
    fields().cboMatCre.setListIndex(0);
    EXPECT_EQ(fields().txtPesu(55).text(), "3,00") << "60 × 0,05";
    leaveWith(25, "60");
    fields().cboMatCre.setListIndex(0);
    EXPECT_EQ(fields().txtPesu(55).text(), "3,00") << "either of two alike";
}

TEST_F(RackTest, ASizeIsPricedWithTheCutOfBeforeWhileItIsTyped) {
    enterBar();
    fields().cboMatCre.setListIndex(0);
    enter(fields().Text4(50), "100");
    EXPECT_EQ(fields().Text4(53).text(), "31,40");
    EXPECT_EQ(fields().txtPesu(55).text(), "2,50");
    EXPECT_EQ(fields().txtPesu(57).text(), "65,30") << "31,40 × 2 + 2,50";
    EXPECT_EQ(fields().txtPesu(7).text(), "65,3");
}

TEST_F(RackTest, ASizeThatIsLeftHasItsCutWorkedOutAnewAsItsWeight) {
    enterBar();
    fields().cboMatCre.setListIndex(0);
    leaveWith(25, "100");
    EXPECT_EQ(fields().txtPesu(55).text(), "5,00") << "100 × 0,05";
    EXPECT_EQ(fields().txtPesu(57).text(), "67,80") << "31,40 × 2 + 5,00";
    EXPECT_EQ(fields().txtPesu(7).text(), "67,8");
    leaveWith(22, "200");
    EXPECT_EQ(fields().txtPesu(55).text(), "10,00");
    enter(fields().Text4(52), "300");
    leave();
    EXPECT_EQ(fields().txtPesu(55).text(), "15,00") << "a size of the bar itself likewise";
    EXPECT_EQ(fields().Text4(53).text(), "235,50");
    EXPECT_EQ(fields().txtPesu(57).text(), "486,00");
    EXPECT_EQ(fields().txtPesu(7).text(), "486");
}

TEST_F(RackTest, TheModuleIsNoSizeOfTheBarAndLeavesATypedCut) {
    enterBar();
    enter(fields().txtPesu(55), "9");
    leaveWith(19, "3");
    EXPECT_EQ(fields().txtPesu(55).text(), "9,00");
    leaveWith(24, "500");
    EXPECT_EQ(fields().txtPesu(55).text(), "2,50");
}

TEST_F(RackTest, WithoutAMaterialNothingIsPriced) {
    material(8).rack = false;
    openAnewWithMaterials();
    chooseType(13);
    enterBar();
    EXPECT_EQ(fields().txtPesu(57).text(), "0,00");
    EXPECT_EQ(fields().cboMatCre.listCount(), 0);
}

TEST_F(RackTest, AHeightThatIsNoNumberIsAnErrorOfTheCalculation) {
    enterBar();
    fields().Text1(22).setText("alto");
    try {
        parts().rack.msCalcularCremallera();
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), runtime::typeMismatch);
    }
    EXPECT_EQ(text(23), "31,00");
}

}  // namespace
}  // namespace velmora::support
