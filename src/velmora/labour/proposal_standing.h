#pragma once
// Whether a proposal, and with it its lines of labour, may still be written: as its row stands in the database.

#include <string>

#include "velmora/platform/sql/recordset.h"

namespace velmora::labour {

struct ProposalStanding {
    enum State {
        pending,
        accepted,  ///< an order has been made from it
        gone,      ///< deleted
    };
    State state = pending;
    std::string order;  ///< number of its work order; empty when none is stored

    /// What the user is told of a proposal that is no longer pending; empty for one that is.
    std::string words() const;
};

/// From a set that holds DPI_FAcepta and DPI_Orden of the proposal, or no row when there is none.
ProposalStanding standingIn(const sql::Recordset& row);

}  // namespace velmora::labour
