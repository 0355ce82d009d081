#include "velmora/platform/toolkit/sketch_plan.h"

#include <gtest/gtest.h>

namespace velmora::toolkit {
namespace {

using screen::Circle;
using screen::Dimension;
using screen::Drawing;
using screen::Path;

constexpr PixelRect canvas{.left = 0, .top = 0, .width = 420, .height = 400};

PixelSize tenALetter(const std::string& text) {
    return {.width = 10.0 * static_cast<double>(text.size()), .height = 12};
}
const MeasureText measure = tenALetter;

Drawing boxOf(double width, double height) {
    Drawing drawing;
    drawing.shapes.emplace_back(Path{.points = {{0, 0}, {width, 0}, {width, height}, {0, height}}, .closed = true});
    return drawing;
}

SketchPlan plan(const Drawing& drawing, const LabelTexts& labels = {}) {
    return planSketch(drawing, labels, canvas, measure);
}

template <typename Shape>
std::vector<Shape> all(const SketchPlan& plan) {
    std::vector<Shape> found;
    for (const PlannedShape& shape : plan.shapes) {
        if (const auto* one = std::get_if<Shape>(&shape)) {
            found.push_back(*one);
        }
    }
    return found;
}

PixelRect boundsOf(const PlannedPath& path) {
    PixelRect bounds = around(path.points.front(), {});
    for (const PixelPoint& point : path.points) {
        bounds = united(bounds, around(point, {}));
    }
    return bounds;
}

TEST(SketchPlanTest, ThePieceFillsTheCanvasLessItsMarginAndKeepsItsProportions) {
    for (const double size : {0.5, 1.0, 3.0}) {
        const PixelRect piece = boundsOf(all<PlannedPath>(plan(boxOf(200 * size, 100 * size))).front());
        EXPECT_NEAR(piece.width, 400, 2) << size;
        EXPECT_NEAR(piece.height, 200, 2) << size;
        EXPECT_NEAR(piece.centre().x, 210, 1) << size;
        EXPECT_NEAR(piece.centre().y, 200, 1) << size;
    }
}

TEST(SketchPlanTest, ATinyPieceIsNotBlownUpWithoutBound) {
    EXPECT_NEAR(boundsOf(all<PlannedPath>(plan(boxOf(2, 1))).front()).width, 24, 0.1);
}

TEST(SketchPlanTest, YGoesUp) {
    Drawing drawing = boxOf(100, 100);
    drawing.shapes.emplace_back(Circle{{50, 90}, 5});
    EXPECT_LT(all<PlannedCircle>(plan(drawing)).front().centre.y, canvas.centre().y);
}

TEST(SketchPlanTest, ADimensionWhoseLabelIsMissingIsLeftOutAndTakesNoRoom) {
    Drawing drawing = boxOf(100, 50);
    const PixelRect alone = boundsOf(all<PlannedPath>(plan(drawing)).front());
    drawing.shapes.emplace_back(Dimension{{0, 50}, {100, 50}, 20, 3});
    EXPECT_TRUE(all<PlannedDimension>(plan(drawing)).empty());
    EXPECT_EQ(boundsOf(all<PlannedPath>(plan(drawing)).front()).top, alone.top);
    const SketchPlan measured = plan(drawing, {{3, "100"}});
    ASSERT_EQ(all<PlannedDimension>(measured).size(), 1U);
    EXPECT_NE(boundsOf(all<PlannedPath>(measured).front()).top, alone.top);
}

TEST(SketchPlanTest, DimensionsComeLastWhereverTheyStandInTheDrawing) {
    Drawing drawing;
    drawing.shapes.emplace_back(Dimension{{0, 50}, {100, 50}, 20, -1, "b"});
    drawing.shapes.emplace_back(boxOf(100, 50).shapes.front());
    const SketchPlan planned = plan(drawing);
    ASSERT_EQ(planned.shapes.size(), 2U);
    EXPECT_TRUE(std::holds_alternative<PlannedPath>(planned.shapes[0]));
    EXPECT_TRUE(std::holds_alternative<PlannedDimension>(planned.shapes[1]));
}

TEST(SketchPlanTest, ADimensionHasExtensionLinesWhereItStandsOffThePiece) {
    Drawing drawing = boxOf(100, 50);
    drawing.shapes.emplace_back(Dimension{{0, 50}, {100, 50}, 20, -1, "b"});
    drawing.shapes.emplace_back(Dimension{{0, 0}, {100, 0}, 0, -1, "b"});
    const auto dimensions = all<PlannedDimension>(plan(drawing));
    ASSERT_EQ(dimensions.size(), 2U);
    EXPECT_EQ(dimensions[0].lines.size(), 3U);
    EXPECT_EQ(dimensions[1].lines.size(), 1U) << "it lies on the piece";
}

TEST(SketchPlanTest, ArrowsPointOutwardsFromWithinOrInwardsFromOutside) {
    Drawing drawing = boxOf(100, 50);
    drawing.shapes.emplace_back(Dimension{{0, 50}, {100, 50}, 20, -1, "b"});
    drawing.shapes.emplace_back(Dimension{{40, 0}, {42, 0}, -20, -1, "c"});
    const auto dimensions = all<PlannedDimension>(plan(drawing));
    const auto startIsLeftOfItsBase = [](const PlannedDimension& d) { return d.arrows[0][0].x < d.arrows[0][1].x; };
    EXPECT_TRUE(startIsLeftOfItsBase(dimensions[0]));
    EXPECT_FALSE(startIsLeftOfItsBase(dimensions[1]));
}

TEST(SketchPlanTest, EveryTextStaysOnTheCanvas) {
    Drawing drawing = boxOf(10, 60);
    drawing.shapes.emplace_back(Dimension{{10, 60}, {10, 0}, 5, 0});
    drawing.shapes.emplace_back(Dimension{{0, 60}, {10, 60}, 5, 1});
    const PixelRect small{.left = 0, .top = 0, .width = 300, .height = 260};
    const SketchPlan planned =
        planSketch(drawing, {{0, "Exterior 1.234,56"}, {1, "Llanta 10 con texto"}}, small, measure);
    for (const PlannedDimension& dimension : all<PlannedDimension>(planned)) {
        ASSERT_TRUE(dimension.text.has_value());
        EXPECT_TRUE(small.contains(dimension.text->bounds)) << dimension.text->text;
    }
}

TEST(SketchPlanTest, ATextKeepsOffTheRimOfACircle) {
    // The line's text would be above its middle, on the rim.
    Drawing drawing;
    drawing.shapes.emplace_back(Circle{{0, 0}, 50});
    drawing.shapes.emplace_back(Dimension{{-30, 47}, {30, 47}, 0, -1, "b"});
    const SketchPlan planned = plan(drawing);
    const PlannedCircle rim = all<PlannedCircle>(planned).front();
    const PixelRect text = all<PlannedDimension>(planned).front().text->bounds;
    const auto onRim = [&](const PixelRect& rect) {
        const double nearest = distance(rim.centre, {std::clamp(rim.centre.x, rect.left, rect.right()),
                                                     std::clamp(rim.centre.y, rect.top, rect.bottom())});
        const double farthest = std::max(
            {distance(rim.centre, {rect.left, rect.top}), distance(rim.centre, {rect.right(), rect.top}),
             distance(rim.centre, {rect.left, rect.bottom()}), distance(rim.centre, {rect.right(), rect.bottom()})});
        return nearest <= rim.radius && rim.radius <= farthest;
    };
    EXPECT_FALSE(onRim(text));
}

TEST(SketchPlanTest, AnEmptyDrawingPlansNothing) {
    EXPECT_TRUE(plan({}).shapes.empty());
}

TEST(HatchLinesTest, NeighbouringSectionsShareOneRaster) {
    const auto left = hatchLines({.left = 0, .top = 0, .width = 50, .height = 40});
    const auto right = hatchLines({.left = 50, .top = 0, .width = 50, .height = 40});
    ASSERT_FALSE(left.empty());
    ASSERT_FALSE(right.empty());
    const double steps = (right.front().from.x - left.front().from.x) / (left[1].from.x - left[0].from.x);
    EXPECT_DOUBLE_EQ(steps, std::floor(steps));
}

}  // namespace
}  // namespace velmora::toolkit
