#pragma once
// The host's side of a script: the clock, the database, and the session over a connection that fails on request.

#include <memory>

#include "velmora/adapters/script/watched_connection.h"
#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/apps/script_stage/options.h"
#include "velmora/platform/system/system.h"

namespace velmora::script_stage {

class Stage {
  public:
    /// Opens the database, and fills it when it is new. Errors: NoDatabase.
    explicit Stage(const Options& options);

    const system::Clock& clock() const { return *clock_; }
    /// The database, for the script's own queries.
    sql::Connection& engine() { return *engine_; }
    /// The connection of the session.
    script::WatchedConnection& program() { return program_; }
    adapters::StandInSession& session() { return session_; }

  private:
    std::unique_ptr<system::Clock> clock_;
    std::unique_ptr<sql::Connection> engine_;
    script::WatchedConnection program_;
    adapters::StandInSession session_;
};

}  // namespace velmora::script_stage
