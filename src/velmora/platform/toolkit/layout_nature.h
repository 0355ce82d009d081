#pragma once
// Properties of layout nodes: which take up remaining space, which are tall, which need no caption.

#include "velmora/platform/screen/layout.h"

namespace velmora::toolkit {

/// Takes remaining width: sketches, grids, bars, lists and fields without a width of their own, and spaces.
bool growsSideways(const screen::Layout& node);
/// Takes remaining height: sketches, grids, stretched texts of several lines, columns with a space.
bool growsDownward(const screen::Layout& node);
/// Anything but a single field: a group, a sketch, a grid of rows, and whatever holds one.
bool isTall(const screen::Layout& node);
/// A control that needs no caption: a check box, a button, a label.
bool speaksForItself(const screen::Layout& node);

}  // namespace velmora::toolkit
