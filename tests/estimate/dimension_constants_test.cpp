#include "velmora/estimate/dimension_constants.h"

#include "support/workshop.h"

namespace velmora::support {
namespace {

using estimate::DimensionConstants;

class DimensionConstantsTest : public Workshop {
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
    double hub(double dp) {
        const double result = constants().FnDmCubo(dp);
        left = dp;
        return result;
    }
    double width(double dp) {
        const double result = constants().FnAnchoTotal(dp);
        left = dp;
        return result;
    }
    DimensionConstants constants() { return DimensionConstants(fields(), session); }
    const std::string& hubCaption() { return fields().lblFormulaDM.caption(); }
    const std::string& widthCaption() { return fields().lblFormulaAncho.caption(); }

    double left = 0;  ///< the argument after the call
};

TEST_F(DimensionConstantsTest, HubIsAMultipleOfFiveByTheFactorOfItsRange) {
    EXPECT_EQ(hub(153.79), 95);
    EXPECT_EQ(left, 95);
    EXPECT_EQ(hubCaption(), "DP x 0,6");
}

TEST_F(DimensionConstantsTest, TotalWidthIsAMultipleOfFiveByTheFactorOfItsRange) {
    EXPECT_EQ(width(153.79), 65);
    EXPECT_EQ(left, 65);
    EXPECT_EQ(widthCaption(), "DP x 0,4");
}

TEST_F(DimensionConstantsTest, NoRangeCountsAsFactorOne) {
    ranges({});
    EXPECT_EQ(hub(101.3), 105);
    EXPECT_EQ(hubCaption(), "DP x 1");
    EXPECT_EQ(width(101.3), 105);
    EXPECT_EQ(widthCaption(), "DP x 1");
}

TEST_F(DimensionConstantsTest, BothBoundsOfARangeBelongToIt) {
    ranges({"1, 100.5, 200.5, 0.5"});
    EXPECT_EQ(hub(100.5), 50);
    EXPECT_EQ(hub(200.5), 100);
    EXPECT_EQ(hub(100.49), 100);
    EXPECT_EQ(hub(200.51), 205);
}

TEST_F(DimensionConstantsTest, OfTwoRangesThatShareABoundTheLowerOneWins) {
    ranges({"1, 100, 200, 0.9", "1, 50, 100, 0.5"});
    EXPECT_EQ(hub(100), 50);
    EXPECT_EQ(hubCaption(), "DP x 0,5");
}

TEST_F(DimensionConstantsTest, EachRuleReadsItsOwnRanges) {
    ranges({"1, 0, 1000, 0.5", "2, 0, 1000, 0.25", "3, 0, 1000, 9"});
    EXPECT_EQ(hub(100), 50);
    EXPECT_EQ(width(100), 25);
}

TEST_F(DimensionConstantsTest, AFactorOfZeroGivesTheWholePitchDiameter) {
    ranges({"1, 0, 1000, 0", "2, 0, 1000, 0"});
    EXPECT_EQ(hub(101.7), 102);
    EXPECT_EQ(left, 101.7);
    EXPECT_EQ(width(102.5), 102) << "half to even";
    EXPECT_EQ(left, 102.5);
}

TEST_F(DimensionConstantsTest, AFactorOfZeroReadsDashesAtTheWidthOnly) {
    ranges({"1, 0, 1000, 0", "2, 0, 1000, 0"});
    hub(100);
    width(100);
    EXPECT_EQ(hubCaption(), "DP x 0");
    EXPECT_EQ(widthCaption(), "---");
}

TEST_F(DimensionConstantsTest, TheTwoCaptionsOfAFactorOfZeroAreNotAlike) {
    ranges({"1, 0, 1000, 0", "2, 0, 1000, 0"});
    hub(100);
    width(100);
    EXPECT_NE(hubCaption(), widthCaption());
}

TEST_F(DimensionConstantsTest, StatementsHoldADecimalPointAndTheShortestExactDigits) {
    fields();
    connection.clear();
    hub(101.3);
    width(0.1 + 0.2);
    EXPECT_EQ(
        connection.log(),
        (std::vector<std::string>{
            "SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = 1 and Calculos_Valor1<=101.3 and "
            "Calculos_Valor2>=101.3 order by Calculos_Valor2 ",
            "SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = 2 and "
            "Calculos_Valor1<=0.30000000000000004 and Calculos_Valor2>=0.30000000000000004 order by "
            "Calculos_Valor2 "}));
}

TEST_F(DimensionConstantsTest, ARefusedQueryAndAMissingConstantReachTheCaller) {
    fields();
    connection.refuse("Calculos_Tipo = 1");
    EXPECT_THROW(hub(100), sql::DbError);
    ranges({"1, 0, 1000, NULL"});
    EXPECT_THROW(hub(100), runtime::RuntimeError);
}

}  // namespace
}  // namespace velmora::support
