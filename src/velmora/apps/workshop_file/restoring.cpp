#include "velmora/apps/workshop_file/restoring.h"

#include <fstream>
#include <system_error>
#include <utility>

#include "velmora/adapters/sqlite/backup.h"
#include "velmora/apps/workshop_file/database_files.h"
#include "velmora/apps/workshop_file/folder_lock.h"
#include "velmora/platform/sql/db_error.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::workshop_file {

namespace fs = std::filesystem;

namespace {

fs::path besideDatabase(const fs::path& database, const char* ending) {
    return database.parent_path() / system::filePath("." + system::fileText(database.filename()) + ending);
}

/// Its existence is the decision.
fs::path decisionFor(const fs::path& database) {
    return besideDatabase(database, ".restaurar");
}

bool isDecided(const fs::path& database) {
    std::error_code failure;
    return fs::exists(decisionFor(database), failure);
}

/// Side files of what lay there before would be applied to the file that is put in its place.
void moveInto(const fs::path& from, const fs::path& to) {
    removeSideFiles(to);
    fs::rename(from, to);
}

/// The documents are moved first: while they are still prepared, nothing has been moved.
void mustBeClosed(const fs::path& database) {
    try {
        sqlite::mustBeClosed(system::fileText(database));
    } catch (const sql::DbError&) {
        if (fs::exists(documentsOf(preparedFor(database)))) {
            fs::remove(decisionFor(database));
            removeFilesOf(preparedFor(database));
        }
        throw;
    }
}

}  // namespace

fs::path preparedFor(const fs::path& database) {
    return besideDatabase(database, ".restaurada");
}

void decideRestore(const fs::path& database) {
    for (const fs::path& file : filesOf(preparedFor(database))) {
        if (fs::exists(file)) {
            syncFile(file);
        }
    }
    const fs::path decision = decisionFor(database);
    if (!std::ofstream(decision)) {
        throw std::system_error(std::make_error_code(std::errc::io_error));
    }
    syncFile(decision);
}

void finishRestore(const fs::path& database, const std::function<void()>& afterEach) {
    std::error_code failure;
    if (!isDecided(database) && !fs::exists(preparedFor(database), failure)) {
        return;
    }
    const FolderLock lock(folderOf(database));
    if (!isDecided(database)) {
        removeFilesOf(preparedFor(database));
        return;
    }
    lock.sync();
    mustBeClosed(database);
    const auto from = filesOf(preparedFor(database));
    const auto to = filesOf(database);
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (fs::exists(from[i])) {
            moveInto(from[i], to[i]);
            if (afterEach) {
                afterEach();
            }
        }
    }
    lock.sync();
    fs::remove(decisionFor(database));
    lock.sync();
}

}  // namespace velmora::workshop_file
