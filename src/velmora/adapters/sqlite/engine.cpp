#include "velmora/adapters/sqlite/engine.h"

#include <algorithm>
#include <filesystem>

#include <sqlite3.h>

#include "velmora/adapters/sqlite/errors.h"
#include "velmora/adapters/sqlite/file_content.h"
#include "velmora/adapters/sqlite/lock_wait.h"
#include "velmora/adapters/sqlite/row_source.h"
#include "velmora/adapters/sqlite/run_watch.h"
#include "velmora/adapters/sqlite/table_reader.h"
#include "velmora/adapters/tsql/refusals.h"
#include "velmora/adapters/tsql/tokenizer.h"

namespace velmora::sqlite {

namespace {

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

Options completed(Options options) {
    if (!options.clock) {
        options.clock = localNow;
    }
    options.waiting = toldOnce(std::move(options.waiting));
    options.cachedStatements = std::max<std::size_t>(options.cachedStatements, 1);
    return options;
}

/// The engine's steps in which the first rows of a set are to be found: about as many as some hundred rows of the
/// widest table take to be sorted, some milliseconds at most.
constexpr int stepsOfAnOpening = 65'536;

/// Nothing when the first rows take more steps than that.
std::optional<std::vector<sql::Row>> rowsWithin(RowReader& reader) {
    const StepLimit limit(*reader.link(), stepsOfAnOpening);
    try {
        return reader.read(0, openingRows);
    } catch (const sql::DbError&) {
        if (!limit.wasReached()) {
            throw;
        }
        return std::nullopt;
    }
}

}  // namespace

/// A set's reader with the rows that it has read first.
struct Engine::Opening {
    std::unique_ptr<RowReader> reader;
    std::vector<sql::Row> first;
};

Engine::Engine(const std::string& path, Options options)
    : options_(completed(std::move(options))),
      path_(path),
      pool_(std::make_shared<LinkPool>(path, options_)),
      link_(pool_->take()),
      translator_({.catalog = *this,
                   .link = [this]() -> Link& { return *link(); },
                   .forgetTables = [this] { return forgetTables(); }},
                  options_) {}

Engine::~Engine() {
    if (inTransaction_) {
        sqlite3_exec(link_->handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

const std::shared_ptr<Link>& Engine::link() {
    if (!link_) {
        link_ = pool_->take();
    }
    if (!documentsFile_.empty()) {
        link_->attachDocuments(documentsFile_);
    }
    return link_;
}

bool Engine::isAlive() {
    const WaitsEnd end(options_);
    try {
        return link()->isAlive();
    } catch (const sql::DbError&) {
        return false;
    }
}

std::vector<std::string> Engine::files() {
    std::vector<std::string> files;
    if (path_ == inMemory) {
        return files;
    }
    std::error_code ignored;
    // The write-ahead files lie beside the database itself, not beside a symbolic link to it.
    const std::string main = sqlite3_db_filename(link()->handle(), mainSchema.data());
    const std::string documents = std::filesystem::weakly_canonical(documentsFileOf(path_), ignored).string();
    for (const std::string& file : {main, documents}) {
        files.push_back(file);
        for (const char* ending : sideFileEndings) {
            files.push_back(file + ending);
        }
    }
    return files;
}

// Statements.

sql::Recordset Engine::execute(std::string_view text) {
    const WaitsEnd end(options_);
    try {
        const std::shared_ptr<CachedStatement> cached = translator_.statementOf(text);
        switch (cached->translation->answer) {
            case Answer::rows:
                return sql::Recordset(rowsOf(cached));
            case Answer::changes:
                runChange(*cached);
                break;
            case Answer::schema:
                runSchemaChange(*cached->translation);
                break;
        }
    } catch (const sql::DbError& error) {
        throw withStatement(error, text);
    }
    return {};
}

std::unique_ptr<sql::RowSource> Engine::openRows(std::string_view text) {
    const WaitsEnd end(options_);
    const std::string kept(text);
    try {
        return rowsOf(translator_.statementOf(kept));
    } catch (const sql::DbError& error) {
        throw withStatement(error, kept);
    }
}

std::unique_ptr<sql::RowSource> Engine::rowsOf(std::shared_ptr<CachedStatement> cached) {
    for (;;) {
        auto [reader, first] = open(cached);
        if (!reader->wasPreparedAnew()) {
            auto statement = reader->statement();
            auto others = reader->end() ? nullptr : keepOpen(std::move(reader));
            return std::make_unique<Rows>(shared_from_this(), std::move(statement), std::move(first),
                                          std::move(others));
        }
        // The tables have changed since `*` was expanded.
        forget();
        cached = translator_.statementOf(std::string(cached->text));
    }
}

/// Chosen C-580: a set that has to put more than some hundred rows in order before its first one is tried through an
/// index of that order, and stays so when the first rows are found soon; otherwise its keys alone are sorted. Rows that
/// its order does not tell apart may then come in another order than in a smaller database; in one set it is always the
/// same.
Engine::Opening Engine::open(const std::shared_ptr<CachedStatement>& cached) {
    // getdate() must answer the same time in rows that are read again.
    const bool asksTheTime = cached->translation->steps.front().find("getdate()") != std::string::npos;
    const auto moment = asksTheTime ? std::optional(options_.clock()) : std::nullopt;
    const auto readerOf = [&](const std::shared_ptr<const CachedStatement>& statement) {
        return std::make_unique<RowReader>(link(), statement, moment);
    };
    const auto tried = [&](Way way) { return cached->walking && cached->way <= way; };
    for (const Way way : {Way::asWritten, Way::walking}) {
        if (tried(way)) {
            auto reader = readerOf(way == Way::walking ? cached->walking : cached);
            if (auto rows = rowsWithin(*reader)) {
                cached->way = way;
                return {.reader = std::move(reader), .first = std::move(*rows)};
            }
        }
    }
    cached->way = cached->keysFirst ? Way::keysFirst : Way::asWritten;
    auto reader = readerOf(cached->keysFirst ? cached->keysFirst : cached);
    auto rows = openingRowsOf(*reader);
    return {.reader = std::move(reader), .first = std::move(rows)};
}

std::vector<sql::Row> Engine::openingRowsOf(RowReader& reader) {
    if (!options_.longRun || inTransaction_ || path_ == inMemory) {
        return reader.read(0, openingRows);
    }
    // While the program is asked, other statements run on another link.
    const std::shared_ptr<Link> running = std::exchange(link_, nullptr);
    const RunWatch watch(*running, options_);
    try {
        auto rows = reader.read(0, openingRows);
        link_ = running;
        return rows;
    } catch (const sql::DbError&) {
        link_ = running;
        watch.passOn();
        throw;
    }
}

std::shared_ptr<OpenRows> Engine::keepOpen(std::unique_ptr<RowReader> reader) {
    const bool takesLink = !inTransaction_ && link_->keepsSnapshots();
    if (takesLink) {
        link_->enterSnapshot();
        link_.reset();
    }
    auto others = std::make_shared<OpenRows>(std::move(reader), options_);
    if (takesLink) {
        watch_.add(others);
        return others;
    }
    std::erase_if(onLink_, [](const std::weak_ptr<OpenRows>& known) { return known.expired(); });
    onLink_.push_back(others);
    if (!inTransaction_ && path_ != inMemory) {
        settleSets();
    }
    return others;
}

/// Copies the rows left of the sets that are read on the link of all statements, before one of these changes data.
/// Chosen C-215: a set opened inside a transaction keeps its rows until its requery, also when the transaction is
/// rolled back: it shows the state of its opening.
void Engine::settleSets() {
    for (const std::weak_ptr<OpenRows>& known : std::exchange(onLink_, {})) {
        if (const auto others = known.lock()) {
            others->detach();
        }
    }
}

void Engine::runChange(const CachedStatement& cached) {
    if (cached.translation->steps.empty()) {
        return;
    }
    settleSets();
    Link& writer = *link();
    writer.mustLieInPlace();
    auto statement = writer.take(cached);
    statement->bind(cached.values);
    while (statement->step()) {
    }
    writer.giveBack(cached, std::move(statement));
}

void Engine::runSchemaChange(const Translation& translation) {
    settleSets();
    forget();
    Link& writer = *link();
    writer.mustLieInPlace();
    writer.run("SAVEPOINT schema_change");
    try {
        for (const std::string& step : translation.steps) {
            writer.run(step);
        }
        writer.run("RELEASE schema_change");
    } catch (const sql::DbError&) {
        sqlite3_exec(writer.handle(), "ROLLBACK TO schema_change; RELEASE schema_change", nullptr, nullptr, nullptr);
        forget();
        throw;
    }
    forget();
}

void Engine::forget() {
    translator_.forget();
    forgetTables();
}

bool Engine::forgetTables() {
    const bool knewAny = !names_.empty() || !tables_.empty();
    names_.clear();
    tables_.clear();
    return knewAny;
}

void Engine::updateBinary(const Origin& origin, std::size_t column, const sql::Value& key, const sql::Bytes& content) {
    const WaitsEnd end(options_);
    settleSets();
    Link& writer = *link();
    writer.mustLieInPlace();
    const std::string& name = origin.columns[column];
    const std::string where = " WHERE " + origin.columns[origin.key] + " = ?1";
    const std::string keyText = key.isText() ? key.toText() : std::string();
    const auto forKey = [&](const std::string& sql) {
        auto statement = writer.prepare(sql + where);
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
    // Differs D-184: the stored length is compared, because callers delete the file afterwards.
    const auto stored = forKey("SELECT length(" + name + ") FROM " + origin.table);
    if (!stored->step()) {
        throw sql::DbError(sql::provider::rowGone, "La fila que se iba a actualizar ya no existe.");
    }
    if (stored->whole(0) != static_cast<std::int64_t>(content.size())) {
        throw sql::DbError(sql::provider::failure, "El contenido no se guardó entero.");
    }
}

// Transactions.

void Engine::begin() {
    const WaitsEnd end(options_);
    // Chosen C-206: a transaction inside a transaction is refused with a number of its own.
    if (inTransaction_) {
        throw sql::DbError(sql::provider::transactionOpen, "Ya hay una transacción abierta.", {.sqlState = "25001"});
    }
    settleSets();
    link()->mustLieInPlace();
    link()->run("BEGIN IMMEDIATE");
    inTransaction_ = true;
}

void Engine::commit() {
    const WaitsEnd end(options_);
    if (!inTransaction_) {
        throw sql::DbError(sql::provider::noTransaction, "No hay ninguna transacción abierta.", {.sqlState = "25000"});
    }
    settleSets();
    inTransaction_ = false;
    if (!link_->isInTransaction()) {
        // The engine rolls back by itself after some errors, such as a full disk.
        throw sql::DbError(sql::provider::failure, "La transacción se deshizo por un error anterior.",
                           {.sqlState = "40000"});
    }
    try {
        link_->mustLieInPlace();
        link_->run("COMMIT");
    } catch (const sql::DbError&) {
        sqlite3_exec(link_->handle(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

void Engine::rollback() {
    const WaitsEnd end(options_);
    if (!inTransaction_) {
        throw sql::DbError(sql::provider::noTransaction, "No hay ninguna transacción abierta.", {.sqlState = "25000"});
    }
    settleSets();
    inTransaction_ = false;
    forget();  // tables made in the transaction are gone
    if (link_->isInTransaction()) {
        link_->run("ROLLBACK");
    }
}

// Tables.

std::string Engine::schemaOf(const tsql::TableName& name) {
    if (!name.schema.empty() && tsql::foldName(name.schema) != "DBO") {
        tsql::throwMissingTable(name.schema + "." + name.name);
    }
    const std::string catalog = tsql::foldName(name.catalog);
    if (catalog.empty() || catalog == tsql::foldName(options_.catalog)) {
        return std::string(mainSchema);
    }
    if (catalog != "DOC" + tsql::foldName(options_.catalog)) {
        tsql::throwMissingTable(name.catalog + ".dbo." + name.name);
    }
    findDocuments(name);
    return std::string(documentsSchema);
}

void Engine::findDocuments(const tsql::TableName& name) {
    if (!documentsFile_.empty()) {
        return;
    }
    std::string file(inMemory);
    if (path_ != inMemory) {
        file = documentsFileOf(path_);
        if (options_.readOnly && !std::filesystem::exists(file)) {
            tsql::throwMissingTable(name.catalog + ".dbo." + name.name);
        }
        if (!options_.readOnly) {
            // On a link of its own: the journal mode of a file cannot be changed inside a transaction.
            const Link other(file, options_);
        }
    }
    link()->attachDocuments(file);
    documentsFile_ = std::move(file);
}

const std::string& Engine::storedName(const std::string& schema, const tsql::TableName& name) {
    auto& known = names_[schema];
    if (known.empty()) {
        const auto all =
            link()->prepare("SELECT name FROM \"" + schema + "\".sqlite_schema WHERE type IN ('table', 'view')");
        while (all->step()) {
            std::string declared = all->value(0, tsql::Kind::text).toText();
            std::string folded = tsql::foldName(declared);
            if (folded.substr(0, 7) != "SQLITE_") {
                known.emplace(std::move(folded), std::move(declared));
            }
        }
    }
    const auto found = known.find(tsql::foldName(name.name));
    if (found == known.end()) {
        tsql::throwMissingTable(name.catalog.empty() ? name.name : name.catalog + ".dbo." + name.name);
    }
    return found->second;
}

std::shared_ptr<const Table> Engine::table(const tsql::TableName& name) {
    const std::string schema = schemaOf(name);
    const std::string& stored = storedName(schema, name);
    auto& known = tables_[schema + "." + stored];
    if (!known) {
        known = std::make_shared<const Table>(readTable(*link(), schema, stored));
    }
    return known;
}

}  // namespace velmora::sqlite
