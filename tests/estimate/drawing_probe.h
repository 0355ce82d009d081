#pragma once
// Questions to a drawing: what it measures, how large it is, whether it is a picture at all.

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/platform/screen/drawing.h"

namespace velmora::estimate {

using screen::Circle;
using screen::Dimension;
using screen::Drawing;
using screen::Fill;
using screen::Path;
using screen::Point;

inline constexpr double nan = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinity = std::numeric_limits<double>::infinity();

template <typename Shape>
inline std::vector<Shape> all(const Drawing& drawing) {
    std::vector<Shape> found;
    for (const auto& shape : drawing.shapes) {
        if (const auto* match = std::get_if<Shape>(&shape)) {
            found.push_back(*match);
        }
    }
    return found;
}

inline std::vector<int> labels(const Drawing& drawing) {
    std::vector<int> numbers;
    for (const Dimension& dimension : all<Dimension>(drawing)) {
        numbers.push_back(dimension.label);
    }
    return numbers;
}

template <typename Label>
Dimension labelled(const Drawing& drawing, Label label) {
    for (const Dimension& dimension : all<Dimension>(drawing)) {
        if (dimension.label == static_cast<int>(label)) {
            return dimension;
        }
    }
    ADD_FAILURE() << "no dimension with label " << static_cast<int>(label);
    return {};
}

inline double length(const Dimension& dimension) {
    return std::hypot(dimension.to.x - dimension.from.x, dimension.to.y - dimension.from.y);
}

template <typename Label>
double measured(const Drawing& drawing, Label label) {
    return length(labelled(drawing, label));
}

/// The ends of the dimension line itself.
inline std::pair<Point, Point> lineOf(const Dimension& dimension) {
    const double along = length(dimension);
    const double x = -(dimension.to.y - dimension.from.y) / along * dimension.offset;
    const double y = (dimension.to.x - dimension.from.x) / along * dimension.offset;
    return {{dimension.from.x + x, dimension.from.y + y}, {dimension.to.x + x, dimension.to.y + y}};
}

struct Box {
    double left = infinity;
    double bottom = infinity;
    double right = -infinity;
    double top = -infinity;

    void add(Point point) {
        left = std::min(left, point.x);
        right = std::max(right, point.x);
        bottom = std::min(bottom, point.y);
        top = std::max(top, point.y);
    }
    double width() const { return right - left; }
    double height() const { return top - bottom; }
    bool meets(const Box& other) const {
        return left < other.right && other.left < right && bottom < other.top && other.bottom < top;
    }
};

inline void addTo(Box& box, const Path& path) {
    for (const Point& point : path.points) {
        box.add(point);
    }
}

inline void addTo(Box& box, const Circle& circle) {
    box.add({circle.centre.x - circle.radius, circle.centre.y - circle.radius});
    box.add({circle.centre.x + circle.radius, circle.centre.y + circle.radius});
}

inline void addTo(Box& box, const Dimension& dimension) {
    const auto [from, to] = lineOf(dimension);
    box.add(dimension.from);
    box.add(dimension.to);
    box.add(from);
    box.add(to);
}

inline void addTo(Box& box, const screen::Caption& caption) {
    box.add(caption.at);
}

inline Box bounds(const Drawing& drawing) {
    Box box;
    for (const auto& shape : drawing.shapes) {
        std::visit([&](const auto& one) { addTo(box, one); }, shape);
    }
    return box;
}

/// The boxes of what is filled: the metal, cut or seen from the side.
inline std::vector<Box> metal(const Drawing& drawing) {
    std::vector<Box> boxes;
    for (const auto& shape : drawing.shapes) {
        std::visit(
            [&]([[maybe_unused]] const auto& one) {
                if constexpr (requires { one.fill; }) {
                    if (one.fill == Fill::section || one.fill == Fill::solid) {
                        addTo(boxes.emplace_back(), one);
                    }
                }
            },
            shape);
    }
    return boxes;
}

inline Box cutMetal(const Drawing& drawing) {
    Box box;
    for (const Path& path : all<Path>(drawing)) {
        if (path.fill == Fill::section) {
            addTo(box, path);
        }
    }
    return box;
}

inline std::vector<double> circleDiameters(const Drawing& drawing) {
    std::vector<double> diameters;
    for (const Circle& circle : all<Circle>(drawing)) {
        diameters.push_back(2 * circle.radius);
    }
    return diameters;
}

inline bool isFinite(const Drawing& drawing) {
    for (const auto& shape : drawing.shapes) {
        Box box;
        std::visit([&](const auto& one) { addTo(box, one); }, shape);
        // The box of something infinite has no finite size, and a value that is no number leaves it untouched.
        if (!std::isfinite(box.width()) || !std::isfinite(box.height())) {
            return false;
        }
        if (const auto* path = std::get_if<Path>(&shape)) {
            for (const Point& point : path->points) {
                if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
                    return false;
                }
            }
        }
    }
    return true;
}

inline constexpr double nasty[] = {nan,  infinity, -infinity, 0,    -1,     -1e308, 1e308, 1e-308, 1e-9,
                                   0.01, 0.999,    1.001,     30,   95,     131,    147,   159,    160,
                                   1e4,  19999.9,  20001,     1e15, 5e-324, 94.9,   95.1,  130.99, 131.1};

inline void expectAPiece(const Drawing& drawing) {
    ASSERT_TRUE(isFinite(drawing));
    const Box box = bounds(drawing);
    EXPECT_LT(box.width(), 20 * box.height());
    EXPECT_LT(box.height(), 20 * box.width());
    for (const Dimension& dimension : all<Dimension>(drawing)) {
        EXPECT_GT(length(dimension), 0.005 * box.height()) << "label " << dimension.label;
        EXPECT_GT(dimension.offset, 0) << "label " << dimension.label;
    }
    for (const Circle& circle : all<Circle>(drawing)) {
        EXPECT_GT(circle.radius, 0);
    }
    for (const Path& path : all<Path>(drawing)) {
        Box extent;
        addTo(extent, path);
        EXPECT_GT(extent.width() + extent.height(), 0);
    }
}

}  // namespace velmora::estimate
