#pragma once
// Whether a proposal and its lines of labour may still be written, according to its row in the database.

#include <string>

#include "velmora/platform/sql/recordset.h"

namespace velmora::labour {

struct ProposalStanding {
    enum State {
        pending,
        accepted,  ///< a work order has been made from it
        gone,      ///< deleted
    };
    State state = pending;
    std::string order;  ///< number of its work order; empty when none is stored

    /// The message for a proposal that is no longer pending; empty for a pending one.
    std::string words() const;
};

/// From a set that holds DPI_FAcepta and DPI_Orden of the proposal, or no row when it does not exist.
ProposalStanding standingIn(const sql::Recordset& row);

}  // namespace velmora::labour
