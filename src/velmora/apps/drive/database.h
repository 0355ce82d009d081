#pragma once
// The database that a script plays on: opened, and filled when it is new.

#include <memory>
#include <stdexcept>

#include "velmora/platform/sql/connection.h"
#include "velmora/platform/system/system.h"

#include "options.h"

namespace velmora::drive {

/// Why there is no database; for the person at the command line.
class NoDatabase : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The clock must outlive the connection: it answers getdate(). A database without tables gets the schema and the
/// rows asked for; to one that has them only a file of statements can be added. Errors: NoDatabase.
std::unique_ptr<sql::Connection> openDatabase(const Options& options, const system::Clock& clock);

}  // namespace velmora::drive
