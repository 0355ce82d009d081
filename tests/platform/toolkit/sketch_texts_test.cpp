#include "velmora/platform/toolkit/sketch_texts.h"

#include <gmock/gmock.h>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {
namespace {

using screen::Dimension;
using ::testing::ElementsAre;
using ::testing::Pair;

TEST(SketchTextsTest, ACaptionStandsBeforeABareNumberAndAloneWithoutOne) {
    const Dimension exterior{{0, 0}, {10, 0}, 5, 2, "De"};
    EXPECT_EQ(shownText(exterior, {{2, "83"}}), "De 83");
    EXPECT_EQ(shownText(exterior, {{2, "-1"}}), "De -1");
    EXPECT_EQ(shownText(exterior, {{2, ""}}), "De");
    EXPECT_EQ(shownText(exterior, {{2, "Ancho total 78"}}), "Ancho total 78") << "it has words of its own";
    EXPECT_EQ(shownText(exterior, {{2, "Ñ 8"}}), "Ñ 8");
    EXPECT_EQ(shownText({{0, 0}, {10, 0}, 5, 2}, {{2, "83"}}), "83");
    EXPECT_EQ(shownText({{0, 0}, {10, 0}, 5, 3}, {{2, "83"}}), "");
}

class SketchLabelsTest : public ::testing::Test {
  protected:
    SketchLabelsTest() {
        exterior.setText("83");
        exterior.setAccessibleName("Diametro exterior");
        width.setText("Ancho 21");
        sketch.place(0, exterior);
        sketch.place(4, width);
    }
    screen::Form form{"frm"};
    screen::TextBox exterior{form, "exterior"};
    screen::TextBox width{form, "width"};
    screen::Sketch sketch{form, "sketch"};
};

TEST_F(SketchLabelsTest, AHiddenLabelHasNoText) {
    EXPECT_THAT(labelTextsOf(sketch), ElementsAre(Pair(0, "83"), Pair(4, "Ancho 21")));
    exterior.setVisible(false);
    EXPECT_THAT(labelTextsOf(sketch), ElementsAre(Pair(4, "Ancho 21")));
}

TEST_F(SketchLabelsTest, AssistiveTechnologyReadsTheVisibleMeasuresWithTheirNames) {
    EXPECT_EQ(spokenMeasures(sketch), "Diametro exterior 83; Ancho 21");
    exterior.setVisible(false);
    EXPECT_EQ(spokenMeasures(sketch), "Ancho 21");
}

}  // namespace
}  // namespace velmora::toolkit
