#pragma once
// What the engine knows of a table, as the dialect wants it.

#include <string>

#include "velmora/adapters/sqlite/emitters/catalog.h"
#include "velmora/adapters/sqlite/link.h"

namespace velmora::sqlite {

/// The columns of a table or view, and the order of its rows: that of its primary key; without one, of the unique index
/// made first whose columns all refuse NULL (ALTER TABLE … ADD CONSTRAINT makes such a one); else of insertion.
/// `name` as declared. Errors: DbError.
Table readTable(Link& link, const std::string& schema, const std::string& name);

}  // namespace velmora::sqlite
