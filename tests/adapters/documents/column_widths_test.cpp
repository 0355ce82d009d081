#include "velmora/adapters/documents/column_widths.h"

#include <numeric>

#include <gmock/gmock.h>

namespace velmora::documents {
namespace {

using ::testing::ElementsAre;

TEST(ColumnWidthsTest, FollowTheSharesWhereThereIsRoom) {
    EXPECT_THAT(*divideWidth(100, {{.share = 1, .least = 10}, {.share = 3, .least = 20}}), ElementsAre(25, 75));
}

TEST(ColumnWidthsTest, WhatOneNeedsIsTakenFromTheOthersByTheirShares) {
    EXPECT_THAT(*divideWidth(100, {{.share = 1, .least = 40}, {.share = 1, .least = 0}, {.share = 2, .least = 0}}),
                ElementsAre(40, 20, 40));
}

TEST(ColumnWidthsTest, OneThatGivesWayKeepsItsOwnLeast) {
    EXPECT_THAT(*divideWidth(100, {{.share = 1, .least = 60}, {.share = 1, .least = 25}, {.share = 2, .least = 0}}),
                ElementsAre(60, 25, 15));
}

TEST(ColumnWidthsTest, NoneGoesBelowItsLeastAndAllTogetherTakeTheWidth) {
    for (int seed = 0; seed < 1000; ++seed) {
        std::vector<ColumnRoom> rooms;
        double leasts = 0;
        for (int i = 0; i < 1 + seed % 9; ++i) {
            rooms.push_back({.share = 0.5 + (seed * 7 + i * 13) % 10, .least = (seed * 31 + i * 17) % 90 * 1.0});
            leasts += rooms.back().least;
        }
        const auto widths = divideWidth(300, rooms);
        ASSERT_EQ(widths.has_value(), leasts <= 300) << seed;
        if (widths) {
            for (std::size_t i = 0; i < rooms.size(); ++i) {
                EXPECT_GE((*widths)[i], rooms[i].least) << seed;
            }
            EXPECT_NEAR(std::accumulate(widths->begin(), widths->end(), 0.0), 300, 1e-6) << seed;
        }
    }
}

TEST(ColumnWidthsTest, WithoutRoomForTheNumbersThereIsNoDivision) {
    EXPECT_FALSE(divideWidth(100, {{.share = 1, .least = 60}, {.share = 1, .least = 41}}));
    EXPECT_TRUE(divideWidth(100, {{.share = 1, .least = 60}, {.share = 1, .least = 40}}));
}

}  // namespace
}  // namespace velmora::documents
