#pragma once
// The panel "Datos del Presupuesto": the current row, and the customer's order data typed before acceptance.

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

/// True when a field of the panel differs from the row that it shows: typed by the user, or a date that was cleared.
bool isEdited(const TrackingFields& fields);

class DetailPanel {
  public:
    DetailPanel(TrackingFields& fields, session::KestraUtil& oUtil, screen::Screen& screen)
        : f_(fields), oUtil_(oUtil), screen_(screen) {}

    /// Shows the current row and puts its measures into the search fields. An empty list leaves everything as it was.
    /// Errors: 94 for a null in customer, name or an amount; the fields before it are filled by then, and no row counts
    /// as shown.
    void rsDpi_MoveComplete();

    void txtPesu_KeyPress(int Index, screen::KeyPress& key);
    void txtPesu_GotFocus(int Index) { oUtil_.EntrarCampo(f_.txtPesu(Index)); }
    void txtPesu_LostFocus(int Index);

  private:
    void showMeasures(const sql::Recordset& row);

    TrackingFields& f_;
    session::KestraUtil& oUtil_;
    screen::Screen& screen_;
};

}  // namespace velmora::tracking
