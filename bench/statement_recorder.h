#pragma once
// What a piece of the program asked of SQLite, and the same asked again without the program.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace velmora::bench {

struct RecordedStatement {
    sqlite3* database = nullptr;
    std::string sql;        ///< in SQLite's own words, values written in
    std::int64_t rows = 0;  ///< how many were fetched
};

using Recording = std::vector<RecordedStatement>;

/// Sees every SQLite connection that this process opens while the recorder lives, whoever opens it: so the program
/// under measure need not show its own. One recorder at a time; the connections must outlive what is recorded.
class StatementRecorder {
  public:
    StatementRecorder();
    ~StatementRecorder();
    StatementRecorder(const StatementRecorder&) = delete;
    StatementRecorder& operator=(const StatementRecorder&) = delete;

    /// Runs the work once and tells which statements it ran, in their order. The connections are watched during this
    /// call alone, so that a measure taken at another time is not slowed by it.
    Recording record(const std::function<void()>& work);
};

/// Prepares, steps and finalizes each statement, fetching as many rows as were fetched when it was recorded. Throws
/// std::runtime_error for a statement that SQLite refuses: a replay that fails would be a fast one.
void replay(const Recording& recording);

/// The same statements, each prepared once and only stepped and reset in a replay: the harder yardstick, for a program
/// that keeps what it has prepared.
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
