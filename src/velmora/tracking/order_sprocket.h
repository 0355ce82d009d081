#pragma once
// The sprocket data of a work order.

#include "velmora/platform/session/session.h"
#include "velmora/platform/sql/recordset.h"
#include "velmora/tracking/acceptance_step.h"

namespace velmora::tracking {

/// Copies the measures of the proposal on the current row of the set to OrdPiñones and stores the new row's id in the
/// order; a rack has no such row. Errors: sprocketRefused, those of the look-up.
void addSprocketData(session::Session& session, const sql::Recordset& proposal, WorkOrder& order);

}  // namespace velmora::tracking
