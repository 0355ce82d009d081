#include "velmora/platform/toolkit/sketch_plan.h"

#include <numbers>

#include "velmora/platform/toolkit/sketch_scale.h"

namespace velmora::toolkit {

namespace {

using screen::Caption;
using screen::Circle;
using screen::Dimension;
using screen::Drawing;
using screen::Path;
using screen::Pen;
using screen::Shape;

constexpr double margin = 10;
constexpr double arrowHalfWidth = 2.6;
constexpr double extensionGap = 2;
constexpr double extensionOvershoot = 4;
constexpr double outsideReach = 2.2 * arrowLength;  ///< length beyond the end of a line whose arrows are outside
constexpr double hatchSpacing = 7;
/// Largest distance in pixels of an arc's control points from its chord, both together; above it the arc is halved.
constexpr double flatness = 0.5;

/// Flattens an arc into straight edges: it is halved until the deviation from its chord is not visible.
class FlattenedArc {
  public:
    FlattenedArc(PixelPoint centre, double radius, TextPlacing& placing)
        : centre_(centre), radius_(radius), placing_(placing) {}

    void add(double from, double to, int halvings = 9) {
        const PixelPoint start = at(from);
        const PixelPoint end = at(to);
        const PixelPoint chord = end - start;
        const double spread = std::abs(chord.x) + std::abs(chord.y);
        const double turn = to - from;
        const double height = 4.0 / 3.0 * std::tan(turn / 4) * radius_ * std::sin(turn / 2);
        if (2 * distance(start, end) * height < flatness * spread || halvings == 0) {
            placing_.addEdge({start, end});
            return;
        }
        add(from, from + turn / 2, halvings - 1);
        add(from + turn / 2, to, halvings - 1);
    }

  private:
    PixelPoint at(double angle) const {
        return centre_ + PixelPoint{radius_ * std::cos(angle), radius_ * std::sin(angle)};
    }

    PixelPoint centre_;
    double radius_;
    TextPlacing& placing_;
};

class Planner {
  public:
    Planner(const Drawing& drawing, const LabelTexts& labels, const PixelRect& canvas, const MeasureText& measure)
        : labels_(labels), measure_(measure), placing_(canvas, measure) {
        for (const Shape& shape : drawing.shapes) {
            if (isShown(shape)) {
                shapes_.push_back(&shape);
            }
        }
        scale_ = fittingScale(shapes_, labels_,
                              {.left = canvas.left + margin,
                               .top = canvas.top + margin,
                               .width = canvas.width - 2 * margin,
                               .height = canvas.height - 2 * margin},
                              measure_);
    }

    SketchPlan plan() {
        for (const Shape* shape : shapes_) {
            if (!std::holds_alternative<Dimension>(*shape)) {
                std::visit([this](const auto& s) { add(s); }, *shape);
            }
        }
        // Dimensions last: their texts are placed where the piece leaves space.
        for (const Shape* shape : shapes_) {
            if (const auto* dimension = std::get_if<Dimension>(shape)) {
                add(*dimension);
            }
        }
        return std::move(plan_);
    }

  private:
    bool isShown(const Shape& shape) const {
        int label = -1;
        if (const auto* dimension = std::get_if<Dimension>(&shape)) {
            label = dimension->label;
        } else if (const auto* path = std::get_if<Path>(&shape)) {
            label = path->label;
        }
        return label < 0 || labels_.contains(label);
    }

    static bool isEdge(Pen pen) { return pen == Pen::outline || pen == Pen::thin; }

    void add(const Path& path) {
        PlannedPath planned{.points = {}, .closed = path.closed, .pen = path.pen, .fill = path.fill};
        for (const screen::Point& point : path.points) {
            planned.points.push_back(scale_.map(point));
        }
        if (isEdge(path.pen)) {
            addEdges(planned);
        }
        plan_.shapes.emplace_back(std::move(planned));
    }

    void addEdges(const PlannedPath& path) {
        for (std::size_t i = 1; i < path.points.size(); ++i) {
            placing_.addEdge({path.points[i - 1], path.points[i]});
        }
        if (path.closed && !path.points.empty()) {
            placing_.addEdge({path.points.back(), path.points.front()});
        }
    }

    void add(const Circle& circle) {
        const PlannedCircle planned{.centre = scale_.map(circle.centre),
                                    .radius = circle.radius * scale_.pixelsPerMillimetre,
                                    .pen = circle.pen,
                                    .fill = circle.fill};
        if (isEdge(circle.pen) && planned.radius > 0) {
            FlattenedArc arc(planned.centre, planned.radius, placing_);
            for (int quarter = 0; quarter < 4; ++quarter) {
                arc.add(quarter * std::numbers::pi / 2, (quarter + 1) * std::numbers::pi / 2);
            }
        }
        plan_.shapes.emplace_back(planned);
    }

    void add(const Caption& caption) {
        PlacedText text = levelText(caption.text, scale_.map(caption.at), measure_);
        placing_.take(text.bounds);
        plan_.shapes.emplace_back(std::move(text));
    }

    void add(const Dimension& dimension) {
        const DimensionLine line = lineOf(dimension, scale_, labels_);
        const PixelPoint along = direction(line.start, line.end);
        PlannedDimension planned;
        addExtension(line.from, line.start, planned);
        addExtension(line.to, line.end, planned);
        // Arrows that do not fit between the extension lines are drawn outside, pointing inwards.
        const bool inside = line.hasRoom();
        const PixelPoint reach = inside ? PixelPoint{} : along * outsideReach;
        planned.lines.push_back({line.start - reach, line.end + reach});
        planned.arrows = {arrow(line.start, inside ? -along : along), arrow(line.end, inside ? along : -along)};
        if (const auto chosen = line.text.empty() ? std::nullopt : placing_.place(line)) {
            planned.text = chosen->text;
            if (chosen->leader) {
                planned.lines.push_back(*chosen->leader);
            }
        }
        plan_.shapes.emplace_back(std::move(planned));
    }

    static void addExtension(PixelPoint piece, PixelPoint end, PlannedDimension& planned) {
        if (distance(piece, end) > extensionGap) {
            const PixelPoint away = direction(piece, end);
            planned.lines.push_back({piece + away * extensionGap, end + away * extensionOvershoot});
        }
    }

    static ArrowHead arrow(PixelPoint tip, PixelPoint pointing) {
        const PixelPoint back = tip - pointing * arrowLength;
        const PixelPoint side = leftOf(pointing) * arrowHalfWidth;
        return {tip, back + side, back - side};
    }

    const LabelTexts& labels_;
    const MeasureText& measure_;
    TextPlacing placing_;
    std::vector<const Shape*> shapes_;
    SketchScale scale_;
    SketchPlan plan_;
};

}  // namespace

SketchPlan planSketch(const Drawing& drawing, const LabelTexts& labels, const PixelRect& canvas,
                      const MeasureText& measure) {
    return Planner(drawing, labels, canvas, measure).plan();
}

std::vector<PixelLine> hatchLines(const PixelRect& bounds) {
    std::vector<PixelLine> lines;
    const double height = bounds.height;
    const double first = std::floor((bounds.left - height - bounds.bottom()) / hatchSpacing);
    const double last = std::ceil((bounds.right() - bounds.bottom()) / hatchSpacing);
    for (int i = 0; first + i < last; ++i) {
        const double x = (first + i) * hatchSpacing + bounds.bottom();
        lines.push_back({{x, bounds.bottom()}, {x + height, bounds.top}});
    }
    return lines;
}

}  // namespace velmora::toolkit
