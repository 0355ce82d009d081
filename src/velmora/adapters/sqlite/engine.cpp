#include "velmora/adapters/sqlite/engine.h"

#include <algorithm>
#include <filesystem>

#include <sqlite3.h>

#include "velmora/adapters/sqlite/collation.h"
#include "velmora/adapters/sqlite/errors.h"
#include "velmora/adapters/sqlite/functions.h"
#include "velmora/adapters/sqlite/row_source.h"
#include "velmora/adapters/sqlite/tokenizer.h"

namespace velmora::sqlite {

namespace {

constexpr std::string_view mainSchema = "main";
constexpr std::string_view documentsSchema = "documents";
constexpr std::string_view inMemory = ":memory:";

/// Texts longer than this carry a document's content and are not run twice.
constexpr std::size_t longestCachedText = 16 * 1024;

/// The default clock: the system's time in the machine's zone, as local time without a zone.
runtime::Date localNow() {
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const std::time_t moment = std::chrono::system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&moment, &local);
    return runtime::Date::of(local.tm_year + 1900, static_cast<unsigned>(local.tm_mon + 1),
                             static_cast<unsigned>(local.tm_mday), local.tm_hour, local.tm_min,
                             std::min(local.tm_sec, 59));
}

/// Chosen C-205: the documents' file lies beside the first one, with "DOC" in front of its name.
std::string besideWithPrefix(std::string path) {
    const auto folder = path.find_last_of("/\\");
    return path.insert(folder == std::string::npos ? 0 : folder + 1, "DOC");
}

std::string doubledQuotes(std::string_view text) {
    std::string doubled;
    for (const char c : text) {
        doubled.append(c == '\'' ? 2 : 1, c);
    }
    return doubled;
}

}  // namespace

void Engine::Close::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

