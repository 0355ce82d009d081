#pragma once
// The rows of PDM for one chain: list, display and write.

#include <optional>
#include <string>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/sql/recordset.h"
#include "velmora/platform/system/system.h"
#include "velmora/reference/chain_fields.h"
#include "velmora/reference/new_row_button.h"

namespace velmora::reference {

class ChainRows {
  public:
    ChainRows(ChainFields& fields, NewRowButton& newRow, session::Session& session, screen::Screen& screen,
              const system::Clock& clock);

    /// Lists the rows of the selected chain. False when it has none. Errors: the database's.
    bool load();

    /// Writes the typed values: over the current row, or as a new row while one is being added. Values are not
    /// validated. A row that another user has deleted is refused; for a changed one the user is asked. A refusal is
    /// shown and leaves table and fields as they were. Errors: the database's, when the stored row cannot be read back.
    void save();

  private:
    void show();
    void shapeGrid();
    void rs_MoveComplete();
    void addFields(session::FieldList& campos) const;
    /// The key of the new row; nullopt when nothing was written and the user has been informed. Errors: of the write.
    std::optional<std::string> insert();
    std::optional<std::string> update();

    ChainFields& f_;
    NewRowButton& newRow_;
    session::Session& session_;
    screen::Screen& screen_;
    const system::Clock& clock_;
    sql::ListenedRecordset rs_;
};

}  // namespace velmora::reference
