#pragma once
// How a number is painted in a field without the focus and in a cell of a grid. The text itself stays as it is.

#include <functional>
#include <string>
#include <string_view>

namespace velmora::toolkit {

/// Number of decimals of a text; -1 when it is no number of digits, group points and one comma.
int decimalsOf(std::string_view text);

/// The number with zeros up to the given number of decimals, so that the commas of a column stand under each other.
/// Never with fewer digits than the text has; any other text is unchanged.
std::string paintedNumber(std::string_view text, int decimals);

/// Width of a text, in pixels.
using Advance = std::function<int(const std::string&)>;

/// The text, or as many signs "#" as have room when it is wider than `room`: a part of a number would read as another
/// number.
std::string fittedNumber(const std::string& text, int room, const Advance& advance);

/// The number as a field paints it: with zeros up to the given number of decimals where they have room, else as it is
/// or as fittedNumber has it.
std::string paintedInField(std::string_view text, int decimals, int room, const Advance& advance);

}  // namespace velmora::toolkit
