#include "velmora/proposal/gear_step.h"

#include "velmora/data/product_types.h"
#include "velmora/platform/session/deed.h"
#include "velmora/reference/frm_eng_val.h"

namespace velmora::proposal {

namespace {

constexpr int gearWheels = 0;
constexpr int gearDiscs = 1;

}  // namespace

void GearStep::cmdEng_Click() {
    // Kept K-172: for any other type no form is shown and the gear chosen last is read again.
    const data::ProductType& type = f_.product();
    if (type.toothing == data::Toothing::gear) {
        choose(type.hubs == data::Hubs::none ? gearDiscs : gearWheels);
    }
    gears_.takeOver(reference::nIdEngranaje);
}

void GearStep::choose(int family) {
    reference::frmENGVal form(session_, desk_);
    form.fields().cboDobles.setListIndex(family);
    form.fields().cboDobles.setEnabled(false);
    reference::nIdEngranaje = 0;
    desk_.screen.showModal(form);
    if (form.hasSaved()) {
        f_.form.status().tellDeed(session::deedNow("Valores del engranaje grabados", desk_.clock));
    }
}

}  // namespace velmora::proposal
