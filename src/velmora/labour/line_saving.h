#pragma once
// One line of labour written to MoDpi.

#include <cstdint>
#include <string>

#include "velmora/labour/line_fields.h"
#include "velmora/labour/line_writing.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"

namespace velmora::labour {

class LineSaving {
  public:
    LineSaving(LineFields& fields, LineWriting& writing, session::Session& session, screen::Screen& screen)
        : f_(fields), writing_(writing), session_(session), screen_(screen) {}

    /// True when the line can be stored; else tells what is missing and leads to it.
    bool isComplete();

    /// Stores the line for a proposal: a new row when `shown`, the line on the screen as it was read, is closed. False
    /// when it was not stored for what another user had done to proposal or line; the user has been told. Errors: the
    /// refusal of the write.
    bool save(std::int32_t nIdDpi, const sql::Recordset& shown);

  private:
    void write(std::int32_t nIdDpi, const sql::Recordset& shown);
    bool refuse(const char* message, Line field);

    LineFields& f_;
    LineWriting& writing_;
    session::Session& session_;
    screen::Screen& screen_;
};

}  // namespace velmora::labour
