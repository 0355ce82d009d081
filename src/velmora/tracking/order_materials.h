#pragma once
// The materials of a work order: the disc, or the plate of a rack, and the hub.

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/sql/recordset.h"
#include "velmora/tracking/acceptance_step.h"

namespace velmora::tracking {

/// Adds up to two rows to Mat for the proposal on the current row of the set, asks for each whether it will be cut in
/// the shop, and counts the cuts in the order. Lengths in millimetres, for all pieces, plus 2 per cut. Errors:
/// materialRefused, those of the look-ups, 94 for a measure that is null.
void addMaterials(session::Session& session, screen::Screen& screen, const session::KestraUtil& oUtil,
                  const sql::Recordset& proposal, WorkOrder& order);

}  // namespace velmora::tracking
