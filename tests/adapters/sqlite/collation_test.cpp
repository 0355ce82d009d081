#include "velmora/adapters/sqlite/collation.h"

#include <gtest/gtest.h>

namespace velmora::sqlite {

TEST(SpanishOrder, IsBlindToCaseAndTrailingBlanksNotToAccents) {
    const SpanishOrder order;
    EXPECT_EQ(order.compare("eje", "EJE  "), 0);
    EXPECT_EQ(order.compare("", "   "), 0);
    EXPECT_EQ(order.compare("Ñ", "ñ"), 0);
    EXPECT_EQ(order.compare("piñón", "pin\u0303o\u0301n"), 0);
    EXPECT_NE(order.compare("eje", "ejé"), 0);
    EXPECT_NE(order.compare("ano", "año"), 0);
    EXPECT_NE(order.compare(" eje", "eje"), 0);
    EXPECT_LT(order.compare("nz", "ñ"), 0);
    EXPECT_LT(order.compare("Ñ", "o"), 0);
    EXPECT_GT(order.compare("llama", "lk"), 0);
    EXPECT_LT(order.compare("llama", "lz"), 0);
    EXPECT_LT(order.compare("A", "b"), 0);
}

}  // namespace velmora::sqlite
