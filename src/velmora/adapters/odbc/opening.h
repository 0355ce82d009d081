#pragma once
// The opening of a set: the statement is sent and its first rows are read, if need be while the user is asked whether
// it may go on.

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "velmora/adapters/odbc/cursor.h"
#include "velmora/adapters/odbc/link_pool.h"
#include "velmora/adapters/odbc/row_spool.h"

namespace velmora::odbc {

/// A set whose first rows have been read.
struct Opening {
    Cursor cursor;
    std::shared_ptr<RowSpool> spool;
    bool more = false;  ///< the cursor has further rows
};

/// Reads up to `firstRows` rows of a cursor that has run, into a new spool. Errors: DbError.
Opening openingOf(Cursor cursor, Link& link, std::size_t firstRows);

/// Whether a statement may take long enough for the user to be asked: a query that sorts or searches. A row that is
/// looked up by its key comes at once: the thread of LongOpening would only add to its time.
bool mayRunLong(std::string_view statement);

/// Sends a statement and reads its first rows on a thread of its own.
class LongOpening {
  public:
    /// Takes the connection. `firstRows` as for openingOf.
    LongOpening(std::shared_ptr<Link> link, std::shared_ptr<LinkPool> pool, const std::string& statement,
                std::size_t firstRows);
    /// Leaves a statement that still runs to its thread, which gives the connection back once the server has answered.
    ~LongOpening();
    LongOpening(const LongOpening&) = delete;
    LongOpening& operator=(const LongOpening&) = delete;

    /// Waits for the opening; from `options.longRunAfter` on the program is asked whether it may go on. When it may
    /// not, the statement is cancelled at the server and the error is sql::cancelledError, also from a server that does
    /// not let itself be cancelled. Other errors: the statement's; what the program raises.
    Opening wait(const Options& options);
    /// The connection, once wait() has returned or has thrown an error of the statement; nullptr of a statement that
    /// was cancelled.
    std::shared_ptr<Link> takeLink();

  private:
    struct Job;

    bool isDoneWithin(std::chrono::milliseconds patience) const;
    bool mayGoOn(const Options& options);
    void cancel();
    void abandon();

    std::string statement_;
    std::shared_ptr<Job> job_;
};

}  // namespace velmora::odbc
