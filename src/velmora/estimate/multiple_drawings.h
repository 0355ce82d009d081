#pragma once
// Drawings of pieces with several rims, and of the piece with two different hubs.

#include <optional>

#include "velmora/estimate/wheel_measures.h"
#include "velmora/platform/screen/drawing.h"

namespace velmora::estimate {

enum class Rims { two, three };

struct MultipleMeasures : WheelMeasures {
    std::optional<double> chainRim;    ///< b1: width of each rim
    std::optional<double> gap;         ///< X: between two rims
    std::optional<double> rim;         ///< from the first rim's outer side to the last one's
    std::optional<double> coreHeight;  ///< H1: from the exterior to the core between the rims
    std::optional<double> hub;
    std::optional<double> hubWidth;
};

/// Places of the value labels for two rims: the indexes of `txtPDM`.
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

/// Places of the value labels for three rims: the indexes of `txtTriple`.
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

/// Draws a piece for two or three chains side by side, with or without a hub at its left, to scale; invalid measures
/// are replaced as in `drawPiece`. When the widths of the rims contradict each other, the rim of one chain and the gap
/// are used.
screen::Drawing drawMultiple(Rims rims, bool withHub, const MultipleMeasures& measures);

struct VariableMeasures : WheelMeasures {
    std::optional<double> hubA;
    std::optional<double> hubAWidth;
    std::optional<double> rim;
    std::optional<double> hubB;
    std::optional<double> hubBWidth;
};

/// Places of the value labels for two different hubs: the indexes of `txtDCV`.
enum class VariableLabel {
    totalWidth = 0,
    hubAWidth = 1,
    rim = 2,
    hubBWidth = 3,
    hubB = 4,
    hubA = 5,
    exterior = 6,
};

/// Draws a piece with hub A at the left of its rim and hub B at the right, to scale; invalid measures are replaced as
/// in `drawPiece`.
screen::Drawing drawVariable(const VariableMeasures& measures);

}  // namespace velmora::estimate
