#pragma once
// The row of a work order, and the mark on its proposal.

#include "velmora/platform/runtime/date.h"
#include "velmora/platform/session/session.h"
#include "velmora/tracking/acceptance_step.h"
#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

/// Inserts the row of ORDEN for the proposal on the current row of the set, with the values of the detail fields.
/// Errors: connectionLost, writeRefused, those of the look-ups.
void insertOrder(session::Session& session, const TrackingFields& fields, const sql::Recordset& proposal,
                 const WorkOrder& order, runtime::Date now);

/// Writes number, date of acceptance and the customer's order data to the proposal. Errors: connectionLost,
/// writeRefused.
void markProposal(session::Session& session, const TrackingFields& fields, const sql::Recordset& proposal,
                  const WorkOrder& order);

/// The ORDEN_ID of an order number. Errors: 3021 when there is no such order, those of the statement.
std::int32_t orderIdOf(sql::Connection& connection, std::int32_t number);

}  // namespace velmora::tracking
