#include "velmora/apps/desktop/workshop.h"

#include <QStandardPaths>
#include <filesystem>
#include <system_error>
#include <utility>

#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/workshop_file/workshop_file.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/sql/db_error.h"
#include "velmora/platform/system/failure_words.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::desktop {

namespace {

namespace fs = std::filesystem;

constexpr const char* inMemory = ":memory:";

void checkOurs(sql::Connection& connection) {
    try {
        connection.execute("SELECT top 1 DPI_Id FROM DPI");
    } catch (const sql::DbError& e) {
        if (e.number() == sql::provider::missingTable) {
            throw NoWorkshop("El origen de datos es una base de datos, pero no de VELMORA: no tiene la tabla DPI.");
        }
        throw;
    }
}

/// Detects a read-only database at the start instead of at the first save. Nothing is written.
void checkWritable(sql::Connection& connection) {
    connection.beginTrans();
    connection.rollbackTrans();
}

void makeFolderOf(const std::string& file) {
    const fs::path folder = system::filePath(file).parent_path();
    std::error_code failure;
    if (file != inMemory && !folder.empty() && !fs::create_directories(folder, failure) && failure) {
        throw NoWorkshop("No se puede crear la carpeta de la base de datos:\n" + system::fileText(folder) + "\n\n" +
                         system::failureWords(failure));
    }
}

}  // namespace

std::unique_ptr<Workshop> openWorkshop(const sql::Engines& engines, const std::string& path, const system::Clock& clock,
                                       NewRows rows) {
    makeFolderOf(path);
    const bool demonstration = rows == NewRows::demonstration;
    try {
        workshop_file::Opened opened = workshop_file::open(
            engines, path,
            [&](sql::Connection& connection) {
                demonstration ? data::fillDemo(connection, clock.now()) : data::fillEmpty(connection);
            },
            demonstration ? workshop_file::Purpose::demonstration : workshop_file::Purpose::work);
        return std::make_unique<Workshop>(std::move(opened.connection), std::move(opened.notice),
                                          opened.isDemonstration);
    } catch (const workshop_file::Refused& e) {
        throw NoWorkshop(e.what());
    }
}

std::unique_ptr<Workshop> openServer(const sql::Engines& engines, const std::string& connectionString) {
    try {
        auto workshop = std::make_unique<Workshop>(engines.open(engines::serverSource(connectionString)));
        checkOurs(workshop->connection());
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

QString windowsFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/velmora/ventanas.ini");
}

}  // namespace velmora::desktop
