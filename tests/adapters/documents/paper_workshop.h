#pragma once
// A database with the rows of the demonstration workshop and a proposal of every product type, printed into a folder.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/sqlite/database.h"

#include "support/stopped_clock.h"

namespace velmora::support {

class PaperWorkshop {
  public:
    PaperWorkshop();

    sql::Recordset execute(const std::string& statement) { return database->execute(statement); }
    /// The newest proposal of the type.
    std::int32_t latestOfType(int type);
    /// Gives the newest proposal of the type the greatest amounts and measures that a paper must bear, and a line of
    /// labour with such figures; its number.
    std::int32_t withGreatFigures(int type);

    support::StoppedClock clock;
    std::unique_ptr<sql::Connection> database;
    adapters::StandInSession session;
};

}  // namespace velmora::support
