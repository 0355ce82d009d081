#include "velmora/estimate/drawings.h"

#include <vector>

#include "velmora/estimate/drawing_parts.h"

namespace velmora::estimate {
namespace {

using parts::mark;
using parts::Point;
using parts::Side;
using parts::Stand;
using parts::Surroundings;
using parts::WidthRows;
using screen::Drawing;

/// A wheel with its hubs and widths.
struct Piece : parts::Wheel {
    Hubs hubs = Hubs::one;
    double hub = 0;  ///< radius
    double rim = 0;
    double hubWidth = 0;

    double rimLeft() const { return hubs == Hubs::none ? 0 : hubWidth; }
    double rimRight() const { return rimLeft() + rim; }
    double width() const { return rimRight() + (hubs == Hubs::two ? hubWidth : 0); }
};

double hubWidth(const parts::Wheel& wheel, const PieceMeasures& measures, Hubs hubs, double rim) {
    if (const auto given = parts::sensibleWidth(wheel, measures.hubWidth)) {
        return *given;
    }
    std::optional<double> rest;
    if (measures.totalWidth) {
        rest = (*measures.totalWidth - rim) / (hubs == Hubs::two ? 2 : 1);
    }
    return parts::widthOr(wheel, rest, parts::ordinaryHubWidth);
}

Piece plausiblePiece(Hubs hubs, const PieceMeasures& measures) {
    Piece piece{parts::solidWheel(measures)};
    piece.hubs = hubs;
    piece.hub = parts::hubRadius(piece, measures.hub);
    parts::cutBore(piece, measures, hubs == Hubs::none ? piece.root : piece.hub);
    piece.rim = parts::widthOr(piece, measures.rim, parts::ordinaryRim);
    piece.hubWidth = hubWidth(piece, measures, hubs, piece.rim);
    return piece;
}

constexpr Surroundings surroundings(Hubs hubs) {
    constexpr double between = parts::sideDistance + parts::viewDistance;
    switch (hubs) {
        case Hubs::none:
            return {.above = 1, .below = 0};
        case Hubs::one:
            return {.above = 1, .below = 2, .between = between};
        case Hubs::two:
            return {.above = 2, .below = 3, .between = between};
    }
    return {};
}

std::vector<Point> profile(const Piece& piece) {
    const double left = piece.rimLeft();
    const double right = piece.rimRight();
    std::vector<Point> points;
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
    return points;
}

void drawSection(Drawing& drawing, const Piece& piece, double row) {
    parts::drawCutMetal(drawing, piece, profile(piece));
    if (piece.hasTeeth()) {
        parts::drawTeethInSection(drawing, piece, piece.rimLeft(), piece.rimRight());
        parts::drawPitchLine(drawing, piece, piece.rimLeft(), piece.rimRight(), row);
    }
    parts::drawAxis(drawing, piece.width(), row);
}

void drawWidthsOfOneHub(const WidthRows& rows, const Piece& piece) {
    const double right = piece.rimRight();
    rows.leadOut(Side::below, 0, 0, piece.hub + 0.1 * rows.row());
    rows.width(Side::below, 0, 0, piece.rimLeft(), mark(PieceLabel::hubWidth));
    const parts::Mark total = mark(PieceLabel::totalWidth);
    rows.leadOut(Side::below, 1, right, piece.root, total.label);
    rows.width(Side::below, 1, 0, right, total);
}

// Chosen C-321: with two hubs both labels of the total width measure the whole piece; they differ only while one still
// has the total of the table and the other the sum of the widths.
void drawWidthsOfTwoHubs(const WidthRows& rows, const Piece& piece) {
    const double right = piece.rimRight();
    const double width = piece.width();
    const double hubEdge = piece.hub + 0.1 * rows.row();
    const parts::Mark sum = mark(PieceLabel::totalWidthOfTwoHubs);
    rows.leadOut(Side::above, 1, 0, hubEdge, sum.label);
    rows.leadOut(Side::above, 1, width, hubEdge, sum.label);
    rows.width(Side::above, 1, 0, width, sum);

    rows.leadOut(Side::below, 0, 0, hubEdge);
    rows.width(Side::below, 0, 0, piece.rimLeft(), mark(PieceLabel::hubWidth));
    rows.leadOut(Side::below, 1, right, piece.root);
    rows.leadOut(Side::below, 1, width, hubEdge);
    rows.width(Side::below, 1, right, width, mark(PieceLabel::secondHubWidth));
    const parts::Mark total = mark(PieceLabel::totalWidth);
    rows.leadOut(Side::below, 2, 0, rows.foot(1), total.label);
    rows.width(Side::below, 2, 0, width, total);
}

// Chosen C-320: the disc keeps the dimension line of its width for the label of the rim: that label is shown for every
// piece, and a value without a dimension line would refer to nothing visible.
void drawDimensions(Drawing& drawing, const Piece& piece, double row) {
    const double left = piece.rimLeft();
    const double right = piece.rimRight();
    const double side = parts::sideDistance * row;
    const WidthRows rows(drawing, piece, row);
    rows.width(Side::above, 0, left, right, mark(PieceLabel::rim));
    if (piece.hubs == Hubs::none) {
        parts::dimension(drawing, {left, -piece.exterior}, {left, piece.exterior}, side, mark(PieceLabel::exterior));
        return;
    }
    parts::dimension(drawing, {right, piece.exterior}, {right, -piece.exterior}, piece.width() - right + side,
                     mark(PieceLabel::exterior));
    parts::dimension(drawing, {0, -piece.hub}, {0, piece.hub}, side, mark(PieceLabel::hub));
    if (piece.hubs == Hubs::one) {
        drawWidthsOfOneHub(rows, piece);
    } else {
        drawWidthsOfTwoHubs(rows, piece);
    }
}

std::optional<double> visibleHub(const Piece& piece) {
    return piece.hubs == Hubs::none ? std::nullopt : std::optional(piece.hub);
}

}  // namespace

screen::Drawing drawPiece(Hubs hubs, const PieceMeasures& measures) {
    const Piece piece = plausiblePiece(hubs, measures);
    const Stand stand = parts::arrange(piece, piece.width(), surroundings(hubs));
    Drawing drawing;
    // Dimensions first: where an extension line runs along an edge, the edge is drawn over it.
    drawDimensions(drawing, piece, stand.row);
    drawSection(drawing, piece, stand.row);
    parts::drawFrontView(drawing, piece, stand, visibleHub(piece));
    return drawing;
}

screen::Drawing drawSideView(Hubs hubs, const PieceMeasures& measures) {
    constexpr double rowOfExterior = 0.2;
    const Piece piece = plausiblePiece(hubs, measures);
    Drawing drawing;
    parts::drawFrontView(drawing, piece, {.row = rowOfExterior * piece.exterior}, visibleHub(piece));
    return drawing;
}

}  // namespace velmora::estimate
