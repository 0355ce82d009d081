#pragma once
// Statements that change rows, from behind their first word on.

#include "velmora/adapters/sqlite/syntax_tree.h"
#include "velmora/adapters/sqlite/token_cursor.h"

namespace velmora::sqlite {

Insert parseInsert(TokenCursor& cursor);
Update parseUpdate(TokenCursor& cursor);
Delete parseDelete(TokenCursor& cursor);

}  // namespace velmora::sqlite
