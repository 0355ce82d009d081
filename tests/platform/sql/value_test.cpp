#include "velmora/platform/sql/value.h"

#include <optional>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"

namespace velmora::sql {
namespace {

using runtime::Date;

template <typename Step>
std::optional<long> errorRaisedBy(Step step) {
    try {
        step();
    } catch (const runtime::RuntimeError& error) {
        return error.number();
    }
    return std::nullopt;
}

TEST(Value, NullIsErrorNinetyFourWhereAValueIsNeeded) {
    const Value null;
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(errorRaisedBy([&] { null.toDouble(); }), 94);
    EXPECT_EQ(errorRaisedBy([&] { null.toLong(); }), 94);
    EXPECT_EQ(errorRaisedBy([&] { null.toText(); }), 94);
    EXPECT_EQ(errorRaisedBy([&] { null.toDate(); }), 94);
    EXPECT_FALSE(null.toBool());
}

TEST(Value, BitIsMinusOneAsNumberAndAWordAsText) {
    const Value set(true);
    const Value unset(false);
    EXPECT_EQ(set.toDouble(), -1.0);
    EXPECT_EQ(unset.toDouble(), 0.0);
    EXPECT_EQ(set.toLong(), -1);
    EXPECT_EQ(unset.toLong(), 0);
    EXPECT_EQ(set.toText(), "Verdadero");
    EXPECT_EQ(unset.toText(), "Falso");
    EXPECT_TRUE(set.toBool());
    EXPECT_FALSE(unset.toBool());
    EXPECT_EQ(set.toDate(), Date::of(1899, 12, 29));
}

TEST(Value, WholeNumbersKeepTheirBounds) {
    const Value whole(38);
    EXPECT_EQ(whole.toDouble(), 38.0);
    EXPECT_EQ(whole.toLong(), 38);
    EXPECT_EQ(whole.toText(), "38");
    EXPECT_TRUE(whole.toBool());
    EXPECT_EQ(Value(std::int64_t{-2147483648}).toLong(), -2147483647 - 1);
    EXPECT_EQ(errorRaisedBy([] { Value(std::int64_t{2147483648}).toLong(); }), 6);
    EXPECT_EQ(errorRaisedBy([] { Value(std::int64_t{-2147483649}).toLong(); }), 6);
}

TEST(Value, NumbersConvertAsTheLanguageDoes) {
    EXPECT_EQ(Value(12.7).toText(), "12,7");
    EXPECT_EQ(Value(2.5).toLong(), 2);
    EXPECT_EQ(Value(3.5).toLong(), 4);
    EXPECT_EQ(errorRaisedBy([] { Value(1e10).toLong(); }), 6);
    EXPECT_EQ(Value(45292.5).toDate(), Date::of(2024, 1, 1, 12));
    EXPECT_FALSE(Value(0.0).toBool());
    EXPECT_TRUE(Value(-0.5).toBool());
}

TEST(Value, TextsAreReadByTheLocale) {
    EXPECT_EQ(Value("1.234,5").toDouble(), 1234.5);
    EXPECT_EQ(Value("2,5").toLong(), 2);
    EXPECT_EQ(Value("Piñón").toText(), "Piñón");
    EXPECT_EQ(Value("31/12/2024").toDate(), Date::of(2024, 12, 31));
    EXPECT_TRUE(Value("1").toBool());
    EXPECT_FALSE(Value("0").toBool());
    EXPECT_EQ(errorRaisedBy([] { Value("abc").toDouble(); }), 13);
    EXPECT_EQ(errorRaisedBy([] { Value("").toLong(); }), 13);
    EXPECT_EQ(errorRaisedBy([] { Value("abc").toDate(); }), 13);
    EXPECT_EQ(errorRaisedBy([] { Value("abc").toBool(); }), 13);
}

TEST(Value, DatesHaveATextAndANumber) {
    const Value date(Date::of(2026, 1, 15, 10, 0, 0));
    EXPECT_EQ(date.toText(), "15/01/2026 10:00:00");
    EXPECT_EQ(date.toDate(), Date::of(2026, 1, 15, 10, 0, 0));
    EXPECT_EQ(Value(Date::of(2024, 1, 1, 12)).toDouble(), 45292.5);
    EXPECT_EQ(Value(Date::of(2024, 1, 1, 6)).toLong(), 45292);
    EXPECT_TRUE(date.toBool());
}

TEST(Value, BinaryConvertsToNothing) {
    const Value bytes(Bytes{std::byte{1}});
    EXPECT_EQ(errorRaisedBy([&] { bytes.toDouble(); }), 13);
    EXPECT_EQ(errorRaisedBy([&] { bytes.toLong(); }), 13);
    EXPECT_EQ(errorRaisedBy([&] { bytes.toText(); }), 13);
    EXPECT_EQ(errorRaisedBy([&] { bytes.toDate(); }), 13);
    EXPECT_EQ(errorRaisedBy([&] { bytes.toBool(); }), 13);
}

}  // namespace
}  // namespace velmora::sql
