#pragma once
// The engines that the programs are built with.

#include <functional>
#include <memory>
#include <string>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/platform/sql/engines.h"
#include "velmora/platform/system/system.h"

namespace velmora::engines {

/// Every engine by its name. The clock answers getdate() of an embedded one; it must outlive what the engines open.
/// `longRun`: what is shown of a statement that runs long. `waiting`: told when an embedded one waits for another user,
/// and when no longer.
sql::Engines knownEngines(const system::Clock& clock, const sql::LongRuns& longRun = {},
                          const std::function<void(bool waits)>& waiting = {});

/// The embedded database at this path, or ":memory:", for Engines::open.
std::string fileSource(const std::string& path);
/// A connection string of a server, for Engines::open.
std::string serverSource(const std::string& connectionString);

}  // namespace velmora::engines
