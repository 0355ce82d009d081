#pragma once
// The indexes that the program's own questions want: like proposals, the tracking list, the labour of a proposal, the
// operators of a machine. They change no answer. A database of one's own gets them; a host's administrator finds the
// same statements in docs/indexes.sql.

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/sql/connection.h"

namespace velmora::data {

struct IndexDefinition {
    std::string_view name;
    std::string_view table;
    std::string_view columns;  ///< as a statement lists them
};

std::span<const IndexDefinition> indexes();

/// One CREATE INDEX statement for each.
std::vector<std::string> indexStatements();

/// Creates the indexes that an embedded database lacks; one whose table is not there is left out. Errors: DbError for
/// anything else, a database that is busy or read-only among it.
void addMissingIndexes(sql::Connection& connection);

}  // namespace velmora::data
