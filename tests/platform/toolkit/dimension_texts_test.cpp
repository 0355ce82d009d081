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

/// The place of a text that has one.
PlacedText placed(TextPlacing& placing, const DimensionLine& line) {
    const std::optional<ChosenPlace> chosen = placing.place(line);
    EXPECT_TRUE(chosen.has_value());
    return chosen ? chosen->text : PlacedText{};
}

TEST(TextPlacingTest, AFreePlaceIsTakenAsItComes) {
    TextPlacing placing(canvas, measure);
    const auto chosen = placing.place(levelLine());
    ASSERT_TRUE(chosen.has_value());
    EXPECT_DOUBLE_EQ(chosen->text.middle.x, 200);
    EXPECT_FALSE(chosen->leader.has_value());
}

TEST(TextPlacingTest, TextsDoNotCoverEachOther) {
    TextPlacing placing(canvas, measure);
    const PlacedText first = placed(placing, levelLine());
    const PlacedText second = placed(placing, levelLine());
    const PlacedText third = placed(placing, levelLine());
    EXPECT_FALSE(first.bounds.overlaps(second.bounds));
    EXPECT_FALSE(first.bounds.overlaps(third.bounds));
    EXPECT_FALSE(second.bounds.overlaps(third.bounds));
}

TEST(TextPlacingTest, ATextKeepsOffTheEdgesOfThePiece) {
    TextPlacing placing(canvas, measure);
    placing.addEdge({{0, 50}, {400, 50}});
    EXPECT_GT(placed(placing, levelLine()).bounds.top, 60) << "below its line instead";
}

TEST(TextPlacingTest, AnEdgeIsCrossedRatherThanATextCovered) {
    TextPlacing placing(canvas, measure);
    placing.addEdge({{0, 50}, {400, 50}});
    placing.take({.left = 0, .top = 61, .width = 400, .height = 40});
    // Beyond the ends of the line, at its own height, it would overlap the text.
    EXPECT_LT(placed(placing, levelLine()).bounds.bottom(), 60);
}

TEST(TextPlacingTest, ATextWithoutRoomBesideItsLineStandsApartWithALeader) {
    TextPlacing placing(canvas, measure);
    const PixelRect taken{.left = 0, .top = 20, .width = 400, .height = 80};
    placing.take(taken);
    const auto chosen = placing.place(levelLine());
    ASSERT_TRUE(chosen.has_value());
    EXPECT_FALSE(chosen->text.bounds.overlaps(taken));
    EXPECT_TRUE(canvas.contains(chosen->text.bounds));
    ASSERT_TRUE(chosen->leader.has_value());
    EXPECT_DOUBLE_EQ(chosen->leader->from.x, 200);
    EXPECT_DOUBLE_EQ(chosen->leader->from.y, 60);
    EXPECT_TRUE(chosen->text.bounds.contains(chosen->leader->to));
}

TEST(TextPlacingTest, ATextForWhichTheCanvasHasNoRoomIsLeftOut) {
    const PixelRect low{.left = 0, .top = 55, .width = 400, .height = 40};
    TextPlacing placing(low, measure);
    placing.take({.left = 0, .top = 60, .width = 400, .height = 30});
    EXPECT_FALSE(placing.place(levelLine()).has_value());
}

}  // namespace
}  // namespace velmora::toolkit
