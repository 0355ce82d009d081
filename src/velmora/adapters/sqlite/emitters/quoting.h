#pragma once
// Names and texts as the engine's SQL quotes them.

#include <string>
#include <string_view>

#include "velmora/adapters/sqlite/emitters/catalog.h"

namespace velmora::sqlite {

std::string quotedName(std::string_view name);
std::string quotedText(std::string_view text);
/// `"schema"."table"`.
std::string quotedTable(const Table& table);
/// The server names indexes within their table, the engine within the database. Not quoted.
std::string engineIndexName(std::string_view table, std::string_view index);

}  // namespace velmora::sqlite
