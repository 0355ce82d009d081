#pragma once
// Words for the last action in a form's status line.

#include <string>
#include <string_view>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/system/system.h"

namespace velmora::session {

/// "Propuesta 321 grabada a las 10:32".
inline std::string deedNow(std::string_view deed, const system::Clock& clock) {
    return std::string(deed) + " a las " + runtime::Format(clock.now(), "hh:nn");
}

}  // namespace velmora::session
