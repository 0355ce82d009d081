#pragma once
// SELECT, alone or within another statement.

#include <memory>

#include "velmora/adapters/tsql/syntax_tree.h"
#include "velmora/adapters/tsql/token_cursor.h"

namespace velmora::tsql {

/// From the word SELECT on.
std::unique_ptr<Select> parseSelect(TokenCursor& cursor);

}  // namespace velmora::tsql
