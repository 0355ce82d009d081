#pragma once
// The picture of any product, from its type and measures alone: the form and the paper draw the same.

#include <map>
#include <optional>
#include <string>

#include "velmora/estimate/drawings.h"
#include "velmora/platform/screen/drawing.h"

namespace velmora::estimate {

/// What a proposal says of its piece, in millimetres. What the type does not have, or holds no number, is left out;
/// nothing here has to be sensible.
struct ProductMeasures {
    std::optional<double> teeth;
    std::optional<double> pitch;
    std::optional<double> module;
    std::optional<double> exterior;  ///< diameters
    std::optional<double> pitchDiameter;
    std::optional<double> root;
    std::optional<double> bore;
    std::optional<double> keyway;
    std::optional<double> hub;  ///< of two that differ: hub A
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

/// The hubs of a type that has one rim; one for a type that nobody knows.
Hubs hubsOf(int type);

/// Draws the product as its type asks for; a piece with one hub for a type that nobody knows.
screen::Drawing drawProduct(int type, const ProductMeasures& measures);

/// The texts for the numbered places of that drawing, in the locale's form. A measure that is missing or zero has
/// none: its dimension stays out of the picture.
std::map<int, std::string> drawingLabels(int type, const ProductMeasures& measures);

}  // namespace velmora::estimate
