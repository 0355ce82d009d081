#include "velmora/platform/toolkit/sketch_scale.h"

#include <optional>

namespace velmora::toolkit {

namespace {

constexpr double largestScale = 12;  ///< pixels per millimetre
constexpr int halvings = 40;         ///< steps of the bisection that finds the largest scale

/// The bounding rectangle of shapes and texts at one scale.
class Extent {
  public:
    Extent(const SketchScale& scale, const LabelTexts& labels, const MeasureText& measure)
        : scale_(scale), labels_(labels), measure_(measure) {}

    void include(const screen::Path& path) {
        for (const screen::Point& point : path.points) {
            include(scale_.map(point));
        }
    }
    void include(const screen::Circle& circle) {
        const double diameter = 2 * circle.radius * scale_.pixelsPerMillimetre;
        include(around(scale_.map(circle.centre), {.width = diameter, .height = diameter}));
    }
    void include(const screen::Caption& caption) {
        include(levelText(caption.text, scale_.map(caption.at), measure_).bounds);
    }
    void include(const screen::Dimension& dimension) {
        const DimensionLine line = lineOf(dimension, scale_, labels_);
        include(line.start);
        include(line.end);
        if (!line.text.empty()) {
            include(placesFor(line, measure_).front().bounds);
        }
    }
    PixelRect rect() const { return all_.value_or(PixelRect{}); }

  private:
    void include(PixelPoint p) { include(around(p, {.width = 1, .height = 1})); }
    void include(const PixelRect& rect) { all_ = all_ ? united(*all_, rect) : rect; }

    const SketchScale& scale_;
    const LabelTexts& labels_;
    const MeasureText& measure_;
    std::optional<PixelRect> all_;
};

}  // namespace

DimensionLine lineOf(const screen::Dimension& dimension, const SketchScale& scale, const LabelTexts& labels) {
    const PixelPoint from = scale.map(dimension.from);
    const PixelPoint to = scale.map(dimension.to);
    const PixelPoint away = leftOf(direction(from, to)) * (dimension.offset * scale.pixelsPerMillimetre);
    return {.from = from,
            .to = to,
            .start = from + away,
            .end = to + away,
            .text = shownText(dimension, labels),
            .place = dimension.place};
}

// Text size does not scale with the piece, so the scale is found by bisection.
SketchScale fittingScale(const std::vector<const screen::Shape*>& shapes, const LabelTexts& labels,
                         const PixelRect& room, const MeasureText& measure) {
    const auto extent = [&](double pixelsPerMillimetre) {
        const SketchScale scale{.pixelsPerMillimetre = pixelsPerMillimetre, .shift = {}};
        Extent all(scale, labels, measure);
        for (const screen::Shape* shape : shapes) {
            std::visit([&](const auto& s) { all.include(s); }, *shape);
        }
        return all.rect();
    };
    const auto fits = [&](double pixelsPerMillimetre) {
        const PixelRect all = extent(pixelsPerMillimetre);
        return all.width <= room.width && all.height <= room.height;
    };
    double low = fits(largestScale) ? largestScale : 0;
    double high = largestScale;
    for (int i = 0; i < halvings && low < high; ++i) {
        const double middle = (low + high) / 2;
        (fits(middle) ? low : high) = middle;
    }
    return {.pixelsPerMillimetre = low, .shift = room.centre() - extent(low).centre()};
}

}  // namespace velmora::toolkit
