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

/// Prepares, steps and finalizes each statement, fetching as many rows as when it was recorded. Throws
/// std::runtime_error for a statement that SQLite refuses, because a failing replay would be a fast one.
void replay(const Recording& recording);

/// The same statements, prepared once and only stepped and reset in a replay: the stricter comparison, for a program
/// that caches prepared statements.
class PreparedRecording {
  public:
    explicit PreparedRecording(const Recording& recording);
    ~PreparedRecording();
    PreparedRecording(const PreparedRecording&) = delete;
    PreparedRecording& operator=(const PreparedRecording&) = delete;

    void replay();

  private:
    struct Prepared {
        sqlite3_stmt* statement;
        std::int64_t rows;
    };
    std::vector<Prepared> prepared_;
};

}  // namespace velmora::bench
