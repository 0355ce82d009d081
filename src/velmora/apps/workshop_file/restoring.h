#pragma once
// Putting another state of a workshop in place of the present one: all of its files or none, also when the program is
// killed between two of them.

#include <filesystem>
#include <functional>

namespace velmora::workshop_file {

/// Where the files that are to be put in place are prepared, beside the database. They are an attempt without
/// consequence until `decideRestore`.
std::filesystem::path preparedFor(const std::filesystem::path& database);

/// From now on the prepared files count: `finishRestore` puts them in place, in this program or at the next start. The
/// folder must be locked (FolderLock). Errors: std::system_error; nothing is decided then.
void decideRestore(const std::filesystem::path& database);

/// Puts in place what was decided; nothing when nothing was. Files that were prepared and not decided are removed. The
/// folder must not be locked by this process. `afterEach` is called after each file that was moved. Errors: DbError
/// (provider::timeout) while the database is open: what was decided is forgotten then, unless a file has been moved;
/// std::system_error: the next call goes on where this one ended.
void finishRestore(const std::filesystem::path& database, const std::function<void()>& afterEach = {});

}  // namespace velmora::workshop_file
