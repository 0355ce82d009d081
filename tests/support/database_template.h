#pragma once
// A database that is filled once in a process and copied for each test that wants one.

#include <functional>
#include <memory>
#include <string>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/platform/sql/connection.h"

struct sqlite3;

namespace velmora::support {

class DatabaseTemplate {
  public:
    using Fill = std::function<void(sql::Connection&)>;

    /// Fills a database in memory, and its documents' database, which lives there too; with these options, so that
    /// getdate() in the statements tells the time of `options.clock`. Not for tests of how a database is made.
    explicit DatabaseTemplate(const Fill& fill, const sqlite::Options& options = {});

    /// A database of its own with the tables and rows of the template, opened with its own options: in memory, or at a
    /// path where no file is yet. A copy of the pages: no statement of `fill` runs on its connection.
    std::unique_ptr<sql::Connection> copy(const std::string& path = ":memory:",
                                          const sqlite::Options& options = {}) const;

  private:
    std::unique_ptr<sql::Connection> connection_;
    sqlite3* engine_ = nullptr;  ///< of the connection
};

}  // namespace velmora::support
