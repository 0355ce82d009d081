#pragma once
// The indexes of the schema as statements. They do not change results: the program's own database gets them;
// docs/indexes.sql has the same statements for a host's administrator.

#include <string>
#include <vector>

#include "velmora/platform/sql/connection.h"

namespace velmora::data {

/// One CREATE INDEX statement for each index of the schema.
std::vector<std::string> indexStatements();

/// Creates the indexes that an embedded database lacks; an index whose table or column does not exist is skipped.
/// Errors: DbError for anything else, such as a busy or read-only database.
void addMissingIndexes(sql::Connection& connection);

}  // namespace velmora::data
