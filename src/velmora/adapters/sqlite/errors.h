#pragma once
// What goes wrong in the engine, as errors of the data provider with a Spanish description.

#include <string>
#include <string_view>

#include "velmora/platform/sql/db_error.h"

struct sqlite3;

namespace velmora::sqlite {

/// A statement that the dialect does not know or that is not well formed. The statement itself is added by whoever
/// runs it.
[[noreturn]] void throwSyntax(std::string description);
[[noreturn]] void throwMissingTable(std::string_view table);
[[noreturn]] void throwConversion(std::string description);
[[noreturn]] void throwTruncation(std::string_view column, std::size_t limit);
[[noreturn]] void throwConstraint(std::string description);

/// The last error of the engine, whose result code was `code`.
[[noreturn]] void throwEngineError(sqlite3* database, int code);

/// The same error with the statement that raised it.
sql::DbError withStatement(const sql::DbError& error, std::string_view statement);

}  // namespace velmora::sqlite
