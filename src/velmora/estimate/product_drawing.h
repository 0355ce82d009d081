#pragma once
// The drawing of any product from its type and measures alone, shared by form and paper.

#include <map>
#include <optional>
#include <string>

#include "velmora/estimate/drawings.h"
#include "velmora/platform/screen/drawing.h"

namespace velmora::estimate {

/// The measures of a proposal's piece in millimetres. Left out: what the type does not have, or what is not a number.
/// The values need not be valid.
struct ProductMeasures {
    std::optional<double> teeth;
    std::optional<double> pitch;
    std::optional<double> module;
    std::optional<double> exterior;  ///< diameters
    std::optional<double> pitchDiameter;
    std::optional<double> root;
    std::optional<double> bore;
    std::optional<double> keyway;
    std::optional<double> hub;  ///< for two different ones: hub A
    std::optional<double> hubWidth;
    std::optional<double> secondHub;  ///< hub B
    std::optional<double> secondHubWidth;
    std::optional<double> rim;  ///< B2, B3 of several chains
    std::optional<double> totalWidth;
    std::optional<double> chainRim;     ///< b1
    std::optional<double> gap;          ///< X
    std::optional<double> coreHeight;   ///< H1
    std::optional<double> toothHeight;  ///< h of a rack
    std::optional<double> height;       ///< H of a rack
    std::optional<double> length;       ///< L of a rack
    std::optional<double> width;        ///< B of a rack
};

/// The hubs of a type with one rim; one for an unknown type.
Hubs hubsOf(int type);

/// Draws the product according to its type; a piece with one hub for an unknown type.
screen::Drawing drawProduct(int type, const ProductMeasures& measures);

/// The texts for the numbered places of the drawing, in the locale's form. A measure that is missing or zero has none,
/// so its dimension is left out.
std::map<int, std::string> drawingLabels(int type, const ProductMeasures& measures);

}  // namespace velmora::estimate
