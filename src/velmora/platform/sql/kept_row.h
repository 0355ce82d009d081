#pragma once
// One row copied out of its set, and its comparison with a later reading of the same row.

#include <string>
#include <vector>

#include "velmora/platform/sql/recordset.h"

namespace velmora::sql {

/// A set of its own that holds the current row with all columns; without rows when the given set is at an end.
Recordset keptRow(const Recordset& row);

/// True when one of the columns differs between the two rows. Numbers are compared by value: an engine may give a
/// column once as a whole number and once with decimals. Null equals only null.
bool differIn(const std::vector<std::string>& columns, const Recordset& one, const Recordset& other);

}  // namespace velmora::sql
