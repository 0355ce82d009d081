#pragma once
// Errors of the engine as errors of the data provider, with a Spanish description. For refusals before a statement
// reaches the engine see tsql/refusals.h.

#include <string>
#include <string_view>

#include "velmora/platform/sql/db_error.h"

struct sqlite3;

namespace velmora::sqlite {

/// The last error of the engine, whose result code was `code`.
[[noreturn]] void throwEngineError(sqlite3* database, int code);

/// The error of a write into a file that was not found where it was opened: it no longer lies there, or `systemError`
/// is what kept the system from looking; 0: nothing did.
[[noreturn]] void throwNotInPlace(const std::string& file, int systemError);

/// The same error with the statement that raised it.
sql::DbError withStatement(const sql::DbError& error, std::string_view statement);

}  // namespace velmora::sqlite
