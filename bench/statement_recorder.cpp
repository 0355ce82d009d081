#include "statement_recorder.h"

#include <map>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string_view>

#include <sqlite3.h>

namespace velmora::bench {
namespace {

/// SQLite passes no context to the function called on opening a connection, so the connections are kept here. The
/// program may open one on another thread.
struct Connections {
    std::mutex mutex;
    std::vector<sqlite3*> opened;
};

Connections& theConnections() {
    static Connections connections;
    return connections;
}

std::vector<sqlite3*> openedConnections() {
    const std::lock_guard lock(theConnections().mutex);
    return theConnections().opened;
}

void forgetConnections() {
    const std::lock_guard lock(theConnections().mutex);
    theConnections().opened.clear();
}

void forgetConnection(void* database) {
    const std::lock_guard lock(theConnections().mutex);
    std::erase(theConnections().opened, database);
}

void answerNothing(sqlite3_context*, int, sqlite3_value**) {}

// SQLite does not report closing either, but it releases a connection's functions then.
int rememberConnection(sqlite3* database, char**, const struct sqlite3_api_routines*) {
    {
        const std::lock_guard lock(theConnections().mutex);
        theConnections().opened.push_back(database);
    }
    return sqlite3_create_function_v2(database, "velmora_bench_connection", 0, SQLITE_UTF8, database, &answerNothing,
                                      nullptr, nullptr, &forgetConnection);
}

using Extension = void (*)();

Extension extension() {
    return reinterpret_cast<Extension>(&rememberConnection);
}

struct Watch {
    Recording recording;
    std::map<sqlite3_stmt*, std::size_t> running;
    bool incomplete = false;
};

/// Beginning and end of a set's snapshot, which cannot be repeated while another set holds one, and what the program
/// asks for its own sake.
bool isHousekeeping(std::string_view sql) {
    return sql == "BEGIN" || sql == "END" || sql.starts_with("PRAGMA ");
}

void noteStart(Watch& watch, sqlite3_stmt* statement, const char* text) {
    // A trigger's statements are announced as comments; they run again with the statement itself.
    if (text != nullptr && text[0] == '-' && text[1] == '-') {
        return;
    }
    if (text != nullptr && isHousekeeping(text)) {
        return;
    }
    const std::unique_ptr<char, decltype(&sqlite3_free)> sql(sqlite3_expanded_sql(statement), &sqlite3_free);
    if (!sql) {
        watch.incomplete = true;  // no exception may pass through SQLite
        return;
    }
    watch.running[statement] = watch.recording.size();
    watch.recording.push_back({sqlite3_db_handle(statement), sql.get()});
}

int note(unsigned event, void* context, void* subject, void* text) {
    Watch& watch = *static_cast<Watch*>(context);
    auto* const statement = static_cast<sqlite3_stmt*>(subject);
    if (event == SQLITE_TRACE_STMT) {
        noteStart(watch, statement, static_cast<const char*>(text));
    } else if (const auto found = watch.running.find(statement); found != watch.running.end()) {
        RecordedStatement& recorded = watch.recording[found->second];
        if (event == SQLITE_TRACE_ROW) {
            ++recorded.rows;
        } else {
            // A statement that is reset before its end is still busy when it is reported.
            recorded.ended = sqlite3_stmt_busy(statement) == 0;
            watch.running.erase(found);
        }
    }
    return 0;
}

/// A question that was given up before its first row and then asked another way costs the program, not the bare client.
void forgetGivenUp(Recording& recording) {
    const auto question = [](const RecordedStatement& statement) {
        return std::string_view(statement.sql).substr(0, statement.sql.find(" WHERE "));
    };
    for (std::size_t i = 0; i + 1 < recording.size();) {
        const bool givenUp = recording[i].rows == 0 && recording[i + 1].rows > 0 &&
                             question(recording[i]).starts_with("SELECT ") &&
                             question(recording[i]) == question(recording[i + 1]);
        if (givenUp) {
            recording.erase(recording.begin() + static_cast<std::ptrdiff_t>(i));
        } else {
            ++i;
        }
    }
}

using Handle = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

[[noreturn]] void refuse(sqlite3* database, const std::string& sql) {
    throw std::runtime_error(std::string(sqlite3_errmsg(database)) + ": " + sql);
}

Handle prepare(const RecordedStatement& recorded, sqlite3* database) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, recorded.sql.data(), static_cast<int>(recorded.sql.size()), &statement, nullptr) !=
        SQLITE_OK) {
        refuse(database, recorded.sql);
    }
    return Handle(statement, &sqlite3_finalize);
}

/// Reads a column as its own type, as every client has to; nothing is copied or converted.
void readColumn(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_INTEGER:
            sqlite3_column_int64(statement, column);
            break;
        case SQLITE_FLOAT:
            sqlite3_column_double(statement, column);
            break;
        case SQLITE_TEXT:
            sqlite3_column_text(statement, column);
            sqlite3_column_bytes(statement, column);
            break;
        case SQLITE_BLOB:
            sqlite3_column_blob(statement, column);
            sqlite3_column_bytes(statement, column);
            break;
        default:
            break;
    }
}

/// Fetches as many rows as recorded, and makes the final step that reports the end when the program made it.
void fetch(sqlite3_stmt* statement, std::int64_t rows, bool ended) {
    int result = SQLITE_ROW;
    const int columns = sqlite3_column_count(statement);
    for (std::int64_t step = 0; result == SQLITE_ROW && step < rows + (ended ? 1 : 0); ++step) {
        result = sqlite3_step(statement);
        for (int column = 0; result == SQLITE_ROW && column < columns; ++column) {
            readColumn(statement, column);
        }
    }
    if (result != SQLITE_ROW && result != SQLITE_DONE) {
        refuse(sqlite3_db_handle(statement), sqlite3_sql(statement));
    }
}

}  // namespace

StatementRecorder::StatementRecorder() {
    forgetConnections();
    sqlite3_auto_extension(extension());
}

StatementRecorder::~StatementRecorder() {
    sqlite3_cancel_auto_extension(extension());
    forgetConnections();
}

Recording StatementRecorder::record(const std::function<void()>& work) {
    Watch watch;
    const auto listen = [&](unsigned events) {
        for (sqlite3* database : openedConnections()) {
            sqlite3_trace_v2(database, events, events != 0 ? &note : nullptr, &watch);
        }
    };
    listen(SQLITE_TRACE_STMT | SQLITE_TRACE_ROW | SQLITE_TRACE_PROFILE);
    try {
        work();
    } catch (...) {
        listen(0);
        throw;
    }
    listen(0);
    if (watch.incomplete) {
        throw std::runtime_error("a statement was too long to be recorded");
    }
    forgetGivenUp(watch.recording);
    return std::move(watch.recording);
}

PreparedRecording::PreparedRecording(const Recording& recording, sqlite3* database) {
    for (const RecordedStatement& recorded : recording) {
        prepared_.push_back({prepare(recorded, database != nullptr ? database : recorded.database).release(),
                             recorded.rows, recorded.ended});
    }
}

PreparedRecording::~PreparedRecording() {
    for (const Prepared& one : prepared_) {
        sqlite3_finalize(one.statement);
    }
}

void PreparedRecording::replay() {
    for (const Prepared& one : prepared_) {
        fetch(one.statement, one.rows, one.ended);
        sqlite3_reset(one.statement);
    }
}

}  // namespace velmora::bench
