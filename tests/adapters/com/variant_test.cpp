#include "velmora/adapters/com/variant.h"

#include <limits>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"

#include "adapters/com/fake_object.h"

namespace velmora::com {
namespace {

using runtime::Date;

VARIANT plain(VARTYPE type) {
    VARIANT value;
    VariantInit(&value);
    value.vt = type;
    return value;
}

long errorOfValue(const VARIANT& value) {
    try {
        Variant::valueOf(value);
    } catch (const runtime::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(VariantTest, EveryKindOfValueComesBack) {
    const sql::Bytes bytes{std::byte{0}, std::byte{255}, std::byte{13}};
    for (const sql::Value& value :
         {sql::Value(), sql::Value(true), sql::Value(-7), sql::Value(12.5), sql::Value("Piñón €"), sql::Value(""),
          sql::Value(Date::of(2026, 11, 22, 14, 5, 59)), sql::Value(Date::of(1899, 12, 29, 6)), sql::Value(bytes),
          sql::Value(sql::Bytes())}) {
        EXPECT_EQ(Variant::of(value).value(), value);
    }
}

TEST(VariantTest, ValuesHaveTheTypesOfTheLanguage) {
    EXPECT_EQ(Variant::of(sql::Value()).type(), VT_NULL);
    EXPECT_EQ(Variant::of(sql::Value(true)).type(), VT_BOOL);
    EXPECT_EQ(Variant::of(sql::Value(7)).type(), VT_I4);
    EXPECT_EQ(Variant::of(sql::Value(std::int64_t{1} << 40)).type(), VT_R8);
    EXPECT_EQ(Variant::of(sql::Value("a")).type(), VT_BSTR);
    EXPECT_EQ(Variant::of(sql::Value(Date{})).type(), VT_DATE);
    EXPECT_EQ(Variant::of(sql::Value(sql::Bytes())).type(), VT_ARRAY | VT_UI1);
}

TEST(VariantTest, WholeNumbersOfEveryWidthAreRead) {
    VARIANT value = plain(VT_I1);
    value.cVal = -3;
    EXPECT_EQ(Variant::valueOf(value), sql::Value(-3));
    value = plain(VT_UI1);
    value.bVal = 200;
    EXPECT_EQ(Variant::valueOf(value), sql::Value(200));
    value = plain(VT_I2);
    value.iVal = -300;
    EXPECT_EQ(Variant::valueOf(value), sql::Value(-300));
    value = plain(VT_UI4);
    value.ulVal = 4000000000U;
    EXPECT_EQ(Variant::valueOf(value), sql::Value(std::int64_t{4000000000}));
    value = plain(VT_UI8);
    value.ullVal = std::numeric_limits<ULONGLONG>::max();
    EXPECT_EQ(Variant::valueOf(value), sql::Value(18446744073709551615.0));
}

TEST(VariantTest, MoneyAndDecimalsAreReadAsNumbers) {
    VARIANT money = plain(VT_CY);
    money.cyVal.int64 = 1234567;
    EXPECT_EQ(Variant::valueOf(money), sql::Value(123.4567));
    VARIANT decimal = plain(VT_EMPTY);
    ASSERT_GE(VarDecFromR8(-12.25, &decimal.decVal), 0);
    decimal.vt = VT_DECIMAL;
    EXPECT_EQ(Variant::valueOf(decimal), sql::Value(-12.25));
}

TEST(VariantTest, ReferencesAreFollowed) {
    LONG number = 12;
    VARIANT inner = plain(VT_BYREF | VT_I4);
    inner.plVal = &number;
    VARIANT outer = plain(VT_BYREF | VT_VARIANT);
    outer.pvarVal = &inner;
    EXPECT_EQ(Variant::valueOf(outer), sql::Value(12));
}

TEST(VariantTest, AnOmittedArgumentAndNothingAreNull) {
    EXPECT_TRUE(Variant::omitted().value().isNull());
    EXPECT_TRUE(Variant().value().isNull());
}

TEST(VariantTest, AnObjectIsNoValue) {
    const auto object = FakeObject::make();
    const Variant variant = object->variant();
    EXPECT_TRUE(variant.isObject());
    EXPECT_EQ(errorOfValue(variant.raw()), runtime::typeMismatch);
    EXPECT_EQ(variant.toObject().get(), object.get());
}

TEST(VariantTest, AnObjectIsFoundBehindItsOtherInterface) {
    const auto object = FakeObject::make();
    Variant unknown;
    object->AddRef();
    unknown.address()->punkVal = object.get();
    unknown.address()->vt = VT_UNKNOWN;
    EXPECT_EQ(unknown.toObject().get(), object.get());
    EXPECT_THROW(Variant::text("a").toObject(), runtime::RuntimeError);
    EXPECT_FALSE(Variant::object({}).toObject());
}

TEST(VariantTest, CopiesHaveAReferenceOfTheirOwn) {
    const auto object = FakeObject::make();
    {
        const Variant one = object->variant();
        const Variant other = one;
        EXPECT_EQ(object->references(), 3U);
    }
    EXPECT_EQ(object->references(), 1U);
}

}  // namespace
}  // namespace velmora::com
