#pragma once
// A database of one's own, for who has no host's: every table of the schema, and the rows of a workshop to try the
// program with.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/runtime/date.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::data {

/// The T-SQL that creates all tables, their keys and indexes in an empty database, one statement each. The catalogue is
/// the session's own; the documents' table goes into "DOC" and that name, which must exist.
std::vector<std::string> newDatabaseStatements(std::string_view sessionCatalog);

/// The rows of the demonstration workshop, one INSERT each; its days are counted back from `now`.
std::vector<std::string> demoStatements(runtime::Date now);

/// The statements of a text of one statement a line: blank lines and lines of "--" comments are left out.
std::vector<std::string> statementsOfLines(std::string_view text);

/// Every "{today-N}", "{today+N}" and "{today}" of a statement turned into that day, as dd/mm/yyyy.
std::string withDays(std::string_view statement, runtime::Date now);

/// Creates the tables and their indexes; all or nothing. Errors: DbError.
void createDatabase(sql::Connection& connection);
/// Adds the demonstration rows; all or nothing. Errors: DbError.
void fillDemo(sql::Connection& connection, runtime::Date now);

}  // namespace velmora::data
