#pragma once
// Measures common to all toothed or smooth wheels.

#include <optional>

#include "velmora/data/product_types.h"

namespace velmora::estimate {

using data::Toothing;

/// The value label of the bore in every drawing of a wheel; no control of a form has this index.
inline constexpr int boreLabel = 90;

/// The measures from the fields, diameters and widths in millimetres; a field that is empty or not a number is left
/// out. The values need not be valid.
struct WheelMeasures {
    Toothing toothing = Toothing::chain;  ///< of a wheel: not a rack's
    std::optional<int> teeth;
    std::optional<double> exterior;
    std::optional<double> pitch;
    std::optional<double> root;
    std::optional<double> bore;
    std::optional<double> keyway;  ///< width; zero: the piece has none
    bool dimensionsBore = false;   ///< whether the view along the axis dimensions the bore, with `boreLabel`
};

}  // namespace velmora::estimate
