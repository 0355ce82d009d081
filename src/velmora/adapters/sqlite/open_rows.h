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

/// Answers the rows of the moment at which the set was opened, for as long as it is open. They are read from the
/// database while it can be held in that state, and from a copy afterwards. One thread reads; another one may take the
/// set off the database meanwhile, and neither waits for the other longer than some milliseconds.
class OpenRows {
  public:
    OpenRows(std::unique_ptr<RowReader> reader, Options options);
    ~OpenRows();
    OpenRows(const OpenRows&) = delete;
    OpenRows& operator=(const OpenRows&) = delete;

    // For the set.

    struct Part {
        std::vector<sql::Row> rows;
        std::optional<std::size_t> end;  ///< RowReader::end
    };
    /// RowReader::read. Once the state is lost, an error of reading having ended it, every call is answered with an
    /// error.
    Part read(std::size_t from, std::size_t most);
    /// RowReader::count.
    std::size_t count();
    /// Lets go of everything; nothing may be asked afterwards.
    void close();

    // For who must change what the rows are read from.

    /// Keeps the rows that are left in a copy and lets go of the database. When the copy cannot be made, the rows are
    /// lost and their readers are told the error: rather that than other rows.
    void detach();

    // For who watches the write-ahead files.

    /// False when the set is closed or read from a copy.
    bool isHeld();
    /// True when a write-ahead file grows because this set holds an older state of the database.
    bool hinders();
    /// A step towards a copy, of some milliseconds; false when there is none to be done now. A copy that cannot be made
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
