#pragma once
// The route of a work order: the sequence of machines.

#include <cstdint>
#include <string_view>

#include "velmora/platform/session/session.h"
#include "velmora/platform/sql/recordset.h"
#include "velmora/tracking/acceptance_step.h"

namespace velmora::tracking {

/// Adds one row to the route, after all that already wait for the machine; `estimado` in hours. True when it was
/// stored. Runs in a transaction of its own: none may be open. Errors: those of the begin and of the look-up.
bool FnAltaRuta(session::Session& session, std::int16_t pos, std::int32_t idOrden, std::int32_t numOrden,
                double estimado, std::int32_t maq);

/// The route of a new order: its cuts, then the labour lines of the proposal, each for the number of pieces in the
/// text. Errors: those of the statements that read; a refused row is skipped.
void addRoute(session::Session& session, const sql::Recordset& proposal, const WorkOrder& order,
              std::string_view pieces);

}  // namespace velmora::tracking
