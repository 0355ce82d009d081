#include "velmora/apps/icon/icon_shapes.h"

#include <cmath>
#include <numbers>
#include <utility>
#include <variant>

#include "velmora/estimate/drawings.h"
#include "velmora/platform/toolkit/sketch_style.h"
#include "velmora/platform/toolkit/window_style.h"

namespace velmora::icon {

namespace {

using toolkit::PixelPoint;

constexpr int teeth = 13;
constexpr double exterior = 116;  // the outline and the ends of the axes need the rest of the square
constexpr double hub = 62;
constexpr double bore = 28;
constexpr double keyway = 9;

constexpr Rgb rimEdge = 0x12395F;
constexpr double edgeWidth = 3;
constexpr double axisWidth = 1.5;

/// Few teeth, so that they can be told apart in a small icon.
screen::Drawing sprocket() {
    estimate::PieceMeasures measures;
    measures.teeth = teeth;
    measures.exterior = exterior;
    measures.pitch = 0.88 * exterior;
    measures.root = 0.74 * exterior;
    measures.hub = hub;
    measures.bore = bore;
    measures.keyway = keyway;
    return estimate::drawSideView(estimate::Hubs::one, measures);
}

PixelPoint inSquare(screen::Point point) {
    return {.x = side / 2 + point.x, .y = side / 2 - point.y};
}

class Shapes {
  public:
    void add(const screen::Path& path) {
        std::vector<PixelPoint> points;
        points.reserve(path.points.size());
        for (const screen::Point point : path.points) {
            points.push_back(inSquare(point));
        }
        add(std::move(points), path.closed, path.pen, path.fill);
    }
    void add(const screen::Circle& circle) {
        constexpr int corners = 96;
        std::vector<PixelPoint> points;
        for (int corner = 0; corner < corners; ++corner) {
            const double angle = 2 * std::numbers::pi * corner / corners;
            points.push_back(inSquare({.x = circle.centre.x + circle.radius * std::cos(angle),
                                       .y = circle.centre.y + circle.radius * std::sin(angle)}));
        }
        add(std::move(points), true, circle.pen, circle.fill);
    }
    void add(const screen::Dimension& /*dimension*/) {}
    void add(const screen::Caption& /*caption*/) {}

    std::vector<IconShape> take() { return std::move(shapes_); }

  private:
    void add(std::vector<PixelPoint> points, bool isClosed, screen::Pen pen, screen::Fill fill) {
        const bool isAxis = pen == screen::Pen::centre;
        if (isAxis && isClosed) {
            return;  // the pitch circle: it would run along the roots of the teeth
        }
        shapes_.push_back({.points = std::move(points),
                           .isClosed = isClosed,
                           .fill = colourOf(fill),
                           .stroke = isAxis ? toolkit::sketch_style::axisInk : rimEdge,
                           .strokeWidth = isAxis ? axisWidth : edgeWidth,
                           .isAxis = isAxis});
    }

    /// The first metal is the rim, what lies on it the hub.
    std::optional<Rgb> colourOf(screen::Fill fill) {
        if (fill == screen::Fill::solid) {
            const bool isRim = std::exchange(rimIsMissing_, false);
            return isRim ? toolkit::window_style::accent : toolkit::sketch_style::metal;
        }
        return fill == screen::Fill::blank ? std::optional<Rgb>(toolkit::sketch_style::background) : std::nullopt;
    }

    std::vector<IconShape> shapes_;
    bool rimIsMissing_ = true;
};

}  // namespace

std::vector<IconShape> iconShapes() {
    Shapes shapes;
    for (const screen::Shape& shape : sprocket().shapes) {
        std::visit([&](const auto& s) { shapes.add(s); }, shape);
    }
    return shapes.take();
}

}  // namespace velmora::icon
