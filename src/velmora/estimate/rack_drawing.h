#pragma once
// The picture of a rack: the bar with its teeth and, beside it, its end.

#include <optional>

#include "velmora/platform/screen/drawing.h"

namespace velmora::estimate {

/// The measures as the fields hold them, in millimetres; a field that is empty or holds no number is left out.
/// Nothing here has to be sensible.
struct RackMeasures {
    std::optional<double> module;
    std::optional<double> pitch;
    std::optional<double> toothHeight;  ///< h
    std::optional<double> height;       ///< H: body and tooth
    std::optional<double> length;       ///< L
    std::optional<double> width;        ///< B
};

/// The places of the value labels: the numbers of `txtCre`.
enum class RackLabel {
    toothHeight = 0,
    height = 1,
    bodyHeight = 2,
    length = 3,
    thickness = 4,  ///< the height again, on the end
    width = 5,
};

/// Draws the rack to scale. A long bar is shown broken off, so that its teeth can still be seen, and so is the end of
/// a wide one. A measure that is missing, or that no rack with the other measures could have, is replaced by that of
/// an ordinary rack.
screen::Drawing drawRack(const RackMeasures& measures);

}  // namespace velmora::estimate
