#pragma once
// The list of proposals: runs its statement and puts the rows into the grid.

#include <string>

#include "velmora/platform/session/session.h"
#include "velmora/tracking/filters.h"
#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

class ProposalList {
  public:
    ProposalList(TrackingFields& fields, session::Session& session) : f_(fields), session_(session) {}

    /// Lists the rows of a condition, which begins with its own where. Errors: the database's, after which the list is
    /// open and empty; the listener's, after which the rows are in the grid.
    void show(const std::string& condition);

  private:
    void put(sql::Recordset rows);

    TrackingFields& f_;
    session::Session& session_;
};

}  // namespace velmora::tracking
