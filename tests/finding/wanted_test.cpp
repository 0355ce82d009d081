#include "velmora/finding/wanted.h"

#include <array>

#include <gmock/gmock.h>

namespace velmora::finding {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

TEST(Wanted, DigitsAreANumber) {
    struct Row {
        const char* text;
        std::optional<std::int32_t> number;
    };
    const std::array rows{
        Row{"321", 321},
        Row{"  000321 ", 321},
        Row{"2147483647", 2147483647},
        Row{"2147483648", std::nullopt},
        Row{"0", std::nullopt},
        Row{"-3", std::nullopt},
        Row{"12 34", std::nullopt},
        Row{"12,7", std::nullopt},
        Row{"", std::nullopt},
        Row{"n321", std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(readWanted(row.text).number, row.number) << row.text;
    }
}

TEST(Wanted, TeethTimesASizeAreAToothing) {
    struct Row {
        const char* text;
        std::optional<WantedToothing> toothing;
    };
    const std::array rows{
        Row{"38 x 12,7", WantedToothing{.teeth = 38, .size = 12.7}},
        Row{"38x12.7", WantedToothing{.teeth = 38, .size = 12.7}},
        Row{" 38 X 9,525 ", WantedToothing{.teeth = 38, .size = 9.525}},
        Row{"38 × 25", WantedToothing{.teeth = 38, .size = 25.0}},
        Row{"38*25,", WantedToothing{.teeth = 38, .size = 25.0}},
        Row{"38 x", WantedToothing{.teeth = 38}},
        Row{"20 x M2", WantedToothing{.teeth = 20, .size = 2.0, .isModule = true}},
        Row{"20 x m 1,5", WantedToothing{.teeth = 20, .size = 1.5, .isModule = true}},
        Row{"x 12,7", std::nullopt},
        Row{"38 12,7", std::nullopt},
        Row{"38 x 12,7 disco", std::nullopt},
        Row{"0 x 12,7", std::nullopt},
        Row{"38 x 1e5", std::nullopt},
        Row{"3,5 x 12,7", std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(readWanted(row.text).toothing, row.toothing) << row.text;
    }
}

TEST(Wanted, EveryTextIsWords) {
    EXPECT_THAT(readWanted(" aceros \t del norte ").words, ElementsAre("aceros", "del", "norte"));
    EXPECT_THAT(readWanted("321").words, ElementsAre("321"));
    EXPECT_THAT(readWanted("a b c d e f g h").words, SizeIs(mostWords));
    EXPECT_TRUE(readWanted(" \t ").isEmpty());
    EXPECT_FALSE(readWanted("38 x").isEmpty());
}

}  // namespace
}  // namespace velmora::finding
