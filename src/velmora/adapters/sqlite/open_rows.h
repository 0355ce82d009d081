#pragma once
// The rows of a set that did not end with its first ones.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "velmora/adapters/sqlite/fair_mutex.h"
#include "velmora/adapters/sqlite/row_reader.h"
#include "velmora/adapters/sqlite/set_copy.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::sqlite {

/// Reads the rows as they were when the set was opened, for as long as it is open: from the database while its
/// connection holds that state, from a copy afterwards. One thread reads; another one may make the copy meanwhile
/// ("detach"), and neither waits for the other longer than some milliseconds.
class OpenRows {
  public:
    OpenRows(std::unique_ptr<RowReader> reader, Options options);
    ~OpenRows();
    OpenRows(const OpenRows&) = delete;
    OpenRows& operator=(const OpenRows&) = delete;

    // Called by the set.

    struct Part {
        std::vector<sql::Row> rows;
        std::optional<std::size_t> end;  ///< RowReader::end
    };
    /// As RowReader::read. Once an error has ended the transaction that held the state, every call raises an error
    /// instead of reading a newer state.
    Part read(std::size_t from, std::size_t most);
    /// As RowReader::count.
    std::size_t count();
    /// Releases everything. No other operation may be called afterwards.
    void close();

    // Called before a statement changes the tables that the rows are read from.

    /// Copies the rows not read yet and releases the database. When the copy cannot be made, later reads raise its
    /// error: they must not return rows of a newer state.
    void detach();

    // Called by SnapshotWatch.

    /// False when the set is closed or read from a copy.
    bool isHeld();
    /// True when a write-ahead file grows because this set holds an older state of the database.
    bool hinders();
    /// One step of the copy, of some milliseconds; false when there is none to do now. A copy that cannot be made
    /// leaves the set as it was; the next attempt is made when the write-ahead file has doubled.
    bool detachStep();

  private:
    struct WriteAhead {
        std::string path;
        std::uintmax_t tolerated;        ///< bytes
        std::uintmax_t triedInVain = 0;  ///< bytes up to which no other attempt at a copy is made
    };

    bool detachStep(std::shared_ptr<Link>& freed);
    bool stillHolds();
    void requireRows();
    void lose(const sql::DbError& error);
    void goOn();
    void beginCopy();
    void finishCopy();

    Options options_;
    FairMutex mutex_;
    std::unique_ptr<RowReader> reader_;
    std::unique_ptr<SetCopy> copy_;  ///< being made
    bool rowsAreMany_ = false;
    bool inTransaction_;                  ///< the state that is read is that of a transaction of the link
    std::vector<WriteAhead> writeAhead_;  ///< of the databases that are held
    std::optional<sql::DbError> lost_;
};

}  // namespace velmora::sqlite
