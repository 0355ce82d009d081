#pragma once
// The pictures of the pieces with several rims, and of the piece with two hubs that differ.

#include <optional>

#include "velmora/estimate/wheel_measures.h"
#include "velmora/platform/screen/drawing.h"

namespace velmora::estimate {

enum class Rims { two, three };

struct MultipleMeasures : WheelMeasures {
    std::optional<double> chainRim;    ///< b1: of each rim
    std::optional<double> gap;         ///< X: between two rims
    std::optional<double> rim;         ///< from the first rim's outer side to the last one's
    std::optional<double> coreHeight;  ///< H1: from the exterior down to the core between the rims
    std::optional<double> hub;
    std::optional<double> hubWidth;
};

/// The places of the value labels of two rims: the numbers of `txtPDM`.
enum class DoubleLabel {
    exterior = 0,
    hub = 1,
    coreHeight = 2,
    totalWidth = 3,
    rim = 4,
    hubWidth = 5,
    firstRim = 6,
    gap = 7,
    secondRim = 8,
};

/// The places of the value labels of three rims: the numbers of `txtTriple`.
enum class TripleLabel {
    exterior = 0,
    hub = 1,
    coreHeight = 2,
    firstRim = 3,
    firstGap = 4,
    secondRim = 5,
    secondGap = 6,
    thirdRim = 7,
    hubWidth = 8,
    rim = 9,
    totalWidth = 10,
};

/// Draws a piece for two or three chains side by side, with a hub at its left or without, to scale and as tolerant
/// as `drawPiece`. Where the widths of the rims contradict each other, the rim of one chain and the gap prevail.
screen::Drawing drawMultiple(Rims rims, bool withHub, const MultipleMeasures& measures);

struct VariableMeasures : WheelMeasures {
    std::optional<double> hubA;
    std::optional<double> hubAWidth;
    std::optional<double> rim;
    std::optional<double> hubB;
    std::optional<double> hubBWidth;
};

/// The places of the value labels of two hubs that differ: the numbers of `txtDCV`.
enum class VariableLabel {
    totalWidth = 0,
    hubAWidth = 1,
    rim = 2,
    hubBWidth = 3,
    hubB = 4,
    hubA = 5,
    exterior = 6,
};

/// Draws a piece with hub A at the left of its rim and hub B at the right, to scale and as tolerant as `drawPiece`.
screen::Drawing drawVariable(const VariableMeasures& measures);

}  // namespace velmora::estimate
