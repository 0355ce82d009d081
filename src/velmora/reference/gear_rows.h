#pragma once
// The rows of ENG: found by one typed value, chosen for a proposal, written.

#include <cstdint>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/session/shown_row.h"
#include "velmora/platform/sql/recordset.h"
#include "velmora/reference/gear_fields.h"

namespace velmora::reference {

/// The gear that was chosen or written last, an ENG_Id; 0 when none was. Who wants to know clears it first.
extern std::int32_t nIdEngranaje;

class GearRows {
  public:
    GearRows(GearFields& fields, session::Session& session, screen::Screen& screen)
        : f_(fields), session_(session), screen_(screen) {}

    /// Lists the gears of the family with the value of one field; nothing for a value of 0. Each list stands alone.
    /// Errors: 13 for a text that is no number; the database's.
    void msFiltrarEngranajes(int Index);

    /// Makes the current row the chosen one. False when the list holds none, and when the row is gone or, once asked
    /// about, not wanted as another user has changed it; then the list is read anew. Errors: the database's.
    bool choose();

    /// Writes what is typed as a new row and makes it the chosen one. False when nothing was written: silently for a
    /// height or a bore of 0, with a message when the write was refused. Error 13 for a height or bore that is no
    /// number.
    bool save();

  private:
    void addFields();
    bool isStillTheOne(const session::ShownRow& shown);

    GearFields& f_;
    session::Session& session_;
    screen::Screen& screen_;
    sql::Recordset rs_;
};

}  // namespace velmora::reference
