#pragma once
// An instance of the public class, called over the border as a host calls it.

#include "velmora/adapters/com/late_object.h"
#include "velmora/adapters/script/public_operations.h"

#include "remembered_ending.h"

namespace velmora::stories {

class HostedInstance final : public script::PublicClass {
  public:
    HostedInstance(com::LateObject object, RememberedEnding& ending) : object_(std::move(object)), ending_(ending) {}

    void jShow() override { call("jShow"); }
    void jShowParametros() override { call("jShowParametros"); }
    void jShowPropuesta(std::int32_t& nIdDpi) override;
    void jPrintPropuesta(std::int32_t& nIdDpi, bool& bOrden) override;
    void jShowSeguimiento() override { call("jShowSeguimiento"); }
    void setExportReport(bool value) override { object_.put("bExportReport", com::Variant::boolean(value)); }
    bool exportReport() override { return object_.get("bExportReport").value().toBool(); }

  private:
    void call(std::string_view member, com::Arguments arguments = {});

    com::LateObject object_;
    RememberedEnding& ending_;
};

}  // namespace velmora::stories
