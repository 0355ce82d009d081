#pragma once
// What the background of a field tells.

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/layout.h"

namespace velmora::toolkit {

enum class Ground {
    entered,     ///< the user types here
    calculated,  ///< the program does, or nobody can at present
    focus,       ///< the field has the focus
    own,         ///< the control's own colour, which code gave it
    none         ///< a text that stands on the form itself
};

/// The first that holds: a role of a label; a background that code has set to anything but white; the focus; disabled,
/// itself or through a frame; else what the role says. While a whole form is disabled none of its fields shows the
/// focus.
Ground groundOf(const screen::Control& control, screen::Role role);

}  // namespace velmora::toolkit
