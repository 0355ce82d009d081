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

/// CLUSTERED or NONCLUSTERED, which say nothing here.
void skipClustering(TokenCursor& cursor);

/// ON [PRIMARY], TEXTIMAGE_ON [PRIMARY]: where the server puts the pages; one file is all there is here.
void skipFileGroups(TokenCursor& cursor);

}  // namespace velmora::tsql
