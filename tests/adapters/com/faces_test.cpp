#include <gtest/gtest.h>

#include "velmora/adapters/com/grid_face.h"
#include "velmora/adapters/com/late_object.h"
#include "velmora/adapters/com/object_count.h"
#include "velmora/adapters/com/rows_face.h"
#include "velmora/platform/runtime/errors.h"

#include "adapters/com/fake_host.h"

namespace velmora::com {
namespace {

class RowsFaceTest : public testing::Test {
  protected:
    RowsFaceTest() : rows_(sql::rowsInMemory({{"a"}, {"Ñandú"}}, {{1, "x"}, {2, "y"}, {3, sql::Value()}})) {}

    LateObject face() { return LateObject(Ref<IDispatch>::sharing(makeObject<RowsFace>(rows_).get())); }
    sql::Value read(const LateObject& object, const char* member) { return object.get(member).value(); }

    template <typename Work>
    long errorNumberOf(const Work& work) {
        try {
            work();
        } catch (const runtime::RuntimeError& error) {
            return error.number();
        }
        return 0;
    }

    sql::Recordset rows_;
};

TEST_F(RowsFaceTest, FieldsFollowTheCurrentRow) {
    const LateObject set = face();
    const LateObject field = set.getObject("Fields").getObject("Item", {Variant::text("ÑANDÚ")});
    EXPECT_EQ(read(field, "Value"), sql::Value("x"));
    set.call("MoveNext");
    EXPECT_EQ(read(field, "Value"), sql::Value("y"));
    EXPECT_EQ(read(field, "Name"), sql::Value("Ñandú"));
    set.call("MoveLast");
    EXPECT_TRUE(read(field, "Value").isNull());
    EXPECT_EQ(set.getDefault({Variant::longNumber(0)}).toObject() ? sql::Value(true) : sql::Value(), sql::Value(true));
}

TEST_F(RowsFaceTest, BothEndsAreTold) {
    const LateObject set = face();
    set.call("MovePrevious");
    EXPECT_EQ(read(set, "BOF"), sql::Value(true));
    set.call("MoveLast");
    set.call("MoveNext");
    EXPECT_EQ(read(set, "EOF"), sql::Value(true));
    EXPECT_EQ(read(set, "RecordCount"), sql::Value(3));
    EXPECT_EQ(errorNumberOf([&] { set.getObject("Fields", {Variant::longNumber(0)}).get("Value"); }), 3021);
    set.call("MoveFirst");
    EXPECT_EQ(read(set.getObject("Fields", {Variant::longNumber(0)}), "Value"), sql::Value(1));
}

TEST_F(RowsFaceTest, AnUnknownFieldIsError3265) {
    const LateObject fields = face().getObject("Fields");
    EXPECT_EQ(errorNumberOf([&] { fields.get("Item", {Variant::text("nada")}); }), 3265);
    EXPECT_EQ(errorNumberOf([&] { fields.get("Item", {Variant::longNumber(2)}); }), 3265);
    EXPECT_EQ(errorNumberOf([&] { fields.get("Item", {Variant::longNumber(-1)}); }), 3265);
}

TEST_F(RowsFaceTest, ACloneMovesAloneAndAClosedSetHasNoRows) {
    const LateObject set = face();
    const LateObject clone = objectIn(set.call("Clone", {Variant::longNumber(1)}));
    clone.call("MoveLast");
    EXPECT_EQ(read(set.getObject("Fields", {Variant::longNumber(0)}), "Value"), sql::Value(1));
    clone.call("Close");
    EXPECT_EQ(read(clone, "State"), sql::Value(0));
    EXPECT_EQ(read(set, "State"), sql::Value(1));
    EXPECT_EQ(errorNumberOf([&] { clone.get("EOF"); }), 3704);
}

TEST_F(RowsFaceTest, ItsMembersAreCalledInTheirWaysAlone) {
    const LateObject set = face();
    EXPECT_EQ(errorNumberOf([&] { set.put("EOF", Variant::boolean(true)); }), 438);
    EXPECT_EQ(errorNumberOf([&] { set.call("MoveNext", {Variant::longNumber(1)}); }), 450);
    EXPECT_EQ(errorNumberOf([&] { set.get("Nada"); }), 438);
}

TEST_F(RowsFaceTest, FieldsAreEnumerated) {
    const Variant enumerator = face().getObject("Fields").get("_NewEnum");
    ASSERT_EQ(enumerator.type(), VT_UNKNOWN);
    const auto each = Ref<IUnknown>::sharing(enumerator.raw().punkVal).as<IEnumVARIANT>();
    ASSERT_TRUE(each);
    std::string names;
    for (Variant item; each->Next(1, item.out(), nullptr) == S_OK;) {
        names += objectIn(item).get("Name").value().toText() + ";";
    }
    EXPECT_EQ(names, "a;Ñandú;");
}

TEST_F(RowsFaceTest, TheModuleIsInUseWhileAFaceIsHeld) {
    const long before = objectsInUse();
    {
        const LateObject set = face();
        EXPECT_GT(objectsInUse(), before);
    }
    EXPECT_EQ(objectsInUse(), before);
}

TEST_F(RowsFaceTest, AVariableOfTheCallerIsWrittenInItsType) {
    LONG number = 0;
    VARIANT variable;
    VariantInit(&variable);
    variable.vt = VT_BYREF | VT_I4;
    variable.plVal = &number;
    DISPPARAMS parameters{.rgvarg = &variable, .rgdispidNamedArgs = nullptr, .cArgs = 1, .cNamedArgs = 0};
    const Call call(parameters);
    call.assign(0, Variant::text("12"));
    EXPECT_EQ(number, 12);
    EXPECT_THROW(call.assign(0, Variant::text("x")), runtime::RuntimeError);
    Variant any = Variant::text("antes");
    variable.vt = VT_BYREF | VT_VARIANT;
    variable.pvarVal = any.address();
    call.assign(0, Variant::boolean(true));
    EXPECT_EQ(any.value(), sql::Value(true));
}

}  // namespace
}  // namespace velmora::com
