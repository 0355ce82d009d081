#pragma once
// Meaning of a field's background.

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/layout.h"

namespace velmora::toolkit {

enum class Ground {
    entered,     ///< the user can type here
    calculated,  ///< set by the program, or disabled
    focus,       ///< the field has the focus
    own,         ///< a colour set by code
    none         ///< a text directly on the form
};

/// The first that applies: the role of a label; a background that code has set to anything but white; the focus;
/// disabled, itself or through a frame; otherwise by the role. While a form is disabled, none of its fields shows the
/// focus.
Ground groundOf(const screen::Control& control, screen::Role role);

}  // namespace velmora::toolkit
