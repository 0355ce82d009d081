#pragma once
// The pictures of the piece: a section through its axis and, beside it, the view from the side of the first hub.

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

/// The places of the value labels: the numbers of `Text3`.
enum class PieceLabel {
    exterior = 0,
    hub = 1,
    rim = 2,
    hubWidth = 3,
    totalWidth = 4,
    totalWidthOfTwoHubs = 5,
    secondHubWidth = 6,
};

/// Draws the piece to scale. A measure that is missing, or that no piece with the other measures could have, is
/// replaced by that of an ordinary piece of the same size: whatever the fields hold, the picture is a piece.
/// The first hub is the left one, so that the view beside the section, taken from the left, shows it.
screen::Drawing drawPiece(Hubs hubs, const PieceMeasures& measures);

}  // namespace velmora::estimate
