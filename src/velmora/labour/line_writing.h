#pragma once
// A line of labour written in a transaction of its own, once its proposal and the line itself were looked at.

#include <cstdint>
#include <functional>

#include "velmora/labour/proposal_standing.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/checked_write.h"
#include "velmora/platform/session/session.h"

namespace velmora::labour {

class LineWriting {
  public:
    LineWriting(session::Session& session, screen::Screen& screen) : session_(session), screen_(screen) {}

    struct Target {
        std::int32_t nIdDpi = 0;  ///< the proposal
        sql::Recordset line{};    ///< the line as the user has it on the screen; closed for a new one
        const char* question;     ///< what to do all the same with a line that another user has changed
    };

    /// Runs the write. False when nothing was written, which the user knows: the proposal was accepted or deleted, the
    /// line deleted, or changed and left so. Errors: the write's, the database's; nothing is written then.
    bool run(const Target& target, const std::function<void()>& write);

  private:
    session::RowState look(const Target& target);

    session::Session& session_;
    screen::Screen& screen_;
    std::string reason_;  ///< why the last look found nothing to write on
};

}  // namespace velmora::labour
