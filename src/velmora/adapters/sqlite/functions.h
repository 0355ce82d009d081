#pragma once
// The functions that translated statements call.

#include <functional>

#include "velmora/platform/runtime/date.h"

struct sqlite3;

namespace velmora::sqlite {

using Clock = std::function<runtime::Date()>;

/// Makes the functions known to a connection of the engine. Errors: DbError.
void registerFunctions(sqlite3* database, const Clock& clock);

}  // namespace velmora::sqlite
