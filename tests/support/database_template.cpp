#include "support/database_template.h"

#include <filesystem>
#include <stdexcept>
#include <utility>

#include <sqlite3.h>

namespace velmora::support {

namespace {

constexpr const char* inMemory = ":memory:";
constexpr const char* mainSchema = "main";
constexpr const char* documentsSchema = "documents";

using Engine = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

/// SQLite passes no context to what it calls on opening a connection.
thread_local sqlite3* openedLast = nullptr;

int noteOpened(sqlite3* engine, char**, const struct sqlite3_api_routines*) {
    openedLast = engine;
    return SQLITE_OK;
}

/// Has every opening of a database noted while it lives.
class OpeningWatch {
  public:
    OpeningWatch() { sqlite3_auto_extension(extension()); }
    ~OpeningWatch() { sqlite3_cancel_auto_extension(extension()); }
    OpeningWatch(const OpeningWatch&) = delete;
    OpeningWatch& operator=(const OpeningWatch&) = delete;

  private:
    using Extension = void (*)();

    static Extension extension() { return reinterpret_cast<Extension>(&noteOpened); }
};

/// A connection to a new database in memory, with SQLite's handle of it, which the adapter does not show.
struct Opened {
    std::unique_ptr<sql::Connection> connection;
    sqlite3* engine;
};

/// The documents' database is joined to a connection by the first statement that names it, whether there is a table or
/// not.
void joinDocuments(sql::Connection& connection) {
    try {
        connection.execute("select top 1 Dex_Id from DOC" + connection.currentCatalog() + ".dbo.dex");
    } catch (const sql::DbError&) {
        // In an empty database no table is there yet.
    }
}

Opened openInMemory(const sqlite::Options& options) {
    const OpeningWatch watch;
    auto connection = sqlite::openDatabase(inMemory, options);
    sqlite3* const engine = openedLast;
    joinDocuments(*connection);
    return {.connection = std::move(connection), .engine = engine};
}

void copyPages(sqlite3* from, const char* fromSchema, sqlite3* to, const char* toSchema) {
    sqlite3_backup* const copying = sqlite3_backup_init(to, toSchema, from, fromSchema);
    if (copying != nullptr) {
        sqlite3_backup_step(copying, -1);
    }
    if (copying == nullptr || sqlite3_backup_finish(copying) != SQLITE_OK) {
        throw std::runtime_error(std::string("no copy of ") + fromSchema + ": " + sqlite3_errmsg(to));
    }
}

/// The file lasts no longer than its test: nothing is flushed to the disk.
void copyToFile(sqlite3* from, const char* fromSchema, const std::filesystem::path& file) {
    if (std::filesystem::exists(file)) {
        throw std::runtime_error(file.string() + " is there already");
    }
    sqlite3* opened = nullptr;
    const int code = sqlite3_open(file.c_str(), &opened);
    const Engine to(opened, &sqlite3_close);
    if (code != SQLITE_OK) {
        throw std::runtime_error("no file " + file.string());
    }
    sqlite3_exec(to.get(), "PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF", nullptr, nullptr, nullptr);
    copyPages(from, fromSchema, to.get(), mainSchema);
}

}  // namespace

DatabaseTemplate::DatabaseTemplate(const Fill& fill, const sqlite::Options& options) {
    Opened opened = openInMemory(options);
    connection_ = std::move(opened.connection);
    engine_ = opened.engine;
    fill(*connection_);
}

std::unique_ptr<sql::Connection> DatabaseTemplate::copy(const std::string& path, const sqlite::Options& options) const {
    if (path != inMemory) {
        const std::filesystem::path file = path;
        copyToFile(engine_, mainSchema, file);
        copyToFile(engine_, documentsSchema, file.parent_path() / ("DOC" + file.filename().string()));
        auto connection = sqlite::openDatabase(path, options);
        joinDocuments(*connection);
        return connection;
    }
    Opened opened = openInMemory(options);
    copyPages(engine_, mainSchema, opened.engine, mainSchema);
    copyPages(engine_, documentsSchema, opened.engine, documentsSchema);
    return std::move(opened.connection);
}

}  // namespace velmora::support
