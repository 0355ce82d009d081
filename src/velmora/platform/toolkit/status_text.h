#pragma once
// The words of a form's status line.

#include <string>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {

struct StatusText {
    std::string state;    ///< "Pendiente, sin grabar"; empty when the form has no record
    std::string message;  ///< of the present moment; empty when there is nothing to say
    std::string deed;     ///< what was done last
    bool urgent = false;  ///< the message tells of something missing or under way, not what may be entered
};

/// The message is the first that applies: what is under way; why the last action had no effect; the warning of the
/// control with the focus; its hint.
StatusText statusTextOf(const screen::Form& form);

/// The same without the state, of which the form is not asked: for moments at which it cannot answer.
StatusText messageOf(const screen::Form& form);

}  // namespace velmora::toolkit
