#pragma once
// Writes a line of labour in a transaction of its own, after reading its proposal and the line itself again.

#include <cstdint>
#include <functional>

#include "velmora/labour/proposal_standing.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/checked_write.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/system/system.h"

namespace velmora::labour {

class LineWriting {
  public:
    LineWriting(session::Session& session, screen::Screen& screen, const system::Clock& clock)
        : session_(session), screen_(screen), clock_(clock) {}

    struct Target {
        std::int32_t nIdDpi = 0;  ///< DPI_ID of the proposal
        sql::Recordset line{};    ///< the line as the user sees it; closed for a new one
        const char* question;     ///< asked before overwriting a line that another user has changed
    };

    /// Runs the write. False when nothing was written and the user has been informed: the proposal was accepted or
    /// deleted, the line was deleted, or it was changed and the user did not overwrite it. Errors: those of the write
    /// and the database; nothing is written then.
    bool run(const Target& target, const std::function<void()>& write);

  private:
    session::RowState look(const Target& target);

    session::Session& session_;
    screen::Screen& screen_;
    const system::Clock& clock_;
    std::string reason_;  ///< why the last check did not allow the write
};

}  // namespace velmora::labour
