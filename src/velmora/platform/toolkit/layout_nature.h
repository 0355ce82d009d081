#pragma once
// What a node of a layout is like: whether it takes room that is left over, and what it needs beside it.

#include "velmora/platform/screen/layout.h"

namespace velmora::toolkit {

/// Takes width that is left over: sketches, grids, bars, lists and fields without a width of their own, and spaces.
bool growsSideways(const screen::Layout& node);
/// Takes height that is left over: sketches, grids, texts of several lines that are stretched, columns with a space.
bool growsDownward(const screen::Layout& node);
/// Anything but a single field: a group, a sketch, a grid of rows, and whatever holds one.
bool isTall(const screen::Layout& node);
/// A control that needs no caption: a check box, a button, a label.
bool speaksForItself(const screen::Layout& node);

}  // namespace velmora::toolkit
