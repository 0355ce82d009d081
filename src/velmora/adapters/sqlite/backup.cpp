#include "velmora/adapters/sqlite/backup.h"

#include <filesystem>
#include <memory>

#include <sqlite3.h>

#include "velmora/adapters/sqlite/errors.h"
#include "velmora/adapters/sqlite/file_content.h"
#include "velmora/adapters/sqlite/link.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::sqlite {

namespace {

/// All pages at once: the source is a snapshot, which nobody waits for.
constexpr int allPages = -1;

struct Finish {
    void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};

void copyPages(Link& from, std::string_view schema, const std::string& file) {
    std::filesystem::remove(system::filePath(file));
    Link to(file, {});
    to.run("PRAGMA journal_mode = DELETE");
    {
        const std::unique_ptr<sqlite3_backup, Finish> backup(
            sqlite3_backup_init(to.handle(), mainSchema.data(), from.handle(), std::string(schema).c_str()));
        if (!backup) {
            throwEngineError(to.handle(), sqlite3_errcode(to.handle()));
        }
        const int code = sqlite3_backup_step(backup.get(), allPages);
        if (code != SQLITE_DONE) {
            throwEngineError(to.handle(), code);
        }
    }
    // The copied pages tell the mode of the source. A copy is one file, also when somebody looks at it.
    to.run("PRAGMA journal_mode = DELETE");
}

/// Reads from both files, which opens the snapshot of each.
void enterSnapshots(Link& link) {
    link.run("BEGIN");
    for (const std::string_view schema : {mainSchema, documentsSchema}) {
        link.run("SELECT count(*) FROM " + std::string(schema) + ".sqlite_master");
    }
}

/// Only the last connection may leave write-ahead logging.
void leaveWriteAhead(const std::string& file) {
    Options options;
    options.busyTimeout = std::chrono::milliseconds(0);
    try {
        Link link(file, options);
        link.run("PRAGMA journal_mode = DELETE");
    } catch (const sql::DbError& error) {
        if (error.number() == sql::provider::timeout) {
            throw;
        }
    }
}

/// What the check says of a page that could not be read: the code of a damaged page, or that of the refused read.
bool isFaultOfDisk(std::string_view answer) {
    constexpr std::string_view mark = "error code=";
    const auto found = answer.find(mark);
    return found != std::string_view::npos && answer.substr(found + mark.size()) != std::to_string(SQLITE_CORRUPT);
}

std::string damageOfFile(const std::string& path, const std::string& table) {
    if (!contentOf(path).hasTable(table)) {
        return "Falta la tabla " + table + " en " + path;
    }
    Link link(lookName(path), Options{.readOnly = true});
    const auto check = link.prepare("PRAGMA quick_check(1)");
    const std::string answer = check->step() ? check->value(0, tsql::Kind::text).toText() : std::string();
    if (answer == "ok") {
        return {};
    }
    return (isFaultOfDisk(answer) ? "El disco da errores de lectura: " : "El fichero está dañado: ") + path;
}

}  // namespace

void copyDatabase(const std::string& from, const std::string& to) {
    Link reader(from, {});
    reader.attachDocuments(documentsFileOf(from));
    {
        Link holder(from, {});
        holder.attachDocuments(documentsFileOf(from));
        holder.run("BEGIN IMMEDIATE");  // for a moment nobody writes: both snapshots show the same state
        enterSnapshots(reader);
        holder.run("ROLLBACK");
    }
    copyPages(reader, documentsSchema, documentsFileOf(to));
    copyPages(reader, mainSchema, to);
}

std::string damageOf(const std::string& path) {
    try {
        const std::string damage = damageOfFile(path, "DPI");
        return damage.empty() ? damageOfFile(documentsFileOf(path), "dex") : damage;
    } catch (const sql::DbError& error) {
        return error.description() + "\n" + path;
    }
}

void mustBeClosed(const std::string& path) {
    for (const std::string& file : {path, documentsFileOf(path)}) {
        std::error_code failure;
        if (std::filesystem::exists(system::filePath(file), failure)) {
            leaveWriteAhead(file);
        }
    }
}

}  // namespace velmora::sqlite
