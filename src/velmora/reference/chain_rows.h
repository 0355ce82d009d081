#pragma once
// The rows of PDM of one chain: listed, shown, written.

#include <optional>
#include <string>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/sql/recordset.h"
#include "velmora/reference/chain_fields.h"
#include "velmora/reference/new_row_button.h"

namespace velmora::reference {

class ChainRows {
  public:
    ChainRows(ChainFields& fields, NewRowButton& newRow, session::Session& session, screen::Screen& screen);

    /// Lists the rows of the chain that is chosen. False when it has none. Errors: the database's.
    bool load();

    /// Writes what is typed: over the current row, or as a new one while one is being added. No value is checked. A
    /// row that another user has deleted is refused, one that was changed is asked about. A refusal is told and leaves
    /// table and fields as they were. Errors: the database's, of reading back what is already stored.
    void save();

  private:
    void show();
    void shapeGrid();
    void rs_MoveComplete();
    void addFields();
    /// The key of the row written; none when nothing was, which has been told. Errors: of the write.
    std::optional<std::string> insert();
    std::optional<std::string> update();

    ChainFields& f_;
    NewRowButton& newRow_;
    session::Session& session_;
    screen::Screen& screen_;
    sql::ListenedRecordset rs_;
};

}  // namespace velmora::reference
