// The estimate where it meets the engine and the main form: sets that an engine answers, and what the form itself does
// with a field's events.

#include <gtest/gtest.h>

#include "velmora/estimate/cut_prices.h"
#include "velmora/estimate/dimension_constants.h"

#include "main_form.h"

namespace velmora::support {
namespace {

class EstimateOnTheFormTest : public MainForm {
  protected:
    screen::TextBox& measure(int i) { return fields().Text1(i); }
    screen::TextBox& box(int i) { return fields().txtPesu(i); }
    const std::string& amount(int i) { return box(i).text(); }
};

// --- Answers of the engine -----------------------------------------------------------------------------------------

class CutPricesOnTheEngineTest : public MainForm {
  protected:
    estimate::CutPrices prices{session};
};

TEST_F(CutPricesOnTheEngineTest, AMaterialHasTheRateOfTheKindOfItsArticle) {
    prices.msCargarPreciosCorte();
    EXPECT_EQ(prices.FnPrecioCorte("001"), 0.05);
    EXPECT_EQ(prices.FnPrecioCorte("2"), 0.02);
    EXPECT_EQ(prices.FnPrecioCorte("004"), 0.03);
    EXPECT_EQ(prices.FnPrecioCorte("007"), 0.01) << "its article is of no kind";
}

TEST_F(CutPricesOnTheEngineTest, MoreMaterialsThanAnEngineReadsAtOnceStayAsTheyWereLoaded) {
    connection.beginTrans();
    for (int i = 0; i < 700; ++i) {
        execute(
            "INSERT INTO PARDPI (PARDPI_NOM, PARDPI_ART, PARDPI_HIERRO, PARDPI_DISCO, PARDPI_MATP, PARDPI_CRE) VALUES "
            "('Otro', 2, 0, 1, 'Acero', 0)");
    }
    connection.commitTrans();
    prices.msCargarPreciosCorte();
    execute("UPDATE materiales SET mat_pcs = 0.5");
    EXPECT_EQ(prices.FnPrecioCorte("708"), 0.02);
    EXPECT_EQ(prices.FnPrecioCorte("001"), 0.05);
    EXPECT_EQ(prices.FnPrecioCorte("709"), 0.01);
}

class DimensionConstantsOnTheEngineTest : public MainForm {
  protected:
    /// Only these ranges: type, lower and upper bound, factor, as they stand in a statement.
    void ranges(std::initializer_list<const char*> rows) {
        execute("DELETE FROM Calculos");
        for (const std::string row : rows) {
            execute(
                "INSERT INTO Calculos (Calculos_Tipo, Calculos_Valor1, Calculos_Valor2, Calculos_Constante) VALUES (" +
                row + ")");
        }
    }
    double hub(double dp) { return estimate::DimensionConstants(fields(), session).FnDmCubo(dp); }
    double width(double dp) { return estimate::DimensionConstants(fields(), session).FnAnchoTotal(dp); }
};

TEST_F(DimensionConstantsOnTheEngineTest, BothBoundsOfARangeBelongToIt) {
    ranges({"1, 100.5, 200.5, 0.5"});
    EXPECT_EQ(hub(100.5), 50);
    EXPECT_EQ(hub(200.5), 100);
    EXPECT_EQ(hub(100.49), 100);
    EXPECT_EQ(hub(200.51), 205);
}

TEST_F(DimensionConstantsOnTheEngineTest, OfTwoRangesThatShareABoundTheLowerOneWins) {
    ranges({"1, 100, 200, 0.9", "1, 50, 100, 0.5"});
    EXPECT_EQ(hub(100), 50);
    EXPECT_EQ(fields().lblFormulaDM.caption(), "DP x 0,5");
}

TEST_F(DimensionConstantsOnTheEngineTest, EachRuleReadsItsOwnRanges) {
    ranges({"1, 0, 1000, 0.5", "2, 0, 1000, 0.25", "3, 0, 1000, 9"});
    EXPECT_EQ(hub(100), 50);
    EXPECT_EQ(width(100), 25);
}

// --- What the form does --------------------------------------------------------------------------------------------

TEST_F(EstimateOnTheFormTest, AFormThatOpensShowsDiscAndHubWithTheirPrices) {
    std::vector<std::string> prices;
    for (const int i : {20, 21, 23, 24, 54, 56}) {
        prices.push_back(amount(i));
    }
    EXPECT_EQ(prices, (std::vector<std::string>{"0,95", "1,4", "1,02", "1,5", "0,00", "0,00"}));
}

TEST_F(EstimateOnTheFormTest, AFormThatOpensStandsOnTheFirstMaterials) {
    EXPECT_EQ(fields().cboMatDisco.text(), "001 - Disco F-114");
    EXPECT_EQ(fields().cboMatCubo.text(), "002 - Cubo F-1140");
    EXPECT_EQ(fields().cboMatCre.text(), "008 - Pletina");
    EXPECT_EQ((*fields().rsMatDisco)["PARDPI_ID"].toLong(), 1);
    EXPECT_EQ((*fields().rsMatCubo)["PARDPI_ID"].toLong(), 2);
    EXPECT_EQ((*fields().rsMatCre)["PARDPI_ID"].toLong(), 8);
}

TEST_F(EstimateOnTheFormTest, AWorkshopWithoutMaterialsHasAFormAllTheSame) {
    execute("DELETE FROM PARDPI");
    EXPECT_EQ(fields().cboMatDisco.listCount(), 0);
    enterLargeSprocket();
    EXPECT_EQ(fields().Text4(2).text(), "100");
}

TEST_F(EstimateOnTheFormTest, FormulasAreOnWhenTheFormIsMade) {
    EXPECT_TRUE(fields().chkFormulas.checked());
}

TEST_F(EstimateOnTheFormTest, ATypedToothingReachesThePriceOfThePiece) {
    enterLargeSprocket();
    EXPECT_EQ(fields().Text4(1).text(), "164");
    EXPECT_EQ(fields().Text4(4).text(), "1,33");
    EXPECT_EQ(fields().Text4(5).text(), "3,95");
    EXPECT_EQ(amount(25), "7,93");
    fields().cboMatDisco.setListIndex(1);
    EXPECT_EQ(amount(22), "7,76");
}

TEST_F(EstimateOnTheFormTest, TheHistoryFollowsTheRollerAndNeitherPitchNorTeeth) {
    enter(measure(0), "12,7");
    enter(measure(1), "17");
    leave();
    connection.clear();
    enter(measure(0), "12,7");
    enter(measure(1), "17");
    leave();
    EXPECT_TRUE(connection.logged("Order by DPI_Fecha").empty());
    enter(measure(2), "7,75");
    leave();
    EXPECT_EQ(connection.logged("Order by DPI_Fecha").size(), 1U);
}

TEST_F(EstimateOnTheFormTest, EnteringAFieldSelectsAndPaintsIt) {
    measure(0).setFocus();
    EXPECT_TRUE(measure(0).allSelected());
    EXPECT_EQ(measure(0).backColor(), screen::colors::yellow);
    leave();
    EXPECT_EQ(measure(0).backColor(), screen::colors::white);
}

// --- The order of the rack's fields -------------------------------------------------------------------------------

TEST_F(EstimateOnTheFormTest, LeavingTheRacksAmountGoesToTheRemarks) {
    chooseType(13);
    box(57).setFocus();
    form().tabForward();
    EXPECT_EQ(form().activeControl(), &fields().txtObservaciones);
}

TEST_F(EstimateOnTheFormTest, PassingThroughTheSundriesOfARackLeavesItsMaterial) {
    chooseType(13);
    box(55).setText("2");
    box(56).setText("3");
    box(11).setText("2");
    enter(box(5), "1");
    leave();
    box(5).setFocus();
    form().tabForward();
    EXPECT_EQ(amount(7), "2");
    EXPECT_EQ(amount(10), "3");
}

}  // namespace
}  // namespace velmora::support
