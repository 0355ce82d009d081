#pragma once
// The indexes of the schema as statements. They change no answer: a database of one's own gets them, a host's
// administrator finds the same statements in docs/indexes.sql.

#include <string>
#include <vector>

#include "velmora/platform/sql/connection.h"

namespace velmora::data {

/// One CREATE INDEX statement for each index of the schema.
std::vector<std::string> indexStatements();

/// Creates the indexes that an embedded database lacks; one whose table or column is not there is left out. Errors:
/// DbError for anything else, a database that is busy or read-only among it.
void addMissingIndexes(sql::Connection& connection);

}  // namespace velmora::data
