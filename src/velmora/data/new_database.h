#pragma once
// A new database for programs without a host: all tables of the schema, and the rows of a demonstration workshop or of
// an empty one.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/runtime/date.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::data {

/// The T-SQL that creates all tables and their keys in an empty database, one statement each; docs/schema.sql has the
/// same statements for the administrator of a server. The session's catalogue is the current one; the documents' table
/// goes into the one named "DOC" followed by its name, which must exist.
std::vector<std::string> tableStatements(std::string_view sessionCatalog);
/// Those, and behind them the indexes.
std::vector<std::string> newDatabaseStatements(std::string_view sessionCatalog);

/// The rows of the demonstration workshop, one INSERT each; their dates are relative to `now`.
std::vector<std::string> demoStatements(runtime::Date now);

/// The statements of a text with one statement per line: blank lines and lines of "--" comments are skipped.
std::vector<std::string> statementsOfLines(std::string_view text);

/// Replaces every "{today-N}", "{today+N}" and "{today}" of a statement by that date, as dd/mm/yyyy.
std::string withDays(std::string_view statement, runtime::Date now);

/// Creates the tables and their indexes; all or nothing. Errors: DbError.
void createDatabase(sql::Connection& connection);
/// Adds the demonstration rows; all or nothing. Errors: DbError.
void fillDemo(sql::Connection& connection, runtime::Date now);
/// Adds the rows without which the forms cannot compute, and no others: the dimension constants. All or nothing.
/// Errors: DbError.
void fillEmpty(sql::Connection& connection);

}  // namespace velmora::data
