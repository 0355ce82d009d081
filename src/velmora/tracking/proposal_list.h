#pragma once
// The list of proposals: runs its statement and puts the rows into the grid.

#include <memory>
#include <string>
#include <utility>

#include "velmora/platform/session/session.h"
#include "velmora/tracking/filters.h"
#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

/// What one connection's server has shown of the list's order; for as long as the connection is used.
struct ListOrder {
    bool needsTable = false;  ///< the column is ambiguous unless its table is named
};

class ProposalList {
  public:
    ProposalList(TrackingFields& fields, session::Session& session, std::shared_ptr<ListOrder> order)
        : f_(fields), session_(session), order_(std::move(order)) {}

    /// Lists the rows of a condition, which begins with its own where. Errors: the database's, after which the list is
    /// open and empty, or as before when the user has cancelled; the listener's, after which the rows are in the grid.
    void show(const std::string& condition);

  private:
    sql::Recordset rowsOf(const std::string& condition);
    void put(sql::Recordset rows);
    void putBack(const sql::Recordset& before);

    TrackingFields& f_;
    session::Session& session_;
    std::shared_ptr<ListOrder> order_;
};

}  // namespace velmora::tracking
