#pragma once
// Points, lines and rectangles on a canvas. Units are pixels (or the units of a sheet of paper); y points downward.

#include <algorithm>
#include <cmath>

namespace velmora::toolkit {

struct PixelPoint {
    double x = 0;
    double y = 0;
};

constexpr PixelPoint operator+(PixelPoint a, PixelPoint b) {
    return {a.x + b.x, a.y + b.y};
}
constexpr PixelPoint operator-(PixelPoint a, PixelPoint b) {
    return {a.x - b.x, a.y - b.y};
}
constexpr PixelPoint operator-(PixelPoint a) {
    return {-a.x, -a.y};
}
constexpr PixelPoint operator*(PixelPoint a, double factor) {
    return {a.x * factor, a.y * factor};
}

inline double distance(PixelPoint from, PixelPoint to) {
    return std::hypot(to.x - from.x, to.y - from.y);
}

/// The unit vector from one point to another; to the right when they coincide.
inline PixelPoint direction(PixelPoint from, PixelPoint to) {
    const double length = distance(from, to);
    return length > 0 ? PixelPoint{(to.x - from.x) / length, (to.y - from.y) / length} : PixelPoint{1, 0};
}

/// A direction turned to its left as seen on the canvas.
constexpr PixelPoint leftOf(PixelPoint direction) {
    return {direction.y, -direction.x};
}

struct PixelSize {
    double width = 0;
    double height = 0;
};

struct PixelLine {
    PixelPoint from;
    PixelPoint to;
};

struct PixelRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    constexpr double right() const { return left + width; }
    constexpr double bottom() const { return top + height; }
    constexpr PixelPoint centre() const { return {left + width / 2, top + height / 2}; }

    /// Edges included.
    constexpr bool contains(PixelPoint p) const {
        return p.x >= left && p.x <= right() && p.y >= top && p.y <= bottom();
    }
    constexpr bool contains(const PixelRect& r) const {
        return r.left >= left && r.right() <= right() && r.top >= top && r.bottom() <= bottom();
    }
    /// Whether the interiors intersect; rectangles that share only an edge do not.
    constexpr bool overlaps(const PixelRect& r) const {
        return left < r.right() && r.left < right() && top < r.bottom() && r.top < bottom();
    }
};

constexpr PixelRect around(PixelPoint centre, PixelSize size) {
    return {.left = centre.x - size.width / 2,
            .top = centre.y - size.height / 2,
            .width = size.width,
            .height = size.height};
}

constexpr PixelRect united(const PixelRect& a, const PixelRect& b) {
    const double left = std::min(a.left, b.left);
    const double top = std::min(a.top, b.top);
    return {.left = left,
            .top = top,
            .width = std::max(a.right(), b.right()) - left,
            .height = std::max(a.bottom(), b.bottom()) - top};
}

/// Whether any point of the line lies in the rectangle, edges included.
bool meets(const PixelLine& line, const PixelRect& rect);

}  // namespace velmora::toolkit
