#pragma once
// Copies of a database's two files that belong together, and what may be wrong with such a copy.

#include <string>

namespace velmora::sqlite {

/// Copies the database at this path and its documents' file to another path and the documents' one beside that. Both
/// hold the state of one moment between two transactions; other programs go on writing meanwhile. Existing files are
/// overwritten, and left incomplete by an error. Errors: DbError.
void copyDatabase(const std::string& from, const std::string& to);

/// What is wrong with the database at this path or its documents, Spanish; empty when both can be read to the last page
/// and have our tables. Nothing in them changes.
std::string damageOf(const std::string& path);

/// Errors: DbError (provider::timeout) when another connection, of this program or another one, has the database or its
/// documents open; otherwise everything written stands in the two files themselves afterwards, with no file beside
/// them. A file that is damaged counts as closed.
void mustBeClosed(const std::string& path);

}  // namespace velmora::sqlite
