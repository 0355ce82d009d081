#pragma once
// Writing one binary column of one row through a Recordset of our own on the host's connection.

#include <cstddef>
#include <optional>
#include <string>

#include "velmora/adapters/com/late_object.h"
#include "velmora/platform/sql/value.h"

namespace velmora::com {

/// The error of a column that cannot be written.
inline constexpr long notUpdatable = 3251;

/// The row is the first one of the statement whose columns equal those of `shown`, the binary ones left out. Errors:
/// 3251 when the column is no binary one; DbError: provider::rowGone when there is no such row; the host's.
void writeBinary(const LateObject& connection, const std::string& statement, const sql::Row& shown, std::size_t column,
                 const sql::Bytes& content);

/// The length of the column in that row of a set; none when the set has no such row or the column is null.
std::optional<std::size_t> storedLength(const LateObject& set, const sql::Row& shown, std::size_t column);

}  // namespace velmora::com
