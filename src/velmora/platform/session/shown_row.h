#pragma once
// A row that a user sees and is about to overwrite or delete, compared with what its key finds now.

#include <string>

#include "velmora/platform/session/checked_write.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::session {

class ShownRow {
  public:
    /// Copies the current row of `shown`. The statement selects the row by its key; its columns are among those of
    /// `shown`. Error 3021 without a current row.
    ShownRow(const sql::Recordset& shown, std::string statement);

    /// Runs the statement: `closed` when the row is gone, `changed` when one of its columns has another value now.
    /// Errors: the database's.
    RowState state(sql::Connection& connection) const;

  private:
    sql::Recordset shown_;
    std::string statement_;
};

}  // namespace velmora::session
