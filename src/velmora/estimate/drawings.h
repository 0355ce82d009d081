#pragma once
// Drawings of pieces with one rim: a section through the axis and, beside it, the view from the side of the first hub.

#include <optional>

#include "velmora/estimate/wheel_measures.h"
#include "velmora/platform/screen/drawing.h"

namespace velmora::estimate {

enum class Hubs { none, one, two };

struct PieceMeasures : WheelMeasures {
    std::optional<double> hub;
    std::optional<double> rim;
    std::optional<double> hubWidth;  ///< of each hub
    std::optional<double> totalWidth;
};

/// Places of the value labels: the indexes of `Text3`.
enum class PieceLabel {
    exterior = 0,
    hub = 1,
    rim = 2,
    hubWidth = 3,
    totalWidth = 4,
    totalWidthOfTwoHubs = 5,
    secondHubWidth = 6,
};

/// Draws the piece to scale. A measure that is missing, or impossible together with the others, is replaced by that of
/// an ordinary piece of the same size, so the drawing is valid whatever the fields contain. The first hub is the left
/// one and is visible in the view beside the section, taken from the left.
screen::Drawing drawPiece(Hubs hubs, const PieceMeasures& measures);

/// The view from the side alone, its axis at the origin.
screen::Drawing drawSideView(Hubs hubs, const PieceMeasures& measures);

}  // namespace velmora::estimate
