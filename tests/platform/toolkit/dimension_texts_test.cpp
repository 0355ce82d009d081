#include "velmora/platform/toolkit/dimension_texts.h"

#include <gtest/gtest.h>

namespace velmora::toolkit {
namespace {

constexpr PixelRect canvas{.left = 0, .top = 0, .width = 400, .height = 400};

/// Ten pixels per letter, twelve high; 4 more in width are the padding of the text.
PixelSize tenALetter(const std::string& text) {
    return {.width = 10.0 * static_cast<double>(text.size()), .height = 12};
}
const MeasureText measure = tenALetter;

/// A horizontal line of length 100, 60 below the upper edge of the canvas.
DimensionLine levelLine() {
    return {.from = {150, 100}, .to = {250, 100}, .start = {150, 60}, .end = {250, 60}, .text = "9,1"};
}

TEST(DimensionTextsTest, TheFirstPlaceIsAboveTheMiddleOfTheLine) {
    const PlacedText first = placesFor(levelLine(), measure).front();
    EXPECT_DOUBLE_EQ(first.middle.x, 200);
    EXPECT_LT(first.bounds.bottom(), 60);
    EXPECT_GT(first.bounds.bottom(), 55);
    EXPECT_EQ(first.angle, 0);
    EXPECT_DOUBLE_EQ(first.size.width, 34);
}

TEST(DimensionTextsTest, LettersAreReadFromBelowOrFromTheRight) {
    struct Row {
        PixelPoint start;
        PixelPoint end;
        double angle;
    };
    for (const Row& row : {Row{{0, 0}, {100, 0}, 0}, Row{{100, 0}, {0, 0}, 0}, Row{{0, 0}, {0, 100}, -90},
                           Row{{0, 100}, {0, 0}, -90}, Row{{0, 0}, {100, 100}, 45}, Row{{100, 100}, {0, 0}, 45}}) {
        const DimensionLine line{.from = row.start, .to = row.end, .start = row.start, .end = row.end, .text = "1"};
        EXPECT_NEAR(placesFor(line, measure).front().angle, row.angle, 1e-9);
    }
}

TEST(DimensionTextsTest, ATurnedTextNeedsTheRoomOfItsTurnedCorners) {
    const DimensionLine upright{.from = {0, 0}, .to = {0, 100}, .start = {0, 0}, .end = {0, 100}, .text = "9,1"};
    const PlacedText text = placesFor(upright, measure).front();
    EXPECT_NEAR(text.bounds.width, 12, 1e-9);
    EXPECT_NEAR(text.bounds.height, 34, 1e-9);
}

TEST(DimensionTextsTest, ALineThatWouldRatherHaveItsTextOutsideBeginsThere) {
    DimensionLine line = levelLine();
    line.place = screen::TextPlace::afterTo;
    EXPECT_GT(placesFor(line, measure).front().bounds.left, line.end.x);
    line.place = screen::TextPlace::beforeFrom;
    EXPECT_LT(placesFor(line, measure).front().bounds.right(), line.start.x);
}

TEST(DimensionTextsTest, WhereArrowsStandOutsideTheTextKeepsClearOfThem) {
    DimensionLine narrow = levelLine();
    narrow.end = {160, 60};
    narrow.place = screen::TextPlace::afterTo;
    EXPECT_FALSE(narrow.hasRoom());
    EXPECT_GE(placesFor(narrow, measure).front().bounds.left, narrow.end.x + 2.5 * arrowLength);
}

TEST(TextPlacingTest, AFreePlaceIsTakenAsItComes) {
    TextPlacing placing(canvas, measure);
    EXPECT_DOUBLE_EQ(placing.place(levelLine()).middle.x, 200);
}

TEST(TextPlacingTest, TextsDoNotCoverEachOther) {
    TextPlacing placing(canvas, measure);
    const PlacedText first = placing.place(levelLine());
    const PlacedText second = placing.place(levelLine());
    const PlacedText third = placing.place(levelLine());
    EXPECT_FALSE(first.bounds.overlaps(second.bounds));
    EXPECT_FALSE(first.bounds.overlaps(third.bounds));
    EXPECT_FALSE(second.bounds.overlaps(third.bounds));
}

TEST(TextPlacingTest, ATextKeepsOffTheEdgesOfThePiece) {
    TextPlacing placing(canvas, measure);
    placing.addEdge({{0, 50}, {400, 50}});
    const PlacedText text = placing.place(levelLine());
    EXPECT_GT(text.bounds.top, 60) << "below its line instead";
}

TEST(TextPlacingTest, AnEdgeIsCrossedRatherThanATextCovered) {
    TextPlacing placing(canvas, measure);
    placing.addEdge({{0, 50}, {400, 50}});
    placing.take({.left = 0, .top = 61, .width = 400, .height = 40});
    // Beyond the ends of the line, at its own height, it would overlap the text.
    const PlacedText text = placing.place(levelLine());
    EXPECT_LT(text.bounds.bottom(), 60);
}

TEST(TextPlacingTest, ATextIsCoveredRatherThanTheCanvasLeft) {
    const PixelRect low{.left = 0, .top = 55, .width = 400, .height = 40};
    TextPlacing placing(low, measure);
    placing.take({.left = 0, .top = 50, .width = 400, .height = 50});
    const PlacedText text = placing.place(levelLine());
    EXPECT_TRUE(low.contains(text.bounds));
}

}  // namespace
}  // namespace velmora::toolkit
