#pragma once
// Statements that change rows, from behind their first word on.

#include "velmora/adapters/tsql/syntax_tree.h"
#include "velmora/adapters/tsql/token_cursor.h"

namespace velmora::tsql {

Insert parseInsert(TokenCursor& cursor);
Update parseUpdate(TokenCursor& cursor);
Delete parseDelete(TokenCursor& cursor);

}  // namespace velmora::tsql
