#include "velmora/estimate/double_sprockets.h"

#include <gmock/gmock.h>

#include "velmora/data/product_types.h"

#include "wired_fields.h"

namespace velmora::support {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array multiples{4, 5, 6, 7, 12, 14};

/// Chain 3 with 21 teeth: B2 20, gap 4, A 45, exterior 136. Also with 17,5.
class DoubleSprocketsTest : public WiredFields {
  protected:
    DoubleSprocketsTest() {
        const std::vector<std::string> columns{"PDM_Paso", "PDM_AC", "PDM_Rodillo", "PDM_b1", "PDM_b2",
                                               "PDM_X",    "PDM_H1", "PDM_De",      "PDM_Dp", "PDM_Df",
                                               "PDM_Dm",   "PDM_D2", "PDM_A"};
        database.answerAllThatBegin("Select * from PDM where ", columns);
        for (const char* teeth : {"21.00", "17.50"}) {
            database.answer(std::string("Select * from PDM where PDm_tipo = 3 AND PDm_z=") + teeth, columns,
                            {{19.05, 11.68, 12.07, 8, 20, 4, 2.5, 136, 127.82, 115.75, 90, 20, 45}});
        }
    }
    const std::string& text(int i) { return fields().Text1(i).text(); }
    const std::string& pdm(int i) { return fields().txtPDM(i).text(); }
    const std::string& triple(int i) { return fields().txtTriple(i).text(); }

