#pragma once
// The embedded database of a program without a host: opened, and made completely or not at all.

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "velmora/platform/sql/connection.h"
#include "velmora/platform/sql/engines.h"

namespace velmora::workshop_file {

/// Why the database cannot be used; Spanish, for the user.
class Refused : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Puts the first rows into a new database that has its tables.
using Fill = std::function<void(sql::Connection&)>;

/// What a new database is for. A demonstration is marked as such in the head of its file, and stays one when it is
/// copied or moved.
enum class Purpose { work, demonstration };

struct Opened {
    std::unique_ptr<sql::Connection> connection;
    bool isNew = false;  ///< made by this call
    bool isDemonstration = false;
    std::string notice = {};  ///< what the user must be told, Spanish; empty when there is nothing
};

/// Opens the database at this path; ":memory:" lives as long as the connection.
///
/// - A file that is missing, empty or without any table is made: all tables, the rows of `fill` and the documents'
/// file.
///   Both are made under other names beside it and moved into place, the documents first: whoever is killed or finds
///   the disk full leaves nothing that the next start would take for a database. Programs that start at the same time
///   wait for each other.
/// - Documents' rows that lie there already belong to another database: refused.
/// - A documents' file that is missing beside a database is made anew, empty, and told.
/// - Of a file with tables the missing indexes are made.
///
/// Errors: Refused, with the path, for an empty path; a folder that is missing; a file that is no database or belongs
/// to another program, in which nothing has changed; a file that cannot be made; a database that cannot be written or
/// is locked; DbError of `fill`. Other exceptions of `fill` pass. Nothing has been made then.
Opened open(const sql::Engines& engines, const std::string& path, const Fill& fill, Purpose purpose = Purpose::work);

/// Whether there is a database at this path that `open` would not make. Errors: Refused for a file that it would
/// refuse.
bool isThere(const std::string& path);

}  // namespace velmora::workshop_file
