#pragma once
// The caption of a field and its name for assistive technology.

#include <string>

#include "velmora/platform/screen/layout.h"

namespace velmora::toolkit {

/// True when the field has a caption: a label or a fixed text.
bool hasCaption(const screen::Layout& field);
/// The current caption; empty when there is none.
std::string captionOf(const screen::Layout& field);

/// The control's own accessible name; else caption and unit, "Ancho (mm)"; else its text, of a check box or button;
/// else its tool tip; else its full name. `field` must have a control.
std::string accessibleNameOf(const screen::Layout& field);

}  // namespace velmora::toolkit
