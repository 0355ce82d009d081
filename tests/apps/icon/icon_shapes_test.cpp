#include "velmora/apps/icon/icon_shapes.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace velmora::icon {
namespace {

TEST(IconShapes, LieWithinTheSquareWithTheirEdges) {
    for (const IconShape& shape : iconShapes()) {
        const double edge = shape.isAxis ? 0 : shape.strokeWidth / 2;
        for (const toolkit::PixelPoint& point : shape.points) {
            EXPECT_GE(std::min(point.x, point.y), edge);
            EXPECT_LE(std::max(point.x, point.y), side - edge);
        }
    }
}

TEST(IconShapes, AreRimHubBoreAndTwoAxes) {
    const auto shapes = iconShapes();
    ASSERT_EQ(shapes.size(), 5U);
    for (std::size_t metal = 0; metal < 3; ++metal) {
        EXPECT_TRUE(shapes[metal].fill) << metal;
        EXPECT_FALSE(shapes[metal].isAxis) << metal;
    }
    EXPECT_NE(shapes[0].fill, shapes[1].fill);
    EXPECT_TRUE(shapes[3].isAxis);
    EXPECT_TRUE(shapes[4].isAxis);
}

}  // namespace
}  // namespace velmora::icon
