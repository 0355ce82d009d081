#include "velmora/platform/toolkit/sketch_scale.h"

#include <optional>

namespace velmora::toolkit {

namespace {

constexpr double largestScale = 12;  ///< pixels per millimetre
constexpr int halvings = 40;         ///< steps of the bisection that finds the largest scale
/// Share of the canvas that the piece has at least, though the texts would need more than the rest.
constexpr double leastShare = 0.6;

enum class Texts { counted, ignored };

/// The bounding rectangle of shapes and texts at one scale.
class Extent {
  public:
    Extent(const SketchScale& scale, const LabelTexts& labels, const MeasureText& measure, Texts texts)
        : scale_(scale), labels_(labels), measure_(measure), texts_(texts) {}

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
        if (texts_ == Texts::counted) {
            include(levelText(caption.text, scale_.map(caption.at), measure_).bounds);
        }
    }
    void include(const screen::Dimension& dimension) {
        const DimensionLine line = lineOf(dimension, scale_, labels_);
        include(line.start);
        include(line.end);
        if (!line.text.empty() && texts_ == Texts::counted) {
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
    Texts texts_;
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
    const auto extent = [&](double pixelsPerMillimetre, Texts texts) {
        const SketchScale scale{.pixelsPerMillimetre = pixelsPerMillimetre, .shift = {}};
        Extent all(scale, labels, measure, texts);
        for (const screen::Shape* shape : shapes) {
            std::visit([&](const auto& s) { all.include(s); }, *shape);
        }
        return all.rect();
    };
    const auto largestFitting = [&](Texts texts) {
        const auto fits = [&](double pixelsPerMillimetre) {
            const PixelRect all = extent(pixelsPerMillimetre, texts);
            return all.width <= room.width && all.height <= room.height;
        };
        double low = fits(largestScale) ? largestScale : 0;
        double high = largestScale;
        for (int i = 0; i < halvings && low < high; ++i) {
            const double middle = (low + high) / 2;
            (fits(middle) ? low : high) = middle;
        }
        return low;
    };
    const double withTexts = largestFitting(Texts::counted);
    const double least = leastShare * largestFitting(Texts::ignored);
    const bool hasRoom = withTexts >= least;
    const double scale = hasRoom ? withTexts : least;
    const PixelRect all = extent(scale, hasRoom ? Texts::counted : Texts::ignored);
    return {.pixelsPerMillimetre = scale, .shift = room.centre() - all.centre()};
}

}  // namespace velmora::toolkit
