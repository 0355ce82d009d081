#pragma once
// Work that the database takes whole or not at all.

#include <functional>

#include "velmora/platform/sql/connection.h"

namespace velmora::sql {

/// Runs `work` in a transaction of its own. True when it gave true and was committed. It is undone when it gives
/// false, and when it or the commit throws anything, which goes on to the caller: the first failure is the one to be
/// read, one of the undoing is not told.
bool inTransaction(Connection& connection, const std::function<bool()>& work);

}  // namespace velmora::sql
