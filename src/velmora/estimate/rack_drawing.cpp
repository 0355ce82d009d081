#include "velmora/estimate/rack_drawing.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include "velmora/estimate/drawing_parts.h"

namespace velmora::estimate {
namespace {

using parts::Fill;
using parts::mark;
using parts::Pen;
using parts::Point;
using parts::within;
using screen::Drawing;
using screen::TextPlace;

/// Proportions of an ordinary rack, in modules.
namespace ordinary {
constexpr double module = 3;  // millimetres
constexpr double toothHeight = 2.25;
constexpr double height = 8;
constexpr double length = 200;
constexpr double width = 8;
}  // namespace ordinary

constexpr double smallestModule = 0.05;
constexpr double greatestModule = 500;
constexpr double greatestSize = 1e6;

// The longest part shown of a long bar and of a wide end view, in heights.
constexpr double longestShown = 2.4;
constexpr double widestShown = 1.5;
constexpr double fewestPitchesShown = 4;
constexpr double mostPitchesShown = 60;

/// A rack that can be made.
struct SolidRack {
    double pitch = 0;
    double toothHeight = 0;
    double height = 0;
    double length = 0;
    double width = 0;

    double body() const { return height - toothHeight; }
    double longest() const { return std::max(longestShown * height, fewestPitchesShown * pitch); }
    double shownLength() const { return std::min(length, longest()); }
    double shownWidth() const { return std::min(width, widestShown * height); }
    bool hasTeethToTellApart() const { return shownLength() < mostPitchesShown * pitch; }
};

double plausibleModule(const RackMeasures& measures) {
    const auto given = [](const std::optional<double>& value, double modules) {
        return value ? within(smallestModule, *value / modules, greatestModule) : std::nullopt;
    };
    for (const auto& module : {given(measures.module, 1), given(measures.pitch, parts::pi),
                               given(measures.toothHeight, ordinary::toothHeight)}) {
        if (module) {
            return *module;
        }
    }
    return given(measures.height, ordinary::height).value_or(ordinary::module);
}

SolidRack plausibleRack(const RackMeasures& measures) {
    const double module = plausibleModule(measures);
    SolidRack rack;
    rack.pitch = within(module, measures.pitch, 10 * module).value_or(parts::pi * module);
    rack.toothHeight = within(0.3 * module, measures.toothHeight, 5 * module).value_or(ordinary::toothHeight * module);
    rack.height = within(1.1 * rack.toothHeight, measures.height, 1000 * rack.toothHeight)
                      .value_or(std::max(ordinary::height * module, 1.5 * rack.toothHeight));
    rack.length = within(0.05 * rack.height, measures.length, greatestSize).value_or(ordinary::length * module);
    rack.width = within(0.05 * rack.height, measures.width, greatestSize).value_or(ordinary::width * module);
    return rack;
}

/// The upper edge over a length, from left to right: gaps and teeth with straight flanks.
std::vector<Point> toothedEdge(const SolidRack& rack) {
    // The corners of a tooth of the basic profile, as fractions of the pitch from the middle of a gap to the next.
    constexpr double foot = 0.105;
    constexpr double tip = 0.366;
    std::vector<Point> edge{{0, rack.body()}};
    const int teeth = static_cast<int>(std::ceil(rack.shownLength() / rack.pitch));
    for (int tooth = 0; tooth < teeth; ++tooth) {
        const double gap = tooth * rack.pitch;
        const double next = gap + rack.pitch;
        edge.push_back({gap + foot * rack.pitch, rack.body()});
        edge.push_back({gap + tip * rack.pitch, rack.height});
        edge.push_back({next - tip * rack.pitch, rack.height});
        edge.push_back({next - foot * rack.pitch, rack.body()});
    }
    edge.push_back({teeth * rack.pitch, rack.body()});
    return edge;
}

/// The part of an edge between two places along it.
std::vector<Point> stretch(const std::vector<Point>& edge, double left, double right) {
    const auto heightAt = [&edge](double x) {
        for (std::size_t i = 1; i < edge.size(); ++i) {
            const Point& from = edge[i - 1];
            const Point& to = edge[i];
            if (x <= to.x && to.x > from.x) {
                return std::lerp(from.y, to.y, (x - from.x) / (to.x - from.x));
            }
        }
        return edge.back().y;
    };
    std::vector<Point> points{{left, heightAt(left)}};
    for (const Point& corner : edge) {
        if (corner.x > left && corner.x < right) {
            points.push_back(corner);
        }
    }
    points.push_back({right, heightAt(right)});
    return points;
}

/// A break line, from the lower edge up.
std::vector<Point> brokenLine(double x, double top, double amplitude) {
    return {{x, 0},          {x, 0.35 * top}, {x + amplitude, 0.45 * top}, {x - amplitude, 0.55 * top},
            {x, 0.65 * top}, {x, top}};
}

/// The bar below an upper edge. The metal of the two parts of a broken bar ends in thin lines; its true edges are drawn
/// over them.
void drawBar(Drawing& drawing, const std::vector<Point>& edge, double left, double right, bool broken) {
    if (!broken) {
        std::vector<Point> outline = stretch(edge, left, right);
        outline.push_back({right, 0});
        outline.push_back({left, 0});
        parts::area(drawing, std::move(outline), Fill::solid);
        return;
    }
    const double length = right - left;
    const double height = edge.front().y;
    const double amplitude = std::min(0.03 * length, 0.1 * height);
    const double end = left + 0.56 * length;
    const double start = left + 0.66 * length;
    for (const auto& [from, to, breaks] : {std::tuple{left, end, end}, std::tuple{right, start, start}}) {
        std::vector<Point> upper = stretch(edge, std::min(from, to), std::max(from, to));
        if (from > to) {
            std::reverse(upper.begin(), upper.end());
        }
        // Around the part from the foot of its true end: up, along the teeth, down the broken end.
        std::vector<Point> sound{{breaks, 0}, {from, 0}};
        sound.insert(sound.end(), upper.begin(), upper.end());
        std::vector<Point> outline = sound;
        const std::vector<Point> rough = brokenLine(breaks, upper.back().y, amplitude);
        outline.insert(outline.end(), rough.rbegin() + 1, rough.rend() - 1);
        parts::area(drawing, std::move(outline), Fill::solid, Pen::thin);
        drawing.shapes.emplace_back(screen::Path{std::move(sound), false, Pen::outline, Fill::none});
    }
}

void drawSide(Drawing& drawing, const SolidRack& rack, double row) {
    const double length = rack.shownLength();
    const bool broken = length < rack.length;
    if (rack.hasTeethToTellApart()) {
        drawBar(drawing, toothedEdge(rack), 0, length, broken);
    } else {
        drawBar(drawing, {{0, rack.height}, {length, rack.height}}, 0, length, broken);
        parts::line(drawing, {0, rack.body()}, {length, rack.body()}, Pen::thin);
    }
    const double pitchLine = rack.height - rack.toothHeight / ordinary::toothHeight;
    const double reach = parts::overshoot * row;
    parts::line(drawing, {-reach, pitchLine}, {length + reach, pitchLine}, Pen::centre);
}

void drawEnd(Drawing& drawing, const SolidRack& rack, double left) {
    const double right = left + rack.shownWidth();
    drawBar(drawing, {{left, rack.height}, {right, rack.height}}, left, right, rack.shownWidth() < rack.width);
    parts::line(drawing, {left, rack.body()}, {right, rack.body()}, Pen::thin);
}

// Chosen C-341: "H grosor" repeats the height on the end view, as its field repeats the field of the height.
void drawDimensions(Drawing& drawing, const SolidRack& rack, double end, double row) {
    const double length = rack.shownLength();
    const double right = end + rack.shownWidth();
    const double away = parts::firstRow * row;
    parts::dimension(drawing, {0, 0}, {0, rack.height}, away, mark(RackLabel::height, "H"));
    parts::dimension(drawing, {length, rack.body()}, {length, 0}, away, mark(RackLabel::bodyHeight, "A"));
    parts::dimension(drawing, {length, rack.height}, {length, rack.body()}, away,
                     mark(RackLabel::toothHeight, "h", TextPlace::beforeFrom));
    parts::dimension(drawing, {length, 0}, {0, 0}, away, mark(RackLabel::length, "L"));
    parts::dimension(drawing, {right, rack.height}, {right, 0}, away, mark(RackLabel::thickness, "H"));
    parts::dimension(drawing, {right, 0}, {end, 0}, away, mark(RackLabel::width, "B"));
}

}  // namespace

screen::Drawing drawRack(const RackMeasures& measures) {
    const SolidRack rack = plausibleRack(measures);
    const double between = parts::firstRow + parts::viewDistance;
    const double rowsWide = 2 * parts::firstRow + between + 1;
    const double rowsHigh = parts::firstRow + 4;
    const double row =
        std::max((rack.shownLength() + rack.shownWidth()) / (parts::canvasWidth / parts::rowPixels - rowsWide),
                 rack.height / (parts::canvasHeight / parts::rowPixels - rowsHigh));
    const double end = rack.shownLength() + between * row;
    Drawing drawing;
    drawDimensions(drawing, rack, end, row);
    drawSide(drawing, rack, row);
    drawEnd(drawing, rack, end);
    return drawing;
}

}  // namespace velmora::estimate
