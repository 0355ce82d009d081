#pragma once
// The desktop's database and the session on it.

#include <QString>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/platform/sql/connection.h"
#include "velmora/platform/sql/engines.h"
#include "velmora/platform/system/system.h"

namespace velmora::desktop {

/// Why the database cannot be used; a Spanish text for the user.
class NoWorkshop : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// What a new database holds.
enum class NewRows { demonstration, empty };

class Workshop {
  public:
    explicit Workshop(std::unique_ptr<sql::Connection> connection, std::string notice = {},
                      bool isDemonstration = false)
        : connection_(std::move(connection)),
          session_(*connection_),
          notice_(std::move(notice)),
          isDemonstration_(isDemonstration) {}

    sql::Connection& connection() { return *connection_; }
    adapters::StandInSession& session() { return session_; }
    /// What the user must be told at the start; empty when there is nothing.
    const std::string& notice() const { return notice_; }
    /// Its customers and proposals are invented.
    bool isDemonstration() const { return isDemonstration_; }

  private:
    std::unique_ptr<sql::Connection> connection_;
    adapters::StandInSession session_;
    std::string notice_;
    bool isDemonstration_ = false;
};

/// Opens the embedded database with this path (see workshop_file::open). A new one gets its folder and these rows.
/// Errors: NoWorkshop.
std::unique_ptr<Workshop> openWorkshop(const sql::Engines& engines, const std::string& path, const system::Clock& clock,
                                       NewRows rows = NewRows::demonstration);

/// Opens a server's database, which has our tables already. Errors: NoWorkshop when the program has no engine for
/// servers, the server cannot be reached, or the database is not ours or cannot be written.
std::unique_ptr<Workshop> openServer(const sql::Engines& engines, const std::string& connectionString);

/// Path of the database in the user's data folder.
std::string defaultDatabase();

/// Path of the file in the user's settings folder that remembers windows and columns.
QString windowsFile();

}  // namespace velmora::desktop
