#include "velmora/platform/session/shown_row.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "velmora/platform/sql/kept_row.h"

namespace velmora::session {

ShownRow::ShownRow(const sql::Recordset& shown, std::string statement)
    : shown_(sql::keptRow(shown)), statement_(std::move(statement)) {
    // Raises error 3021 here when there is no current row.
    static_cast<void>(shown_[0]);
}

RowState ShownRow::state(sql::Connection& connection) const {
    const sql::Recordset now = connection.execute(statement_);
    if (now.eof()) {
        return RowState::closed;
    }
    std::vector<std::string> columns;
    std::ranges::transform(now.columns(), std::back_inserter(columns), &sql::Column::name);
    return sql::differIn(columns, shown_, now) ? RowState::changed : RowState::asShown;
}

}  // namespace velmora::session
