#include "velmora/estimate/drawings.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace velmora::estimate {
namespace {

using screen::Drawing;
using screen::Fill;
using screen::Path;
using screen::Pen;
using screen::Point;

constexpr double pi = std::numbers::pi;

/// Radii and widths of a piece that can be made.
struct Piece {
    Toothing toothing = Toothing::chain;
    Hubs hubs = Hubs::one;
    int teeth = 0;  ///< zero: not known, or too many to be told apart
    double exterior = 0;
    double pitch = 0;
    double root = 0;
    double hub = 0;
    double bore = 0;
    double keywayWidth = 0;
    double keywayDepth = 0;
    double rim = 0;
    double hubWidth = 0;

    bool hasTeeth() const { return toothing != Toothing::smooth; }
    double rimLeft() const { return hubs == Hubs::none ? 0 : hubWidth; }
    double rimRight() const { return rimLeft() + rim; }
    double width() const { return rimRight() + (hubs == Hubs::two ? hubWidth : 0); }
};

/// An ordinary piece, as parts of its exterior diameter (the keyway: of the bore).
namespace ordinary {
constexpr double exteriorDiameter = 160;
constexpr double pitch = 0.93;
constexpr double root = 0.86;
constexpr double hub = 0.58;
constexpr double bore = 0.22;
constexpr double keyway = 0.28;
constexpr double rim = 0.12;
constexpr double hubWidth = 0.24;
}  // namespace ordinary

constexpr double smallestDiameter = 1;
constexpr double greatestDiameter = 20000;
constexpr double thinnest = 0.01;  // of the exterior diameter
constexpr double widest = 1.5;     // of the exterior diameter
constexpr int fewestTeeth = 5;
constexpr int mostTeeth = 110;

/// The measure when it lies strictly between the bounds. The comparison also turns away what is not a number.
std::optional<double> within(double low, const std::optional<double>& value, double high) {
    return value && *value > low && *value < high ? value : std::nullopt;
}

double exteriorDiameter(const PieceMeasures& measures) {
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

double hubWidth(const PieceMeasures& measures, Hubs hubs, double rim, double exterior) {
    if (const auto given = within(thinnest * exterior, measures.hubWidth, widest * exterior)) {
        return *given;
    }
    if (measures.totalWidth) {
        const double left = (*measures.totalWidth - rim) / (hubs == Hubs::two ? 2 : 1);
        if (const auto rest = within(thinnest * exterior, left, widest * exterior)) {
            return *rest;
        }
    }
    return ordinary::hubWidth * exterior;
}

double keywayWidth(const PieceMeasures& measures, double bore) {
    if (measures.keyway && *measures.keyway == 0) {
        return 0;
    }
    return within(0.05 * bore, measures.keyway, 0.5 * bore).value_or(ordinary::keyway * bore);
}

Piece plausiblePiece(Hubs hubs, const PieceMeasures& measures) {
    const double exterior = exteriorDiameter(measures);
    const bool smooth = measures.toothing == Toothing::smooth;
    const double root =
        smooth ? exterior : within(0.3 * exterior, measures.root, 0.99 * exterior).value_or(ordinary::root * exterior);
    const double pitch = within(root, measures.pitch, exterior).value_or((root + exterior) / 2);

    const double ordinaryHub = std::min(ordinary::hub * exterior, 0.8 * root);
    const double hub = within(0.1 * root, measures.hub, root).value_or(ordinaryHub);
    const double room = hubs == Hubs::none ? root : hub;
    const double bore =
        within(0.02 * room, measures.bore, 0.92 * room).value_or(std::min(ordinary::bore * exterior, 0.5 * room));
    const double rim = within(thinnest * exterior, measures.rim, widest * exterior).value_or(ordinary::rim * exterior);

    Piece piece;
    piece.toothing = measures.toothing;
    piece.hubs = hubs;
    if (measures.teeth && *measures.teeth >= fewestTeeth && *measures.teeth <= mostTeeth) {
        piece.teeth = *measures.teeth;
    }
    piece.exterior = exterior / 2;
    piece.pitch = pitch / 2;
    piece.root = root / 2;
    piece.hub = hub / 2;
    piece.bore = bore / 2;
    piece.keywayWidth = keywayWidth(measures, bore);
    // A key sinks into the hub by somewhat less than half of its width, and never through a thin wall.
    piece.keywayDepth = std::min(0.4 * piece.keywayWidth, 0.6 * (room - bore) / 2);
    piece.rim = rim;
    piece.hubWidth = hubWidth(measures, hubs, rim, exterior);
    return piece;
}

/// The dimension lines stand in rows, one line of text apart. On the smallest canvas that the picture is meant for
/// a row has `rowPixels`; from this follows how many millimetres of this piece that is.
constexpr double canvasWidth = 420;
constexpr double canvasHeight = 360;
constexpr double rowPixels = 21;

constexpr double firstRow = 1.3;  // all in rows
constexpr double sideDistance = 1.6;
constexpr double viewDistance = 1.8;
constexpr double overshoot = 0.5;

struct Stand {
    double row = 0;    ///< millimetres from one dimension line to the next
    double viewX = 0;  ///< the axis of the side view
};

struct RowCount {
    int above;
    int below;
};

constexpr RowCount rowsOf(Hubs hubs) {
    switch (hubs) {
        case Hubs::none:
            return {1, 0};
        case Hubs::one:
            return {1, 2};
        case Hubs::two:
            return {2, 3};
    }
    return {0, 0};
}

Stand arrange(const Piece& piece) {
    const RowCount rows = rowsOf(piece.hubs);
    const double rowsHigh = rows.above + rows.below + 2 * firstRow;
    const double rowsWide = 2 * sideDistance + viewDistance + 2;
    const double diameter = 2 * piece.exterior;

    Stand stand;
    stand.row = std::max(diameter / (canvasHeight / rowPixels - rowsHigh),
                         (diameter + piece.width()) / (canvasWidth / rowPixels - rowsWide));
    const double between = piece.hubs == Hubs::none ? viewDistance : sideDistance + viewDistance;
    stand.viewX = piece.width() + between * stand.row + piece.exterior;
    return stand;
}

void line(Drawing& drawing, Point from, Point to, Pen pen) {
    drawing.shapes.emplace_back(Path{{from, to}, false, pen, Fill::none});
}

void area(Drawing& drawing, std::vector<Point> points, Fill fill) {
    drawing.shapes.emplace_back(Path{std::move(points), true, Pen::outline, fill});
}

void circle(Drawing& drawing, Point centre, double radius, Pen pen, Fill fill = Fill::none) {
    drawing.shapes.emplace_back(screen::Circle{centre, radius, pen, fill});
}

void dimension(Drawing& drawing, Point from, Point to, double offset, PieceLabel label) {
    drawing.shapes.emplace_back(screen::Dimension{from, to, offset, static_cast<int>(label)});
}

Point polar(Point centre, double radius, double angle) {
    return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

/// The cut metal above the axis from `bottom` up to where teeth begin; `side` is -1 for the half below the axis.
std::vector<Point> cutMetal(const Piece& piece, double bottom, double side) {
    const double left = piece.rimLeft();
    const double right = piece.rimRight();
    std::vector<Point> points{{0, bottom}};
    if (piece.hubs != Hubs::none) {
        points.push_back({0, piece.hub});
        points.push_back({left, piece.hub});
    }
    points.push_back({left, piece.root});
    points.push_back({right, piece.root});
    if (piece.hubs == Hubs::two) {
        points.push_back({right, piece.hub});
        points.push_back({piece.width(), piece.hub});
    }
    points.push_back({piece.width(), bottom});
    for (Point& point : points) {
        point.y *= side;
    }
    return points;
}

/// Half of the width that a tooth of a chain sprocket loses from the root to its tip, as a part of the rim.
constexpr double tipRelief = 0.27;
constexpr int reliefSteps = 6;

/// A tooth in the section: not cut, so not hatched. A chain's tooth narrows in an arc towards its tip, so that the
/// links find their way down; a gear's keeps its width.
std::vector<Point> toothInSection(const Piece& piece, double side) {
    const double left = piece.rimLeft();
    const double right = piece.rimRight();
    const double height = piece.exterior - piece.root;
    const double relief = piece.toothing == Toothing::chain ? tipRelief * piece.rim : 0;
    const double straight = 0.25 * height;

    std::vector<Point> points{{left, piece.root}};
    for (int step = 0; step <= reliefSteps; ++step) {
        const double turn = pi / 2 * step / reliefSteps;
        points.push_back(
            {left + relief * (1 - std::cos(turn)), piece.root + straight + (height - straight) * std::sin(turn)});
    }
    for (std::size_t mirrored = points.size(); mirrored-- > 0;) {
        points.push_back({left + right - points[mirrored].x, points[mirrored].y});
    }
    for (Point& point : points) {
        point.y *= side;
    }
    return points;
}

void drawSection(Drawing& drawing, const Piece& piece, double row) {
    const double width = piece.width();
    const double keywayBottom = piece.bore + piece.keywayDepth;

    area(drawing, cutMetal(piece, keywayBottom, 1), Fill::section);
    area(drawing, cutMetal(piece, piece.bore, -1), Fill::section);
    line(drawing, {0, -piece.bore}, {0, keywayBottom}, Pen::outline);
    line(drawing, {width, -piece.bore}, {width, keywayBottom}, Pen::outline);
    if (piece.keywayWidth > 0) {
        const double halfKeyway = piece.keywayWidth / 2;
        const double wallFoot = std::sqrt(piece.bore * piece.bore - halfKeyway * halfKeyway);
        line(drawing, {0, wallFoot}, {width, wallFoot}, Pen::thin);
    }
    for (const double side : {1.0, -1.0}) {
        if (!piece.hasTeeth()) {
            break;
        }
        area(drawing, toothInSection(piece, side), Fill::solid);
        const double reach = 0.3 * row;
        line(drawing, {piece.rimLeft() - reach, side * piece.pitch}, {piece.rimRight() + reach, side * piece.pitch},
             Pen::centre);
    }
    line(drawing, {-overshoot * row, 0}, {width + overshoot * row, 0}, Pen::centre);
}

/// A corner of a tooth: how far along the circumference from the middle of the gap, at which radius.
struct Flank {
    double along;
    double radius;
};

/// The right half of a gap of a chain sprocket: the seat of the roller, then the flank up to the tip.
std::vector<Flank> chainFlank(const Piece& piece) {
    constexpr int seatSteps = 5;
    constexpr double seatEnds = pi / 3;  // measured from the bottom of the seat
    const double pitch = 2 * piece.pitch * std::sin(pi / piece.teeth);
    const double seat = std::min(piece.pitch - piece.root, 0.4 * pitch);

    std::vector<Flank> flank;
    for (int step = 0; step <= seatSteps; ++step) {
        const double turn = seatEnds * step / seatSteps;
        flank.push_back({seat * std::sin(turn), piece.root + seat * (1 - std::cos(turn))});
    }
    // From the seat the tooth narrows slowly at first, then faster, to a flat tip.
    constexpr double halfTip = 0.1;                                             // of the pitch
    constexpr Flank bend[] = {{0.08, 0.25}, {0.24, 0.5}, {0.5, 0.75}, {1, 1}};  // parts of the way from foot to tip
    const Flank foot = flank.back();
    const double halfFoot = pi * foot.radius / piece.teeth - foot.along;
    for (const Flank& part : bend) {
        const double radius = std::lerp(foot.radius, piece.exterior, part.radius);
        const double halfTooth = std::lerp(halfFoot, std::min(halfFoot, halfTip * pitch), part.along);
        flank.push_back({pi * radius / piece.teeth - halfTooth, radius});
    }
    return flank;
}

/// The right half of a gap of a gear: root, flank, tip.
std::vector<Flank> gearFlank(const Piece& piece) {
    const double pitch = 2 * pi * piece.pitch / piece.teeth;
    return {{0, piece.root},
            {0.16 * pitch, piece.root},
            {0.2 * pitch, (piece.root + piece.pitch) / 2},
            {0.25 * pitch, piece.pitch},
            {0.31 * pitch, (piece.pitch + piece.exterior) / 2},
            {0.39 * pitch, piece.exterior}};
}

std::vector<Point> toothedOutline(const Piece& piece, Point centre) {
    const std::vector<Flank> flank = piece.toothing == Toothing::gear ? gearFlank(piece) : chainFlank(piece);
    std::vector<Point> points;
    points.reserve(static_cast<std::size_t>(piece.teeth) * 2 * flank.size());
    for (int gap = 0; gap < piece.teeth; ++gap) {
        const double middle = pi / 2 - 2 * pi * gap / piece.teeth;
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
std::vector<Point> boreOutline(const Piece& piece, Point centre) {
    constexpr int steps = 72;
    const double halfKeyway = piece.keywayWidth / 2;
    const double mouth = std::asin(halfKeyway / piece.bore);
    const double keywayBottom = centre.y + piece.bore + piece.keywayDepth;
    std::vector<Point> points{{centre.x - halfKeyway, keywayBottom}, {centre.x + halfKeyway, keywayBottom}};
    for (int step = 0; step <= steps; ++step) {
        points.push_back(polar(centre, piece.bore, pi / 2 - mouth - (2 * pi - 2 * mouth) * step / steps));
    }
    return points;
}

void drawRim(Drawing& drawing, const Piece& piece, Point centre) {
    if (piece.hasTeeth() && piece.teeth > 0) {
        area(drawing, toothedOutline(piece, centre), Fill::solid);
    } else {
        circle(drawing, centre, piece.exterior, Pen::outline, Fill::solid);
        if (piece.hasTeeth()) {
            circle(drawing, centre, piece.root, Pen::thin);
        }
    }
    if (piece.hasTeeth()) {
        circle(drawing, centre, piece.pitch, Pen::centre);
    }
}

void drawSideView(Drawing& drawing, const Piece& piece, const Stand& stand) {
    const Point centre{stand.viewX, 0};
    drawRim(drawing, piece, centre);
    if (piece.hubs != Hubs::none) {
        circle(drawing, centre, piece.hub, Pen::outline, Fill::solid);
    }
    if (piece.keywayWidth > 0) {
        area(drawing, boreOutline(piece, centre), Fill::blank);
    } else {
        circle(drawing, centre, piece.bore, Pen::outline, Fill::blank);
    }
    const double reach = piece.exterior + overshoot * stand.row;
    line(drawing, {centre.x - reach, 0}, {centre.x + reach, 0}, Pen::centre);
    line(drawing, {centre.x, -reach}, {centre.x, reach}, Pen::centre);
}

/// Above or below the axis.
enum class Side { above = 1, below = -1 };

/// How far from the axis the dimension line of a row stands.
double rowLevel(const Piece& piece, double row, int place) {
    return piece.exterior + (firstRow + place) * row;
}

/// Where the extension lines of a row begin: those of the first at the rim, those of a further one at the row before,
/// so that no two of them lie on each other.
double rowFoot(const Piece& piece, double row, int place) {
    return place == 0 ? piece.root : rowLevel(piece, row, place - 1);
}

/// A width in the given row counted from the piece. A dimension stands to the left of its direction, so below the
/// piece it runs from right to left.
void widthInRow(Drawing& drawing, const Piece& piece, double row, Side side, int place, double left, double right,
                PieceLabel label) {
    const double foot = rowFoot(piece, row, place);
    const double offset = rowLevel(piece, row, place) - foot;
    if (side == Side::above) {
        dimension(drawing, {left, foot}, {right, foot}, offset, label);
    } else {
        dimension(drawing, {right, -foot}, {left, -foot}, offset, label);
    }
}

/// Leads an edge out to where the extension line of a row begins, and a little further: a toolkit may leave a gap
/// there.
void leadOut(Drawing& drawing, const Piece& piece, double row, Side side, int place, double x, double edge) {
    const double sign = static_cast<int>(side);
    line(drawing, {x, sign * edge}, {x, sign * (rowFoot(piece, row, place) + 0.2 * row)}, Pen::dimension);
}

void drawWidthsOfOneHub(Drawing& drawing, const Piece& piece, double row) {
    const double right = piece.rimRight();
    leadOut(drawing, piece, row, Side::below, 0, 0, piece.hub + 0.1 * row);
    widthInRow(drawing, piece, row, Side::below, 0, 0, piece.rimLeft(), PieceLabel::hubWidth);
    leadOut(drawing, piece, row, Side::below, 1, right, piece.root);
    widthInRow(drawing, piece, row, Side::below, 1, 0, right, PieceLabel::totalWidth);
}

// Chosen C-321: with two hubs both labels of the total width measure the whole piece; they differ only while the one
// still holds the total of the table and the other the sum of the widths.
void drawWidthsOfTwoHubs(Drawing& drawing, const Piece& piece, double row) {
    const double right = piece.rimRight();
    const double width = piece.width();
    const double hubEdge = piece.hub + 0.1 * row;
    leadOut(drawing, piece, row, Side::above, 1, 0, hubEdge);
    leadOut(drawing, piece, row, Side::above, 1, width, hubEdge);
    widthInRow(drawing, piece, row, Side::above, 1, 0, width, PieceLabel::totalWidthOfTwoHubs);

    leadOut(drawing, piece, row, Side::below, 0, 0, hubEdge);
    widthInRow(drawing, piece, row, Side::below, 0, 0, piece.rimLeft(), PieceLabel::hubWidth);
    leadOut(drawing, piece, row, Side::below, 1, right, piece.root);
    leadOut(drawing, piece, row, Side::below, 1, width, hubEdge);
    widthInRow(drawing, piece, row, Side::below, 1, right, width, PieceLabel::secondHubWidth);
    leadOut(drawing, piece, row, Side::below, 2, 0, rowFoot(piece, row, 1));
    widthInRow(drawing, piece, row, Side::below, 2, 0, width, PieceLabel::totalWidth);
}

// Chosen C-320: the disc keeps the line of its width, which carries the label of the rim: that label is shown for every
// piece, and a value that points at nothing could not be checked by eye.
void drawDimensions(Drawing& drawing, const Piece& piece, double row) {
    const double left = piece.rimLeft();
    const double right = piece.rimRight();
    const double side = sideDistance * row;
    widthInRow(drawing, piece, row, Side::above, 0, left, right, PieceLabel::rim);
    if (piece.hubs == Hubs::none) {
        dimension(drawing, {left, -piece.exterior}, {left, piece.exterior}, side, PieceLabel::exterior);
        return;
    }
    dimension(drawing, {right, piece.exterior}, {right, -piece.exterior}, piece.width() - right + side,
              PieceLabel::exterior);
    dimension(drawing, {0, -piece.hub}, {0, piece.hub}, side, PieceLabel::hub);
    if (piece.hubs == Hubs::one) {
        drawWidthsOfOneHub(drawing, piece, row);
    } else {
        drawWidthsOfTwoHubs(drawing, piece, row);
    }
}

}  // namespace

screen::Drawing drawPiece(Hubs hubs, const PieceMeasures& measures) {
    const Piece piece = plausiblePiece(hubs, measures);
    const Stand stand = arrange(piece);
    Drawing drawing;
    // The dimensions come first: where an extension line runs along an edge, the edge lies over it.
    drawDimensions(drawing, piece, stand.row);
    drawSection(drawing, piece, stand.row);
    drawSideView(drawing, piece, stand);
    return drawing;
}

}  // namespace velmora::estimate
