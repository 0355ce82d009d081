#include "velmora/tracking/opening.h"

#include "velmora/proposal/frm_bercial_pinones.h"
#include "velmora/proposal/work_order_display.h"

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
    // Kept K-126: the keys do not check for rows (error 3021 in an empty list), and F8 shows the form even for a
    // proposal that fails to load.
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
            // Kept K-130: controls that do not write stay as the load left them, so the proposal can be printed from
            // here, unlike in the host's read-only view.
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
