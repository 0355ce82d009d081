#include "velmora/tracking/opening.h"

#include "velmora/proposal/frm_bercial_pinones.h"
#include "velmora/proposal/work_order.h"

namespace velmora::tracking {

namespace {

constexpr int numberColumn = 1;
constexpr int orderColumn = 4;

}  // namespace

void Opening::dbgDPI_ButtonClick(int column) {
    if (!f_.rsDpi->hasRows()) {
        return;
    }
    if (column == numberColumn) {
        openProposal(Unloadable::isSkipped);
    } else if (column == orderColumn) {
        openOrder();
    }
}

void Opening::dbgDPI_KeyDown(const screen::KeyDown& key) {
    // Kept K-126: the keys do not ask whether there are rows, and F8 shows the form also for a proposal that does not
    // load: who presses a key in an empty list is told so by the error.
    if (key.key == screen::Key::f8) {
        openProposal(Unloadable::isShown);
    } else if (key.key == screen::Key::f9) {
        openOrder();
    }
}

void Opening::XPButton2_Click() {
    if (f_.rsDpi->hasRows()) {
        openOrder();
    }
}

void Opening::openProposal(Unloadable unloadable) {
    {
        proposal::frmBercialPiñones form(session_, desk_);
        const bool loaded = form.msCargarPresupuesto((*f_.rsDpi)["dpi_id"].toLong(), false);
        if (loaded || unloadable == Unloadable::isShown) {
            // Kept K-130: what does not write stays as the load left it: who follows a proposal may print it from here,
            // which the host's consultation may not.
            form.bConsulta = true;
            desk_.screen.showModal(form);
        }
    }
    reload_();
}

void Opening::openOrder() {
    proposal::showWorkOrder((*f_.rsDpi)["DPI_Orden"], session_, desk_);
}

}  // namespace velmora::tracking
