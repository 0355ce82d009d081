#pragma once
// The rows of a host's result set, copied into memory.

#include <optional>
#include <vector>

#include "velmora/adapters/com/late_object.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::com {

struct ReadSet {
    std::vector<sql::Column> columns;
    std::vector<sql::Row> rows;
};

/// Reads all rows forward, in blocks where the set offers `GetRows`. None for Nothing and for a closed set, which a
/// statement without rows gives. Errors: the host's.
std::optional<ReadSet> readSet(const LateObject& set);

/// True for a set that a statement without rows gives.
bool isClosed(const LateObject& set);

/// The member of a collection at this position or of this name.
LateObject itemOf(const LateObject& collection, const Variant& index);

/// The current row of a set.
sql::Row currentRow(const LateObject& fields, std::size_t count);
std::vector<sql::Column> columnsOf(const LateObject& fields);

}  // namespace velmora::com
