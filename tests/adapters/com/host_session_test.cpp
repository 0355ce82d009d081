#include "velmora/adapters/com/host_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/session/purchase_price_mask.h"
#include "velmora/platform/session/row_writing.h"

#include "adapters/com/fake_host.h"

namespace velmora::com {
namespace {

using session::Tipo;
using testing::ElementsAre;

void setText(VARIANT& variable, const wchar_t* text) {
    SysFreeString(*variable.pbstrVal);
    *variable.pbstrVal = SysAllocString(text);
}

class HostSessionTest : public testing::Test {
  protected:
    HostSessionTest() {
        campos_->on("Add", DISPATCH_METHOD, [this](FakeCall& call) {
            added_.push_back(call.value(0).toText() + "=" + (call.value(2).isNull() ? "Null" : call.value(2).toText()) +
                             ":" + call.value(1).toText() + "," + call.value(3).toText());
            return S_OK;
        });
        host_->onGet("Connection", connection_.object->variant());
        host_->onGet("Campos", campos_->variant());
        for (const char* name : {"Tabla", "Modo"}) {
            host_->onPut(name);
        }
        host_->on("Donde", DISPATCH_PROPERTYPUT, [this](FakeCall& call) {
            clause_ = call.value(0).toText();
            return S_OK;
        });
        host_->on("Insertar", DISPATCH_METHOD, [](FakeCall& call) {
            *call.argument(2).pboolVal = VARIANT_TRUE;
            return S_OK;
        });
        host_->on("Actualizar", DISPATCH_METHOD, [](FakeCall& call) {
            setText(call.argument(0), L"La fila no existe");
            *call.argument(1).pboolVal = VARIANT_FALSE;
            return S_OK;
        });
    }

    void onComprobar(VARIANT_BOOL alive, UINT arguments) {
        host_->on("ComprobarConexion", DISPATCH_METHOD, [=](FakeCall& call) {
            if (call.count() != arguments) {
                return DISP_E_BADPARAMCOUNT;
            }
            if (alive == VARIANT_FALSE) {
                setText(call.argument(1), L"Conexión perdida");
            }
            return call.answer(Variant::boolean(alive != VARIANT_FALSE));
        });
    }

