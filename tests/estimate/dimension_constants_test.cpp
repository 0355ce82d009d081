#include "velmora/estimate/dimension_constants.h"

#include "fields_alone.h"

namespace velmora::support {
namespace {

using estimate::DimensionConstants;

class DimensionConstantsTest : public FieldsAlone {
  protected:
    DimensionConstantsTest() { factors({{0.6}}, {{0.4}}); }

    /// What the range of each rule that holds the pitch diameter says; without rows there is none.
    void factors(std::vector<sql::Row> ofHub, std::vector<sql::Row> ofWidth) {
        const std::string statement = "SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = ";
        database.answerAllThatBegin(statement + "1 ", {"Calculos_Constante"}, std::move(ofHub));
        database.answerAllThatBegin(statement + "2 ", {"Calculos_Constante"}, std::move(ofWidth));
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
    factors({}, {});
    EXPECT_EQ(hub(101.3), 105);
    EXPECT_EQ(hubCaption(), "DP x 1");
    EXPECT_EQ(width(101.3), 105);
    EXPECT_EQ(widthCaption(), "DP x 1");
}

TEST_F(DimensionConstantsTest, AFactorOfZeroGivesTheWholePitchDiameter) {
    factors({{0}}, {{0}});
    EXPECT_EQ(hub(101.7), 102);
    EXPECT_EQ(left, 101.7);
    EXPECT_EQ(width(102.5), 102) << "half to even";
    EXPECT_EQ(left, 102.5);
}

TEST_F(DimensionConstantsTest, AFactorOfZeroReadsDashesAtTheWidthOnly) {
    factors({{0}}, {{0}});
    hub(100);
    width(100);
    EXPECT_EQ(hubCaption(), "DP x 0");
    EXPECT_EQ(widthCaption(), "---");
}

TEST_F(DimensionConstantsTest, StatementsHoldADecimalPointAndTheShortestExactDigits) {
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
    connection.refuse("Calculos_Tipo = 1");
    EXPECT_THROW(hub(100), sql::DbError);
    factors({{sql::Value()}}, {});
    EXPECT_THROW(hub(100), runtime::RuntimeError);
}

}  // namespace
}  // namespace velmora::support
