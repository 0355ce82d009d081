#pragma once
// Conditions and values, from the loosest binding to the tightest.

#include "velmora/adapters/tsql/syntax_tree.h"
#include "velmora/adapters/tsql/token_cursor.h"

namespace velmora::tsql {

/// A condition or a value.
ExpressionPtr parseExpression(TokenCursor& cursor);
/// Errors: provider::syntax for a value.
ExpressionPtr parseCondition(TokenCursor& cursor);
/// Errors: provider::syntax for a condition.
ExpressionPtr parseValue(TokenCursor& cursor);

}  // namespace velmora::tsql
