#pragma once
// The lines of a proposal in the grid, their sum, and the current line in the fields below.

#include <cstdint>

#include "velmora/labour/line_fields.h"
#include "velmora/labour/machine_and_operators.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::labour {

class LineList {
  public:
    LineList(LineFields& fields, MachineAndOperators& machines, session::Session& session);

    /// Lists the lines of a proposal, in no particular order, and their sum. Errors: the database's.
    void msCargarLineas(std::int32_t nIdDpi);

    /// Shows the sum of the lines of a proposal. Errors: the database's.
    void msCargarTotal(std::int32_t nIdDpi);

    /// True when the list is open and holds at least one line.
    bool hasLines() const { return rsMo_->isOpen() && rsMo_->hasRows(); }
    /// The current line with all columns, as read when it became the current one. Error 3021 when there is none.
    const sql::Recordset& current() const;

  private:
    void rsMo_MoveComplete();

    LineFields& f_;
    MachineAndOperators& machines_;
    session::Session& session_;
    sql::ListenedRecordset rsMo_;
    sql::Recordset current_;
};

}  // namespace velmora::labour
