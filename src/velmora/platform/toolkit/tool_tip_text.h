#pragma once
// What is told beside the mouse over a control.

#include <string>

#include "velmora/platform/screen/control.h"

namespace velmora::toolkit {

/// The control's warning, and on the next line why it has its value, or its plain tool tip when nobody explains that.
/// Errors: those of the control's explanation.
std::string toolTipTextOf(const screen::Control& control);

}  // namespace velmora::toolkit
