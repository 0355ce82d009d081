#pragma once
// The program's icon: the side view of a sprocket, as the main form draws it, in the colours of an icon.

#include <cstdint>
#include <optional>
#include <vector>

#include "velmora/platform/toolkit/pixel_geometry.h"

namespace velmora::icon {

/// The icon is a square of this side; y points downward.
inline constexpr double side = 128;

/// Below this size in pixels, axes would only blur the sprocket.
inline constexpr int smallestWithAxes = 48;

using Rgb = std::uint32_t;

struct IconShape {
    std::vector<toolkit::PixelPoint> points;
    bool isClosed = true;
    std::optional<Rgb> fill;
    Rgb stroke = 0;
    double strokeWidth = 0;
    bool isAxis = false;
};

/// In painting order.
std::vector<IconShape> iconShapes();

}  // namespace velmora::icon
