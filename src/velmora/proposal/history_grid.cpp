#include "velmora/proposal/history_grid.h"

#include "velmora/proposal/work_order_display.h"

namespace velmora::proposal {

namespace {

constexpr int numberColumn = 0;
constexpr int orderColumn = 3;

}  // namespace

void HistoryGrid::dbgDPI_ButtonClick(int column) {
    const sql::Recordset& rows = peers_.history.rsDpi();
    if (!rows.isOpen() || !rows.hasRows()) {
        return;
    }
    if (column == numberColumn) {
        openProposal();
    } else if (column == orderColumn) {
        openOrder();
    }
}

void HistoryGrid::openProposal() {
    const sql::Value id = peers_.history.rsDpi()["dpi_id"];
    const screen::Answer answer =
        desk_.screen.show({.text = "Realmente desea cargar los datos del presupuesto nº " + id.toText(),
                           .icon = screen::Icon::exclamation,
                           .buttons = screen::Buttons::yesNo});
    if (answer == screen::Answer::yes && peers_.loading.msCargarPresupuesto(id.toLong(), false)) {
        f_.cboFiltroHistorico.setFocus();
    }
}

void HistoryGrid::openOrder() {
    showWorkOrder(peers_.history.rsDpi()["DPI_Orden"], session_, desk_);
}

}  // namespace velmora::proposal
