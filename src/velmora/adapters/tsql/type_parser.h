#pragma once
// Types and collations as a statement writes them.

#include "velmora/adapters/tsql/token_cursor.h"
#include "velmora/adapters/tsql/types.h"

namespace velmora::tsql {

/// Errors: provider::syntax for a type that is not known.
Type parseType(TokenCursor& cursor);

/// The type of CAST and CONVERT, where a text of no stated length is one of 30.
Type parseCastType(TokenCursor& cursor);

/// The name behind COLLATE. Errors: provider::syntax for any but the one that there is.
void parseCollation(TokenCursor& cursor);

}  // namespace velmora::tsql
