#pragma once
// What a file holds, looked at before the engine opens it: opening sets the journal mode and makes a missing file.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::sqlite {

struct FileContent {
    bool exists = false;
    std::vector<std::string> tables = {};   ///< by their declared names
    std::vector<std::string> indexes = {};  ///< by the engine's names
    /// A number of the program's own in the head of the file, which copies of the file have, too; 0 when nobody has set
    /// one and for a file that is missing.
    std::int32_t mark = 0;

    /// Compared without regard to case.
    bool hasTable(std::string_view name) const;
    /// Both compared without regard to case.
    bool hasIndex(std::string_view table, std::string_view name) const;
};

/// Reads the file without changing it. A missing file, an empty one and a database that nobody has made tables in have
/// none. Errors: DbError (provider::failure) for anything but a database, one that cannot be read, and a file that
/// cannot be looked at.
FileContent contentOf(const std::string& path);

/// The engine's name of a file that is only looked at. Without a write-ahead file there is nothing that another
/// connection could have in progress, and the engine need not make files of its own to find that out.
std::string lookName(const std::string& path);

/// The rows of a table in the file; 0 when there is no such file or table. Errors: see contentOf.
std::int64_t rowsOf(const std::string& path, const std::string& table);

/// See FileContent::mark. Errors: DbError.
void setMark(const std::string& path, std::int32_t mark);

/// Nobody has it open: afterwards everything written stands in the file itself, with no file beside it, so that it can
/// be moved. A connection that was closed has not always come to that: what its last write lacked stays in the
/// write-ahead file, and nothing is told. Errors: DbError.
void makeOneFile(const std::string& path);

/// The file that a path leads to: symbolic links are followed, also to a file that does not exist yet.
std::string realFile(const std::string& path);

/// The files of the engine that may lie beside a database, by their endings. They would be applied to another database
/// that takes its place.
inline constexpr std::array sideFileEndings{"-wal", "-shm", "-journal"};

/// The file that holds the documents of the database at this path: beside the real one.
std::string documentsFileOf(const std::string& path);

}  // namespace velmora::sqlite
