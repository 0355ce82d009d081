#pragma once
// One row kept apart from the set that it was read from, and held against another reading of it.

#include <string>
#include <vector>

#include "velmora/platform/sql/recordset.h"

namespace velmora::sql {

/// The current row of a set, all columns, in a set of its own; one without rows from the end of a set.
Recordset keptRow(const Recordset& row);

/// True when one of the columns holds another value in one row than in the other. Numbers are compared as numbers: an
/// engine may give a column once as whole and once with decimals. Null equals null alone.
bool differIn(const std::vector<std::string>& columns, const Recordset& one, const Recordset& other);

}  // namespace velmora::sql
