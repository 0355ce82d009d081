#include "velmora/reference/value_sketches.h"

#include <variant>

#include <gmock/gmock.h>

namespace velmora::reference {
namespace {

using ::testing::UnorderedElementsAre;

std::vector<std::string> lettersIn(const screen::Drawing& drawing) {
    std::vector<std::string> letters;
    for (const screen::Shape& shape : drawing.shapes) {
        if (const auto* dimension = std::get_if<screen::Dimension>(&shape)) {
            EXPECT_EQ(dimension->label, -1) << "shown whatever is typed";
            letters.push_back(dimension->caption);
        } else if (const auto* text = std::get_if<screen::Caption>(&shape)) {
            letters.push_back(text->text);
        }
    }
    return letters;
}

double lengthOf(const screen::Drawing& drawing, const std::string& letter) {
    for (const screen::Shape& shape : drawing.shapes) {
        const auto* dimension = std::get_if<screen::Dimension>(&shape);
        if (dimension != nullptr && dimension->caption == letter) {
            return std::max(std::abs(dimension->to.x - dimension->from.x),
                            std::abs(dimension->to.y - dimension->from.y));
        }
    }
    ADD_FAILURE() << letter;
    return 0;
}

TEST(ValueSketchesTest, TheSketchOfGearsNamesTheMeasuresOfTheForm) {
    EXPECT_THAT(lettersIn(gearSketch(true)), UnorderedElementsAre("De", "B", "Dm", "C", "A", "D1", "M = Dp / Z"));
    EXPECT_THAT(lettersIn(gearSketch(false)), UnorderedElementsAre("De", "B", "D1", "M = Dp / Z"));
}

TEST(ValueSketchesTest, TheLettersStandAtWhatTheyMean) {
    const screen::Drawing gear = gearSketch(true);
    EXPECT_DOUBLE_EQ(lengthOf(gear, "A"), lengthOf(gear, "B") + lengthOf(gear, "C"));
    EXPECT_LT(lengthOf(gear, "D1"), lengthOf(gear, "Dm"));
    EXPECT_LT(lengthOf(gear, "Dm"), lengthOf(gear, "De"));
    const screen::Drawing pair = doubleSketch();
    EXPECT_DOUBLE_EQ(lengthOf(pair, "X"), lengthOf(pair, "B2") - 2 * lengthOf(pair, "b1"));
    EXPECT_LT(lengthOf(pair, "D2"), lengthOf(pair, "Dm"));
    EXPECT_LT(lengthOf(pair, "B2"), lengthOf(pair, "A"));
}

TEST(ValueSketchesTest, TheSketchOfDoublesNamesTheMeasuresOfTheForm) {
    EXPECT_THAT(lettersIn(doubleSketch()), UnorderedElementsAre("De", "Dm", "D2", "H1", "b1", "b1", "B2", "X", "A"));
}

}  // namespace
}  // namespace velmora::reference
