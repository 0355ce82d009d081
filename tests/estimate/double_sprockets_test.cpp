#include "velmora/estimate/double_sprockets.h"

#include "support/workshop.h"

namespace velmora::support {
namespace {

class DoubleSprocketsTest : public Workshop {
  protected:
    const std::string& text(int i) { return fields().Text1(i).text(); }
};

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

TEST_F(DoubleSprocketsTest, OnlyTheVariableSprocketsTotalFollowsItsSketch) {
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
