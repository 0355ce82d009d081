#pragma once
// All-or-nothing work on the database.

#include <functional>

#include "velmora/platform/sql/connection.h"

namespace velmora::sql {

/// Runs `work` in a transaction. True when `work` returned true and the commit succeeded. Rolls back when `work`
/// returns false and when `work` or the commit throws; that exception is rethrown, and an error of the rollback itself
/// is dropped.
bool inTransaction(Connection& connection, const std::function<bool()>& work);

}  // namespace velmora::sql
