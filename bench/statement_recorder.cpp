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

void noteStart(Watch& watch, sqlite3_stmt* statement, const char* text) {
    // A trigger's statements are announced as comments; they run again with the statement itself.
    if (text != nullptr && text[0] == '-' && text[1] == '-') {
        return;
    }
    // Beginning and end of a set's snapshot; cannot be repeated while another set holds one.
    if (text != nullptr && (std::string_view(text) == "BEGIN" || std::string_view(text) == "END")) {
        return;
    }
    const std::unique_ptr<char, decltype(&sqlite3_free)> sql(sqlite3_expanded_sql(statement), &sqlite3_free);
    if (!sql) {
        watch.incomplete = true;  // no exception may pass through SQLite
        return;
    }
    watch.running[statement] = watch.recording.size();
    watch.recording.push_back({sqlite3_db_handle(statement), sql.get(), 0});
}

int note(unsigned event, void* context, void* subject, void* text) {
    Watch& watch = *static_cast<Watch*>(context);
    auto* const statement = static_cast<sqlite3_stmt*>(subject);
    if (event == SQLITE_TRACE_STMT) {
        noteStart(watch, statement, static_cast<const char*>(text));
    } else if (const auto found = watch.running.find(statement); found != watch.running.end()) {
        ++watch.recording[found->second].rows;
    }
    return 0;
}

using Handle = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

[[noreturn]] void refuse(sqlite3* database, const std::string& sql) {
    throw std::runtime_error(std::string(sqlite3_errmsg(database)) + ": " + sql);
}

Handle prepare(const RecordedStatement& recorded) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(recorded.database, recorded.sql.data(), static_cast<int>(recorded.sql.size()), &statement,
                           nullptr) != SQLITE_OK) {
        refuse(recorded.database, recorded.sql);
    }
    return Handle(statement, &sqlite3_finalize);
}

/// Fetches as many rows as recorded, and makes the final step that reports the end.
void fetch(sqlite3_stmt* statement, std::int64_t rows) {
    int result = SQLITE_ROW;
    for (std::int64_t step = 0; result == SQLITE_ROW && step <= rows; ++step) {
        result = sqlite3_step(statement);
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
    listen(SQLITE_TRACE_STMT | SQLITE_TRACE_ROW);
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
    return std::move(watch.recording);
}

void replay(const Recording& recording) {
    for (const RecordedStatement& recorded : recording) {
        const Handle statement = prepare(recorded);
        fetch(statement.get(), recorded.rows);
    }
}

PreparedRecording::PreparedRecording(const Recording& recording) {
    for (const RecordedStatement& recorded : recording) {
        prepared_.push_back({prepare(recorded).release(), recorded.rows});
    }
}

PreparedRecording::~PreparedRecording() {
    for (const Prepared& one : prepared_) {
        sqlite3_finalize(one.statement);
    }
}

void PreparedRecording::replay() {
    for (const Prepared& one : prepared_) {
        fetch(one.statement, one.rows);
        sqlite3_reset(one.statement);
    }
}

}  // namespace velmora::bench
