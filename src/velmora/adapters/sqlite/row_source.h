#pragma once
// The rows of a statement, read as they are asked for.

#include <memory>
#include <string>

#include "velmora/platform/sql/recordset.h"

namespace velmora::sqlite {

class Engine;
struct CachedStatement;

/// Rows held in memory at a time.
inline constexpr std::size_t windowRows = 512;

/// Rows read on opening: more than a screen shows. A set that is not larger holds nothing of the database.
inline constexpr std::size_t openingRows = 32;

/// Runs the statement and reads its first rows. Nothing when the engine found its tables changed by another process:
/// the text is to be translated anew. Errors: DbError.
std::unique_ptr<sql::RowSource> openRowSource(std::shared_ptr<Engine> engine, std::shared_ptr<CachedStatement> cached);

}  // namespace velmora::sqlite
