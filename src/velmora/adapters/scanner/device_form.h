#pragma once
// The choice of a scanner when there are several.

#include <optional>
#include <string>
#include <vector>

#include "velmora/adapters/scan_protocol/page_source.h"
#include "velmora/platform/screen/form.h"

namespace velmora::scanner {

class DeviceForm : public screen::Form {
  public:
    explicit DeviceForm(const std::vector<Device>& devices);

    /// The position of the chosen device; nullopt when the form was closed without a choice.
    std::optional<std::size_t> chosen() const { return chosen_; }

  private:
    void accept();

    screen::ComboBox cboEscaner_{*this, "cboEscaner"};
    screen::Button cmdEscanear_{*this, "cmdEscanear"};
    screen::Button cmdCancelar_{*this, "cmdCancelar"};
    std::optional<std::size_t> chosen_;
};

}  // namespace velmora::scanner
