#include "velmora/adapters/com/host_components.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/adapters/com/automation_object.h"
#include "velmora/adapters/com/host_session.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"

#include "adapters/com/fake_host.h"

namespace velmora::com {
namespace {

using testing::ElementsAre;

/// Gives the one object of a class.
class OneObjectClass final : public IClassFactory {
  public:
    explicit OneObjectClass(FakeObject& object) : object_(object) {}
    virtual ~OneObjectClass() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** out) override {
        return object_.QueryInterface(id, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  private:
    FakeObject& object_;
};

/// A class under a ProgID for as long as this lives: a key of the registry and a class object of this process.
class Installed {
  public:
    Installed(const std::wstring& progId, const CLSID& id, FakeObject& object) : class_(object) {
        key_ = progId;
        wchar_t text[64] = {};
        StringFromGUID2(id, text, 64);
        HKEY key = nullptr;
        RegCreateKeyExW(HKEY_CLASSES_ROOT, (key_ + L"\\CLSID").c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                        nullptr);
        RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                       static_cast<DWORD>((wcslen(text) + 1) * sizeof(wchar_t)));
        RegCloseKey(key);
        EXPECT_GE(CoRegisterClassObject(id, &class_, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registered_), 0);
    }
    ~Installed() {
        CoRevokeClassObject(registered_);
        RegDeleteTreeW(HKEY_CLASSES_ROOT, key_.c_str());
    }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;

  private:
    OneObjectClass class_;
    std::wstring key_;
    DWORD registered_ = 0;
};

constexpr CLSID someClass{0x5d2f3b01, 0x7c1e, 0x4a0b, {0x9c, 0x11, 0x2e, 0x4f, 0x60, 0x71, 0x82, 0x93}};

class HostComponentsTest : public testing::Test {
  protected:
    HostComponentsTest() {
        needCom();
        registerHostComponents(factory_);
        object_->on("MyBd", DISPATCH_PROPERTYPUTREF, [this](FakeCall& call) {
            given_ = Variant::objectOf(call.argument(0));
            return S_OK;
        });
    }

    components::ComponentFactory factory_;
    Ref<FakeObject> object_ = FakeObject::make();
    Ref<FakeObject> host_ = FakeObject::make();
    HostSession session_{host_->late()};
    Ref<IDispatch> given_;
};

TEST_F(HostComponentsTest, AComponentThatIsNotInstalledIsError429) {
    try {
        factory_.create<components::Printing>("VELMORAIMP.VMORAIMP");
        FAIL();
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), runtime::cannotCreateObject);
        EXPECT_NE(error.description().find("VELMORAIMP.VMORAIMP"), std::string::npos);
    }
}

TEST_F(HostComponentsTest, PrintingGetsTheHostsOwnSessionAndTheNumberByReference) {
    const Installed installed(L"VELMORAIMP.VMORAIMP", someClass, *object_.get());
    std::string printed;
    object_->on("jPrintPropuesta", DISPATCH_METHOD, [&](FakeCall& call) {
        printed = call.value(0).toText() + " " + call.value(1).toText();
        return S_OK;
    });
    const auto printing = factory_.create<components::Printing>("velmoraimp.vmoraimp");
    printing->setMyBd(session_);
    printing->jPrintPropuesta(1234, false);
    EXPECT_EQ(given_.get(), host_.get());
    EXPECT_EQ(printed, "1234 Falso");
    EXPECT_THAT(object_->seen().calls, ElementsAre("put by reference MyBd(9)", "call jPrintPropuesta(16387,11)"));
}

TEST_F(HostComponentsTest, WorkOrdersAndDeliveryNotesAreShownByNumber) {
    {
        const Installed installed(L"KOLTAR.KOLTARD", someClass, *object_.get());
        object_->on("jLoad", DISPATCH_METHOD, [](FakeCall&) { return S_OK; });
        const auto orders = factory_.create<components::WorkOrders>("KOLTAR.KOLTARD");
        orders->setMyBd(session_);
        orders->jLoad(77);
    }
    const Installed installed(L"SORVEL.SORVELCOMP", someClass, *object_.get());
    const auto notes = factory_.create<components::DeliveryNotes>("SORVEL.SORVELCOMP");
    notes->setMyBd(session_);
    notes->jLoad(5, true);
    EXPECT_THAT(object_->seen().calls, ElementsAre("put by reference MyBd(9)", "call jLoad(3)",
                                                   "put by reference MyBd(9)", "call jLoad(3,11)"));
}

