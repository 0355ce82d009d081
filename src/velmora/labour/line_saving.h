#pragma once
// One line of labour written to MoDpi.

#include <cstdint>
#include <string>

#include "velmora/labour/line_fields.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"

namespace velmora::labour {

class LineSaving {
  public:
    LineSaving(LineFields& fields, session::Session& session, screen::Screen& screen)
        : f_(fields), session_(session), screen_(screen) {}

    /// True when the line can be stored; else tells what is missing and leads to it.
    bool isComplete();

    /// Stores the line for a proposal: a new row when `idToUpdate` is empty. Errors: the refusal of the write.
    void save(std::int32_t nIdDpi, const std::string& idToUpdate);

  private:
    bool refuse(const char* message, Line field);

    LineFields& f_;
    session::Session& session_;
    screen::Screen& screen_;
};

}  // namespace velmora::labour
