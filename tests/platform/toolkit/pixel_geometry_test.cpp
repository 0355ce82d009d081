#include "velmora/platform/toolkit/pixel_geometry.h"

#include <gtest/gtest.h>

namespace velmora::toolkit {
namespace {

constexpr PixelRect box{.left = 10, .top = 20, .width = 30, .height = 10};

TEST(PixelGeometryTest, ALineMeetsARectangleThatItTouchesCrossesOrLiesIn) {
    struct Row {
        const char* what;
        PixelLine line;
        bool meets;
    };
    for (const Row& row : {
             Row{"inside", {{15, 22}, {20, 25}}, true},
             Row{"across both sides", {{0, 25}, {50, 25}}, true},
             Row{"across a corner", {{5, 25}, {15, 15}}, true},
             Row{"past a corner", {{0, 25}, {12, 13}}, false},
             Row{"ending at an edge", {{0, 25}, {10, 25}}, true},
             Row{"ending before an edge", {{0, 25}, {9.9, 25}}, false},
             Row{"along an edge", {{0, 20}, {50, 20}}, true},
             Row{"beside an edge", {{0, 19.9}, {50, 19.9}}, false},
             Row{"upright across", {{20, 0}, {20, 50}}, true},
             Row{"upright beside", {{9, 0}, {9, 50}}, false},
             Row{"a point inside", {{20, 25}, {20, 25}}, true},
             Row{"a point outside", {{20, 35}, {20, 35}}, false},
         }) {
        EXPECT_EQ(meets(row.line, box), row.meets) << row.what;
        EXPECT_EQ(meets({row.line.to, row.line.from}, box), row.meets) << row.what << ", backwards";
    }
}

TEST(PixelGeometryTest, NeighboursThatShareAnEdgeDoNotOverlap) {
    EXPECT_TRUE(box.overlaps({.left = 39, .top = 29, .width = 5, .height = 5}));
    EXPECT_FALSE(box.overlaps({.left = 40, .top = 20, .width = 5, .height = 5}));
    EXPECT_FALSE(box.overlaps({.left = 10, .top = 30, .width = 5, .height = 5}));
}

TEST(PixelGeometryTest, ARectangleContainsWhatReachesItsEdges) {
    EXPECT_TRUE(box.contains(box));
    EXPECT_FALSE(box.contains({.left = 10, .top = 20, .width = 30.1, .height = 10}));
    EXPECT_TRUE(box.contains(PixelPoint{40, 30}));
    EXPECT_FALSE(box.contains(PixelPoint{40, 30.1}));
}

TEST(PixelGeometryTest, LeftIsAsSeenOnACanvasWhoseYPointsDownward) {
    const PixelPoint up = leftOf({1, 0});
    EXPECT_EQ(up.x, 0);
    EXPECT_EQ(up.y, -1);
}

TEST(PixelGeometryTest, TheDirectionBetweenOnePointAndItselfIsToTheRight) {
    const PixelPoint none = direction({3, 4}, {3, 4});
    EXPECT_EQ(none.x, 1);
    EXPECT_EQ(none.y, 0);
    const PixelPoint down = direction({3, 4}, {3, 9});
    EXPECT_EQ(down.x, 0);
    EXPECT_EQ(down.y, 1);
}

}  // namespace
}  // namespace velmora::toolkit