    std::shared_ptr<SeenCalls> seen_ = std::make_shared<SeenCalls>();
    FakeConnection connection_;
    Ref<FakeObject> host_ = FakeObject::make(seen_);
    Ref<FakeObject> campos_ = FakeObject::make(seen_);
    HostSession session_{host_->late()};
    std::vector<std::string> added_;
    std::string clause_;
};

TEST_F(HostSessionTest, NothingIsReadOrSentBeforeTheFirstUse) {
    EXPECT_TRUE(seen_->calls.empty());
    EXPECT_TRUE(connection_.statements.empty());
}

TEST_F(HostSessionTest, NothingIsNoSession) {
    EXPECT_THROW(HostSession{LateObject{}}, runtime::RuntimeError);
}

TEST_F(HostSessionTest, AnInsertIsHandedOverInItsOrder) {
    const session::RowWrite write = session::tryInsertRow(session_, "DPI", [](session::FieldList& campos) {
        campos.Add("DPI_Tipo", Tipo::wholeNumber, 3);
        campos.Add("DPI_Ref", Tipo::text, "Piñón");
        campos.Add("DPI_Peso", Tipo::number, 12.5, 4);
        campos.Add("DPI_Orden", Tipo::expression, " Null ");
        campos.Add("DPI_Activo", Tipo::boolean, true);
        campos.Add("DPI_Fecha", Tipo::date, sql::Value(runtime::Date::of(2026, 11, 22)));
    });
    EXPECT_TRUE(write.stored);
    EXPECT_EQ(write.error, "");
    EXPECT_THAT(added_, ElementsAre("DPI_Tipo=3:1,2", "DPI_Ref=Piñón:3,2", "DPI_Peso=12,5:2,4", "DPI_Orden= Null :6,2",
                                    "DPI_Activo=Verdadero:0,2", "DPI_Fecha=22/11/2026:5,2"));
    EXPECT_THAT(seen_->calls,
                ElementsAre("put Tabla(8)", "put Modo(2)", "get Campos", "call Add(8,2,3,2,16395)",
                            "call Add(8,2,8,2,16395)", "call Add(8,2,5,2,16395)", "call Add(8,2,8,2,16395)",
                            "call Add(8,2,11,2,16395)", "call Add(8,2,7,2,16395)", "call Insertar(16392,10,16395)"));
}

TEST_F(HostSessionTest, ARefusedUpdateTellsTheHostsReason) {
    const session::RowWrite write =
        session::tryUpdateRow(session_, "DPI", " where DPI_Id = 7",
                              [](session::FieldList& campos) { campos.Add("DPI_Ref", Tipo::text, "x"); });
    EXPECT_FALSE(write.stored);
    EXPECT_EQ(write.error, "La fila no existe");
    EXPECT_THAT(seen_->calls, ElementsAre("put Tabla(8)", "put Modo(2)", "put Donde(8)", "get Campos",
                                          "call Add(8,2,8,2,16395)", "call Actualizar(16392,16395)"));
    EXPECT_EQ(clause_, " where DPI_Id = 7");
    EXPECT_TRUE(session_.Campos().fields().empty());
}

TEST_F(HostSessionTest, AnErrorOfTheHostIsARefusalAndItsListIsEmptied) {
    campos_->on("Add", DISPATCH_METHOD, [](FakeCall& call) {
        return call.raise(static_cast<HRESULT>(0x800A000DL), "No coinciden los tipos: DPI_Ref", "KESTRA");
    });
    session_.Campos().Add("DPI_Ref", Tipo::text, "x");
    std::string error;
    bool done = true;
    session_.Insertar(error, done);
    EXPECT_FALSE(done);
    EXPECT_EQ(error, "No coinciden los tipos: DPI_Ref");
    EXPECT_EQ(seen_->calls.back(), "put Modo(2)");
}

TEST_F(HostSessionTest, AWriteThatIsGivenUpDoesNotReachTheHost) {
    session_.Tabla("DPI");
    session_.Modo(0);
    session_.Campos().Add("DPI_Ref", Tipo::text, "x");
    session_.Modo(0);
    EXPECT_TRUE(added_.empty());
    EXPECT_TRUE(session_.Campos().fields().empty());
}

TEST_F(HostSessionTest, AScriptsInstanceGetsVariablesThatItCanWrite) {
    host_->becomeScript();
    host_->on("Insertar", DISPATCH_METHOD, [](FakeCall& call) {
        Variant::text("clave repetida").detachTo(call.argument(0).pvarVal);
        Variant::boolean(false).detachTo(call.argument(2).pvarVal);
        return S_OK;
    });
    HostSession session(host_->late());
    std::string error;
    bool done = true;
    session.Insertar(error, done);
    EXPECT_FALSE(done);
    EXPECT_EQ(error, "clave repetida");
}

TEST_F(HostSessionTest, TheConnectionIsReadEachTimeAndFollowed) {
    session_.Connection().execute("Select 1");
    FakeConnection second;
    host_->onGet("Connection", second.object->variant());
    session_.Connection().execute("Select 2");
    EXPECT_EQ(connection_.statements.back(), "Select 1");
    EXPECT_THAT(second.statements, ElementsAre("SET DATEFORMAT dmy", "Select 2"));
}

TEST_F(HostSessionTest, TheHostTellsWhetherTheConnectionIsUsable) {
    std::string error;
    onComprobar(VARIANT_TRUE, 3);
    EXPECT_TRUE(session_.ComprobarConexion(session_.Connection(), error));
    EXPECT_EQ(error, "");
    onComprobar(VARIANT_FALSE, 3);
    EXPECT_FALSE(session_.ComprobarConexion(session_.Connection(), error));
    EXPECT_EQ(error, "Conexión perdida");
    EXPECT_EQ(seen_->calls.back(), "call ComprobarConexion(9,16392,16395)");
}

TEST_F(HostSessionTest, AHostThatTakesTwoArgumentsGetsTwo) {
    std::string error;
    onComprobar(VARIANT_TRUE, 2);
    EXPECT_TRUE(session_.ComprobarConexion(session_.Connection(), error));
    onComprobar(VARIANT_FALSE, 2);
    EXPECT_FALSE(session_.ComprobarConexion(session_.Connection(), error));
}

TEST_F(HostSessionTest, AHostThatAnswersInItsLastArgumentIsUnderstood) {
    host_->on("ComprobarConexion", DISPATCH_METHOD, [](FakeCall& call) {
        *call.argument(2).pboolVal = VARIANT_TRUE;
        return S_OK;
    });
    std::string error;
    EXPECT_TRUE(session_.ComprobarConexion(session_.Connection(), error));
}

TEST_F(HostSessionTest, TheUserIsAWholeNumberOfAnyWidth) {
    host_->onGet("IdUsuario", Variant::shortNumber(12));
    EXPECT_EQ(session_.IdUsuario(), 12);
    host_->onGet("IdUsuario", Variant::text("13"));
    EXPECT_EQ(session_.IdUsuario(), 13);
}

TEST_F(HostSessionTest, AMissingMemberIsTold) {
    try {
        session_.IdUsuario();
        FAIL();
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), 438);
    }
}

