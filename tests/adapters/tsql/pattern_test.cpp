#include "velmora/adapters/tsql/pattern.h"

#include <string>

#include <gtest/gtest.h>

namespace velmora::tsql {

TEST(Pattern, Matches) {
    EXPECT_TRUE(matchesPattern("Piñón", "piñ%"));
    EXPECT_TRUE(matchesPattern("Piñón", "%Ó_"));
    EXPECT_FALSE(matchesPattern("Piñón", "%o_"));
    EXPECT_TRUE(matchesPattern("abc", "a[a-c]c"));
    EXPECT_FALSE(matchesPattern("abc", "a[^a-c]c"));
    EXPECT_TRUE(matchesPattern("50%", "50!%", "!"));
    EXPECT_FALSE(matchesPattern("500", "50!%", "!"));
    EXPECT_TRUE(matchesPattern("", "%"));
    EXPECT_FALSE(matchesPattern("", "_"));
    EXPECT_TRUE(matchesPattern("a[b", "a[b"));
    EXPECT_FALSE(matchesPattern(std::string(5000, 'a'), "%a%a%a%a%a%a%a%b"));
}

}  // namespace velmora::tsql
