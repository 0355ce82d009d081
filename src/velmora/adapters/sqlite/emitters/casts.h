#pragma once
// Conversions of expressions between the types of the dialect.

#include <string>
#include <string_view>

#include "velmora/adapters/sqlite/emitters/catalog.h"
#include "velmora/adapters/sqlite/emitters/emitted.h"

namespace velmora::sqlite {

/// The T-SQL name by which messages call a kind.
std::string_view nameOf(tsql::Kind kind);

/// The higher of two kinds, to which both are converted where they meet. Errors: provider::syntax when there is none.
tsql::Kind common(tsql::Kind a, tsql::Kind b);

/// The expression, with COLLATE added to a text that is no stored column.
std::string collated(const Emitted& value);

/// The digits of a literal as a number of this type. Errors: provider::conversion for a text that is none.
Emitted literalToNumber(const std::string& literal, tsql::Type type);

/// Conversion by CAST. Errors: provider::conversion for a literal that does not convert, provider::syntax for a pair
/// of types that the dialect does not convert.
Emitted castTo(Emitted value, const tsql::Type& type);

/// Implicit conversion of an operand.
Emitted coerced(Emitted value, tsql::Kind kind);

/// Conversion to what a column takes; a text that is too long is refused. Errors: castTo's and provider::truncation.
Emitted fitted(Emitted value, const TableColumn& column);

}  // namespace velmora::sqlite