// The ways in which a host may offer its settings.

HRESULT giveFour(FakeCall& call) {
    if (call.count() != 1) {
        return DISP_E_PARAMNOTOPTIONAL;
    }
    if (call.value(0) != sql::Value("par_decprecom")) {
        return call.raise(static_cast<HRESULT>(0x800A0005L), "No existe", "KESTRA");
    }
    return call.answer(Variant::longNumber(4));
}

class HostSettingsTest : public HostSessionTest {
  protected:
    void expectFour() {
        EXPECT_EQ(session_.Parametros("par_decprecom"), sql::Value(4));
        EXPECT_TRUE(session_.Parametros("otro").isNull());
        EXPECT_EQ(session::purchasePriceMask(session_), "#0.0000");
    }
    Ref<FakeObject> settings_ = FakeObject::make();
};

TEST_F(HostSettingsTest, AsAPropertyWithAnArgument) {
    host_->on("Parametros", DISPATCH_PROPERTYGET, giveFour);
    expectFour();
}

TEST_F(HostSettingsTest, AsAMethod) {
    host_->on("Parametros", DISPATCH_METHOD, giveFour);
    expectFour();
}

TEST_F(HostSettingsTest, AsACollectionWithItem) {
    settings_->on("Item", DISPATCH_METHOD | DISPATCH_PROPERTYGET, giveFour);
    host_->on("Parametros", DISPATCH_PROPERTYGET, [this](FakeCall& call) {
        return call.count() == 0 ? call.answer(settings_->variant()) : DISP_E_BADPARAMCOUNT;
    });
    expectFour();
}

TEST_F(HostSettingsTest, AsAnObjectWithADefaultMember) {
    settings_->on("", DISPATCH_PROPERTYGET, giveFour);
    host_->on("Parametros", DISPATCH_PROPERTYGET, [this](FakeCall& call) {
        return call.count() == 0 ? call.answer(settings_->variant()) : DISP_E_BADPARAMCOUNT;
    });
    expectFour();
}

TEST_F(HostSettingsTest, AsAPropertyThatIgnoresItsArgument) {
    settings_->on("Item", DISPATCH_PROPERTYGET, giveFour);
    host_->onGet("Parametros", settings_->variant());
    expectFour();
}

TEST_F(HostSettingsTest, AsObjectsWithAValueOfTheirOwn) {
    const auto setting = FakeObject::make();
    setting->onGet("Value", Variant::text("4"));
    settings_->on("Item", DISPATCH_PROPERTYGET, [&](FakeCall& call) { return call.answer(setting->variant()); });
    host_->onGet("Parametros", settings_->variant());
    EXPECT_EQ(session_.Parametros("par_decprecom").toLong(), 4);
}

TEST_F(HostSettingsTest, ASettingMayBeAnObjectItself) {
    const auto setting = FakeObject::make();
    setting->onGet("Value", Variant::longNumber(4));
    host_->on("Parametros", DISPATCH_PROPERTYGET, [&](FakeCall& call) {
        return call.count() == 1 ? call.answer(setting->variant()) : DISP_E_PARAMNOTOPTIONAL;
    });
    EXPECT_EQ(session_.Parametros("par_decprecom"), sql::Value(4));
}

TEST_F(HostSettingsTest, AHostWithoutSettingsHasNone) {
    EXPECT_TRUE(session_.Parametros("par_decprecom").isNull());
    EXPECT_EQ(session::purchasePriceMask(session_), "#0.00");
}

}  // namespace
}  // namespace velmora::com
