#include "velmora/estimate/drawing_parts.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora::estimate::parts {
namespace {

/// Proportions of an ordinary wheel, relative to its exterior diameter (the keyway: to the bore).
namespace ordinary {
constexpr double exteriorDiameter = 160;
constexpr double pitch = 0.93;
constexpr double root = 0.86;
constexpr double hub = 0.58;
constexpr double bore = 0.22;
constexpr double keyway = 0.28;
}  // namespace ordinary

constexpr double smallestDiameter = 1;
constexpr double greatestDiameter = 20000;
constexpr double thinnest = 0.01;  // relative to the exterior diameter
constexpr double widest = 1.5;     // relative to the exterior diameter
constexpr int fewestTeeth = 5;
constexpr int mostTeeth = 110;

double exteriorDiameter(const WheelMeasures& measures) {
    const auto plausible = [](const std::optional<double>& value) {
        return within(smallestDiameter, value, greatestDiameter);
    };
    if (const auto exterior = plausible(measures.exterior)) {
        return *exterior;
    }
    if (const auto pitch = plausible(measures.pitch)) {
        return *pitch / ordinary::pitch;
    }
    if (const auto root = plausible(measures.root)) {
        return *root / ordinary::root;
    }
    return ordinary::exteriorDiameter;
}

double keywayWidth(const WheelMeasures& measures, double bore) {
    if (measures.keyway && *measures.keyway == 0) {
        return 0;
    }
    return within(0.05 * bore, measures.keyway, 0.5 * bore).value_or(ordinary::keyway * bore);
}

Point polar(Point centre, double radius, double angle) {
    return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

/// Half of the width that a chain sprocket's tooth loses from root to tip, relative to the rim.
constexpr double tipRelief = 0.27;
constexpr int reliefSteps = 6;

/// A tooth in the section: not cut, so not hatched. A chain sprocket's tooth narrows in an arc towards its tip; a
/// gear's keeps its width.
std::vector<Point> toothInSection(const Wheel& wheel, double left, double right, double side) {
    const double height = wheel.exterior - wheel.root;
    const double relief = wheel.toothing == Toothing::chain ? tipRelief * (right - left) : 0;
    const double straight = 0.25 * height;

    std::vector<Point> points{{left, wheel.root}};
    for (int step = 0; step <= reliefSteps; ++step) {
        const double turn = pi / 2 * step / reliefSteps;
        points.push_back(
            {left + relief * (1 - std::cos(turn)), wheel.root + straight + (height - straight) * std::sin(turn)});
    }
    for (std::size_t mirrored = points.size(); mirrored-- > 0;) {
        points.push_back({left + right - points[mirrored].x, points[mirrored].y});
    }
    for (Point& point : points) {
        point.y *= side;
    }
    return points;
}

/// A corner of a tooth: its distance along the circumference from the middle of the gap, and its radius.
struct Flank {
    double along;
    double radius;
};

/// The right half of a gap of a chain sprocket: the seat of the roller, then the flank up to the tip.
std::vector<Flank> chainFlank(const Wheel& wheel) {
    constexpr int seatSteps = 5;
    constexpr double seatEnds = pi / 3;  // measured from the bottom of the seat
    const double pitch = 2 * wheel.pitch * std::sin(pi / wheel.teeth);
    const double seat = std::min(wheel.pitch - wheel.root, 0.4 * pitch);

    std::vector<Flank> flank;
    for (int step = 0; step <= seatSteps; ++step) {
        const double turn = seatEnds * step / seatSteps;
        flank.push_back({seat * std::sin(turn), wheel.root + seat * (1 - std::cos(turn))});
    }
    // From the seat the tooth narrows slowly at first, then faster, to a flat tip.
    constexpr double halfTip = 0.1;                                             // of the pitch
    constexpr Flank bend[] = {{0.08, 0.25}, {0.24, 0.5}, {0.5, 0.75}, {1, 1}};  // fractions of the way from foot to tip
    const Flank foot = flank.back();
    const double halfFoot = pi * foot.radius / wheel.teeth - foot.along;
    for (const Flank& part : bend) {
        const double radius = std::lerp(foot.radius, wheel.exterior, part.radius);
        const double halfTooth = std::lerp(halfFoot, std::min(halfFoot, halfTip * pitch), part.along);
        flank.push_back({pi * radius / wheel.teeth - halfTooth, radius});
    }
    return flank;
}

/// The right half of a gap of a gear: root, flank, tip.
std::vector<Flank> gearFlank(const Wheel& wheel) {
    const double pitch = 2 * pi * wheel.pitch / wheel.teeth;
    return {{0, wheel.root},
            {0.16 * pitch, wheel.root},
            {0.2 * pitch, (wheel.root + wheel.pitch) / 2},
            {0.25 * pitch, wheel.pitch},
            {0.31 * pitch, (wheel.pitch + wheel.exterior) / 2},
            {0.39 * pitch, wheel.exterior}};
}

std::vector<Point> toothedOutline(const Wheel& wheel, Point centre) {
    const std::vector<Flank> flank = wheel.toothing == Toothing::gear ? gearFlank(wheel) : chainFlank(wheel);
    std::vector<Point> points;
    points.reserve(static_cast<std::size_t>(wheel.teeth) * 2 * flank.size());
    for (int gap = 0; gap < wheel.teeth; ++gap) {
        const double middle = pi / 2 - 2 * pi * gap / wheel.teeth;
        for (std::size_t corner = flank.size(); corner-- > 1;) {
            points.push_back(polar(centre, flank[corner].radius, middle + flank[corner].along / flank[corner].radius));
        }
        for (const Flank& corner : flank) {
            points.push_back(polar(centre, corner.radius, middle - corner.along / corner.radius));
        }
    }
    return points;
}

/// The bore with its keyway at the top, as one outline.
std::vector<Point> boreOutline(const Wheel& wheel, Point centre) {
    constexpr int steps = 72;
    const double halfKeyway = wheel.keywayWidth / 2;
    const double mouth = std::asin(halfKeyway / wheel.bore);
    const double keywayBottom = centre.y + wheel.bore + wheel.keywayDepth;
    std::vector<Point> points{{centre.x - halfKeyway, keywayBottom}, {centre.x + halfKeyway, keywayBottom}};
    for (int step = 0; step <= steps; ++step) {
        points.push_back(polar(centre, wheel.bore, pi / 2 - mouth - (2 * pi - 2 * mouth) * step / steps));
    }
    return points;
}

void drawRim(Drawing& drawing, const Wheel& wheel, Point centre) {
    if (wheel.hasTeeth() && wheel.teeth > 0) {
        area(drawing, toothedOutline(wheel, centre), Fill::solid);
    } else {
        circle(drawing, centre, wheel.exterior, Pen::outline, Fill::solid);
        if (wheel.hasTeeth()) {
            circle(drawing, centre, wheel.root, Pen::thin);
        }
    }
    if (wheel.hasTeeth()) {
        circle(drawing, centre, wheel.pitch, Pen::centre);
    }
}

/// The cut metal of one half, its profile closed along the bore.
std::vector<Point> half(const std::vector<Point>& profile, double bottom, double side) {
    std::vector<Point> points{{profile.front().x, bottom}};
    points.insert(points.end(), profile.begin(), profile.end());
    points.push_back({profile.back().x, bottom});
    for (Point& point : points) {
        point.y *= side;
    }
    return points;
}

/// Below the view along the axis, where no other dimension is; its text is at the side, because a bore is narrower than
/// it.
void dimensionBore(Drawing& drawing, const Wheel& wheel, const Stand& stand) {
    const double foot = -wheel.root;
    dimension(drawing, {stand.viewX + wheel.bore, foot}, {stand.viewX - wheel.bore, foot},
              wheel.exterior - wheel.root + firstRow * stand.row, mark(boreLabel, "", screen::TextPlace::beforeFrom));
    for (const double side : {1.0, -1.0}) {
        const double x = stand.viewX + side * wheel.bore;
        drawing.shapes.emplace_back(Path{.points = {{x, 0}, {x, foot}}, .pen = Pen::dimension, .label = boreLabel});
    }
}

}  // namespace

std::optional<double> within(double low, const std::optional<double>& value, double high) {
    return value && *value > low && *value < high ? value : std::nullopt;
}

Wheel solidWheel(const WheelMeasures& measures) {
    const double exterior = exteriorDiameter(measures);
    const bool smooth = measures.toothing == Toothing::smooth;
    const double root =
        smooth ? exterior : within(0.3 * exterior, measures.root, 0.99 * exterior).value_or(ordinary::root * exterior);
    const double pitch = within(root, measures.pitch, exterior).value_or((root + exterior) / 2);

    Wheel wheel;
    wheel.toothing = measures.toothing;
    wheel.dimensionsBore = measures.dimensionsBore;
    if (measures.teeth && *measures.teeth >= fewestTeeth && *measures.teeth <= mostTeeth) {
        wheel.teeth = *measures.teeth;
    }
    wheel.exterior = exterior / 2;
    wheel.pitch = pitch / 2;
    wheel.root = root / 2;
    return wheel;
}

void cutBore(Wheel& wheel, const WheelMeasures& measures, double narrowest) {
    const double room = 2 * narrowest;
    const double bore = within(0.02 * room, measures.bore, 0.92 * room)
                            .value_or(std::min(ordinary::bore * 2 * wheel.exterior, 0.5 * room));
    wheel.bore = bore / 2;
    wheel.keywayWidth = keywayWidth(measures, bore);
    // The keyway is somewhat less deep than half its width, and never breaks through a thin wall.
    wheel.keywayDepth = std::min(0.4 * wheel.keywayWidth, 0.6 * (room - bore) / 2);
}

double hubRadius(const Wheel& wheel, const std::optional<double>& diameter) {
    const double root = 2 * wheel.root;
    const double ordinaryHub = std::min(ordinary::hub * 2 * wheel.exterior, 0.8 * root);
    return within(0.1 * root, diameter, root).value_or(ordinaryHub) / 2;
}

std::optional<double> sensibleWidth(const Wheel& wheel, const std::optional<double>& width) {
    const double exterior = 2 * wheel.exterior;
    return within(thinnest * exterior, width, widest * exterior);
}

double widthOr(const Wheel& wheel, const std::optional<double>& width, double ordinary) {
    return sensibleWidth(wheel, width).value_or(ordinary * 2 * wheel.exterior);
}

void line(Drawing& drawing, Point from, Point to, Pen pen) {
    drawing.shapes.emplace_back(Path{{from, to}, false, pen, Fill::none});
}

void area(Drawing& drawing, std::vector<Point> points, Fill fill, Pen pen) {
    drawing.shapes.emplace_back(Path{std::move(points), true, pen, fill});
}

void circle(Drawing& drawing, Point centre, double radius, Pen pen, Fill fill) {
    drawing.shapes.emplace_back(screen::Circle{centre, radius, pen, fill});
}

Stand arrange(const Wheel& wheel, double width, const Surroundings& surroundings) {
    const double rowsHigh = surroundings.above + surroundings.below + 2 * firstRow;
    const double rowsWide = sideDistance + surroundings.between + 2;
    const double diameter = 2 * wheel.exterior;

    Stand stand;
    stand.row = std::max(diameter / (canvasHeight / rowPixels - rowsHigh),
                         (diameter + width) / (canvasWidth / rowPixels - rowsWide));
    stand.viewX = width + surroundings.between * stand.row + wheel.exterior;
    return stand;
}

void drawCutMetal(Drawing& drawing, const Wheel& wheel, const std::vector<Point>& profile) {
    const double width = profile.back().x;
    const double keywayBottom = wheel.bore + wheel.keywayDepth;

    area(drawing, half(profile, keywayBottom, 1), Fill::section);
    area(drawing, half(profile, wheel.bore, -1), Fill::section);
    line(drawing, {0, -wheel.bore}, {0, keywayBottom}, Pen::outline);
    line(drawing, {width, -wheel.bore}, {width, keywayBottom}, Pen::outline);
    if (wheel.keywayWidth > 0) {
        const double halfKeyway = wheel.keywayWidth / 2;
        const double wallFoot = std::sqrt(wheel.bore * wheel.bore - halfKeyway * halfKeyway);
        line(drawing, {0, wallFoot}, {width, wallFoot}, Pen::thin);
    }
}

void drawTeethInSection(Drawing& drawing, const Wheel& wheel, double left, double right) {
    for (const double side : {1.0, -1.0}) {
        area(drawing, toothInSection(wheel, left, right, side), Fill::solid);
    }
}

void drawPitchLine(Drawing& drawing, const Wheel& wheel, double left, double right, double row) {
    const double reach = 0.3 * row;
    for (const double side : {1.0, -1.0}) {
        line(drawing, {left - reach, side * wheel.pitch}, {right + reach, side * wheel.pitch}, Pen::centre);
    }
}

void drawAxis(Drawing& drawing, double width, double row) {
    line(drawing, {-overshoot * row, 0}, {width + overshoot * row, 0}, Pen::centre);
}

void drawFrontView(Drawing& drawing, const Wheel& wheel, const Stand& stand, std::optional<double> hub) {
    const Point centre{stand.viewX, 0};
    drawRim(drawing, wheel, centre);
    if (hub) {
        circle(drawing, centre, *hub, Pen::outline, Fill::solid);
    }
    if (wheel.keywayWidth > 0) {
        area(drawing, boreOutline(wheel, centre), Fill::blank);
    } else {
        circle(drawing, centre, wheel.bore, Pen::outline, Fill::blank);
    }
    const double reach = wheel.exterior + overshoot * stand.row;
    line(drawing, {centre.x - reach, 0}, {centre.x + reach, 0}, Pen::centre);
    line(drawing, {centre.x, -reach}, {centre.x, reach}, Pen::centre);
    if (wheel.dimensionsBore) {
        dimensionBore(drawing, wheel, stand);
    }
}

void dimension(Drawing& drawing, Point from, Point to, double offset, const Mark& mark) {
    drawing.shapes.emplace_back(screen::Dimension{from, to, offset, mark.label, mark.caption, mark.place});
}

double WidthRows::level(int place) const {
    return wheel_.exterior + (firstRow + place) * row_;
}

double WidthRows::foot(int place) const {
    return place == 0 ? wheel_.root : level(place - 1);
}

// A dimension is drawn to the left of its direction, so below the piece it runs from right to left.
void WidthRows::width(Side side, int place, double left, double right, const Mark& mark) const {
    const double offset = level(place) - foot(place);
    if (side == Side::above) {
        dimension(drawing_, {left, foot(place)}, {right, foot(place)}, offset, mark);
    } else {
        dimension(drawing_, {right, -foot(place)}, {left, -foot(place)}, offset, mark);
    }
}

void WidthRows::leadOut(Side side, int place, double x, double edge, int label) const {
    const double sign = static_cast<int>(side);
    drawing_.shapes.emplace_back(Path{
        .points = {{x, sign * edge}, {x, sign * (foot(place) + 0.2 * row_)}}, .pen = Pen::dimension, .label = label});
}

}  // namespace velmora::estimate::parts
