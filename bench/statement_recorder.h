#pragma once
// Records the SQLite statements of an operation and replays them without the program.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace velmora::bench {

struct RecordedStatement {
    sqlite3* database = nullptr;
    std::string sql;        ///< SQLite's text, with the values inserted
    std::int64_t rows = 0;  ///< number of rows fetched
    bool ended = false;     ///< the end of the rows was reached too
};

using Recording = std::vector<RecordedStatement>;

/// Observes every SQLite connection that this process opens during its lifetime, so that the program under test need
/// not expose its own. One recorder at a time; the connections must outlive the recordings.
class StatementRecorder {
  public:
    StatementRecorder();
    ~StatementRecorder();
    StatementRecorder(const StatementRecorder&) = delete;
    StatementRecorder& operator=(const StatementRecorder&) = delete;

    /// Runs the work once and returns its statements in order. Connections are observed during this call only, so that
    /// other measurements are not slowed down.
    Recording record(const std::function<void()>& work);
};

/// What the bare interface takes for the same statements: prepared once, and in a replay stepped and reset. As many
/// rows are fetched as when they were recorded, and every column of them is read. Throws std::runtime_error for a
/// statement that SQLite refuses, because a failing replay would be a fast one.
class PreparedRecording {
  public:
    /// On the connections on which they were recorded, or all on `database`.
    explicit PreparedRecording(const Recording& recording, sqlite3* database = nullptr);
    ~PreparedRecording();
    PreparedRecording(const PreparedRecording&) = delete;
    PreparedRecording& operator=(const PreparedRecording&) = delete;

    void replay();

  private:
    struct Prepared {
        sqlite3_stmt* statement;
        std::int64_t rows;
        bool ended;
    };
    std::vector<Prepared> prepared_;
};

}  // namespace velmora::bench
