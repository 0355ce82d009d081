#include "velmora/adapters/sqlite/link.h"

#include <algorithm>
#include <cerrno>

#include <sqlite3.h>

#include "velmora/adapters/sqlite/collation.h"
#include "velmora/adapters/sqlite/emitters/quoting.h"
#include "velmora/adapters/sqlite/errors.h"
#include "velmora/adapters/sqlite/functions.h"

namespace velmora::sqlite {

namespace {

/// The engine's path of a database of its own in temporary storage.
constexpr const char* inTemporaryStorage = "";

constexpr std::uint64_t pageSize = 4096;

}  // namespace

void Link::Close::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

Link::Link(const std::string& path, const Options& options) : options_(options) {
    const int flags =
        options_.readOnly ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    sqlite3* opened = nullptr;
    const int code =
        sqlite3_open_v2(path.c_str(), &opened, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    database_.reset(opened);
    if (code != SQLITE_OK) {
        throwEngineError(opened, code);
    }
    configure(path);
}

Link::~Link() = default;

std::shared_ptr<Link> Link::temporary(const Options& options) {
    Options writable = options;
    writable.readOnly = false;
    return std::make_shared<Link>(inTemporaryStorage, writable);
}

void Link::configure(const std::string& path) {
    sqlite3* database = handle();
    wait_.watch(database);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    registerCollation(database);
    registerFunctions(database, [this] { return moment_ ? *moment_ : options_.clock(); });
    if (path == inTemporaryStorage) {
        run("PRAGMA journal_mode = OFF");
        run("PRAGMA synchronous = OFF");
        return;
    }
    if (path != inMemory && !options_.readOnly) {
        run("PRAGMA journal_mode = WAL");
        run("PRAGMA wal_autocheckpoint = " + std::to_string(writeAheadSize / pageSize));
        limitWriteAhead(mainSchema);
    }
    run("PRAGMA synchronous = FULL");
    run("PRAGMA schema_version");  // reads the file, so that one that is no database is refused on opening
    keepsSnapshots_ = path != inMemory && isWriteAhead(mainSchema);
}

bool Link::isWriteAhead(std::string_view schema) {
    const auto mode = prepare("PRAGMA " + std::string(schema) + ".journal_mode");
    return mode->step() && mode->value(0, tsql::Kind::text).toText() == "wal";
}

/// A file that has grown while a reader held an older state is truncated to this size when it is reused.
void Link::limitWriteAhead(std::string_view schema) {
    run("PRAGMA " + std::string(schema) + ".journal_size_limit = " + std::to_string(writeAheadSize));
}

void Link::attachDocuments(const std::string& file) {
    if (documentsAttached_) {
        return;
    }
    run("ATTACH DATABASE " + quotedText(file) + " AS " + std::string(documentsSchema));
    documentsAttached_ = true;
    if (keepsSnapshots_) {
        limitWriteAhead(documentsSchema);
        keepsSnapshots_ = isWriteAhead(documentsSchema);
    }
}

void Link::run(const std::string& sql) {
    const int code = sqlite3_exec(handle(), sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) {
        throwEngineError(handle(), code);
    }
}

bool Link::isAlive() {
    return sqlite3_exec(handle(), "PRAGMA schema_version", nullptr, nullptr, nullptr) == SQLITE_OK;
}

void Link::mustLieInPlace() {
    for (const std::string_view schema : {mainSchema, documentsSchema}) {
        int moved = 0;
        errno = 0;  // the engine looks at the file, and counts one that it cannot look at as moved
        if (sqlite3_file_control(handle(), std::string(schema).c_str(), SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK &&
            moved != 0) {
            const int reason = errno;
            throwNotInPlace(sqlite3_db_filename(handle(), std::string(schema).c_str()), reason);
        }
    }
}

bool Link::isInTransaction() const {
    return sqlite3_get_autocommit(handle()) == 0;
}

std::unique_ptr<Statement> Link::prepare(std::string_view sql) {
    return std::make_unique<Statement>(handle(), sql, false);
}

std::int64_t Link::schemaVersion() {
    const auto know = [this](std::string_view schema) {
        versions_.push_back(prepare("PRAGMA " + std::string(schema) + ".schema_version"));
    };
    if (versions_.empty()) {
        know(mainSchema);
    }
    if (documentsAttached_ && versions_.size() == 1) {
        know(documentsSchema);
    }
    std::int64_t version = 0;
    for (const auto& asking : versions_) {
        asking->step();
        version = (version << 32) + asking->whole(0);
        asking->reset();
    }
    return version;
}

std::unique_ptr<Statement> Link::take(const CachedStatement& cached) {
    if (const auto found = idleById_.find(cached.id); found != idleById_.end()) {
        auto statement = std::move(found->second->statement);
        idle_.erase(found->second);
        idleById_.erase(found);
        return statement;
    }
    return std::make_unique<Statement>(handle(), cached.translation->steps.front(), cached.runsAgain);
}

void Link::giveBack(const CachedStatement& cached, std::unique_ptr<Statement> statement) {
    statement->reset();
    statement->forgetValues();
    if (!cached.runsAgain || idleById_.contains(cached.id)) {
        return;
    }
    idle_.push_front({.id = cached.id, .statement = std::move(statement)});
    idleById_.emplace(cached.id, idle_.begin());
    if (idle_.size() > options_.cachedStatements) {
        idleById_.erase(idle_.back().id);
        idle_.pop_back();
    }
}

void Link::enterSnapshot() {
    run("BEGIN");
    inSnapshot_ = true;
}

void Link::leaveSnapshot() {
    if (inSnapshot_) {
        run("END");
        inSnapshot_ = false;
    }
}

void Link::moveWriteAheadIntoDatabase() {
    // Errors are ignored: another connection that is copying the file already does the same.
    sqlite3_wal_checkpoint_v2(handle(), nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

std::vector<std::string> Link::heldSchemas() const {
    std::vector<std::string> held;
    for (const std::string_view schema : {mainSchema, documentsSchema}) {
        std::string name(schema);
        if (sqlite3_txn_state(handle(), name.c_str()) > SQLITE_TXN_NONE) {
            held.push_back(std::move(name));
        }
    }
    return held;
}

std::string Link::writeAheadFile(const std::string& schema) const {
    const char* const file = sqlite3_db_filename(handle(), schema.c_str());
    return file != nullptr && *file != '\0' ? sqlite3_filename_wal(file) : std::string();
}

}  // namespace velmora::sqlite
