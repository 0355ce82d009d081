#include "velmora/adapters/com/late_object.h"

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"

#include "adapters/com/fake_host.h"
#include "adapters/com/fake_object.h"

namespace velmora::com {
namespace {

template <typename Work>
long errorNumberOf(const Work& work) {
    try {
        work();
    } catch (const runtime::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(LateObjectTest, APropertyIsReadAsOne) {
    const auto object = FakeObject::make();
    object->onGet("IdUsuario", Variant::longNumber(7));
    EXPECT_EQ(object->late().get("idusuario").value(), sql::Value(7));
    EXPECT_EQ(object->seen().calls, std::vector<std::string>{"get IdUsuario"});
}

TEST(LateObjectTest, AMethodInPlaceOfAPropertyIsCalled) {
    const auto object = FakeObject::make();
    object->on("IdUsuario", DISPATCH_METHOD, [](FakeCall& call) { return call.answer(Variant::longNumber(7)); });
    EXPECT_EQ(object->late().get("IdUsuario").value(), sql::Value(7));
    EXPECT_EQ(object->seen().calls, (std::vector<std::string>{"get IdUsuario", "call or get IdUsuario"}));
}

TEST(LateObjectTest, ArgumentsStandByPosition) {
    const auto object = FakeObject::make();
    std::string seen;
    object->on("jLoad", DISPATCH_METHOD, [&](FakeCall& call) {
        seen = call.value(0).toText() + "/" + call.value(1).toText();
        return S_OK;
    });
    object->late().call("jLoad", {Variant::longNumber(12), Variant::text("x")});
    EXPECT_EQ(seen, "12/x");
    EXPECT_EQ(object->seen().calls, std::vector<std::string>{"call jLoad(3,8)"});
}

TEST(LateObjectTest, APutHasTheNameOfPuts) {
    const auto object = FakeObject::make();
    object->onPut("Tabla");
    object->late().put("Tabla", Variant::text("DPI"));
    EXPECT_EQ(object->seen().calls, std::vector<std::string>{"put Tabla(8)"});
}

TEST(LateObjectTest, AnObjectIsPutByReferenceOrElseAsAValue) {
    const auto value = FakeObject::make();
    const auto both = FakeObject::make();
    both->on("MyBd", DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF, [](FakeCall&) { return S_OK; });
    both->late().putRef("MyBd", value->late());
    EXPECT_EQ(both->seen().calls, std::vector<std::string>{"put by reference MyBd(9)"});
    const auto plain = FakeObject::make();
    plain->onPut("MyBd");
    plain->late().putRef("MyBd", value->late());
    EXPECT_EQ(plain->seen().calls, (std::vector<std::string>{"put by reference MyBd(9)", "put MyBd(9)"}));
}

TEST(LateObjectTest, AVariableOfATypeIsWritten) {
    const auto object = FakeObject::make();
    object->on("Insertar", DISPATCH_METHOD, [](FakeCall& call) {
        SysFreeString(*call.argument(0).pbstrVal);
        *call.argument(0).pbstrVal = SysAllocString(L"clave repetida");
        *call.argument(2).pboolVal = VARIANT_TRUE;
        return S_OK;
    });
    Variant error = Variant::text("");
    Variant done = Variant::boolean(false);
    object->late().call("Insertar", {Argument::byRef(error), Variant::omitted(), Argument::byRef(done)});
    EXPECT_EQ(error.value(), sql::Value("clave repetida"));
    EXPECT_EQ(done.value(), sql::Value(true));
    EXPECT_EQ(object->seen().calls, std::vector<std::string>{"call Insertar(16392,10,16395)"});
}

TEST(LateObjectTest, AScriptGetsVariablesOfAnyType) {
    const auto object = FakeObject::make();
    object->becomeScript();
    object->on("Insertar", DISPATCH_METHOD, [](FakeCall& call) {
        VARIANT& variable = *call.argument(0).pvarVal;
        VariantClear(&variable);
        variable.vt = VT_I2;
        variable.iVal = 5;
        return S_OK;
    });
    Variant error = Variant::text("");
    object->late().call("Insertar", {Argument::byRef(error)});
    EXPECT_EQ(error.value(), sql::Value(5));
    EXPECT_EQ(object->seen().calls, std::vector<std::string>{"call Insertar(16396)"});
}

TEST(LateObjectTest, ErrorsOfTheObjectKeepTheirParts) {
    const auto object = FakeObject::make();
    object->on("Execute", DISPATCH_METHOD, [](FakeCall& call) {
        return call.raise(static_cast<HRESULT>(0x80040E37L), "No existe la tabla ENG", "Proveedor");
    });
    try {
        object->late().call("Execute");
        FAIL();
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), static_cast<int>(0x80040E37U));
        EXPECT_EQ(error.description(), "No existe la tabla ENG");
        EXPECT_EQ(error.source(), "Proveedor");
    }
    EXPECT_EQ(object->seen().calls.size(), 1U);  // a member that fails is not tried another way
}

TEST(LateObjectTest, AMissingMemberIsError438) {
    const auto object = FakeObject::make();
    object->onPut("Tabla");
    EXPECT_EQ(errorNumberOf([&] { object->late().get("Nada"); }), 438);
    EXPECT_EQ(errorNumberOf([&] { object->late().get("Tabla"); }), 438);
    EXPECT_FALSE(object->late().has("Nada"));
    EXPECT_TRUE(object->late().has("Tabla"));
}

TEST(LateObjectTest, NothingHasNoMembers) {
    EXPECT_EQ(errorNumberOf([] { LateObject().get("Connection"); }), runtime::objectNotSet);
    EXPECT_FALSE(LateObject());
}

TEST(LateObjectTest, TheDefaultMemberStandsInForAMissingName) {
    const auto object = FakeObject::make();
    object->on("", DISPATCH_PROPERTYGET, [](FakeCall& call) { return call.answer(Variant::longNumber(9)); });
    EXPECT_EQ(object->late().getOrDefault("Value").value(), sql::Value(9));
    object->onGet("Value", Variant::longNumber(10));
    EXPECT_EQ(object->late().getOrDefault("Value").value(), sql::Value(10));
}

TEST(LateObjectTest, NamesAreLookedUpOnceForAnObjectAndItsCopies) {
    const auto object = FakeObject::make();
    object->onGet("EOF", Variant::boolean(true));
    const LateObject one = object->late();
    const LateObject copy = one;
    one.get("EOF");
    copy.get("EOF");
    EXPECT_TRUE(one.isSame(copy));
    EXPECT_TRUE(one.isSame(object->late()));
    EXPECT_FALSE(one.isSame(FakeObject::make()->late()));
}

TEST(LateObjectTest, AClassThatIsNotRegisteredIsError429) {
    needCom();
    EXPECT_EQ(errorNumberOf([] { LateObject::create("NO.HAY"); }), runtime::cannotCreateObject);
    EXPECT_FALSE(LateObject::tryCreate("NO.HAY"));
}

}  // namespace
}  // namespace velmora::com
