#pragma once
// What stands beside a field, and what assistive technology calls it.

#include <string>

#include "velmora/platform/screen/layout.h"

namespace velmora::toolkit {

/// The field has a caption, of a label or a fixed one.
bool hasCaption(const screen::Layout& field);
/// The caption at this moment; empty when there is none.
std::string captionOf(const screen::Layout& field);

/// The control's own accessible name; else caption and unit, "Ancho (mm)"; else its tool tip; else its full name.
/// `field` has a control.
std::string accessibleNameOf(const screen::Layout& field);

}  // namespace velmora::toolkit
