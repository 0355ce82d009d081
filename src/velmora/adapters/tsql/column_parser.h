#pragma once
// Columns and keys as CREATE TABLE and ALTER TABLE define them.

#include "velmora/adapters/tsql/syntax_tree.h"
#include "velmora/adapters/tsql/token_cursor.h"

namespace velmora::tsql {

/// Errors: provider::syntax for FOREIGN KEY and CHECK as well.
ColumnDefinition parseColumn(TokenCursor& cursor);

/// CONSTRAINT, PRIMARY or UNIQUE: what begins a key of the table.
bool atKey(const TokenCursor& cursor);
KeyDefinition parseKey(TokenCursor& cursor);

/// Skips CLUSTERED or NONCLUSTERED, which have no effect.
void skipClustering(TokenCursor& cursor);

/// Skips ON [PRIMARY] and TEXTIMAGE_ON [PRIMARY], which name file groups of the server.
void skipFileGroups(TokenCursor& cursor);

}  // namespace velmora::tsql