    estimate::DoubleSprockets& doubles() { return parts().doubles; }
    void lookUp(int type, std::string_view teeth = "21") {
        chooseType(type);
        fields().cboDobles.setListIndex(3);
        connection.clear();
        enter(fields().Text1(1), teeth);
        leave();
    }
};

// --- The look-up ---------------------------------------------------------------------------------------------------

TEST_F(DoubleSprocketsTest, ARowIsLookedUpByChainAndTeeth) {
    lookUp(4);
    EXPECT_THAT(connection.logged("PDM"), ElementsAre("Select * from PDM where PDm_tipo = 3 AND PDm_z=21.00"));
    const std::vector<std::pair<int, const char*>> expected{
        {0, "19,05"}, {8, "11,68"}, {2, "12,07"}, {7, "20"},    {3, "127,82"}, {4, "115,75"}, {15, "136"},
        {16, "90"},   {17, "45"},   {5, "8"},     {6, "10,13"}, {10, "25"},    {11, "4"},     {9, "20"}};
    for (const auto& [i, value] : expected) {
        EXPECT_EQ(text(i), value) << i;
    }
}

TEST_F(DoubleSprocketsTest, TeethWithDecimalsAreLookedUpAsTyped) {
    lookUp(4, "17,5");
    EXPECT_THAT(connection.logged("PDM"), ElementsAre("Select * from PDM where PDm_tipo = 3 AND PDm_z=17.50"));
    EXPECT_EQ(text(15), "136");
}

TEST_F(DoubleSprocketsTest, TheRimOfADoubleIsB2AndThatOfATripleThreeRimsAndTwoGaps) {
    for (const int type : multiples) {
        lookUp(type);
        const bool three = type == data::tripleSprocket || type == data::tripleDisc;
        EXPECT_EQ(text(9), three ? "32" : "20") << type;
        EXPECT_EQ(pdm(4), text(9)) << type;
        EXPECT_EQ(fields().Label1(4).caption(), three ? "Llanta (B3)" : "Llanta (B2)") << type;
    }
}

TEST_F(DoubleSprocketsTest, TheRowIsSpreadOverTheSketchOfTheDouble) {
    lookUp(4);
    const std::vector<std::string> expected{"136", "90", "12,63", "45", "20", "25", "8", "4", "8"};
    for (int i = 0; i <= 8; ++i) {
        EXPECT_EQ(pdm(i), expected[static_cast<std::size_t>(i)]) << i;
    }
}

TEST_F(DoubleSprocketsTest, TheRowIsSpreadOverTheSketchOfTheTriple) {
    for (const int type : {12, 14}) {
        lookUp(type);
        const std::vector<std::string> expected{"136", "90", "12,63", "8", "4", "8", "4", "8", "25", "32", "57"};
        for (int i = 0; i <= 10; ++i) {
            EXPECT_EQ(triple(i), expected[static_cast<std::size_t>(i)]) << type << " " << i;
        }
        EXPECT_EQ(text(17), "57") << type;
    }
}

TEST_F(DoubleSprocketsTest, ADoubleDiscHasNoHubAndIsAsWideAsItsRim) {
    for (const int type : {6, 7}) {
        lookUp(type);
        EXPECT_EQ(text(16), "0") << type;
        EXPECT_EQ(text(10), "0") << type;
        EXPECT_EQ(text(17), "20") << type;
    }
}

TEST_F(DoubleSprocketsTest, UnknownTeethAreToldAndChangeNoField) {
    for (const int type : multiples) {
        lookUp(type);
        const std::string disc = fields().Text4(0).text();
        screen.messages.clear();
        enter(fields().Text1(1), "22");
        leave();
        ASSERT_EQ(screen.messages.size(), 1u) << type;
        EXPECT_EQ(screen.messages[0].text, "Error: No Existen datos para piñon doble de Z 22,00");
        EXPECT_EQ(text(1), "22,00") << "beside the values of the teeth before";
        EXPECT_EQ(text(15), "136") << type;
        EXPECT_EQ(fields().Text4(0).text(), disc) << type;
    }
}

TEST_F(DoubleSprocketsTest, LeavingAnyFieldShowsWhatBelongsToTheDoubles) {
    chooseType(4);
    for (screen::Control* hidden :
         std::initializer_list<screen::Control*>{&fields().Label1(10), &fields().Text1(5), &fields().fraPDM}) {
        hidden->setVisible(false);
        enter(fields().Text1(12), "8");
        leave();
        EXPECT_TRUE(hidden->visible()) << hidden->fullName();
    }
}

TEST_F(DoubleSprocketsTest, EveryFieldButTheBoreWorksOutDiscAndHub) {
    lookUp(4);
    for (const int i : {7, 12}) {
        fields().Text4(1).setText("1");
        enter(fields().Text1(i), "21");
        leave();
        EXPECT_EQ(fields().Text4(1).text(), i == 7 ? "1" : "141") << i;
    }
}

// --- Hub and gap ---------------------------------------------------------------------------------------------------

TEST_F(DoubleSprocketsTest, TheHubsWidthGivesTheTotal) {
    for (const int type : {4, 5}) {
        lookUp(type);
        enter(fields().Text1(10), "30,5");
        leave();
        EXPECT_EQ(text(17), "50,5") << type;
        EXPECT_EQ(pdm(3), "50,5") << type;
        EXPECT_EQ(pdm(5), "30,50") << type;
    }
}

TEST_F(DoubleSprocketsTest, TheHubsWidthOfATripleSprocketGoesToItsOwnSketch) {
    lookUp(12);
    enter(fields().Text1(10), "30,5");
    leave();
    EXPECT_EQ(text(17), "62,5");
    EXPECT_EQ(triple(10), "62,5");
    EXPECT_EQ(triple(8), "30,50");
    EXPECT_EQ(pdm(3), "45") << "the double's sketch keeps what the row said";
}

TEST_F(DoubleSprocketsTest, TheGapGivesTheRimOfTheDoubles) {
    lookUp(5);
    enter(fields().Text1(11), "6");
    leave();
    EXPECT_EQ(pdm(7), "6,00");
    EXPECT_EQ(text(9), "22") << "8 + 8 + 6";
    EXPECT_EQ(text(17), "47");
    EXPECT_EQ(pdm(3), "47");
    EXPECT_EQ(pdm(5), "25");
}

TEST_F(DoubleSprocketsTest, TheGapOfATwoChainDiscLeavesItWithoutHub) {
    lookUp(7);
    enter(fields().Text1(11), "6");
    leave();
    EXPECT_EQ(text(16), "0");
    EXPECT_EQ(text(10), "0");
    EXPECT_EQ(text(17), "22");
}

TEST_F(DoubleSprocketsTest, ATripleDiscsHubAndGapAreWorkedOutAsADoubles) {
    lookUp(14);
    doubles().Text1_LostFocus(10);
    EXPECT_EQ(pdm(3), "57");
    EXPECT_EQ(triple(8), "25") << "the triple's sketch is not written";
    doubles().Text1_LostFocus(11);
    EXPECT_EQ(text(9), "20") << "two rims and one gap";
    EXPECT_EQ(text(17), "45");
}

TEST_F(DoubleSprocketsTest, ATripleSprocketsGapGivesThreeRimsAndTwoGaps) {
    lookUp(12);
    doubles().Text1_LostFocus(11);
    EXPECT_EQ(text(9), "32");
    EXPECT_EQ(text(17), "57");
}

TEST_F(DoubleSprocketsTest, TheHubsDiameterGoesToBothSketches) {
    lookUp(4);
    enter(fields().Text1(16), "80");
    leave();
    EXPECT_EQ(pdm(1), "80,00");
    EXPECT_EQ(triple(1), "80,00");
    EXPECT_EQ(fields().Text4(2).text(), "85");
}

TEST_F(DoubleSprocketsTest, ARefusedLookUpReachesTheUserAndChangesNoField) {
    lookUp(4);
    connection.refuse("from PDM");
    enter(fields().Text1(1), "17,5");
    EXPECT_THROW(leave(), sql::DbError);
    EXPECT_EQ(text(15), "136");
}

// --- msCalcularDobleVariable ---------------------------------------------------------------------------------------

TEST_F(DoubleSprocketsTest, TheVariableSprocketsTotalIsRimAndBothHubs) {
    chooseType(10);
    fields().Text1(14).setText("5,5");
    fields().Text1(18).setText("40");
    fields().Text1(16).setText("45");
    fields().Text1(15).setText("100");
    fields().Text1(10).setText("20");
    fields().Text1(9).setText("10,255");
    EXPECT_EQ(text(17), "35,76");
    const std::vector<std::string> sketch{"35,76", "20", "10,255", "5,5", "40", "45", "100"};
    for (int i = 0; i <= 6; ++i) {
        EXPECT_EQ(fields().txtDCV(i).text(), sketch[static_cast<std::size_t>(i)]) << i;
    }
}

TEST_F(DoubleSprocketsTest, AWidthThatIsNoNumberCountsNothingInTheVariableTotal) {
    chooseType(10);
    fields().Text1(14).setText("x");
    fields().Text1(10).setText("");
    fields().Text1(9).setText("10");
    EXPECT_EQ(text(17), "10");
}

TEST_F(DoubleSprocketsTest, NothingIsSpreadWhileAProposalIsLoaded) {
    chooseType(10);
    fields().bCargandoPropuesta = true;
    fields().Text1(17).setText("7");
    fields().Text1(9).setText("10");
    EXPECT_EQ(text(17), "7");
}

TEST_F(DoubleSprocketsTest, ThePulleysTotalCountsItsSecondHubOnceTheUserHasToldIt) {
    chooseType(11);
    enterSmallSprocket();
    enter(fields().Text1(9), "20");
    enter(fields().Text1(10), "30");
    leave();
    EXPECT_EQ(text(17), "30") << "as it was worked out, without both of them";
    enter(fields().Text1(14), "22,5");
    leave();
    EXPECT_EQ(text(17), "72,5");
    EXPECT_EQ(fields().Text4(3).text(), "75,5") << "the hub is cut from both";
    enter(fields().Text1(10), "40");
    leave();
    EXPECT_EQ(text(17), "82,5");
    EXPECT_EQ(fields().txtDCV(0).text(), "82,5");
}

TEST_F(DoubleSprocketsTest, TheSecondHubsDiameterMakesItKnownAsWell) {
    chooseType(11);
    enter(fields().Text1(18), "40");
    leave();
    EXPECT_TRUE(fields().secondHubIsKnown());
    enter(fields().Text1(9), "20");
    EXPECT_EQ(text(17), "20");
}

TEST_F(DoubleSprocketsTest, PassingThroughTheSecondHubDoesNotMakeItKnown) {
    chooseType(11);
    fields().Text1(17).setText("50");
    fields().Text1(14).setText("7,5");
    for (const int i : {14, 18, 9}) {
        fields().Text1(i).setFocus();
        leave();
    }
    EXPECT_EQ(text(14), "7,50") << "the mask is the program's";
    EXPECT_FALSE(fields().secondHubIsKnown());
    enter(fields().Text1(10), "30");
    leave();
    EXPECT_EQ(text(17), "50");
}

TEST_F(DoubleSprocketsTest, TheSprocketsSecondHubIsAlwaysKnown) {
    chooseType(10);
    EXPECT_TRUE(fields().secondHubIsKnown());
    chooseType(2);
    EXPECT_FALSE(fields().secondHubIsKnown());
}

TEST_F(DoubleSprocketsTest, TheVariableSketchRepeatsTheFieldsBesideIt) {
    for (const int type : {10, 11}) {
        openAnew();
        chooseType(type);
        fields().bCargandoPropuesta = true;
        const std::vector<std::pair<int, const char*>> beside{{17, "72,5"}, {10, "30"}, {9, "20"},  {14, "22,5"},
                                                              {18, "40"},   {16, "45"}, {15, "100"}};
        for (std::size_t i = 0; i < beside.size(); ++i) {
            fields().Text1(beside[i].first).setText(beside[i].second);
            EXPECT_EQ(fields().txtDCV(static_cast<int>(i)).text(), beside[i].second) << type << " " << i;
        }
        EXPECT_EQ(text(17), "72,5") << type << ": the copy writes no measure";
    }
}

TEST_F(DoubleSprocketsTest, OtherTypesLeaveTheVariableSketch) {
    for (const int type : {0, 2, 4, 12, 13}) {
        openAnew();
        chooseType(type);
        for (const int i : {9, 10, 14, 15, 16, 17, 18}) {
            fields().Text1(i).setText("5");
        }
        doubles().repeatOnVariableSketch();
        for (int i = 0; i <= 6; ++i) {
            EXPECT_EQ(fields().txtDCV(i).text(), "0,00") << type << " " << i;
        }
    }
}

TEST_F(DoubleSprocketsTest, TheSketchesOfDoubleAndTripleRepeatRimHubAndTotal) {
    chooseType(12);
    fields().bCargandoPropuesta = true;
    for (const auto& [i, value] : {std::pair{9, "1"}, {10, "2"}, {16, "3"}, {17, "4"}}) {
        fields().Text1(i).setText(value);
    }
    doubles().repeatOnMultipleSketches();
    for (const auto& [i, value] : {std::pair{1, "3"}, {3, "4"}, {4, "1"}, {5, "2"}, {7, "0,00"}}) {
        EXPECT_EQ(pdm(i), value) << i;
    }
    for (const auto& [i, value] : {std::pair{1, "3"}, {8, "2"}, {9, "1"}, {10, "4"}, {2, "0,00"}}) {
        EXPECT_EQ(triple(i), value) << i;
    }
}

TEST_F(DoubleSprocketsTest, OnlyTheVariableProductsTotalFollowsItsSketch) {
    for (const int type : {0, 1, 2, 3, 4, 8, 11, 12, 13, 14}) {
        chooseType(type);
        fields().Text1(14).setText("5");
        fields().Text1(17).setText("77");
        fields().Text1(9).setText("10");
        fields().Text1(10).setText("20");
        EXPECT_EQ(text(17), "77") << type;
        fields().Text1(9).setText("0");
        fields().Text1(10).setText("0");
    }
}

TEST_F(DoubleSprocketsTest, SpreadOnAnyTypeTheTotalOfTwoHubsWouldLoseOne) {
    chooseType(2);
    fields().Text1(14).setText("0");
    fields().Text1(10).setText("20");
    enter(fields().Text1(9), "10");
    leave();
    EXPECT_EQ(text(17), "50,00");
    chooseType(10);
    fields().Text1(9).setText("11");
    EXPECT_EQ(text(17), "31");
}

}  // namespace
}  // namespace velmora::support
