#pragma once
// The database that a script runs against: opened, and filled when it is new.

#include <memory>
#include <stdexcept>

#include "velmora/apps/script_stage/options.h"
#include "velmora/platform/sql/connection.h"
#include "velmora/platform/system/system.h"

namespace velmora::script_stage {

/// Why the database cannot be used; for the person at the command line.
class NoDatabase : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The clock must outlive the connection; it supplies getdate(). A database without tables gets the schema and the
/// requested rows; to one with tables only a file of statements can be added. Errors: NoDatabase.
std::unique_ptr<sql::Connection> openDatabase(const Options& options, const system::Clock& clock);

}  // namespace velmora::script_stage
