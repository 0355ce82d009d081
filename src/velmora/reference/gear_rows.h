#pragma once
// The rows of ENG: searched by one typed value, chosen for a proposal, written.

#include <cstdint>
#include <vector>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/session/shown_row.h"
#include "velmora/platform/sql/recordset.h"
#include "velmora/reference/gear_fields.h"

namespace velmora::reference {

/// The gear chosen or written last, an ENG_Id; 0 for none. Callers clear it first.
extern std::int32_t nIdEngranaje;

/// The columns of the list.
std::vector<screen::GridColumn> gearColumns();

class GearRows {
  public:
    GearRows(GearFields& fields, session::Session& session, screen::Screen& screen)
        : f_(fields), session_(session), screen_(screen) {}

    /// Lists the gears of the family with the value of one field; none for the value 0. Filters are not combined.
    /// Errors: 13 for a text that is not a number; the database's.
    void msFiltrarEngranajes(int Index);

    /// Chooses the current row. False when the list has none, when the row no longer exists, and when another user has
    /// changed it and the user declines it; in the last two cases the list is refreshed. Errors: the database's.
    bool choose();

    /// Inserts the typed values as a new row and chooses it. False when nothing was written: without a message for a
    /// height or a bore of 0, with one when the write was refused. Error 13 for a height or bore that is not a number.
    bool save();

  private:
    void addFields(session::FieldList& campos) const;
    bool isStillTheOne(const session::ShownRow& shown);

    GearFields& f_;
    session::Session& session_;
    screen::Screen& screen_;
    sql::Recordset rs_;
};

}  // namespace velmora::reference
