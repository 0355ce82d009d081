#include "velmora/platform/toolkit/dimension_texts.h"

#include <numbers>

namespace velmora::toolkit {

namespace {

constexpr double textGap = 3;      ///< pixels between a dimension line and its text
constexpr double textPadding = 4;  ///< pixels, left and right of a text together

constexpr double edgeCost = 10;
constexpr double textCost = 200;
constexpr double offCanvasCost = 500;
constexpr double lateCost = 0.1;  ///< cost of a place for each place before it in the list

constexpr double halfTurn = 180;  // degrees

double radians(double degrees) {
    return degrees * std::numbers::pi / halfTurn;
}

// Text is read from below or from the right, as usual on technical drawings.
double readingAngle(PixelPoint direction) {
    const double angle = std::atan2(direction.y, direction.x) * halfTurn / std::numbers::pi;
    if (angle >= 89.9) {
        return angle - halfTurn;
    }
    return angle < -90.1 ? angle + halfTurn : angle;
}

PlacedText turnedText(const std::string& text, PixelPoint middle, PixelSize size, double angle) {
    const double c = std::abs(std::cos(radians(angle)));
    const double s = std::abs(std::sin(radians(angle)));
    const PixelSize turned{.width = size.width * c + size.height * s, .height = size.width * s + size.height * c};
    return {.text = text, .middle = middle, .angle = angle, .size = size, .bounds = around(middle, turned)};
}

PixelSize paddedSize(const std::string& text, const MeasureText& measure) {
    const PixelSize size = measure(text);
    return {.width = size.width + textPadding, .height = size.height};
}

}  // namespace

PlacedText levelText(const std::string& text, PixelPoint middle, const MeasureText& measure) {
    return turnedText(text, middle, paddedSize(text, measure), 0);
}

std::vector<PlacedText> placesFor(const DimensionLine& line, const MeasureText& measure) {
    const PixelSize size = paddedSize(line.text, measure);
    const PixelPoint along = direction(line.start, line.end);
    const double angle = readingAngle(along);
    const PixelPoint middle = (line.start + line.end) * 0.5;
    const PixelPoint above = leftOf({std::cos(radians(angle)), std::sin(radians(angle))});
    const double height = size.height / 2 + textGap - 1;
    const double length = distance(line.start, line.end);
    std::vector<PlacedText> places;
    for (const double slide : {0.0, 0.2, -0.2, 0.35, -0.35}) {
        for (const double side : {1.0, -1.0}) {
            const PixelPoint at = middle + above * (height * side) + along * (slide * length);
            places.push_back(turnedText(line.text, at, size, angle));
        }
    }
    const double clearance = (line.hasRoom() ? 0.5 : 2.5) * arrowLength;
    for (const double end : {1.0, -1.0}) {
        const PixelPoint at = middle + along * (end * (length / 2 + size.width / 2 + clearance));
        places.push_back(turnedText(line.text, at, size, angle));
    }
    if (line.place != screen::TextPlace::middle) {
        // The last two places are outside: beyond the end, then beyond the start.
        std::rotate(places.begin(), places.end() - (line.place == screen::TextPlace::afterTo ? 2 : 1), places.end());
    }
    return places;
}

double TextPlacing::cost(const PixelRect& bounds) const {
    double sum = 0;
    for (const PixelLine& edge : edges_) {
        sum += meets(edge, bounds) ? edgeCost : 0;
    }
    for (const PixelRect& text : taken_) {
        sum += text.overlaps(bounds) ? textCost : 0;
    }
    return canvas_.contains(bounds) ? sum : sum + offCanvasCost;
}

PlacedText TextPlacing::place(const DimensionLine& line) {
    const std::vector<PlacedText> places = placesFor(line, measure_);
    std::size_t best = 0;
    double lowest = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const double here = cost(places[i].bounds) + lateCost * static_cast<double>(i);
        if (i == 0 || here < lowest) {
            best = i;
            lowest = here;
        }
    }
    take(places[best].bounds);
    return places[best];
}

}  // namespace velmora::toolkit
