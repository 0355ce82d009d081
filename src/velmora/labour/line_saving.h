#pragma once
// Writes one line of labour to MoDpi.

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

    /// True when the line can be stored; otherwise shows what is missing and moves the focus there.
    bool isComplete();

    /// Stores the line for a proposal: inserts a row when `shown`, the line on the screen as it was read, is closed.
    /// False when it was not stored because of another user's change of the proposal or the line; the user has been
    /// informed. Errors: the refusal of the write.
    bool save(std::int32_t nIdDpi, const sql::Recordset& shown);

  private:
    void write(std::int32_t nIdDpi, const sql::Recordset& shown);
    void add(std::int32_t nIdDpi, session::FieldList& campos) const;
    bool refuse(const char* message, Line field);

    LineFields& f_;
    LineWriting& writing_;
    session::Session& session_;
    screen::Screen& screen_;
};

}  // namespace velmora::labour
