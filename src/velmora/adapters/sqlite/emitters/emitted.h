#pragma once
// An expression in the engine's SQL.

#include <optional>
#include <string>

#include "velmora/adapters/tsql/types.h"

namespace velmora::sqlite {

struct Emitted {
    std::string sql;
    tsql::Type type{};
    bool storedColumn = false;             ///< a column of a table: it brings its collation along
    std::optional<std::string> literal{};  ///< the text or the digits of a literal
};

}  // namespace velmora::sqlite
