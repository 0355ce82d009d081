#pragma once
// A row that a user has on show and is about to write over or to delete, held against what its key finds now.

#include <string>

#include "velmora/platform/session/checked_write.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::session {

class ShownRow {
  public:
    /// Takes the values of the current row of `shown`. The statement finds the row by its key; its columns are among
    /// those of `shown`. Error 3021 without a current row.
    ShownRow(const sql::Recordset& shown, std::string statement);

    /// Runs the statement: closed when the row is gone, changed when one of its columns holds another value now.
    /// Errors: the database's.
    RowState state(sql::Connection& connection) const;

  private:
    sql::Recordset shown_;
    std::string statement_;
};

}  // namespace velmora::session
