#pragma once
// Errors of the host's connection as errors of the database.

#include <string_view>

#include "velmora/adapters/com/late_object.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::com {

/// The same number, description and source; SQLSTATE and native number from `Errors` of the connection, where it offers
/// that.
sql::DbError providerError(const runtime::RuntimeError& error, const LateObject& connection,
                           std::string_view statement);

}  // namespace velmora::com
