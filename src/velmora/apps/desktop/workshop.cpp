#include "velmora/apps/desktop/workshop.h"

#include <QStandardPaths>
#include <filesystem>
#include <system_error>

#include "velmora/apps/engines/known_engines.h"
#include "velmora/data/indexes.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::desktop {

namespace {

namespace fs = std::filesystem;

constexpr const char* inMemory = ":memory:";

fs::path toPath(const std::string& utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

/// True when the file does not exist or is empty, as an interrupted first start leaves it.
bool isNew(const std::string& path) {
    std::error_code ignored;
    const fs::path file = toPath(path);
    return path == inMemory || !fs::exists(file, ignored) ||
           (fs::is_regular_file(file, ignored) && fs::is_empty(file, ignored));
}

void makeFolder(const std::string& path) {
    const fs::path folder = toPath(path).parent_path();
    std::error_code error;
    if (path != inMemory && !folder.empty() && !fs::create_directories(folder, error) && error) {
        throw NoWorkshop("No se puede crear la carpeta de la base de datos:\n" + folder.string() + "\n\n" +
                         error.message());
    }
}

/// The message calls the database by its subject.
void checkOurs(sql::Connection& connection, const std::string& subject) {
    try {
        connection.execute("SELECT top 1 DPI_Id FROM DPI");
    } catch (const sql::DbError& e) {
        if (e.number() == sql::provider::missingTable) {
            throw NoWorkshop(subject + " es una base de datos, pero no de VELMORA: no tiene la tabla DPI.");
        }
        throw;
    }
}

/// Detects a read-only database at the start instead of at the first save. Nothing is written.
void checkWritable(sql::Connection& connection) {
    connection.beginTrans();
    connection.rollbackTrans();
}

std::unique_ptr<Workshop> open(const sql::Engines& engines, const std::string& path, const system::Clock& clock) {
    const bool fresh = isNew(path);
    makeFolder(path);
    auto workshop = std::make_unique<Workshop>(engines.open(engines::fileSource(path)));
    if (fresh) {
        data::createDatabase(workshop->connection());
        data::fillDemo(workshop->connection(), clock.now());
    }
    checkOurs(workshop->connection(), "El fichero");
    checkWritable(workshop->connection());
    if (!fresh) {
        data::addMissingIndexes(workshop->connection());
    }
    return workshop;
}

}  // namespace

std::unique_ptr<Workshop> openWorkshop(const sql::Engines& engines, const std::string& path,
                                       const system::Clock& clock) {
    try {
        return open(engines, path, clock);
    } catch (const NoWorkshop& e) {
        throw NoWorkshop(std::string(e.what()) + "\n\n" + path);
    } catch (const sql::DbError& e) {
        throw NoWorkshop("No se puede abrir la base de datos:\n" + path + "\n\n" + e.description());
    }
}

std::unique_ptr<Workshop> openServer(const sql::Engines& engines, const std::string& connectionString) {
    try {
        auto workshop = std::make_unique<Workshop>(engines.open(engines::serverSource(connectionString)));
        checkOurs(workshop->connection(), "El origen de datos");
        checkWritable(workshop->connection());
        return workshop;
    } catch (const sql::DbError& e) {
        throw NoWorkshop("No se puede abrir la base de datos del servidor:\n" + e.description());
    }
}

std::string defaultDatabase() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return (folder + QStringLiteral("/velmora/velmora.db")).toStdString();
}

}  // namespace velmora::desktop
