#pragma once
// Opens the embedded engine as a data connection: one file, and a second one beside it for the documents.

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "velmora/platform/runtime/date.h"
#include "velmora/platform/sql/connection.h"
#include "velmora/platform/sql/engines.h"
#include "velmora/platform/sql/long_run.h"

namespace velmora::sqlite {

using sql::cancelled;
using sql::LongRun;

struct Options {
    /// What getdate() answers; the system's local time when none is given.
    std::function<runtime::Date()> clock{};
    /// The catalogue's name in `CATALOG.dbo.table`; the documents' is "DOC" and this.
    std::string catalog = "VELMORA";
    bool readOnly = false;
    /// How long a statement waits for another process that writes.
    std::chrono::milliseconds busyTimeout{5000};
    /// Told true once a statement has waited for another process for `waitingAfter`, and false at that statement's end.
    /// Called on the thread that opened the database; must not use the connection. Its errors are ignored.
    std::function<void(bool waits)> waiting{};
    std::chrono::milliseconds waitingAfter{300};
    /// How many texts the statement cache holds.
    std::size_t cachedStatements = 256;
    /// Statements that differ in their values only are prepared once. Without it each text is, with its values in it:
    /// to compare the two.
    bool preparesByShape = true;
    /// Called when the opening of a set has taken `longRunAfter`; what it gives lives until the set is open. Not inside
    /// a transaction, and not for a database in memory: its statements share one connection. None: nobody is asked.
    sql::LongRuns longRun{};
    std::chrono::milliseconds longRunAfter{1000};
};

/// Opens the database at this path, which is made when it does not exist; ":memory:" lives as long as the
/// connection. The documents' catalogue is the file of the same folder whose name has "DOC" in front
/// ("taller.db": "DOCtaller.db"), joined by the first statement that names it; of a database in memory it is in
/// memory too.
///
/// A set that does not end with its first rows keeps the state of the database of its opening, on a connection of its
/// own, which keeps the write-ahead file from being reused. When that has grown by more than half a MiB meanwhile, a
/// background thread copies the set's rows, or the database's pages when the rows are many, into the engine's temporary
/// storage, which may need as much room as the database's file. Without write-ahead logging, and before a change
/// inside a transaction or in memory, the rows not read yet are copied at once. Errors: DbError (provider::failure) for
/// a file that is no database or cannot be opened.
std::unique_ptr<sql::Connection> openDatabase(const std::string& path, Options options = {});

/// Registers the engine as "sqlite": "sqlite:PATH" opens the database at that path with these options.
void registerIn(sql::Engines& engines, Options options = {});

}  // namespace velmora::sqlite
