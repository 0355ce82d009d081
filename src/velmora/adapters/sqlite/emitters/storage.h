#pragma once
// How the engine stores what T-SQL columns hold: money and numbers with decimals as doubles, dates as text,
// YYYY-MM-DD HH:MM:SS, all other types as the engine's type of the same kind.
// Chosen C-207: dates are kept to the second, thousandths are dropped.

#include <string>
#include <string_view>

#include "velmora/adapters/tsql/types.h"

namespace velmora::sqlite {

/// The order of texts, as the tables and the engine's SQL name it (collation.h).
inline constexpr std::string_view collationName = "Modern_Spanish_CI_AS";

/// The type from the text with which a column was declared to the engine: `name` of a tsql::Type, whose letters also
/// decide the engine's own affinity, or INTEGER for a key.
tsql::Type declaredType(std::string_view declaration);

/// The condition that a stored value of the column meets, in the engine's SQL, `column` quoted already; empty when
/// every value does.
std::string storageCheck(const tsql::Type& type, std::string_view column);

}  // namespace velmora::sqlite
