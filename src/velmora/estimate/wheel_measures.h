#pragma once
// What every toothed or smooth wheel has, whatever its hubs and however many its rims.

#include <optional>

#include "velmora/data/product_types.h"

namespace velmora::estimate {

using data::Toothing;

/// The measures as the fields hold them, diameters and widths in millimetres; a field that is empty or holds no
/// number is left out. Nothing here has to be sensible.
struct WheelMeasures {
    Toothing toothing = Toothing::chain;  ///< of a wheel: not a rack's
    std::optional<int> teeth;
    std::optional<double> exterior;
    std::optional<double> pitch;
    std::optional<double> root;
    std::optional<double> bore;
    std::optional<double> keyway;  ///< width; zero: the piece has none
};

}  // namespace velmora::estimate
