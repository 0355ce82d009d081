#pragma once
// Statements that change tables and indexes, from behind their first word on.

#include "velmora/adapters/tsql/syntax_tree.h"
#include "velmora/adapters/tsql/token_cursor.h"

namespace velmora::tsql {

StatementTree parseCreate(TokenCursor& cursor);
StatementTree parseAlter(TokenCursor& cursor);
StatementTree parseDrop(TokenCursor& cursor);
StatementTree parseSet(TokenCursor& cursor);

}  // namespace velmora::tsql
