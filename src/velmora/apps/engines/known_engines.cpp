#include "velmora/apps/engines/known_engines.h"

#include "velmora/adapters/odbc/database.h"
#include "velmora/adapters/sqlite/database.h"

namespace velmora::engines {

sql::Engines knownEngines(const system::Clock& clock, const sql::LongRuns& longRun,
                          const std::function<void(bool waits)>& waiting) {
    sql::Engines engines;
    sqlite::registerIn(engines, {.clock = [&clock] { return clock.now(); }, .waiting = waiting, .longRun = longRun});
    odbc::registerIn(engines, {.longRun = longRun});
    return engines;
}

std::string fileSource(const std::string& path) {
    return "sqlite:" + path;
}

std::string serverSource(const std::string& connectionString) {
    return "odbc:" + connectionString;
}

}  // namespace velmora::engines
