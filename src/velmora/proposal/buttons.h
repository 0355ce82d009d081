#pragma once
// The states of the main form's buttons, and the return from looking at a proposal to editing it.

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/presentation.h"
#include "velmora/proposal/form_controls.h"
#include "velmora/proposal/loading.h"

namespace velmora::proposal {

class Buttons {
  public:
    Buttons(estimate::FieldMap& fields, FormControls& controls, estimate::Presentation& presentation, Loading& loading)
        : f_(fields), controls_(controls), presentation_(presentation), loading_(loading) {}

    /// The state with nothing to save; in consultation there is nothing to print either.
    void msCancelarBotones(bool bConsulta);

    /// Turns off what writes, or opens the way to it.
    void disableWriting();

    /// Opens a proposal without work order for editing.
    void cmdCambios_Click();

  private:
    void disableComputed();

    estimate::FieldMap& f_;
    FormControls& controls_;
    estimate::Presentation& presentation_;
    Loading& loading_;
};

}  // namespace velmora::proposal
