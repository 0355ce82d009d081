#include "velmora/adapters/com/set_reading.h"

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"

#include "adapters/com/fake_host.h"

namespace velmora::com {
namespace {

class SetReadingTest : public testing::TestWithParam<SetKind> {
  protected:
    std::shared_ptr<SeenCalls> seen_ = std::make_shared<SeenCalls>();
};

TEST_P(SetReadingTest, AllRowsComeInTheirOrder) {
    std::vector<sql::Row> rows;
    for (int i = 0; i < 600; ++i) {
        rows.push_back({i, i % 2 == 0 ? sql::Value("nº " + std::to_string(i)) : sql::Value()});
    }
    const auto read = readSet(fakeSet(seen_, {"DPI_Id", "DPI_Ref"}, rows, GetParam())->late());
    ASSERT_TRUE(read);
    ASSERT_EQ(read->columns.size(), 2U);
    EXPECT_EQ(read->columns[1].name, "DPI_Ref");
    EXPECT_EQ(read->rows, rows);
}

TEST_P(SetReadingTest, ASetWithoutRowsHasItsColumns) {
    const auto read = readSet(fakeSet(seen_, {"a", "b", "c"}, {}, GetParam())->late());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->columns.size(), 3U);
    EXPECT_TRUE(read->rows.empty());
}

TEST_P(SetReadingTest, ValuesOfEveryKindComeThrough) {
    const std::vector<sql::Row> rows{{sql::Value(), true, 7, 12.5, "Ñ", runtime::Date::of(2026, 1, 2, 3, 4, 5),
                                      sql::Bytes{std::byte{1}, std::byte{0}}}};
    const auto read = readSet(fakeSet(seen_, {"a", "b", "c", "d", "e", "f", "g"}, rows, GetParam())->late());
    EXPECT_EQ(read->rows, rows);
}

INSTANTIATE_TEST_SUITE_P(Ways, SetReadingTest, testing::Values(SetKind::oneByOne, SetKind::inBlocks));

TEST(SetReading, NothingAndAClosedSetHaveNoRows) {
    const auto seen = std::make_shared<SeenCalls>();
    EXPECT_FALSE(readSet(LateObject()));
    EXPECT_FALSE(readSet(fakeClosedSet(seen)->late()));
    EXPECT_FALSE(readSet(fakeSet(seen, {}, {})->late()));
}

TEST(SetReading, DefaultMembersAreEnough) {
    const auto field = FakeObject::make();
    field->onGet("Name", Variant::text("x"));
    field->on("", DISPATCH_PROPERTYGET, [](FakeCall& call) { return call.answer(Variant::longNumber(3)); });
    const auto fields = FakeObject::make();
    fields->onGet("Count", Variant::longNumber(1));
    fields->on("", DISPATCH_PROPERTYGET, [&](FakeCall& call) { return call.answer(field->variant()); });
    int left = 1;
    const auto set = FakeObject::make();
    set->onGet("Fields", fields->variant());
    set->on("EOF", DISPATCH_PROPERTYGET, [&](FakeCall& call) { return call.answer(Variant::boolean(left == 0)); });
    set->on("MoveNext", DISPATCH_METHOD, [&](FakeCall&) {
        --left;
        return S_OK;
    });
    EXPECT_EQ(readSet(set->late())->rows, (std::vector<sql::Row>{{3}}));
}

TEST(SetReading, FieldsMayStayAtTheRowAtWhichTheyWereAskedFor) {
    int at = 1;
    const auto set = FakeObject::make();
    set->on("Fields", DISPATCH_PROPERTYGET, [&](FakeCall& call) {
        const auto field = FakeObject::make();
        field->onGet("Name", Variant::text("x"));
        field->onGet("Value", Variant::longNumber(at));
        const auto fields = FakeObject::make();
        fields->onGet("Count", Variant::longNumber(1));
        fields->onGet("Item", field->variant());
        return call.answer(fields->variant());
    });
    set->on("EOF", DISPATCH_PROPERTYGET, [&](FakeCall& call) { return call.answer(Variant::boolean(at > 3)); });
    set->on("MoveNext", DISPATCH_METHOD, [&](FakeCall&) {
        ++at;
        return S_OK;
    });
    EXPECT_EQ(readSet(set->late())->rows, (std::vector<sql::Row>{{1}, {2}, {3}}));
}

TEST(SetReading, ABlockOfAnotherShapeIsRefused) {
    const auto seen = std::make_shared<SeenCalls>();
    const auto set = fakeSet(seen, {"a"}, {{1}}, SetKind::inBlocks);
    set->on("GetRows", DISPATCH_METHOD, [](FakeCall& call) { return call.answer(Variant::longNumber(1)); });
    EXPECT_THROW(readSet(set->late()), runtime::RuntimeError);
}

}  // namespace
}  // namespace velmora::com
