#include "velmora/estimate/disc_and_hub_costing.h"

#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/numbers.h"

#include "support/text_changes.h"
#include "wired_fields.h"

namespace velmora::support {
namespace {

class DiscAndHubCostingTest : public WiredFields {
  protected:
    screen::TextBox& cut(int i) { return fields().Text4(i); }
    const std::string& size(int i) { return fields().Text4(i).text(); }
    const std::string& amount(int i) { return fields().txtPesu(i).text(); }
    estimate::DiscAndHubCosting& costing() { return parts().costing; }
    /// Writes measures without leaving a field: exterior, total width, rim, hub diameter, hub width; the toothing
    /// gives the exterior that the thickness rule works out for itself.
    void measures(const char* exterior, const char* total, const char* rim, const char* hub, const char* hubWidth,
                  bool large) {
        estimate::FieldMap& f = fields();
        f.Text1(1).setText("38");
        f.Text1(2).setText("7,75");
        f.Text1(3).setText(large ? "153,79" : "69,12");
        f.Text1(16).setText(hub);
        f.Text1(10).setText(hubWidth);
        f.Text1(9).setText(rim);
        f.Text1(17).setText(total);
        f.Text1(15).setText(exterior);
    }
};

// --- msCalcularDisco and the thickness -----------------------------------------------------------------------------

TEST_F(DiscAndHubCostingTest, TheDiscIsCutFiveLargerThanTheExterior) {
    enterLargeSprocket();
    EXPECT_EQ(size(1), "164");
}

TEST_F(DiscAndHubCostingTest, TheExteriorIsComparedAsText) {
    struct Row {
        const char* exterior;
        const char* thickness;
        const char* asNumbers;  ///< the thickness that a comparison of numbers would give
        const char* diameter;
    };
    // Rim 80 lies at the last step, so that the texts decide; total width 200.
    for (const Row& row :
         {Row{"105", "203", "203", "110"}, Row{"1050", "203", "83", "1055"}, Row{"120", "203", "203", "125"},
          Row{"130", "81", "81", "135"}, Row{"250", "81", "81", "255"}, Row{"251", "82", "82", "256"},
          Row{"500", "82", "82", "505"}, Row{"501", "83", "83", "506"}, Row{"98", "83", "203", "103"}}) {
        measures(row.exterior, "200", "80", "100", "120", true);
        costing().msCalcularDisco();
        EXPECT_EQ(size(0), row.thickness) << row.exterior << ", as numbers " << row.asNumbers;
        EXPECT_EQ(size(1), row.diameter) << row.exterior;
    }
}

TEST_F(DiscAndHubCostingTest, AnExteriorOf98FirstCountsAsLargeAndTheThicknessRuleCorrectsIt) {
    enterSmallSprocket();
    fields().Text1(15).setText("98");
    fields().Text1(9).setText("10");
    TextChanges thicknesses(form(), cut(0));
    costing().msCalcularDisco();
    EXPECT_EQ(thicknesses.texts, (std::vector<std::string>{"13", "33"})) << "rim + 3, then total width + 3";
}

TEST_F(DiscAndHubCostingTest, ASmallDiscOrVariableTypeIsNotCorrectedSo) {
    for (const int type : {1, 10, 11}) {
        openAnew();
        chooseType(type);
        enterSmallSprocket();
        EXPECT_EQ(size(0), "8") << type << ": the first step above a rim of 6";
    }
}

TEST_F(DiscAndHubCostingTest, TheRimIsBroughtToTheNextCommercialThickness) {
    struct Row {
        const char* rim;
        const char* other;
        const char* iron;
    };
    for (const Row& row : {Row{"9", "10", "10"}, Row{"13", "14", "15"}, Row{"14", "15", "15"}, Row{"9,5", "12", "12"},
                           Row{"10,5", "12", "12"}, Row{"11,5", "14", "15"}, Row{"59", "60", "60"},
                           Row{"60", "70", "61"}, Row{"80", "81", "81"}}) {
        for (const bool iron : {false, true}) {
            fields().cboMatDisco.setListIndex(iron ? 1 : 0);
            measures("159", "200", row.rim, "95", "59", true);
            costing().msCalcularGrueso();
            EXPECT_EQ(size(0), iron ? row.iron : row.other) << row.rim << (iron ? " of iron" : "");
        }
    }
}

TEST_F(DiscAndHubCostingTest, WithoutARimTheThicknessStays) {
    measures("159", "65", "0", "95", "59", true);
    cut(0).setText("33");
    costing().msCalcularGrueso();
    EXPECT_EQ(size(0), "33");
}

TEST_F(DiscAndHubCostingTest, ARimThatIsNoNumberCountsAsNone) {
    measures("159", "65", "6", "95", "59", true);
    fields().Text1(9).setText("");
    cut(0).setText("33");
    EXPECT_NO_THROW(costing().msCalcularGrueso());
    EXPECT_EQ(size(0), "33");
}

TEST_F(DiscAndHubCostingTest, ReadAsANumberTheEmptyRimWouldBeAnError) {
    fields().Text1(9).setText("");
    EXPECT_THROW(estimate::number(fields().Text1(9)), runtime::RuntimeError);
}

TEST_F(DiscAndHubCostingTest, AWidthThatIsEmptyForAMomentRaisesNoErrorBetweenTwoKeys) {
    enterLargeSprocket();
    EXPECT_NO_THROW(fields().Text1(17).setText(""));
    EXPECT_NO_THROW(fields().Text1(16).setText(""));
    EXPECT_NO_THROW(fields().Text1(17).setText("7"));
    EXPECT_EQ(size(0), "8");
}

TEST_F(DiscAndHubCostingTest, AThicknessThatIsNoNumberStops) {
    measures("159", "65", "9", "95", "59", true);
    cut(0).setText("x");
    costing().msCalcularGrueso();
    EXPECT_EQ(size(0), "x");
}

TEST_F(DiscAndHubCostingTest, AToothingThatIsNoNumberOrGivesNothingStops) {
    measures("159", "65", "9", "95", "59", true);
    cut(0).setText("33");
    fields().Text1(3).setText("x");
    costing().msCalcularGrueso();
    EXPECT_EQ(size(0), "33");
    fields().Text1(3).setText("0");
    fields().Text1(2).setText("0");
    costing().msCalcularGrueso();
    EXPECT_EQ(size(0), "33");
}

TEST_F(DiscAndHubCostingTest, NoDiscIsWorkedOutWhileASaveRuns) {
    fields().bCargandoDisco = true;
    measures("159", "65", "9", "95", "59", true);
    cut(1).setText("1");
    costing().msCalcularDisco();
    EXPECT_EQ(size(1), "1");
    fields().cboMatDisco.setListIndex(1);
    EXPECT_EQ(amount(20), "0,95") << "nor does a material bring its prices";
}

// --- msCalcularCubo ------------------------------------------------------------------------------------------------

TEST_F(DiscAndHubCostingTest, ALargePieceHasAHub) {
    enterLargeSprocket();
    EXPECT_EQ(size(2), "100");
    EXPECT_EQ(size(3), "62");
    EXPECT_EQ(size(5), "3,95") << "100 x 100 x 64: two millimetres are added for the weight";
    EXPECT_EQ(amount(23), "1,02");
    EXPECT_EQ(amount(24), "1,5");
    EXPECT_EQ(amount(15), "2");
    EXPECT_EQ(amount(25), "7,93");
    EXPECT_TRUE(fields().fraCubo.enabled());
    EXPECT_FALSE(fields().lblCuboProceso.visible());
    EXPECT_EQ(fields().fraMatDisco.caption(), "Material del Disco");
}

TEST_F(DiscAndHubCostingTest, TheHubsLengthPassesThroughTheMultipleOfFive) {
    measures("159", "65", "6", "95", "59", true);
    TextChanges lengths(form(), cut(3));
    costing().msCalcularCubo();
    EXPECT_EQ(lengths.texts, (std::vector<std::string>{"65", "62"}));
}

TEST_F(DiscAndHubCostingTest, ASmallPieceIsOneRoundWithoutHub) {
    enterLargeSprocket();
    enter(fields().Text1(1), "17");
    enter(fields().Text1(2), "7,75");
    leave();
    for (const int i : {2, 3, 5}) {
        EXPECT_EQ(size(i), "0") << i;
    }
    for (const int i : {23, 24, 25}) {
        EXPECT_EQ(runtime::CDbl(amount(i)), i == 25 ? 0 : runtime::CDbl(i == 23 ? "1,02" : "1,5"))
            << i << ": the reload of the lists brings the hub's row once more";
    }
    EXPECT_FALSE(fields().fraCubo.enabled());
    EXPECT_TRUE(fields().lblCuboProceso.visible());
    EXPECT_EQ(fields().fraMatDisco.caption(), "Material del Piñon");
    EXPECT_EQ(amount(16), "1,58") << "79 x 0,02";
}

TEST_F(DiscAndHubCostingTest, AOnePiecesHubIsEmptiedByTheCostingItself) {
    enterLargeSprocket();
    fields().Text1(15).setText("120");
    costing().msCalcularCubo();
    for (const int i : {2, 3, 5}) {
        EXPECT_EQ(size(i), "0") << i;
    }
    for (const int i : {23, 24, 25}) {
        EXPECT_EQ(amount(i), "0") << i;
    }
    EXPECT_EQ(runtime::CDbl(amount(15)), 0);
    EXPECT_EQ(amount(16), "8,2");
}

TEST_F(DiscAndHubCostingTest, AVariableTypeHasAHubOfItsTotalWidthAtAnyExterior) {
    for (const int type : {10, 11}) {
        openAnew();
        chooseType(type);
        enterSmallSprocket();
        EXPECT_TRUE(fields().fraCubo.enabled()) << type;
        EXPECT_EQ(runtime::CDbl(size(3)), runtime::CDbl(fields().Text1(17).text()) + 3) << type;
        EXPECT_EQ(size(2), "50") << type;
        EXPECT_EQ(fields().fraMatDisco.caption(), "Material del Disco") << type;
    }
}

TEST_F(DiscAndHubCostingTest, TwoHubsDoubleWeightAndCut) {
    for (const int type : {2, 3}) {
        openAnew();
        chooseType(type);
        enterLargeSprocket();
        EXPECT_EQ(size(5), "7,9") << type;
        EXPECT_EQ(amount(15), "4") << type;
        EXPECT_EQ(amount(25), "15,85") << type << ": 7,9 x 1,5 + 4";
    }
}

TEST_F(DiscAndHubCostingTest, AVariableTypesTwoHubsAreCutOnce) {
    chooseType(10);
    enterLargeSprocket();
    EXPECT_EQ(amount(15), "2");
}

TEST_F(DiscAndHubCostingTest, WithoutWeightTheHubsCutCostsNothing) {
    measures("159", "65", "6", "95", "59", true);
    cut(2).setText("100");
    cut(5).setText("0");
    costing().rsMatCubo_MoveComplete();
    cut(5).setText("0");
    fields().txtPesu(11).setText("2");
    EXPECT_EQ(size(2), "100");
    EXPECT_EQ(amount(15), "0,00");
}

TEST_F(DiscAndHubCostingTest, NoHubIsPricedWhileASaveRuns) {
    enterLargeSprocket();
    fields().bCargandoCubo = true;
    fields().txtPesu(24).setText("9");
    costing().msCalcularCubo();
    EXPECT_EQ(amount(24), "9");
    EXPECT_EQ(size(2), "100") << "its sizes are worked out all the same";
}

// --- Material rows -------------------------------------------------------------------------------------------------

TEST_F(DiscAndHubCostingTest, ADiscsMaterialBringsPricesCutAndAmount) {
    enterLargeSprocket();
    fields().cboMatDisco.setListIndex(1);
    EXPECT_EQ(amount(20), "0,6");
    EXPECT_EQ(amount(21), "0,9");
    EXPECT_EQ(size(4), "1,33");
    EXPECT_EQ(amount(16), "6,56") << "164 x 0,04";
    EXPECT_EQ(amount(22), "7,76") << "1,33 x 0,9 + 6,56";
}

TEST_F(DiscAndHubCostingTest, AMaterialChosenWhileASaveRunsBringsNoPrices) {
    enterLargeSprocket();
    fields().bCargandoCubo = true;
    fields().cboMatDisco.setListIndex(2);
    fields().cboMatCubo.setListIndex(1);
    EXPECT_EQ(amount(20), "0,95");
    EXPECT_EQ(amount(21), "1,4");
    EXPECT_EQ(amount(23), "1,02");
    EXPECT_EQ(amount(24), "1,5");
    EXPECT_TRUE(cut(6).visible()) << "but a tube's inner diameter";
    EXPECT_TRUE(cut(7).visible());
    fields().bCargandoDisco = true;
    cut(7).setVisible(false);
    fields().cboMatCubo.setListIndex(1);
    EXPECT_FALSE(cut(7).visible()) << "the other guard stops that too";
}

TEST_F(DiscAndHubCostingTest, AHubsMaterialBringsPricesCutAndAmount) {
    for (const int type : {0, 2}) {
        openAnew();
        chooseType(type);
        enterLargeSprocket();
        fields().cboMatCubo.setListIndex(1);
        EXPECT_EQ(amount(23), "2") << type;
        EXPECT_EQ(amount(24), "3") << type;
        EXPECT_EQ(amount(15), type == 0 ? "3" : "6") << type << ": 100 x 0,03 a hub";
        EXPECT_EQ(amount(25), type == 0 ? "14,85" : "29,7") << type << ": 3,95 x 3 and the cut, a hub";
    }
}

TEST_F(DiscAndHubCostingTest, AMaterialWithoutRateCostsASmallCut) {
    enterLargeSprocket();
    fields().cboMatDisco.setListIndex(3);
    EXPECT_EQ(amount(16), "1,64");
}

TEST_F(DiscAndHubCostingTest, ADiscWithoutWeightIsCutForNothing) {
    material(3).formula = {};
    answerMaterials(database, materials);
    enterLargeSprocket();
    fields().cboMatDisco.setListIndex(1);
    cut(4).setText("0");
    fields().cboMatDisco.setListIndex(1);
    EXPECT_EQ(size(4), "0");
    EXPECT_EQ(amount(16), "0,00");
    EXPECT_EQ(amount(22), "0");
}

TEST_F(DiscAndHubCostingTest, InnerDiametersShowForTubesOnly) {
    enterLargeSprocket();
    struct Row {
        int disc;
        bool shown;
    };
    for (const Row& row : {Row{2, true}, Row{0, false}}) {
        fields().cboMatDisco.setListIndex(row.disc);
        EXPECT_EQ(cut(6).visible(), row.shown);
        EXPECT_EQ(fields().D(4).visible(), row.shown);
    }
    for (const Row& row : {Row{1, true}, Row{0, false}, Row{2, false}}) {
        fields().cboMatCubo.setListIndex(row.disc);
        EXPECT_EQ(cut(7).visible(), row.shown);
        EXPECT_EQ(fields().D(5).visible(), row.shown);
    }
}

TEST_F(DiscAndHubCostingTest, ARowThatIsGoneBringsNoPrices) {
    enterLargeSprocket();
    materials.erase(materials.begin() + 2);
    answerMaterials(database, materials);
    fields().cboMatDisco.setListIndex(1);
    EXPECT_EQ(amount(20), "0,95");
    EXPECT_FALSE(fields().rsMatDisco->hasRows());
}

TEST_F(DiscAndHubCostingTest, FormulasOffMakeATubeASolidRound) {
    enterLargeSprocket();
    fields().cboMatDisco.setListIndex(2);
    cut(6).setText("100");
    const std::string tube = size(4);
    cut(0).setText("9");
    cut(0).setText("8");
    EXPECT_EQ(size(4), "0,83") << "(164 + 100) x (164 - 100) x 8";
    fields().chkFormulas.setChecked(false);
    cut(0).setText("9");
    cut(0).setText("8");
    EXPECT_EQ(size(4), "1,33");
    EXPECT_EQ(tube, "1,33") << "the inner diameter itself changes no weight";
}

TEST_F(DiscAndHubCostingTest, CutOfTheDiscAloneIsARoutineOfItsOwn) {
    enterLargeSprocket();
    fields().txtPesu(16).setText("1");
    costing().msCorteDisco();
    EXPECT_EQ(amount(16), "8,2");
    cut(1).setText("x");
    fields().txtPesu(16).setText("1");
    EXPECT_NO_THROW(costing().msCorteDisco());
    EXPECT_EQ(amount(16), "1");
}

// --- Text4 ---------------------------------------------------------------------------------------------------------

TEST_F(DiscAndHubCostingTest, ASizeOfTheDiscWeighsAndPricesItAsItIsTyped) {
    enterLargeSprocket();
    enter(cut(0), "20");
    EXPECT_EQ(size(4), "3,32");
    EXPECT_EQ(amount(16), "8,2") << "a large disc's cut follows its material only";
    EXPECT_EQ(amount(22), "12,85");
    EXPECT_EQ(amount(7), "20,78");
    enter(cut(1), "200");
    EXPECT_EQ(size(4), "4,93");
    EXPECT_EQ(amount(16), "8,2");
}

TEST_F(DiscAndHubCostingTest, TheCutOfASmallPieceFollowsItsDiameter) {
    enterSmallSprocket();
    enter(cut(1), "100");
    EXPECT_EQ(amount(16), "2");
}

TEST_F(DiscAndHubCostingTest, ASizeOfTheHubWeighsAndPricesItAsItIsTyped) {
    enterLargeSprocket();
    enter(cut(3), "98");
    EXPECT_EQ(size(5), "6,17") << "100 x 100 x 100";
    EXPECT_EQ(amount(15), "2");
    EXPECT_EQ(amount(25), "11,26");
    enter(cut(2), "0");
    EXPECT_EQ(size(5), "0");
    EXPECT_EQ(amount(15), "0,00");
    EXPECT_EQ(amount(25), "0");
}

TEST_F(DiscAndHubCostingTest, TwoHubsWeighTheRoundedWeightOfOneTwice) {
    chooseType(2);
    enterLargeSprocket();
    enter(cut(3), "21,45");
    EXPECT_EQ(size(5), "2,9") << "1,445… rounds to 1,45 before it is doubled; 2,89 by doubling first";
}

TEST_F(DiscAndHubCostingTest, ATypedWeightOfTwoHubsIsTakenAsItIs) {
    chooseType(2);
    enterLargeSprocket();
    enter(cut(5), "3");
    EXPECT_EQ(size(5), "3");
    EXPECT_EQ(amount(25), "8,5") << "3 x 1,5 + two cuts";
}

TEST_F(DiscAndHubCostingTest, AWeightThatIsTypedPricesItsLine) {
    enterLargeSprocket();
    enter(cut(4), "10");
    EXPECT_EQ(amount(22), "22,2");
    enter(cut(5), "10");
    EXPECT_EQ(amount(25), "17");
    EXPECT_EQ(amount(7), "39,2");
}

TEST_F(DiscAndHubCostingTest, ASizeThatIsNoNumberWeighsNothingOrLeavesTheWeight) {
    enterLargeSprocket();
    EXPECT_NO_THROW(cut(0).setText("x"));
    EXPECT_EQ(size(4), "0");
    EXPECT_NO_THROW(cut(3).setText("x"));
    EXPECT_EQ(size(5), "3,95") << "two millimetres cannot be added to it";
}

TEST_F(DiscAndHubCostingTest, TheSecondEventCountsTheHubsSizesAsTheDiscs) {
    enterLargeSprocket();
    cut(4).setText("9");
    cut(5).setText("9");
    cut(2).onDblClick();
    EXPECT_EQ(size(4), "1,33");
    EXPECT_EQ(size(5), "9");
    cut(4).setText("9");
    cut(3).onDblClick();
    EXPECT_EQ(size(4), "1,33");
    cut(4).setText("9");
    cut(7).onDblClick();
    EXPECT_EQ(size(4), "9");
    EXPECT_EQ(size(5), "3,95");
    cut(5).setText("9");
    cut(2).setText("105");
    cut(2).setText("100");
    EXPECT_EQ(size(5), "3,95") << "which the first event weighs by the hub's sizes";
}

TEST_F(DiscAndHubCostingTest, TheSecondEventOfEveryIndex) {
    struct Row {
        int index;
        const char* disc;
        const char* hub;
    };
    for (const Row& row :
         {Row{0, "1,33", "9"}, Row{1, "1,33", "9"}, Row{2, "1,33", "9"}, Row{3, "1,33", "9"}, Row{4, "9", "9"},
          Row{5, "9", "3,95"}, Row{6, "9", "3,95"}, Row{7, "9", "3,95"}, Row{50, "9", "9"}, Row{53, "9", "9"}}) {
        openAnew();
        enterLargeSprocket();
        cut(4).setText("9");
        cut(5).setText("9");
        cut(row.index).onDblClick();
        EXPECT_EQ(size(4), row.disc) << row.index;
        EXPECT_EQ(size(5), row.hub) << row.index;
    }
}

TEST_F(DiscAndHubCostingTest, TheSecondEventIsTheDoubleClick) {
    enterLargeSprocket();
    enter(cut(3), "98");
    const std::string weight = size(4);
    cut(4).setText("9");
    EXPECT_EQ(size(4), "9") << "typing raised the first event alone";
    cut(3).onDblClick();
    EXPECT_EQ(size(4), weight);
}

TEST_F(DiscAndHubCostingTest, NoOtherEventOfTheFieldRunsTheSecondBody) {
    enterLargeSprocket();
    cut(4).setText("9");
    cut(3).onGotFocus();
    cut(3).onLostFocus();
    EXPECT_EQ(size(4), "9");
}

TEST_F(DiscAndHubCostingTest, LeavingASizePutsTheMaskOnItAndZeroForNoNumber) {
    enterLargeSprocket();
    enter(cut(1), "1.234,567");
    leave();
    EXPECT_EQ(size(1), "1234,57");
    enter(cut(1), "x");
    leave();
    EXPECT_EQ(size(1), "0,00");
}

TEST_F(DiscAndHubCostingTest, SizesTakeNumbersWithDecimals) {
    cut(1).setText("1");
    screen::KeyPress point{U'.'};
    cut(1).onKeyPress(point);
    EXPECT_EQ(point.character, U',');
    screen::KeyPress letter{U'x'};
    cut(1).onKeyPress(letter);
    EXPECT_EQ(letter.character, U'\0');
}

// --- msMostrarProcesoCubo ------------------------------------------------------------------------------------------

TEST_F(DiscAndHubCostingTest, TheCaptionsOfTheProcessFollowTheExteriorAsItChanges) {
    struct Row {
        const char* exterior;
        bool shown;
    };
    for (const Row& row :
         {Row{"100", true}, Row{"120", true}, Row{"120,01", false}, Row{"98", true}, Row{"", false}, Row{"x", false}}) {
        fields().Text1(15).setText(row.exterior);
        EXPECT_EQ(fields().lblCuboProceso.visible(), row.shown) << row.exterior;
        EXPECT_EQ(fields().lblDiscoProceso.visible(), row.shown) << row.exterior;
    }
    EXPECT_EQ(fields().lblCuboProceso.foreColor(), 0xFF0000);
    EXPECT_EQ(fields().lblDiscoProceso.foreColor(), 0xFF0000);
}

TEST_F(DiscAndHubCostingTest, WithoutAnExteriorTheCaptionsOfTheProcessAreHiddenFromTheFirstMomentOn) {
    const auto shown = [this] { return fields().lblCuboProceso.visible() || fields().lblDiscoProceso.visible(); };
    EXPECT_FALSE(shown()) << "as the form opens";
    for (const char* none : {"0", "0,00", "", "x"}) {
        fields().Text1(15).setText("100");
        EXPECT_TRUE(shown());
        fields().Text1(15).setText(none);
        EXPECT_FALSE(shown()) << none;
    }
    fields().Text1(15).setText("0");
    costing().msCalcularCubo();
    EXPECT_FALSE(shown()) << "nor does the costing of one piece show them";
}

TEST_F(DiscAndHubCostingTest, TheCaptionsOfTheProcessAreBlueWheneverTheyAreShown) {
    fields().lblCuboProceso.setForeColor(screen::colors::black);
    fields().Text1(15).setText("100");
    fields().lblCuboProceso.setForeColor(screen::colors::black);
    costing().msCalcularCubo();
    EXPECT_TRUE(fields().lblCuboProceso.visible());
    EXPECT_EQ(fields().lblCuboProceso.foreColor(), screen::colors::blue);
}

TEST_F(DiscAndHubCostingTest, CaptionsThatWaitedForTheCostingWouldStillShowTheOldProcess) {
    fields().Text1(15).setText("100");
    fields().Text1(15).setText("200");
    EXPECT_EQ(size(2), "0,00") << "no costing ran";
    EXPECT_FALSE(fields().lblDiscoProceso.visible());
}

}  // namespace
}  // namespace velmora::support
