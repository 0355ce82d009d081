#pragma once
// The public class in the program that plays the script, without a host between.

#include "velmora/adapters/script/public_operations.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"
#include "velmora/shell/vmora.h"

namespace velmora::script_stage {

class OwnInstance final : public script::PublicClass {
  public:
    /// Both must outlive it.
    OwnInstance(platform::Desk& desk, session::Session& session);

    void jShow() override;
    void jShowParametros() override;
    void jShowPropuesta(std::int32_t& nIdDpi) override;
    void jPrintPropuesta(std::int32_t& nIdDpi, bool& bOrden) override;
    void jShowSeguimiento() override;
    void setExportReport(bool value) override;
    bool exportReport() override;

  private:
    shell::VMORA vmora_;
};

}  // namespace velmora::script_stage
