#include "velmora/platform/toolkit/dimension_texts.h"

#include <algorithm>
#include <numbers>

namespace velmora::toolkit {

namespace {

constexpr double textGap = 3;      ///< pixels between a dimension line and its text
constexpr double textPadding = 4;  ///< pixels, left and right of a text together

constexpr double edgeCost = 10;
constexpr double lateCost = 0.1;      ///< cost of a place for each place before it in the list
constexpr double distanceCost = 0.5;  ///< cost of a pixel between a line and a text that stands apart from it
constexpr double rasterStep = 6;      ///< pixels between the places tried for a text apart from its line
constexpr std::size_t nearest = 60;   ///< number of free places compared, the nearest ones

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

bool TextPlacing::isFree(const PixelRect& bounds) const {
    return canvas_.contains(bounds) &&
           std::ranges::none_of(taken_, [&](const PixelRect& text) { return text.overlaps(bounds); });
}

double TextPlacing::crossings(const PixelRect& bounds) const {
    return edgeCost *
           static_cast<double>(std::ranges::count_if(edges_, [&](const PixelLine& e) { return meets(e, bounds); }));
}

std::optional<PlacedText> TextPlacing::besideLine(const DimensionLine& line) const {
    std::optional<PlacedText> best;
    double lowest = 0;
    double late = 0;
    for (const PlacedText& place : placesFor(line, measure_)) {
        if (isFree(place.bounds)) {
            const double cost = crossings(place.bounds) + late;
            if (!best || cost < lowest) {
                best = place;
                lowest = cost;
            }
        }
        late += lateCost;
    }
    return best;
}

std::optional<ChosenPlace> TextPlacing::apart(const DimensionLine& line) const {
    const PixelPoint foot = (line.start + line.end) * 0.5;
    const PlacedText text = levelText(line.text, foot, measure_);
    const PixelSize half{.width = text.bounds.width / 2, .height = text.bounds.height / 2};
    std::vector<PixelPoint> free;
    for (double y = canvas_.top + half.height; y + half.height <= canvas_.bottom(); y += rasterStep) {
        for (double x = canvas_.left + half.width; x + half.width <= canvas_.right(); x += rasterStep) {
            if (isFree(around({x, y}, {.width = text.bounds.width, .height = text.bounds.height}))) {
                free.push_back({x, y});
            }
        }
    }
    const auto byDistance = [&](PixelPoint a, PixelPoint b) { return distance(a, foot) < distance(b, foot); };
    const auto end = free.begin() + static_cast<std::ptrdiff_t>(std::min(free.size(), nearest));
    std::ranges::partial_sort(free.begin(), end, free.end(), byDistance);
    const auto costOf = [&](PixelPoint middle) {
        return crossings(levelText(line.text, middle, measure_).bounds) + distanceCost * distance(middle, foot);
    };
    const auto best =
        std::min_element(free.begin(), end, [&](PixelPoint a, PixelPoint b) { return costOf(a) < costOf(b); });
    if (best == end) {
        return std::nullopt;
    }
    ChosenPlace chosen{.text = levelText(line.text, *best, measure_), .leader = std::nullopt};
    const PixelRect& bounds = chosen.text.bounds;
    chosen.leader = PixelLine{
        .from = foot,
        .to = {std::clamp(foot.x, bounds.left, bounds.right()), std::clamp(foot.y, bounds.top, bounds.bottom())}};
    return chosen;
}

std::optional<ChosenPlace> TextPlacing::place(const DimensionLine& line) {
    const std::optional<PlacedText> beside = besideLine(line);
    std::optional<ChosenPlace> chosen =
        beside ? std::optional(ChosenPlace{.text = *beside, .leader = std::nullopt}) : apart(line);
    if (chosen) {
        take(chosen->text.bounds);
    }
    return chosen;
}

}  // namespace velmora::toolkit
