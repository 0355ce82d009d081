#include "velmora/estimate/sprocket_geometry.h"

#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/numbers.h"

#include "support/text_changes.h"
#include "wired_fields.h"

namespace velmora::support {
namespace {

using Texts = std::vector<std::string>;

class SprocketGeometryTest : public WiredFields {
  protected:
    screen::TextBox& measure(int i) { return fields().Text1(i); }
    const std::string& text(int i) { return fields().Text1(i).text(); }
    const std::string& sketch(int i) { return fields().Text3(i).text(); }
};

// --- msRecalcularMedidas -------------------------------------------------------------------------------------------

TEST_F(SprocketGeometryTest, ToothingGivesEveryMeasureOfASmallSprocket) {
    enterSmallSprocket();
    EXPECT_EQ(text(3), "69,12");
    EXPECT_EQ(text(4), "61,37");
    EXPECT_EQ(text(15), "74");
    EXPECT_EQ(text(16), "45");
    EXPECT_EQ(text(17), "30");
    EXPECT_EQ(text(9), "6");
    EXPECT_EQ(text(10), "24");
    EXPECT_EQ(measure(6).text(), runtime::CStr(runtime::Round((74 - 61.37) / 2, 2)));
}

TEST_F(SprocketGeometryTest, ToothingGivesEveryMeasureOfALargeSprocket) {
    enterLargeSprocket();
    EXPECT_EQ(text(3), "153,79");
    EXPECT_EQ(text(4), "146,04");
    EXPECT_EQ(text(15), "159");
    EXPECT_EQ(text(6), "6,48");
    EXPECT_EQ(text(16), "95");
    EXPECT_EQ(text(17), "65");
    EXPECT_EQ(text(9), "6");
    EXPECT_EQ(text(10), "59");
}

TEST_F(SprocketGeometryTest, CaptionsOfTheSketchRepeatTheMeasures) {
    enterLargeSprocket();
    EXPECT_EQ(sketch(0), "Diametro exterior 159");
    EXPECT_EQ(sketch(1), "Diametro cubo 95");
    EXPECT_EQ(sketch(2), "LLanta 6");
    EXPECT_EQ(fields().Text3(2).tag(), "6");
    EXPECT_EQ(sketch(3), "Ancho 59");
    EXPECT_EQ(sketch(4), "Ancho total 65");
    EXPECT_EQ(sketch(6), "Ancho 59");
}

TEST_F(SprocketGeometryTest, AHeightThatTheUserTypedIsOverwritten) {
    enterLargeSprocket();
    enter(measure(6), "3");
    enter(measure(2), "7,75");
    leave();
    EXPECT_EQ(text(6), "6,48");
}

TEST_F(SprocketGeometryTest, AHeightIsFilledFirstOnlyWhereItIsZeroAndStandsUntilTheSecondStep) {
    enterLargeSprocket();
    enter(measure(6), "3");
    TextChanges heights(form(), measure(6));
    enter(measure(2), "7,75");
    leave();
    EXPECT_EQ(heights.texts.back(), "6,48");
    EXPECT_EQ(text(6), "6,48") << "a height that stays would be the typed one";
}

TEST_F(SprocketGeometryTest, APulleysHeightIsWorkedOutAnewFromItsOwnExterior) {
    chooseType(3);
    TextChanges heights(form(), measure(6));
    enterSmallSprocket();
    EXPECT_EQ(heights.texts.front(), runtime::CStr(runtime::Round((74 - 61.37) / 2, 2)));
    EXPECT_EQ(text(6), runtime::CStr(runtime::Round((62 - 61.37) / 2, 2)));
}

TEST_F(SprocketGeometryTest, TheCaptionOfTheTotalWidthIsWrittenWithTwoSpellings) {
    enterLargeSprocket();
    TextChanges captions(form(), fields().Text3(4));
    enter(measure(2), "7,75");
    leave();
    EXPECT_EQ(captions.texts, (Texts{"Ancho Total 65", "Ancho total 65"}))
        << "with unchanged widths the spelling alone makes the changes that run the thickness rule";
}

TEST_F(SprocketGeometryTest, WithOneSpellingTheCaptionWouldNotChangeAndTheThicknessStay) {
    enterLargeSprocket();
    fields().Text4(0).setText("99");
    fields().Text3(4).setText("Ancho total 65");
    EXPECT_EQ(fields().Text4(0).text(), "99");
    fields().Text3(4).setText("Ancho Total 65");
    EXPECT_EQ(fields().Text4(0).text(), "8");
}

TEST_F(SprocketGeometryTest, WithoutTeethNothingHappens) {
    enterLargeSprocket();
    measure(1).setText("");
    fields().Text1(3).setText("1");
    measure(2).setFocus();
    leave();
    EXPECT_EQ(text(3), "1");
    EXPECT_EQ(text(15), "159");
}

TEST_F(SprocketGeometryTest, NoTeethAreRefusedAndTheRestFollowsTheOldPitchDiameter) {
    enterLargeSprocket();
    measure(1).setText("0");
    measure(2).setFocus();
    measure(2).setText("10");
    leave();
    ASSERT_EQ(screen.messages.size(), 1U);
    EXPECT_EQ(screen.messages[0].text, "El numero de dientes no puede ser cero");
    EXPECT_EQ(screen.messages[0].title, "");
    EXPECT_EQ(screen.messages[0].buttons, screen::Buttons::ok);
    EXPECT_EQ(text(3), "153,79");
    EXPECT_EQ(text(4), "143,79");
    EXPECT_EQ(text(15), "159") << "153,79 + 0,5 x 10, to the even side";
    EXPECT_EQ(form().activeControl(), &measure(1));
}

TEST_F(SprocketGeometryTest, ASmoothPulleysExteriorIsItsRootRaisedToTheMillimetre) {
    for (const int type : {3, 11}) {
        openAnew();
        chooseType(type);
        enterSmallSprocket();
        EXPECT_EQ(text(4), "61,37") << type;
        EXPECT_EQ(text(15), "62,00") << type;
    }
}

TEST_F(SprocketGeometryTest, ARoundRootOfAPulleyStays) {
    chooseType(3);
    enterToothing("12,7", "7,75", "17", "8,12");
    EXPECT_EQ(text(4), "61");
    EXPECT_EQ(text(15), "61,00");
}

// --- Text1_LostFocus -----------------------------------------------------------------------------------------------

TEST_F(SprocketGeometryTest, LeavingAFieldPutsTheMaskOnIt) {
    enter(measure(0), "12,7");
    leave();
    EXPECT_EQ(text(0), "12,70");
    enter(measure(0), "1.234,567");
    leave();
    EXPECT_EQ(text(0), "1234,57");
}

TEST_F(SprocketGeometryTest, ATextThatIsNoNumberBecomesZero) {
    enter(measure(9), "abc");
    leave();
    EXPECT_EQ(text(9), "0,00");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(SprocketGeometryTest, LeavingTheTeethGivesThePitchDiameterAlone) {
    enter(measure(0), "12,7");
    enter(measure(1), "17");
    leave();
    EXPECT_EQ(text(3), "69,12");
    EXPECT_EQ(text(4), "0,00");
    EXPECT_EQ(text(15), "0,00");
}

TEST_F(SprocketGeometryTest, LeavingNoTeethKeepsTheFocusWithoutAWord) {
    measure(1).setFocus();
    measure(1).setText("0");
    form().moveFocus(measure(2));
    EXPECT_EQ(form().activeControl(), &measure(1));
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(text(3), "0,00");
}

TEST_F(SprocketGeometryTest, PlainTypesHideWhatBelongsToTheDoubles) {
    fields().Label1(10).setVisible(true);
    fields().Text1(5).setVisible(true);
    fields().fraPDM.setVisible(true);
    fields().Label1(4).setCaption("x");
    enter(measure(0), "12,7");
    leave();
    EXPECT_FALSE(fields().Label1(10).visible());
    EXPECT_FALSE(fields().Text1(5).visible());
    EXPECT_FALSE(fields().fraPDM.visible());
    EXPECT_EQ(fields().Label1(4).caption(), "Llanta");
}

TEST_F(SprocketGeometryTest, AnExteriorOfExactlyTheLimitTakesTheRoundsAndOneAboveTheDiscs) {
    struct Row {
        const char* roller;
        const char* exterior;
        const char* entry;
    };
    // 29 teeth of 12,7: pitch diameter 117,46
    for (const Row& row : {Row{"2", "119", "002 - Cubo F-1140"}, Row{"3,6", "120", "002 - Cubo F-1140"},
                           Row{"5", "121", "001 - Disco F-114"}}) {
        openAnew();
        enterToothing("12,7", "7,75", "29", row.roller);
        EXPECT_EQ(text(15), row.exterior);
        EXPECT_EQ(fields().cboMatDisco.text(), row.entry) << row.exterior;
    }
}

TEST_F(SprocketGeometryTest, ADiscKeepsItsMaterialListWhateverItsExterior) {
    chooseType(1);
    enterSmallSprocket();
    EXPECT_EQ(fields().cboMatDisco.text(), "001 - Disco F-114");
    EXPECT_EQ(fields().cboMatDisco.listCount(), 4);
}

TEST_F(SprocketGeometryTest, RimAndHubWidthMakeTheTotalByType) {
    struct Row {
        int type;
        const char* total;
        const char* sketchTotal;
    };
    for (const Row& row : {Row{0, "30,25", ""}, Row{2, "50,25", "Ancho total 50,25"},
                           Row{3, "50,25", "Ancho total 50,25"}, Row{10, "30,25", ""}, Row{11, "10,00", ""}}) {
        openAnew();
        chooseType(row.type);
        fields().Text3(5).setText("");
        measure(17).setText("10,00");
        measure(10).setText("20");
        enter(measure(9), "10,25");
        leave();
        EXPECT_EQ(runtime::CDbl(text(17)), runtime::CDbl(row.total)) << row.type;
        EXPECT_EQ(sketch(5), row.sketchTotal) << row.type;
    }
}

TEST_F(SprocketGeometryTest, ADiscsTotalIsItsRimOnLeavingTheRimOnly) {
    chooseType(1);
    measure(17).setText("10");
    enter(measure(9), "8,256");
    leave();
    EXPECT_EQ(text(17), "8,26");
    measure(17).setText("10");
    fields().Text1(10).setText("5");
    fields().Text1(10).onLostFocus();
    EXPECT_EQ(text(17), "10");
}

TEST_F(SprocketGeometryTest, AnEmptyWidthMakesNoTotal) {
    measure(17).setText("10");
    measure(10).setText("");
    enter(measure(9), "8");
    leave();
    EXPECT_EQ(text(17), "10");
}

TEST_F(SprocketGeometryTest, TheTotalOfTwoHubsStandsUnroundedOnTheSketch) {
    chooseType(2);
    measure(10).setText("20,333");
    enter(measure(9), "10");
    leave();
    EXPECT_EQ(text(17), "50,67");
    EXPECT_EQ(sketch(5), "Ancho total 50,666");
}

TEST_F(SprocketGeometryTest, LeavingTheHubWidthCutsASmallPieceByTheNewTotal) {
    enterSmallSprocket();
    enter(measure(10), "30");
    leave();
    EXPECT_EQ(text(17), "36,00");
    EXPECT_EQ(fields().Text4(0).text(), "39,00");
}

TEST_F(SprocketGeometryTest, LeavingTheHubWidthCutsAPieceOfExactlyTheLimitToo) {
    enterToothing("12,7", "7,75", "29", "3,6");
    EXPECT_EQ(text(15), "120");
    enter(measure(10), "30");
    leave();
    EXPECT_EQ(fields().Text4(0).text(), "39,00");
}

TEST_F(SprocketGeometryTest, LeavingTheHubWidthOfALargePieceLeavesTheThickness) {
    enterLargeSprocket();
    enter(measure(10), "30");
    leave();
    EXPECT_EQ(text(17), "36,00");
    EXPECT_EQ(fields().Text4(0).text(), "8");
}

TEST_F(SprocketGeometryTest, ATypeWithoutTotalCountsItAsNothingOnLeavingTheHubWidth) {
    chooseType(11);
    enterSmallSprocket();
    enter(measure(10), "20");
    leave();
    EXPECT_EQ(fields().Text4(0).text(), "3,00");
}

TEST_F(SprocketGeometryTest, TheSecondHubsWidthGivesAVariableSprocketItsTotal) {
    chooseType(10);
    measure(9).setText("10");
    measure(10).setText("20");
    enter(measure(14), "5");
    leave();
    EXPECT_EQ(text(17), "35");
}

TEST_F(SprocketGeometryTest, TheSecondHubsWidthCutsASmallVariablePulleyWithNoTotal) {
    chooseType(11);
    enterSmallSprocket();
    fields().Text4(0).setText("12");
    measure(14).setFocus();
    leave();
    EXPECT_EQ(fields().Text4(0).text(), "3,00");
}

TEST_F(SprocketGeometryTest, TheSecondHubsWidthLeavesTheThicknessOfALargeVariablePulley) {
    chooseType(11);
    fields().Text1(15).setText("200");
    fields().Text4(0).setText("12");
    measure(14).setFocus();
    leave();
    EXPECT_EQ(fields().Text4(0).text(), "12");
}

TEST_F(SprocketGeometryTest, AVariablePulleyWhoseSecondHubIsKnownIsCutAsTheSprocketIs) {
    for (const int left : {10, 14}) {
        Texts thickness;
        for (const int type : {10, 11}) {
            openAnew();
            chooseType(type);
            enterSmallSprocket();
            enter(measure(14), "5");
            enter(measure(10), "20");
            fields().Text4(0).setText("12");
            enter(measure(left), "7");
            leave();
            thickness.push_back(fields().Text4(0).text());
        }
        EXPECT_EQ(thickness, (Texts{"8", "8"})) << left << ": a second hub that is not known gives 3,00";
    }
}

TEST_F(SprocketGeometryTest, AGearsFieldsOnlyTakeTheMask) {
    for (const int type : {8, 9}) {
        openAnew();
        chooseType(type);
        enter(measure(0), "12,7");
        enter(measure(1), "17");
        enter(measure(2), "7,75");
        enter(measure(9), "x");
        leave();
        EXPECT_EQ(text(1), "17,00") << type;
        EXPECT_EQ(text(3), "0,00") << type;
        EXPECT_EQ(text(15), "0,00") << type;
        EXPECT_EQ(fields().Text4(1).text(), "0,00") << type;
    }
}

TEST_F(SprocketGeometryTest, EveryPathOfThePlainTypesEndsWithTheApproximateWeight) {
    measure(15).setText("100");
    measure(9).setText("10");
    enter(measure(12), "6");
    leave();
    EXPECT_EQ(fields().txtPesu(17).text(), "1.000,00");
}

// --- Text1_Change, Text3_Change, keys ------------------------------------------------------------------------------

TEST_F(SprocketGeometryTest, EachMeasureWritesItsCaptionAsItIsTyped) {
    struct Row {
        int field;
        int caption;
        const char* expected;
    };
    for (const Row& row : {Row{9, 2, "LLanta 7,5x"}, Row{10, 3, "Ancho 7,5x"}, Row{15, 0, "Diametro exterior 7,5x"},
                           Row{16, 1, "Diametro cubo 7,5x"}, Row{17, 4, "Ancho Total 7,5x"}}) {
        openAnew();
        measure(row.field).setText("7,5x");
        EXPECT_EQ(sketch(row.caption), row.expected);
    }
    EXPECT_EQ(fields().Text3(4).tag(), "") << "only the rim's caption carries a tag";
    measure(9).setText("8");
    EXPECT_EQ(fields().Text3(2).tag(), "8");
}

TEST_F(SprocketGeometryTest, TheVariableSketchFollowsTheseFieldsAndNoOther) {
    for (int field = 0; field <= 18; ++field) {
        openAnew();
        chooseType(10);
        fields().txtDCV(6).setText("old");
        measure(field).setText("5");
        const bool follows = field == 9 || field == 10 || (field >= 14 && field <= 18);
        EXPECT_EQ(fields().txtDCV(6).text() != "old", follows) << field;
    }
}

TEST_F(SprocketGeometryTest, TheThirdCaptionIsCopiedToTheSecondHub) {
    fields().Text3(3).setText("Ancho 12");
    EXPECT_EQ(sketch(6), "Ancho 12");
}

TEST_F(SprocketGeometryTest, TeethKeywayAndScrewsTakeWholeNumbersOnly) {
    for (int field = 0; field <= 25; ++field) {
        measure(field).setText("1");
        screen::KeyPress comma{U','};
        measure(field).onKeyPress(comma);
        const bool whole = field == 1 || field == 12 || field == 13;
        EXPECT_EQ(comma.character, whole ? U'\0' : U',') << field;
        screen::KeyPress letter{U'a'};
        measure(field).onKeyPress(letter);
        EXPECT_EQ(letter.character, U'\0') << field;
    }
}

}  // namespace
}  // namespace velmora::support
