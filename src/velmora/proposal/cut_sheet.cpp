#include "velmora/proposal/cut_sheet.h"

#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

void msHojaCorte(const estimate::FieldMap& fields, const FormControls& controls, session::Session& session,
                 const platform::Desk& desk) {
    if (fields.proposal.isNew() || fields.txtPesu(money::created).text().empty() || !controls.XPImprime.isEnabled()) {
        return;
    }
    const std::int32_t nIdDpi = fields.proposal.key();
    if (nIdDpi > 0) {
        const auto printing = desk.components.create<components::Printing>("VELMORAIMP.VMORAIMP");
        printing->setMyBd(session);
        printing->jPrintPropuesta(nIdDpi, false);
    }
}

}  // namespace velmora::proposal