TEST_F(HostComponentsTest, TheScannerTellsWhetherItWroteAFile) {
    const Installed installed(L"MIRTOL.jMirtol", someClass, *object_.get());
    object_->onPut("fichero");
    object_->on("jConfig", DISPATCH_METHOD, [](FakeCall&) { return S_OK; });
    object_->onGet("resultado", Variant::boolean(true));
    const auto scanner = factory_.create<components::Scanner>("MIRTOL.jMirtol");
    scanner->setFichero("C:\\Temp\\DOC202611221405.pdf");
    scanner->jConfig();
    EXPECT_TRUE(scanner->resultado());
    EXPECT_THAT(object_->seen().calls, ElementsAre("put fichero(8)", "call jConfig", "get resultado"));
}

TEST_F(HostComponentsTest, AnErrorOfAComponentKeepsItsParts) {
    const Installed installed(L"KOLTAR.KOLTARD", someClass, *object_.get());
    object_->on("jLoad", DISPATCH_METHOD, [](FakeCall& call) {
        return call.raise(static_cast<HRESULT>(0x800A03E8L), "La orden no existe", "KOLTAR");
    });
    const auto orders = factory_.create<components::WorkOrders>("KOLTAR.KOLTARD");
    try {
        orders->jLoad(1);
        FAIL();
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), 1000);
        EXPECT_EQ(error.description(), "La orden no existe");
        EXPECT_EQ(error.source(), "KOLTAR");
    }
}

TEST_F(HostComponentsTest, TheSpreadsheetReadsRowsAndGridThroughTheirFaces) {
    const Installed installed(L"LIMBAR.jLimbar", someClass, *object_.get());
    std::vector<std::string> cells;
    LateObject kept;
    object_->onPut("sTitulo");
    object_->on("GridToExcel", DISPATCH_METHOD, [&](FakeCall& call) {
        const LateObject rows(Variant::objectOf(call.argument(0)));
        const LateObject grid(Variant::objectOf(call.argument(1)));
        const LateObject columns = grid.getObject("Columns");
        for (int i = 0; i < columns.get("Count").value().toLong(); ++i) {
            const LateObject column = grid.getObject("Columns", {Variant::longNumber(i)});
            cells.push_back(column.get("Caption").value().toText() + "|" + column.get("Width").value().toText() + "|" +
                            column.get("Visible").value().toText() + "|" + column.get("NumberFormat").value().toText() +
                            "|" + column.get("Alignment").value().toText() + "|" +
                            column.get("DataField").value().toText());
        }
        while (!rows.get("EOF").value().toBool()) {
            cells.push_back(rows.getObject("Fields", {Variant::text("dpi_ref")}).get("Value").value().toText());
            rows.call("MoveNext");
        }
        kept = grid;
        return S_OK;
    });
    sql::Recordset rows(sql::rowsInMemory({{"DPI_Id"}, {"DPI_Ref"}}, {{1, "uno"}, {2, "dos"}}));
    {
        screen::Form form("frmSeguimiento");
        screen::DataGrid grid(form, "dbgDPI");
        grid.bind(rows);
        grid.setColumns(
            {{.field = 1, .caption = "Referencia", .width = 1500},
             {.field = 0, .caption = "Nº", .width = 900, .mask = "000000", .right = true, .visible = false}});
        const auto spreadsheet = factory_.create<components::Spreadsheet>("LIMBAR.jLimbar");
        spreadsheet->setTitulo("Registro");
        sql::Recordset clone = rows.clone();
        spreadsheet->GridToExcel(clone, grid);
    }
    EXPECT_THAT(cells,
                ElementsAre("Referencia|1500|Verdadero||0|DPI_Ref", "Nº|900|Falso|000000|1|DPI_Id", "uno", "dos"));
    EXPECT_EQ(rows.position(), 0U);
    EXPECT_THAT(object_->seen().calls, ElementsAre("put sTitulo(8)", "call GridToExcel(16393,9)"));
    // A component may keep the grid longer than the form lives.
    EXPECT_EQ(kept.getObject("Columns").get("Count").value(), sql::Value(2));
}

TEST_F(HostComponentsTest, ASessionOfAnotherKindIsRefused) {
    class OtherSession final : public session::Session {
      public:
        sql::Connection& Connection() override { throw runtime::RuntimeError(runtime::objectNotSet, ""); }
        void Tabla(std::string_view) override {}
        void Modo(int) override {}
        session::FieldList& Campos() override { return fields_; }
        void Donde(std::string_view) override {}
        void Actualizar(std::string&, bool&) override {}
        void Insertar(std::string&, bool&) override {}
        bool ComprobarConexion(sql::Connection&, std::string&) override { return true; }
        std::int32_t IdUsuario() const override { return 1; }
        sql::Value Parametros(std::string_view) const override { return {}; }

      private:
        session::FieldList fields_;
    };
    const Installed installed(L"KOLTAR.KOLTARD", someClass, *object_.get());
    OtherSession other;
    EXPECT_THROW(factory_.create<components::WorkOrders>("KOLTAR.KOLTARD")->setMyBd(other), runtime::RuntimeError);
}

}  // namespace
}  // namespace velmora::com
