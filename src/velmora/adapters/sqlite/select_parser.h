#pragma once
// SELECT, alone or within another statement.

#include <memory>

#include "velmora/adapters/sqlite/syntax_tree.h"
#include "velmora/adapters/sqlite/token_cursor.h"

namespace velmora::sqlite {

/// From the word SELECT on.
std::unique_ptr<Select> parseSelect(TokenCursor& cursor);

}  // namespace velmora::sqlite
