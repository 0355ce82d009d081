#pragma once
// A sheet as plain text, to be read and compared: what it says, in the order and columns in which it is painted.

#include <string>

#include "velmora/paper/sheet.h"

namespace velmora::support {

/// Lines end with a line feed and hold no blanks at their end. Of a sketch the text tells its height on paper, what it
/// is made of, and each dimension that is shown, with the length in millimetres at which it is drawn.
std::string sheetText(const paper::Sheet& sheet);

}  // namespace velmora::support
