#include "velmora/estimate/rack_drawing.h"

#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drawing_checks.h"
#include "drawing_probe.h"

namespace velmora::estimate {
namespace {

using screen::Pen;
using ::testing::UnorderedElementsAre;

RackMeasures shortRack() {
    return {.module = 2, .pitch = 6.28, .toothHeight = 4.5, .height = 30, .length = 60, .width = 25};
}

RackMeasures longRack() {
    RackMeasures measures = shortRack();
    measures.length = 1000;
    return measures;
}

/// The outlines of the metal, from left to right.
std::vector<Path> pieces(const Drawing& drawing) {
    std::vector<Path> found;
    for (const Path& path : all<Path>(drawing)) {
        if (path.fill == Fill::solid) {
            found.push_back(path);
        }
    }
    return found;
}

int teeth(const Path& outline, double height) {
    int tips = 0;
    for (std::size_t i = 1; i < outline.points.size(); ++i) {
        tips += outline.points[i - 1].y == height && outline.points[i].y == height ? 1 : 0;
    }
    return tips;
}

TEST(RackDrawingTest, EveryLabelHasItsPlaceAndItsLetter) {
    const Drawing drawing = drawRack(shortRack());
    EXPECT_THAT(labels(drawing), UnorderedElementsAre(0, 1, 2, 3, 4, 5));
    const char* const captions[] = {"h", "H", "A", "L", "H", "B"};
    for (const Dimension& dimension : all<Dimension>(drawing)) {
        EXPECT_EQ(dimension.caption, captions[dimension.label]);
    }
}

TEST(RackDrawingTest, ShortRackIsDrawnToScale) {
    const Drawing drawing = drawRack(shortRack());
    EXPECT_DOUBLE_EQ(measured(drawing, RackLabel::toothHeight), 4.5);
    EXPECT_DOUBLE_EQ(measured(drawing, RackLabel::height), 30);
    EXPECT_DOUBLE_EQ(measured(drawing, RackLabel::bodyHeight), 25.5);
    EXPECT_DOUBLE_EQ(measured(drawing, RackLabel::length), 60);
    EXPECT_DOUBLE_EQ(measured(drawing, RackLabel::thickness), 30);
    EXPECT_DOUBLE_EQ(measured(drawing, RackLabel::width), 25);
}

TEST(RackDrawingTest, BarHasAToothForEachPitch) {
    RackMeasures measures = shortRack();
    measures.length = 9 * 6.28;
    const Drawing drawing = drawRack(measures);
    ASSERT_EQ(pieces(drawing).size(), 2) << "the bar and its end";
    EXPECT_EQ(teeth(pieces(drawing)[0], 30), 9);
}

TEST(RackDrawingTest, LongBarIsShownBrokenOff) {
    const Drawing drawing = drawRack(longRack());
    ASSERT_EQ(pieces(drawing).size(), 3) << "two pieces of the bar, and the end";
    EXPECT_LT(measured(drawing, RackLabel::length), 100);
    EXPECT_DOUBLE_EQ(measured(drawing, RackLabel::height), 30);
    Box left;
    Box right;
    addTo(left, pieces(drawing)[0]);
    addTo(right, pieces(drawing)[1]);
    EXPECT_LT(left.right, right.left);
    EXPECT_DOUBLE_EQ(right.right, measured(drawing, RackLabel::length));
}

TEST(RackDrawingTest, WideEndIsShownBrokenOff) {
    RackMeasures measures = shortRack();
    measures.width = 200;
    const Drawing drawing = drawRack(measures);
    EXPECT_EQ(pieces(drawing).size(), 3);
    EXPECT_LT(measured(drawing, RackLabel::width), 60);
}

TEST(RackDrawingTest, TeethTooFineToTellApartAreALine) {
    RackMeasures measures = longRack();
    measures.height = 200;
    const Drawing drawing = drawRack(measures);
    EXPECT_EQ(teeth(pieces(drawing)[0], 200), 1) << "the plain upper edge";
    EXPECT_DOUBLE_EQ(measured(drawing, RackLabel::toothHeight), 4.5);
}

TEST(RackDrawingTest, NoMeasuresAtAllGiveAnOrdinaryRack) {
    const Drawing drawing = drawRack({});
    EXPECT_DOUBLE_EQ(measured(drawing, RackLabel::height), 24);
    EXPECT_DOUBLE_EQ(measured(drawing, RackLabel::toothHeight), 6.75);
}

TEST(RackDrawingTest, MissingMeasuresFollowTheModule) {
    RackMeasures measures;
    measures.module = 10;
    EXPECT_DOUBLE_EQ(measured(drawRack(measures), RackLabel::toothHeight), 22.5);
    EXPECT_DOUBLE_EQ(measured(drawRack(measures), RackLabel::height), 80);
}

TEST(RackDrawingTest, HeightBelowThatOfTheToothIsNotBelieved) {
    RackMeasures measures = shortRack();
    measures.height = 4.5;
    const Drawing drawing = drawRack(measures);
    EXPECT_GT(measured(drawing, RackLabel::bodyHeight), measured(drawing, RackLabel::toothHeight));
}

void expectARack(const Drawing& drawing) {
    ASSERT_TRUE(isFinite(drawing));
    ASSERT_LT(drawing.shapes.size(), 40);
    for (const Dimension& dimension : all<Dimension>(drawing)) {
        EXPECT_GT(length(dimension), 0) << "label " << dimension.label;
        EXPECT_GT(dimension.offset, 0);
    }
    for (const Path& path : all<Path>(drawing)) {
        EXPECT_LT(path.points.size(), 400);
    }
}

TEST(RackDrawingTest, WhateverAFieldHoldsThePictureIsARack) {
    const Fields<RackMeasures> fields{&RackMeasures::module, &RackMeasures::pitch,  &RackMeasures::toothHeight,
                                      &RackMeasures::height, &RackMeasures::length, &RackMeasures::width};
    withAbsurdFields(shortRack(), {}, fields, [](const RackMeasures& measures) { expectARack(drawRack(measures)); });
}

}  // namespace
}  // namespace velmora::estimate
