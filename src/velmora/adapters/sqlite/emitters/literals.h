#pragma once
// Texts and numbers that a statement holds, as expressions in the engine's SQL and as values.

#include <optional>
#include <string>

#include "velmora/adapters/sqlite/emitters/emitted.h"
#include "velmora/adapters/tsql/syntax_tree.h"
#include "velmora/platform/sql/value.h"

namespace velmora::sqlite {

/// A literal of the forms null, text, whole, decimal and real, as Expression::text has it. A whole number that is too
/// large for an int64 is a numeric without decimals.
Emitted emittedLiteral(tsql::Form form, const std::string& text);

/// A number as a literal of this type: the shortest digits that are read as the same double.
Emitted numberLiteral(double value, tsql::Type type);
Emitted wholeLiteral(std::int64_t value, tsql::Type type);

/// The literal of a number with the other sign.
Emitted negated(Emitted literal);

/// What the engine reads where the expression stands; nothing for one that is no literal. A NULL stays one whatever
/// type it is given.
std::optional<sql::Value> constantOf(const Emitted& emitted);

}  // namespace velmora::sqlite
