#pragma once
// Where a binary column of a set is stored, so that it can be written through the set.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/odbc/link.h"

namespace velmora::odbc {

struct BinaryTarget {
    std::string table;      ///< as it stands in a statement
    std::string column;     ///< in brackets
    std::string key;        ///< in brackets
    std::size_t keyColumn;  ///< position in the set
};

/// None unless the statement is a plain select from one table whose key of one column is in the set. Asks the server
/// for the key; where it cannot tell, as for a table of another catalogue, the column that the server numbers counts as
/// the key. Errors: DbError.
std::optional<BinaryTarget> binaryTargetOf(Link& link, std::string_view statement,
                                           const std::vector<CursorColumn>& columns, std::size_t column);

}  // namespace velmora::odbc
