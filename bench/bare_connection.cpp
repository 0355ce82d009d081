#include "bare_connection.h"

#include <stdexcept>

#include <sqlite3.h>

#include "velmora/adapters/sqlite/collation.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/sqlite/file_content.h"
#include "velmora/adapters/sqlite/functions.h"
#include "velmora/adapters/sqlite/link.h"
#include "velmora/platform/system/system.h"

namespace velmora::bench {

void BareConnection::Close::operator()(sqlite3* database) const {
    sqlite3_close(database);
}

BareConnection::BareConnection(const std::string& file) {
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    handle_.reset(opened);
    if (code != SQLITE_OK) {
        throw std::runtime_error("the bare client cannot open " + file);
    }
    sqlite3_busy_timeout(opened, static_cast<int>(sqlite::Options().busyTimeout.count()));
    sqlite::registerCollation(opened);
    sqlite::registerFunctions(opened, [] { return system::SystemClock().now(); });
    run("PRAGMA synchronous = FULL");
    run("PRAGMA wal_autocheckpoint = " + std::to_string(sqlite::writeAheadSize / 4096));
    run("ATTACH DATABASE '" + sqlite::documentsFileOf(file) + "' AS documents");
}

void BareConnection::run(const std::string& sql) {
    if (sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sql + ": " + sqlite3_errmsg(handle_.get()));
    }
}

}  // namespace velmora::bench
