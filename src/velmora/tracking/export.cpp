#include "velmora/tracking/export.h"

#include "velmora/platform/runtime/errors.h"

namespace velmora::tracking {

namespace {

void handOver(const TrackingFields& f, const platform::Desk& desk) {
    if (!f.rsDpi->hasRows()) {
        return;
    }
    // A clone, so that the list's own cursor does not move and the panel is not notified.
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
        // Kept K-127: with a closed list the pointer stays the hourglass and the form stays disabled. The form's own
        // list is always open, so this happens only when its recordset was closed from outside.
        return;
    }
    // Kept K-128: a failed export shows no message; where the spreadsheet component is missing, the button does
    // nothing.
    runtime::ErrorTrap trap;
    trap([&] { handOver(f, desk); });
    desk.screen.setPointer(screen::Pointer::normal);
    desk.screen.processEvents();
    f.form.setEnabled(true);
}

}  // namespace velmora::tracking
