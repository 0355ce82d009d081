#include "velmora/apps/workshop_file/workshop_file.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "velmora/adapters/sqlite/file_content.h"
#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/workshop_file/database_files.h"
#include "velmora/apps/workshop_file/folder_lock.h"
#include "velmora/apps/workshop_file/restoring.h"
#include "velmora/data/indexes.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/sql/db_error.h"
#include "velmora/platform/system/failure_words.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::workshop_file {

namespace {

namespace fs = std::filesystem;

constexpr const char* inMemory = ":memory:";
constexpr const char* proposals = "DPI";
constexpr const char* documents = "dex";
/// In the head of a file: a demonstration.
// Chosen C-442: a host's database is never written for this, and a file that has no mark counts as no demonstration.
constexpr std::int32_t demonstrationMark = 1;

/// The names under which a database is made before it is moved into place.
fs::path unfinished(const fs::path& file) {
    return file.parent_path() / system::filePath("." + system::fileText(file.filename()) + ".nueva");
}

void removeWhole(const fs::path& file) {
    removeSideFiles(file);
    fs::remove(file);
}

/// The files of one database while they are made, in a folder that is locked.
class NewFiles {
  public:
    NewFiles(const sql::Engines& engines, const fs::path& file)
        : file_(file), made_(unfinished(file)), engines_(engines) {
        removeAll();  // what one that was killed has left
    }
    ~NewFiles() {
        try {
            removeAll();
        } catch (const std::exception&) {
            // They are removed at the next start.
        }
    }
    NewFiles(const NewFiles&) = delete;
    NewFiles& operator=(const NewFiles&) = delete;

    void make(const Fill& fill, Purpose purpose) {
        {
            const auto connection = engines_.open(engines::fileSource(system::fileText(made_)));
            data::createDatabase(*connection);
            fill(*connection);
        }
        if (purpose == Purpose::demonstration) {
            sqlite::setMark(system::fileText(made_), demonstrationMark);
        }
    }
    void moveDocuments() { move(documentsOf(made_), documentsOf(file_)); }
    void moveDatabase() { move(made_, file_); }

  private:
    void removeAll() const {
        removeWhole(made_);
        removeWhole(documentsOf(made_));
    }
    /// Side files of what lay there before would be applied to the new database.
    static void move(const fs::path& from, const fs::path& to) {
        sqlite::makeOneFile(system::fileText(from));
        syncFile(from);
        removeSideFiles(to);
        fs::rename(from, to);
    }

    fs::path file_;
    fs::path made_;
    const sql::Engines& engines_;
};

// A new database numbers its proposals from 1 again, so documents of an older one would be attributed to them.
void refuseForeignDocuments(const fs::path& file) {
    const fs::path other = documentsOf(file);
    if (sqlite::rowsOf(system::fileText(other), documents) > 0) {
        throw Refused("Hay documentos adjuntos de otra base de datos:\n" + system::fileText(other) +
                      "\n\nGuárdelos en otro sitio antes de crear una nueva.");
    }
}

/// A file with our tables, or without any.
sqlite::FileContent checkedContentOf(const fs::path& file) {
    sqlite::FileContent content = sqlite::contentOf(system::fileText(file));
    // Differs D-300: nothing of ours is put into a database of another program, and its journal mode stays as it is.
    if (!content.tables.empty() && !content.hasTable(proposals)) {
        throw Refused("El fichero es una base de datos, pero no de VELMORA: no tiene la tabla DPI.");
    }
    return content;
}

bool isMade(const sqlite::FileContent& content) {
    return !content.tables.empty();
}

bool hasDocuments(const fs::path& file) {
    return sqlite::contentOf(system::fileText(documentsOf(file))).hasTable(documents);
}

/// Makes what is missing of the two files. The folder is locked and looked at again: another program may have made them
/// meanwhile.
Opened make(const sql::Engines& engines, const fs::path& file, const Fill& fill, Purpose purpose) {
    const FolderLock lock(folderOf(file));
    Opened result;
    NewFiles files(engines, file);
    if (!isMade(checkedContentOf(file))) {
        refuseForeignDocuments(file);
        files.make(fill, purpose);
        files.moveDocuments();
        files.moveDatabase();
        result.isNew = true;
    } else if (!hasDocuments(file)) {
        // Chosen C-370: proposals can be priced and accepted without their documents; a user who cannot find them must
        // know why.
        files.make([](sql::Connection&) {}, Purpose::work);
        files.moveDocuments();
        result.notice = "No se encuentra el fichero de los documentos adjuntos:\n" +
                        system::fileText(documentsOf(file)) +
                        "\n\nSe ha creado uno vacío: los documentos de las propuestas no están. Si tiene una copia, "
                        "cierre el programa y póngala en su sitio.";
    }
    lock.sync();
    return result;
}

/// Detects a read-only database at the start instead of at the first save. Nothing is written: the transaction alone
/// would not tell, because the engine begins one on a file that it can only read, too.
void checkWritable(sql::Connection& connection) {
    sql::Transaction transaction(connection);
    connection.execute("DELETE FROM DPI WHERE DPI_Id = -1");
}

Opened openFile(const sql::Engines& engines, const fs::path& file, const Fill& fill, Purpose purpose) {
    finishRestore(file);
    Opened result;
    sqlite::FileContent content = checkedContentOf(file);
    if (!isMade(content) || !hasDocuments(file)) {
        result = make(engines, file, fill, purpose);
        content = checkedContentOf(file);
    }
    result.isDemonstration = content.mark == demonstrationMark;
    result.connection = engines.open(engines::fileSource(system::fileText(file)));
    checkWritable(*result.connection);
    if (!result.isNew) {
        data::addMissingIndexes(*result.connection, [&](std::string_view table, std::string_view index) {
            return content.hasIndex(table, index);
        });
    }
    return result;
}

Opened openInMemory(const sql::Engines& engines, const Fill& fill, Purpose purpose) {
    Opened result{.connection = engines.open(engines::fileSource(inMemory)),
                  .isNew = true,
                  .isDemonstration = purpose == Purpose::demonstration};
    data::createDatabase(*result.connection);
    fill(*result.connection);
    return result;
}

/// Runs the operation on this path; what it refuses names the path.
template <typename Operation>
auto telling(const std::string& path, const Operation& operation) {
    if (path.empty()) {
        throw Refused("El nombre del fichero de la base de datos está vacío.");
    }
    try {
        return operation();
    } catch (const Refused& e) {
        throw Refused(std::string(e.what()) + "\n\n" + path);
    } catch (const sql::DbError& e) {
        throw Refused("No se puede abrir la base de datos:\n" + path + "\n\n" + e.description());
    } catch (const std::system_error& e) {
        throw Refused("No se puede crear la base de datos:\n" + path + "\n\n" + system::failureWords(e.code()));
    }
}

}  // namespace

Opened open(const sql::Engines& engines, const std::string& path, const Fill& fill, Purpose purpose) {
    return telling(path, [&] {
        return path == inMemory ? openInMemory(engines, fill, purpose)
                                : openFile(engines, system::filePath(sqlite::realFile(path)), fill, purpose);
    });
}

bool isThere(const std::string& path) {
    return telling(
        path, [&] { return path != inMemory && isMade(checkedContentOf(system::filePath(sqlite::realFile(path)))); });
}

}  // namespace velmora::workshop_file
