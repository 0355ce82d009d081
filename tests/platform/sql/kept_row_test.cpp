#include "velmora/platform/sql/kept_row.h"

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"

namespace velmora::sql {
namespace {

Recordset set(std::vector<Row> rows) {
    return Recordset(rowsInMemory({{"a"}, {"b"}}, std::move(rows)));
}

TEST(KeptRowTest, StaysWhereTheSetMovesOn) {
    Recordset rows = set({{1, "x"}, {2, "y"}});
    const Recordset kept = keptRow(rows);
    rows.moveNext();
    EXPECT_EQ(kept["A"].toLong(), 1);
    EXPECT_EQ(kept["b"].toText(), "x");
    EXPECT_EQ(kept.recordCount(), 1u);
    EXPECT_EQ(keptRow(rows)["a"].toLong(), 2);
}

TEST(KeptRowTest, FromTheEndOfASetThereIsNone) {
    const Recordset kept = keptRow(set({}));
    EXPECT_TRUE(kept.isOpen());
    EXPECT_TRUE(kept.eof());
    EXPECT_THROW(kept["a"], runtime::RuntimeError);
}

TEST(DifferInTest, TellsEveryKindOfChangeAndNoOther) {
    struct Case {
        Value one;
        Value other;
        bool differ;
    };
    const Case cases[] = {
        {1, 1, false},          {1, 2, true},          {Value(std::int64_t{3}), 3.0, false},
        {0.1 + 0.2, 0.3, true}, {9.525, 9.525, false}, {Value(), Value(), false},
        {Value(), 0, true},     {Value(), "", true},   {"a", "a", false},
        {"a", "A", true},       {"a", "a ", true},     {"1", 1, true},
        {true, true, false},    {true, false, true},
    };
    for (const Case& each : cases) {
        const Recordset one = set({{0, each.one}});
        const Recordset other = set({{1, each.other}});
        EXPECT_EQ(differIn({"b"}, one, other), each.differ) << (&each - cases);
        EXPECT_EQ(differIn({"B"}, other, one), each.differ) << (&each - cases);
        EXPECT_TRUE(differIn({"b", "a"}, one, other));
        EXPECT_FALSE(differIn({}, one, other)) << "only the columns named are held against each other";
    }
}

}  // namespace
}  // namespace velmora::sql
