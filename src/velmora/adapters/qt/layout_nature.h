#pragma once
// What a node of a layout is like: whether it takes room that is left over, whether any of it is to be seen.

#include "velmora/platform/screen/layout.h"

namespace velmora::qt {

bool growsSideways(const screen::Layout& node);
bool growsDownward(const screen::Layout& node);
/// Anything but a single field: a group, a sketch, a grid of rows, and whatever holds one.
bool isTall(const screen::Layout& node);
bool isVisible(const screen::Layout& node);
/// A control that needs no caption: a check box, a button, a label.
bool speaksForItself(const screen::Layout& node);

}  // namespace velmora::qt
