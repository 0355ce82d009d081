#include "velmora/estimate/totals.h"

#include "fields_alone.h"
#include "wired_fields.h"

namespace velmora::support {
namespace {

/// Totals on the fields of a fixture.
template <typename Fixture>
class TotalsOn : public Fixture {
  protected:
    screen::TextBox& box(int i) { return this->fields().txtPesu(i); }
    const std::string& amount(int i) { return box(i).text(); }
    /// Writes amounts with the totals off, then sums after the field of this index.
    void sum(int index, std::initializer_list<std::pair<int, const char*>> amounts) {
        this->fields().bCargandoPropuesta = true;
        for (const auto& [i, text] : amounts) {
            box(i).setText(text);
        }
        this->fields().bCargandoPropuesta = false;
        totals().msRecalcularImportes(index);
    }
    estimate::Totals& totals() { return totals_; }

  private:
    estimate::CutPrices prices_{this->session};
    estimate::Weights weights_{this->fields()};
    session::KestraUtil util_{this->screen, this->connection};
    estimate::Totals totals_{this->fields(), prices_, weights_, util_};
};

/// The fields alone: the amounts' events are the totals', no other field has any.
class TotalsTest : public TotalsOn<FieldsAlone> {
  protected:
    TotalsTest() {
        fields().txtPesu.on(&screen::TextBox::onChange, {[this](int i) { totals().txtPesu_Change(i); }});
        fields().txtPesu.on(&screen::TextBox::onLostFocus, {[this](int i) { totals().txtPesu_LostFocus(i); }});
        fields().txtPesu.on(&screen::TextBox::onKeyPress,
                            {[this](int i, screen::KeyPress& key) { totals().txtPesu_KeyPress(i, key); }});
    }
};

/// The fields with the classes behind them: sums that a measure or a bar's size starts.
class TotalsOfWiredFieldsTest : public TotalsOn<WiredFields> {};

// --- Piece and lot -------------------------------------------------------------------------------------------------

TEST_F(TotalsTest, APieceIsMaterialSawLabourWorkAndSundries) {
    sum(7, {{5, "1"}, {7, "10"}, {8, "2,5"}, {9, "0"}, {14, "4"}, {11, "3"}});
    EXPECT_EQ(amount(10), "17,5");
    EXPECT_EQ(amount(12), "52,5");
}

TEST_F(TotalsTest, EveryPartOfThePieceSumsAnew) {
    for (const int index : {7, 8, 9}) {
        sum(index, {{5, "1"}, {7, "10"}, {8, "2"}, {9, "3"}, {14, "4"}, {11, "2"}, {10, "0"}, {12, "0"}});
        EXPECT_EQ(amount(10), "20") << index;
        EXPECT_EQ(amount(12), "40") << index;
        EXPECT_EQ(amount(7), "10") << index << ": the material is not summed";
    }
}

TEST_F(TotalsTest, SundriesAndTheLinesOfMaterialSumTheMaterialToo) {
    for (const int index : {5, 6, 22, 25}) {
        sum(index, {{7, "1"}, {22, "10,005"}, {25, "5"}, {14, "0"}, {5, "0"}, {8, "0"}, {9, "0"}, {11, "2"}});
        EXPECT_EQ(amount(7), "15,01") << index;
        EXPECT_EQ(amount(10), "15,01") << index;
        EXPECT_EQ(amount(12), "30,02") << index;
    }
}

TEST_F(TotalsTest, ATypedTotalOrUnitsTouchTheLotAlone) {
    for (const int index : {10, 11}) {
        sum(index, {{7, "1"}, {22, "10"}, {25, "5"}, {10, "7"}, {11, "4"}, {12, "0"}});
        EXPECT_EQ(amount(7), "1") << index;
        EXPECT_EQ(amount(10), "7") << index;
        EXPECT_EQ(amount(12), "28") << index;
    }
}

TEST_F(TotalsTest, OtherFieldsSumNothing) {
    for (const int index : {0, 1, 2, 3, 4, 12, 13, 15, 17, 20, 23}) {
        sum(index, {{7, "1"}, {22, "10"}, {10, "7"}, {11, "4"}, {12, "0"}});
        EXPECT_EQ(amount(7), "1") << index;
        EXPECT_EQ(amount(10), "7") << index;
        EXPECT_EQ(amount(12), "0") << index;
    }
}

TEST_F(TotalsTest, ChangesOfAFieldSumAsTheyAreTyped) {
    box(11).setText("2");
    box(8).setText("3,5");
    EXPECT_EQ(amount(10), "3,5");
    EXPECT_EQ(amount(12), "7");
    box(22).setText("10");
    EXPECT_EQ(amount(7), "10");
    EXPECT_EQ(amount(12), "27");
}

TEST_F(TotalsTest, NothingIsSummedWhileAProposalIsLoaded) {
    fields().bCargandoPropuesta = true;
    box(11).setText("2");
    box(8).setText("3,5");
    EXPECT_EQ(amount(10), "0,00");
}

TEST_F(TotalsTest, AnAmountThatIsNoNumberLeavesTheSumAsItWas) {
    box(11).setText("2");
    box(8).setText("3");
    EXPECT_NO_THROW(box(8).setText("x"));
    EXPECT_EQ(amount(10), "3");
    EXPECT_EQ(amount(12), "6");
}

TEST_F(TotalsTest, HalvesOfACentGoAwayFromZero) {
    sum(7, {{7, "1,005"}, {8, "0"}, {9, "0"}, {5, "0"}, {14, "0"}, {11, "1"}});
    EXPECT_EQ(amount(10), "1,01");
}

// --- Fijo Sierra ---------------------------------------------------------------------------------------------------

TEST_F(TotalsOfWiredFieldsTest, TheSawsChargeIsSpreadOverTheUnitsWhenItIsEnteredLast) {
    box(11).setText("2");
    box(8).setText("10");
    enter(box(14), "4");
    leave();
    EXPECT_EQ(amount(10), "12");
    EXPECT_EQ(amount(12), "24");
}

TEST_F(TotalsOfWiredFieldsTest, AnyOtherFieldEnteredLastAddsTheSawsChargeWhole) {
    box(11).setText("2");
    enter(box(14), "4");
    enter(box(8), "10");
    leave();
    EXPECT_EQ(amount(10), "14");
    EXPECT_EQ(amount(12), "28");
}

TEST_F(TotalsTest, WithoutUnitsTheChargeCountsNothing) {
    for (const char* units : {"0", ""}) {
        sum(14, {{7, "1"}, {8, "2"}, {9, "3"}, {5, "4"}, {14, "4"}, {10, "10"}, {11, units}});
        EXPECT_EQ(amount(10), "10") << units;
    }
}

TEST_F(TotalsTest, APieceWithoutPriceYetTakesNoCharge) {
    sum(14, {{7, "1"}, {8, "2"}, {9, "3"}, {5, "4"}, {14, "4"}, {10, "0"}, {11, "2"}});
    EXPECT_EQ(amount(10), "10");
}

TEST_F(TotalsTest, ASpreadChargeIsRoundedByItself) {
    sum(14, {{7, "1"}, {8, "0"}, {9, "0"}, {5, "0"}, {14, "10"}, {10, "1"}, {11, "3"}});
    EXPECT_EQ(amount(10), "4,33");
}

// --- Disc and hub --------------------------------------------------------------------------------------------------

TEST_F(TotalsTest, TheDiscsLineRoundsTheMaterialBeforeTheCutIsAdded) {
    fields().Text4(4).setText("1,33");
    for (const int index : {16, 21}) {
        sum(index, {{16, "0,005"}, {21, "1,5"}, {22, "0"}, {25, "1"}, {11, "1"}});
        EXPECT_EQ(amount(22), "2,01") << index << ": 1,995 is 2,00 before half a cent is added";
        EXPECT_EQ(amount(7), "3,01") << index;
    }
}

TEST_F(TotalsTest, ACutOfNothingOrLessIsWrittenAsZero) {
    fields().Text4(4).setText("2");
    for (const char* cut : {"0", "-5"}) {
        sum(16, {{16, cut}, {21, "1,5"}});
        EXPECT_EQ(amount(16), "0,00") << cut;
        EXPECT_EQ(amount(22), "3") << cut;
    }
}

TEST_F(TotalsOfWiredFieldsTest, TheHubsLineHasItsCutWorkedOutAnew) {
    enterLargeSprocket();
    enter(box(24), "2");
    EXPECT_EQ(amount(15), "2");
    EXPECT_EQ(amount(25), "9,9") << "3,95 x 2 + 100 x 0,02";
    EXPECT_EQ(amount(7), "19,96");
}

TEST_F(TotalsOfWiredFieldsTest, TheHubsCutIsWrittenByAnySum) {
    enterLargeSprocket();
    box(15).setText("9");
    EXPECT_EQ(amount(15), "2");
    chooseType(2);
    totals();
    box(8).setText("1");
    EXPECT_EQ(amount(15), "4") << "one cut a hub";
}

TEST_F(TotalsTest, WithoutAHubTheCutReadsZeroWithDecimals) {
    sum(3, {{15, "5"}});
    EXPECT_EQ(amount(15), "0,00");
}

TEST_F(TotalsTest, AProductWithoutHubHasItsHubEmptiedByAnyChange) {
    for (const int type : {1, 14}) {
        chooseType(type);
        fields().bCargandoPropuesta = true;
        for (const int i : {2, 3, 5}) {
            fields().Text4(i).setText("7");
        }
        for (const int i : {15, 23, 24, 25}) {
            box(i).setText("7");
        }
        box(8).setText("0");
        fields().bCargandoPropuesta = false;
        box(8).setText("1");
        for (const int i : {2, 3, 5}) {
            EXPECT_EQ(fields().Text4(i).text(), "0") << type << ", " << i;
        }
        for (const int i : {15, 23, 24, 25}) {
            EXPECT_EQ(amount(i), "0") << type << ", " << i;
        }
    }
}

TEST_F(TotalsTest, AHubsCutOfNothingReadsZeroWithDecimalsAndADiscsZeroAlone) {
    struct Row {
        int type;
        const char* text;
    };
    for (const Row& row : {Row{1, "0"}, Row{0, "0,00"}}) {
        chooseType(row.type);
        box(8).setText("1");
        box(8).setText("2");
        EXPECT_EQ(amount(15), row.text) << row.type;
    }
}

// --- txtPesu's other events ----------------------------------------------------------------------------------------

TEST_F(TotalsTest, LeavingAnAmountPutsTheMaskOnItAndZeroForNoNumber) {
    for (const int i : {4, 5, 7, 8, 9, 10, 11, 12, 14, 15, 16, 17, 21, 22, 24, 25, 50, 51, 52, 53, 54, 55, 56, 57}) {
        fields().bCargandoPropuesta = true;
        box(i).setText("1234,567");
        box(i).onLostFocus();
        EXPECT_EQ(amount(i), "1.234,57") << i;
        box(i).setText("x");
        box(i).onLostFocus();
        EXPECT_EQ(amount(i), "0,00") << i;
    }
}

TEST_F(TotalsTest, LeavingAnotherFieldLeavesItsText) {
    for (const int i : {1, 2, 3, 6, 13, 20, 23}) {
        box(i).setText("x");
        box(i).onLostFocus();
        EXPECT_EQ(amount(i), "x") << i;
    }
}

TEST_F(TotalsTest, WhereTheRemarksCannotBeEnteredNoErrorIsRaised) {
    chooseType(13);
    fields().txtObservaciones.setEnabled(false);
    EXPECT_NO_THROW(box(57).onLostFocus());
}

TEST_F(TotalsTest, AmountsTakeNumbersAndOtherFieldsAnyKey) {
    const std::vector<int> numeric{4,  5,  6,  7,  8,  9,  10, 11, 12, 14, 15, 16, 17,
                                   21, 22, 24, 25, 50, 51, 52, 53, 54, 55, 56, 57};
    fields().txtPesu.forEach([&](screen::TextBox& field) {
        screen::KeyPress letter{U'a'};
        field.onKeyPress(letter);
        const bool filtered = std::find(numeric.begin(), numeric.end(), field.index()) != numeric.end();
        EXPECT_EQ(letter.character, filtered ? U'\0' : U'a') << field.index();
    });
}

// --- Rack ----------------------------------------------------------------------------------------------------------

TEST_F(TotalsOfWiredFieldsTest, ARacksPriceIsItsMaterialLine) {
    chooseType(13);
    sum(55, {{55, "2"}, {56, "3"}, {8, "1"}, {14, "0"}, {9, "0"}, {5, "0"}, {11, "2"}});
    EXPECT_EQ(amount(57), "2,00");
    EXPECT_EQ(amount(7), "2");
    EXPECT_EQ(amount(10), "3");
    EXPECT_EQ(amount(12), "6");
    fields().Text4(53).setText("1000");
    EXPECT_EQ(amount(57), "3.002,00");
    EXPECT_EQ(amount(12), "6006");
}

TEST_F(TotalsOfWiredFieldsTest, ARacksSizesAreWeighedAndPricedButNotSummedByTheirOwnIndex) {
    chooseType(13);
    sum(3, {{55, "2"}, {56, "3"}, {7, "5"}});
    fields().bCargandoPropuesta = true;
    for (const int i : {50, 51, 52}) {
        fields().Text4(i).setText("100");
    }
    fields().Text4(53).setText("0");
    fields().bCargandoPropuesta = false;
    fields().rsMatCre.onMoveComplete = nullptr;
    totals().msRecalcularImportes(51);
    EXPECT_EQ(fields().Text4(53).text(), "7,85");
    EXPECT_EQ(amount(57), "25,55");
}

TEST_F(TotalsTest, ARacksMaterialIsItsBarWhereOthersSumDiscAndHub) {
    chooseType(13);
    for (const int index : {5, 6, 22, 25}) {
        sum(index,
            {{7, "1"}, {22, "10"}, {25, "5"}, {57, "33,90"}, {14, "0"}, {5, "0"}, {8, "0"}, {9, "0"}, {11, "2"}});
        EXPECT_EQ(amount(7), "33,9") << index;
        EXPECT_EQ(amount(10), "33,9") << index;
        EXPECT_EQ(amount(12), "67,8") << index;
    }
}

// --- msMostrarFormula ----------------------------------------------------------------------------------------------

TEST_F(TotalsTest, TheApproximateWeightIsToldInWordsWithTheLocalesComma) {
    fields().Text1(1).setText("17");
    fields().Text1(15).setText("74,5");
    fields().Text1(9).setText("6");
    fields().Text1(16).setText("45");
    fields().Text1(10).setText("24");
    fields().Text1(7).setText("24");
    fields().Text1(17).setText("30");
    fields().Text1(2).setText("7,75");
    totals().msMostrarFormula();
    const std::string words = "[((74,5 x 6) + (45 x 24))] = 1527 - [(24 x 30) + ((7,75 x 6) x 17)] = 1510,5";
    EXPECT_EQ(box(17).toolTip(), words);
    EXPECT_EQ(fields().lblFormulaPeso.caption(), words);
    EXPECT_EQ(amount(17), "16,50");
}

TEST_F(TotalsOfWiredFieldsTest, AClearedApproximateWeightHasNoWords) {
    enterLargeSprocket();
    totals().msMostrarFormula();
    totals().clearFormula();
    EXPECT_EQ(box(17).toolTip(), "");
    EXPECT_EQ(fields().lblFormulaPeso.caption(), "");
    EXPECT_EQ(amount(17), "0,00");
}

TEST_F(TotalsTest, AMeasureThatIsNoNumberCountsNothingInTheApproximateWeight) {
    for (const int i : {1, 2, 7, 9, 10, 15, 16, 17}) {
        fields().Text1(i).setText("x");
    }
    totals().msMostrarFormula();
    EXPECT_EQ(box(17).toolTip(), "[((0 x 0) + (0 x 0))] = 0 - [(0 x 0) + ((0 x 0) x 0)] = 0");
    EXPECT_EQ(amount(17), "0,00");
}

TEST_F(TotalsOfWiredFieldsTest, ShowingTheApproximateWeightTouchesNeitherWeightsNorPrices) {
    enterLargeSprocket();
    const std::string price = amount(10);
    totals().msMostrarFormula();
    EXPECT_EQ(fields().Text4(4).text(), "1,33");
    EXPECT_EQ(fields().Text4(5).text(), "3,95");
    EXPECT_EQ(amount(10), price);
    EXPECT_EQ(amount(17), "3.232,00") << "(6 x 159 + 95 x 59) - (6 x 7,75 x 38 + 65 x 24), not the stock's kilograms";
}

}  // namespace
}  // namespace velmora::support
