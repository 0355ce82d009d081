#pragma once
// The work order of a proposal, shown by the host's order component.

#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/sql/value.h"

namespace velmora::proposal {

/// Shows the order with this number; does nothing, without a message, for a value that is not a number. Errors: 429
/// when the component is missing; its own.
void showWorkOrder(const sql::Value& number, session::Session& session, const platform::Desk& desk);

}  // namespace velmora::proposal
