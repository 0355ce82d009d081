#pragma once
// The latest purchase prices of an article, from the host's delivery notes, with access to each note.

#include <cstdint>
#include <string>

#include "velmora/platform/desk.h"
#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/session/session.h"

namespace velmora::services {

/// The caller sets nFormula and txtFields (or calls msArticulo), calls msCargar and shows the form modally. The list is
/// empty until then.
class frmHcomp : public screen::Form {
  public:
    frmHcomp(session::Session& session, platform::Desk& desk);

    std::int32_t nFormula = 0;  ///< the article's art_for: determines which measures its lots have

    /// Takes the article with this art_id; when there is none, the fields are empty and nFormula is 0. Errors: the
    /// database's.
    void msArticulo(std::int32_t id);

    /// Lists the purchases of the last 90 days of the article whose code is in txtFields(0). Errors: the database's.
    void msCargar();

    screen::ControlArray<screen::TextBox> txtFields{*this, "txtFields", {{0, 1}}};  ///< art_cod, art_des
    screen::DataGrid dbgCompras{*this, "dbgCompras"};
    screen::Button cmdSalir{*this, "cmdSalir"};

  private:
    void arrange();
    void shapeGrid();
    void dbgCompras_ButtonClick(int column);
    std::string statement() const;

    session::Session& session_;
    platform::Desk& desk_;
    sql::Recordset rsCompras_;
};

}  // namespace velmora::services
