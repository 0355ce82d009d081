#include "velmora/adapters/com/host_components.h"

#include <memory>
#include <string>
#include <utility>

#include "velmora/adapters/com/grid_face.h"
#include "velmora/adapters/com/host_session.h"
#include "velmora/adapters/com/late_object.h"
#include "velmora/adapters/com/rows_face.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::com {

namespace {

void giveSession(const LateObject& component, session::Session& session) {
    const auto* hosted = dynamic_cast<const HostedSession*>(&session);
    if (hosted == nullptr) {
        runtime::raise(runtime::typeMismatch);
    }
    component.putRef("MyBd", hosted->hostObject());
}

class HostPrinting final : public components::Printing {
  public:
    explicit HostPrinting(LateObject object) : object_(std::move(object)) {}
    void setMyBd(session::Session& session) override { giveSession(object_, session); }
    void jPrintPropuesta(std::int32_t nIdDpi, bool bOrden) override {
        Variant number = Variant::longNumber(nIdDpi);
        object_.call("jPrintPropuesta", {Argument::byRef(number), Variant::boolean(bOrden)});
    }

  private:
    LateObject object_;
};

class HostWorkOrders final : public components::WorkOrders {
  public:
    explicit HostWorkOrders(LateObject object) : object_(std::move(object)) {}
    void setMyBd(session::Session& session) override { giveSession(object_, session); }
    void jLoad(std::int32_t number) override { object_.call("jLoad", {Variant::longNumber(number)}); }

  private:
    LateObject object_;
};

class HostSpreadsheet final : public components::Spreadsheet {
  public:
    explicit HostSpreadsheet(LateObject object) : object_(std::move(object)) {}
    void setTitulo(std::string_view sTitulo) override { object_.put("sTitulo", Variant::text(sTitulo)); }
    void GridToExcel(sql::Recordset& rows, const screen::DataGrid& grid) override {
        Variant set = objectVariant(makeObject<RowsFace>(rows));
        const Variant face = objectVariant(makeObject<GridFace>(grid, set));
        object_.call("GridToExcel", {Argument::byRef(set), face});
    }

  private:
    LateObject object_;
};

class HostDeliveryNotes final : public components::DeliveryNotes {
  public:
    explicit HostDeliveryNotes(LateObject object) : object_(std::move(object)) {}
    void setMyBd(session::Session& session) override { giveSession(object_, session); }
    void jLoad(std::int32_t id, bool flag) override {
        object_.call("jLoad", {Variant::longNumber(id), Variant::boolean(flag)});
    }

  private:
    LateObject object_;
};

class HostScanner final : public components::Scanner {
  public:
    explicit HostScanner(LateObject object) : object_(std::move(object)) {}
    void setFichero(std::string_view path) override { object_.put("fichero", Variant::text(path)); }
    void jConfig() override { object_.call("jConfig"); }
    bool resultado() const override { return object_.get("resultado").value().toBool(); }

  private:
    LateObject object_;
};

template <typename Face>
void add(components::ComponentFactory& factory, const std::string& progId) {
    factory.add(progId, [progId]() -> std::unique_ptr<components::Component> {
        LateObject object = LateObject::tryCreate(progId);
        return object ? std::make_unique<Face>(std::move(object)) : nullptr;
    });
}

}  // namespace

void registerHostComponents(components::ComponentFactory& factory) {
    add<HostPrinting>(factory, "VELMORAIMP.VMORAIMP");
    add<HostWorkOrders>(factory, "KOLTAR.KOLTARD");
    add<HostDeliveryNotes>(factory, "SORVEL.SORVELCOMP");
    add<HostSpreadsheet>(factory, "LIMBAR.jLimbar");
    add<HostScanner>(factory, "MIRTOL.jMirtol");
}

}  // namespace velmora::com
