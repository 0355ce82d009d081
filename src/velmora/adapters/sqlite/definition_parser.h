#pragma once
// Statements that change tables and indexes, from behind their first word on.

#include "velmora/adapters/sqlite/syntax_tree.h"
#include "velmora/adapters/sqlite/token_cursor.h"

namespace velmora::sqlite {

StatementTree parseCreate(TokenCursor& cursor);
StatementTree parseAlter(TokenCursor& cursor);
StatementTree parseDrop(TokenCursor& cursor);
StatementTree parseSet(TokenCursor& cursor);

}  // namespace velmora::sqlite
