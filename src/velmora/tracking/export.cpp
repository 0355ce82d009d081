#include "velmora/tracking/export.h"

#include "velmora/platform/runtime/errors.h"

namespace velmora::tracking {

namespace {

void handOver(const TrackingFields& f, const platform::Desk& desk) {
    if (!f.rsDpi->hasRows()) {
        return;
    }
    // A clone: the list's own cursor stays where it is, and the panel hears of nothing.
    sql::Recordset rows = f.rsDpi->clone();
    const auto spreadsheet = desk.components.create<components::Spreadsheet>("LIMBAR.jLimbar");
    spreadsheet->setTitulo("Registro de presupuestos especiales");
    spreadsheet->GridToExcel(rows, f.dbgDPI);
}

}  // namespace

void cmdExcel_Click(TrackingFields& f, const platform::Desk& desk) {
    desk.screen.setPointer(screen::Pointer::hourglass);
    desk.screen.processEvents();
    f.form.setEnabled(false);
    if (!f.rsDpi->isOpen()) {
        // Kept K-127: a closed list leaves the pointer waiting and the form disabled. The form's own list is always
        // open; a closed one means that its rows were taken away from under it, and nothing may be done with it.
        return;
    }
    // Kept K-128: an export that fails ends without a word; a workplace without the spreadsheet component has the
    // button all the same.
    runtime::ErrorTrap trap;
    trap([&] { handOver(f, desk); });
    desk.screen.setPointer(screen::Pointer::normal);
    desk.screen.processEvents();
    f.form.setEnabled(true);
}

}  // namespace velmora::tracking
