#pragma once
// The states of the main form's buttons, and the return from read-only display of a proposal to editing.

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/presentation.h"
#include "velmora/proposal/form_controls.h"
#include "velmora/proposal/loading.h"

namespace velmora::proposal {

class Buttons {
  public:
    Buttons(estimate::FieldMap& fields, FormControls& controls, estimate::Presentation& presentation, Loading& loading)
        : f_(fields), controls_(controls), presentation_(presentation), loading_(loading) {}

    /// The state with nothing to save; in a read-only form printing is disabled as well.
    void msCancelarBotones(bool bConsulta);

    /// Disables everything that writes or leads to writing.
    void disableWriting();

    /// Opens a proposal without a work order for editing.
    void cmdCambios_Click();

  private:
    void disableComputed();

    estimate::FieldMap& f_;
    FormControls& controls_;
    estimate::Presentation& presentation_;
    Loading& loading_;
};

}  // namespace velmora::proposal