Engine::Engine(const std::string& path, Options options)
    : options_(std::move(options)), path_(path), cache_(std::max<std::size_t>(options_.cachedStatements, 1)) {
    if (!options_.clock) {
        options_.clock = localNow;
    }
    const int flags = options_.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    sqlite3* opened = nullptr;
    const int code =
        sqlite3_open_v2(path.c_str(), &opened, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    database_.reset(opened);
    if (code != SQLITE_OK) {
        throwEngineError(opened, code);
    }
    configure(path);
}

Engine::~Engine() {
    cache_.clear();
    if (inTransaction_) {
        sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Engine::configure(const std::string& path) {
    sqlite3* database = database_.get();
    sqlite3_busy_timeout(database, static_cast<int>(options_.busyTimeout.count()));
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    registerCollation(database);
    registerFunctions(database, options_.clock);
    if (path != inMemory && !options_.readOnly) {
        run("PRAGMA journal_mode = WAL");
    }
    run("PRAGMA synchronous = FULL");
    run("PRAGMA schema_version");  // reads the file: what is no database is told now
}

void Engine::run(const std::string& sql) {
    const int code = sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) {
        throwEngineError(database_.get(), code);
    }
}

bool Engine::isAlive() {
    return sqlite3_exec(database_.get(), "PRAGMA schema_version", nullptr, nullptr, nullptr) == SQLITE_OK;
}

std::vector<std::string> Engine::files() const {
    std::vector<std::string> files;
    if (path_ == inMemory) {
        return files;
    }
    std::error_code ignored;
    // The logs lie beside the file itself, not beside a link to it.
    const std::string main = sqlite3_db_filename(database_.get(), mainSchema.data());
    const std::string documents = std::filesystem::weakly_canonical(besideWithPrefix(path_), ignored).string();
    for (const std::string& file : {main, documents}) {
        for (const char* ending : {"", "-wal", "-shm", "-journal"}) {
            files.push_back(file + ending);
        }
    }
    return files;
}

// Statements.

sql::Recordset Engine::execute(std::string_view text) {
    try {
        const std::shared_ptr<CachedStatement> cached = statementOf(text);
        switch (cached->translation.answer) {
            case Answer::rows:
                return sql::Recordset(rowsOf(cached));
            case Answer::changes:
                runChange(*cached);
                break;
            case Answer::schema:
                runSchemaChange(cached->translation);
                break;
        }
    } catch (const sql::DbError& error) {
        throw withStatement(error, text);
    }
    return {};
}

std::unique_ptr<sql::RowSource> Engine::openRows(std::string_view text) {
    const std::string kept(text);
    try {
        return rowsOf(statementOf(kept));
    } catch (const sql::DbError& error) {
        throw withStatement(error, kept);
    }
}

std::shared_ptr<CachedStatement> Engine::statementOf(std::string_view text) {
    parkStreams();
    if (auto known = cache_.find(text)) {
        return known;
    }
    try {
        return translated(text);
    } catch (const sql::DbError&) {
        if (names_.empty() && tables_.empty()) {
            throw;
        }
    }
    // Another process may have made the table or the column since we looked.
    forget();
    return translated(text);
}

std::shared_ptr<CachedStatement> Engine::translated(std::string_view text) {
    auto made = std::make_shared<CachedStatement>();
    made->translation = translate(text, *this);
    made->text = std::string(text);
    const bool runsAgain = made->translation.answer != Answer::schema && !made->translation.steps.empty();
    if (runsAgain && text.size() <= longestCachedText) {
        cache_.add(made);
    }
    return made;
}

std::unique_ptr<sql::RowSource> Engine::rowsOf(const std::shared_ptr<CachedStatement>& cached) {
    for (std::shared_ptr<CachedStatement> current = cached;;) {
        if (auto rows = openRowSource(shared_from_this(), current)) {
            return rows;
        }
        // The tables are no longer what they were when `*` was written out.
        forget();
        current = translated(std::string(current->text));
    }
}

void Engine::runChange(CachedStatement& cached) {
    if (cached.translation.steps.empty()) {
        return;
    }
    auto statement = take(cached);
    while (statement->step()) {
    }
    giveBack(cached, std::move(statement));
}

void Engine::runSchemaChange(const Translation& translation) {
    forget();
    run("SAVEPOINT schema_change");
    try {
        for (const std::string& step : translation.steps) {
            run(step);
        }
        run("RELEASE schema_change");
    } catch (const sql::DbError&) {
        sqlite3_exec(database_.get(), "ROLLBACK TO schema_change; RELEASE schema_change", nullptr, nullptr, nullptr);
        forget();
        throw;
    }
    forget();
}

void Engine::forget() {
    cache_.clear();
    names_.clear();
    tables_.clear();
}

std::unique_ptr<Statement> Engine::take(CachedStatement& cached) {
    if (cached.idle) {
        return std::move(cached.idle);
    }
    return std::make_unique<Statement>(database_.get(), cached.translation.steps.front(),
                                       cached.text.size() <= longestCachedText);
}

void Engine::giveBack(CachedStatement& cached, std::unique_ptr<Statement> statement) {
    statement->reset();
    cached.idle = std::move(statement);
}

std::unique_ptr<Statement> Engine::prepare(std::string_view sql) {
    return std::make_unique<Statement>(database_.get(), sql, false);
}

void Engine::updateBinary(const Origin& origin, std::size_t column, const sql::Value& key, const sql::Bytes& content) {
    parkStreams();
    const std::string& name = origin.columns[column];
    const std::string where = " WHERE " + origin.columns[origin.key] + " = ?1";
    const std::string keyText = key.isText() ? key.toText() : std::string();
    const auto forKey = [&](const std::string& sql) {
        auto statement = prepare(sql + where);
        if (key.isText()) {
            statement->bind(1, keyText);
        } else {
            statement->bind(1, std::get<std::int64_t>(key.raw()));
        }
        return statement;
    };
    const auto change = forKey("UPDATE " + origin.table + " SET " + name + " = ?2");
    change->bind(2, content);
    change->step();
    // Differs D-184: whoever deletes the file afterwards must know that the database has all of it.
    const auto stored = forKey("SELECT length(" + name + ") FROM " + origin.table);
    if (!stored->step()) {
        throw sql::DbError(sql::provider::rowGone, "La fila que se iba a actualizar ya no existe.");
    }
    if (stored->whole(0) != static_cast<std::int64_t>(content.size())) {
        throw sql::DbError(sql::provider::failure, "El contenido no se guardó entero.");
    }
}

void Engine::enter(Stream& stream) {
    streams_.push_back(&stream);
}

void Engine::leave(Stream& stream) {
    std::erase(streams_, &stream);
}

void Engine::parkStreams() {
    for (Stream* stream : std::exchange(streams_, {})) {
        stream->park();
    }
}

// Transactions.

void Engine::begin() {
    // Chosen C-206: a transaction inside a transaction is refused with a number of its own.
    if (inTransaction_) {
        throw sql::DbError(sql::provider::transactionOpen, "Ya hay una transacción abierta.", {.sqlState = "25001"});
    }
    parkStreams();
    run("BEGIN IMMEDIATE");
    inTransaction_ = true;
}

void Engine::commit() {
    if (!inTransaction_) {
        throw sql::DbError(sql::provider::noTransaction, "No hay ninguna transacción abierta.", {.sqlState = "25000"});
    }
    parkStreams();
    inTransaction_ = false;
    if (sqlite3_get_autocommit(database_.get()) != 0) {
        // A full disk, for one, makes the engine undo everything on the spot.
        throw sql::DbError(sql::provider::failure, "La transacción se deshizo por un error anterior.",
                           {.sqlState = "40000"});
    }
    const int code = sqlite3_exec(database_.get(), "COMMIT", nullptr, nullptr, nullptr);
    if (code == SQLITE_OK) {
        return;
    }
    try {
        throwEngineError(database_.get(), code);
    } catch (const sql::DbError&) {
        sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

void Engine::rollback() {
    if (!inTransaction_) {
        throw sql::DbError(sql::provider::noTransaction, "No hay ninguna transacción abierta.", {.sqlState = "25000"});
    }
    parkStreams();
    inTransaction_ = false;
    forget();  // tables made in the transaction are gone
    if (sqlite3_get_autocommit(database_.get()) == 0) {
        run("ROLLBACK");
    }
}

// Tables.

std::string Engine::schemaOf(const TableName& name) {
    if (!name.schema.empty() && foldName(name.schema) != "DBO") {
        throwMissingTable(name.schema + "." + name.name);
    }
    const std::string catalog = foldName(name.catalog);
    if (catalog.empty() || catalog == foldName(options_.catalog)) {
        return std::string(mainSchema);
    }
    if (catalog != "DOC" + foldName(options_.catalog)) {
        throwMissingTable(name.catalog + ".dbo." + name.name);
    }
    attachDocuments(name);
    return std::string(documentsSchema);
}

void Engine::attachDocuments(const TableName& name) {
    if (documentsAttached_) {
        return;
    }
    std::string file(inMemory);
    if (path_ != inMemory) {
        file = besideWithPrefix(path_);
        if (options_.readOnly && !std::filesystem::exists(file)) {
            throwMissingTable(name.catalog + ".dbo." + name.name);
        }
        if (!options_.readOnly) {
            // On a connection of its own: the journal of a file cannot be chosen inside a transaction.
            Options plain = options_;
            const Engine other(file, std::move(plain));
        }
    }
    run("ATTACH DATABASE '" + doubledQuotes(file) + "' AS " + std::string(documentsSchema));
    documentsAttached_ = true;
}

const std::string& Engine::storedName(const std::string& schema, const TableName& name) {
    auto& known = names_[schema];
    if (known.empty()) {
        const auto all = prepare("SELECT name FROM \"" + schema + "\".sqlite_schema WHERE type IN ('table', 'view')");
        while (all->step()) {
            std::string declared = all->value(0, Kind::text).toText();
            std::string folded = foldName(declared);
            if (folded.substr(0, 7) != "SQLITE_") {
                known.emplace(std::move(folded), std::move(declared));
            }
        }
    }
    const auto found = known.find(foldName(name.name));
    if (found == known.end()) {
        throwMissingTable(name.catalog.empty() ? name.name : name.catalog + ".dbo." + name.name);
    }
    return found->second;
}

std::shared_ptr<const Table> Engine::table(const TableName& name) {
    const std::string schema = schemaOf(name);
    const std::string& stored = storedName(schema, name);
    auto& known = tables_[schema + "." + stored];
    if (!known) {
        known = readTable(schema, stored);
    }
    return known;
}

std::shared_ptr<const Table> Engine::readTable(const std::string& schema, const std::string& name) {
    auto table = std::make_shared<Table>();
    table->schema = schema;
    table->name = name;
    const auto columns = prepare("SELECT name, type, \"notnull\", pk FROM pragma_table_info('" + doubledQuotes(name) +
                                 "', '" + schema + "')");
    while (columns->step()) {
        TableColumn column;
        column.name = columns->value(0, Kind::text).toText();
        const std::string declaration = columns->value(1, Kind::text).toText();
        column.type = declaredType(declaration);
        column.identity = declaration == "INTEGER" && columns->whole(3) > 0;
        column.key = columns->whole(3) > 0;
        column.notNull = columns->whole(2) != 0;
        table->columns.push_back(std::move(column));
    }
    if (std::ranges::count(table->columns, true, &TableColumn::key) > 1) {
        std::ranges::for_each(table->columns, [](TableColumn& column) { column.key = false; });
    }
    return table;
}

}  // namespace velmora::sqlite
