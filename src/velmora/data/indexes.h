#pragma once
// The indexes of the schema as statements. They do not change results: the program's own database gets them;
// docs/indexes.sql has the same statements for a host's administrator.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/sql/connection.h"

namespace velmora::data {

/// One CREATE INDEX statement for each index of the schema.
std::vector<std::string> indexStatements();

/// Whether an index is known to be there.
using KnownIndexes = std::function<bool(std::string_view table, std::string_view index)>;

/// Creates the indexes that an embedded database lacks; an index whose table or column does not exist is skipped. Those
/// that are known to be there are not tried, which takes most of the time of a start.
/// Errors: DbError for anything else, such as a busy or read-only database.
void addMissingIndexes(sql::Connection& connection, const KnownIndexes& isKnown = {});

}  // namespace velmora::data
