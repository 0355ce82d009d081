#pragma once
// The drawing of a rack: the bar with its teeth and, beside it, its end view.

#include <optional>

#include "velmora/platform/screen/drawing.h"

namespace velmora::estimate {

/// The measures from the fields, in millimetres; a field that is empty or not a number is left out. The values need not
/// be valid.
struct RackMeasures {
    std::optional<double> module;
    std::optional<double> pitch;
    std::optional<double> toothHeight;  ///< h
    std::optional<double> height;       ///< H: body and tooth
    std::optional<double> length;       ///< L
    std::optional<double> width;        ///< B
};

/// Places of the value labels: the indexes of `txtCre`.
enum class RackLabel {
    toothHeight = 0,
    height = 1,
    bodyHeight = 2,
    length = 3,
    thickness = 4,  ///< the height again, on the end view
    width = 5,
};

/// Draws the rack to scale. A long bar, and the end view of a wide one, are drawn broken off, so that the teeth remain
/// visible. A measure that is missing, or impossible together with the others, is replaced by that of an ordinary rack.
screen::Drawing drawRack(const RackMeasures& measures);

}  // namespace velmora::estimate
