#pragma once
// T-SQL text to syntax tree.

#include <string_view>

#include "velmora/adapters/tsql/syntax_tree.h"

namespace velmora::tsql {

/// Exactly one statement, perhaps with a semicolon behind it. Errors: DbError (provider::syntax) that names the
/// construct: one that is not known, a second statement, an expression nested too deep.
StatementTree parse(std::string_view text);

}  // namespace velmora::tsql
