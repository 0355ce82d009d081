#pragma once
// What stands on either side of a comparison: sums, products, calls, columns, literals.

#include "velmora/adapters/tsql/syntax_tree.h"
#include "velmora/adapters/tsql/token_cursor.h"

namespace velmora::tsql {

/// A sum or anything that binds tighter; in parentheses it may be a condition.
ExpressionPtr parseOperand(TokenCursor& cursor);

}  // namespace velmora::tsql
