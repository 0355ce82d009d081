#include "velmora/estimate/multiple_drawings.h"

#include <algorithm>
#include <array>
#include <vector>

#include "velmora/estimate/drawing_parts.h"

namespace velmora::estimate {
namespace {

using parts::Mark;
using parts::mark;
using parts::Point;
using parts::Side;
using parts::Stand;
using parts::WidthRows;
using screen::Drawing;
using screen::TextPlace;

constexpr double columnDistance = 1.2;  ///< rows between two vertical dimension lines

/// A wheel with several rims on one core. Without a hub its width is zero.
struct Multiple : parts::Wheel {
    int rims = 2;
    double core = 0;  ///< radius, like the hub's
    double hub = 0;
    double hubWidth = 0;
    double chainRim = 0;
    double gap = 0;

    bool hasHub() const { return hubWidth > 0; }
    double left(int rim) const { return hubWidth + rim * (chainRim + gap); }
    double right(int rim) const { return left(rim) + chainRim; }
    double width() const { return right(rims - 1); }
};

/// Ordinary widths of a chain's rim and of a gap relative to the exterior diameter, and of the rim relative to the
/// distance between two rims.
constexpr double ordinaryChainRim = 0.09;
constexpr double ordinaryGap = 0.13;
constexpr double rimOfPitch = ordinaryChainRim / (ordinaryChainRim + ordinaryGap);

void setWidths(Multiple& piece, const MultipleMeasures& measures) {
    const auto over = parts::sensibleWidth(piece, measures.rim);
    const auto rim = parts::sensibleWidth(piece, measures.chainRim);
    const int gaps = piece.rims - 1;
    if (over && !rim) {
        piece.chainRim = *over * rimOfPitch / (gaps + rimOfPitch);
    } else {
        piece.chainRim = rim.value_or(ordinaryChainRim * 2 * piece.exterior);
    }
    std::optional<double> rest;
    if (over) {
        rest = (*over - piece.rims * piece.chainRim) / gaps;
    }
    const auto gap = parts::sensibleWidth(piece, measures.gap);
    piece.gap = rim && gap ? *gap : parts::widthOr(piece, rest, ordinaryGap);
}

/// When the height of the core is unknown, the core continues at the level of the hub.
double coreRadius(const Multiple& piece, const MultipleMeasures& measures) {
    std::optional<double> core;
    if (measures.coreHeight) {
        core = piece.exterior - *measures.coreHeight;
    }
    return parts::within(0.4 * piece.root, core, 0.995 * piece.root)
        .value_or(std::max(0.5 * piece.root, std::min(piece.hub, 0.95 * piece.root)));
}

Multiple plausibleMultiple(Rims rims, bool withHub, const MultipleMeasures& measures) {
    Multiple piece{parts::solidWheel(measures)};
    piece.rims = rims == Rims::two ? 2 : 3;
    piece.hub = parts::hubRadius(piece, withHub ? measures.hub : std::nullopt);
    piece.core = coreRadius(piece, measures);
    parts::cutBore(piece, measures, withHub ? std::min(piece.core, piece.hub) : piece.core);
    setWidths(piece, measures);
    if (withHub) {
        piece.hubWidth = parts::widthOr(piece, measures.hubWidth, parts::ordinaryHubWidth);
    }
    return piece;
}

std::vector<Point> profile(const Multiple& piece) {
    std::vector<Point> points;
    if (piece.hasHub()) {
        points.push_back({0, piece.hub});
        points.push_back({piece.hubWidth, piece.hub});
    }
    for (int rim = 0; rim < piece.rims; ++rim) {
        if (rim > 0) {
            points.push_back({piece.right(rim - 1), piece.core});
            points.push_back({piece.left(rim), piece.core});
        }
        points.push_back({piece.left(rim), piece.root});
        points.push_back({piece.right(rim), piece.root});
    }
    return points;
}

void drawSection(Drawing& drawing, const Multiple& piece, double row) {
    parts::drawCutMetal(drawing, piece, profile(piece));
    for (int rim = 0; rim < piece.rims; ++rim) {
        parts::drawTeethInSection(drawing, piece, piece.left(rim), piece.right(rim));
    }
    parts::drawPitchLine(drawing, piece, piece.hubWidth, piece.width(), row);
    parts::drawAxis(drawing, piece.width(), row);
}

/// The labels of a piece with several rims, named by what they measure.
struct Marks {
    Mark exterior;
    Mark hub;
    Mark coreHeight;
    Mark hubWidth;
    Mark rim;
    Mark totalWidth;
};

constexpr const char* exteriorCaption = "De";
constexpr const char* hubCaption = "Dm";
constexpr const char* coreHeightCaption = "H1";
constexpr const char* chainRimCaption = "b1";
constexpr const char* gapCaption = "X";
constexpr const char* hubWidthCaption = "Cubo";
constexpr const char* totalWidthCaption = "A";

template <typename Label>
Marks marks(const char* rimCaption) {
    return {
        .exterior = mark(Label::exterior, exteriorCaption),
        .hub = mark(Label::hub, hubCaption),
        .coreHeight = mark(Label::coreHeight, coreHeightCaption, TextPlace::beforeFrom),
        .hubWidth = mark(Label::hubWidth, hubWidthCaption),
        .rim = mark(Label::rim, rimCaption),
        .totalWidth = mark(Label::totalWidth, totalWidthCaption),
    };
}

void drawRimsOfTwo(const WidthRows& rows, const Multiple& piece) {
    rows.width(Side::above, 0, piece.left(0), piece.right(0),
               mark(DoubleLabel::firstRim, chainRimCaption, TextPlace::beforeFrom));
    rows.width(Side::above, 0, piece.left(1), piece.right(1),
               mark(DoubleLabel::secondRim, chainRimCaption, TextPlace::afterTo));
    rows.width(Side::above, 1, piece.right(0), piece.left(1), mark(DoubleLabel::gap, gapCaption));
}

void drawRimsOfThree(const WidthRows& rows, const Multiple& piece) {
    rows.width(Side::above, 0, piece.left(0), piece.right(0),
               mark(TripleLabel::firstRim, chainRimCaption, TextPlace::beforeFrom));
    rows.width(Side::above, 0, piece.left(2), piece.right(2),
               mark(TripleLabel::thirdRim, chainRimCaption, TextPlace::afterTo));
    rows.width(Side::above, 1, piece.right(0), piece.left(1),
               mark(TripleLabel::firstGap, gapCaption, TextPlace::beforeFrom));
    rows.width(Side::above, 1, piece.right(1), piece.left(2),
               mark(TripleLabel::secondGap, gapCaption, TextPlace::afterTo));
    rows.leadOut(Side::above, 2, piece.left(1), rows.foot(1));
    rows.leadOut(Side::above, 2, piece.right(1), rows.foot(1));
    rows.width(Side::above, 2, piece.left(1), piece.right(1), mark(TripleLabel::secondRim, chainRimCaption));
}

/// The width over all rims, in the last row above; its extension line begins at the end of that of the outer rims.
void drawRimOverAll(const WidthRows& rows, const Multiple& piece, const Mark& rim) {
    for (const double edge : {piece.left(0), piece.width()}) {
        rows.leadOut(Side::above, piece.rims, edge, rows.level(0));
    }
    rows.width(Side::above, piece.rims, piece.left(0), piece.width(), rim);
}

// Chosen C-340: a piece without a hub keeps the dimension line of its total width where that label is shown; it then
// measures the rims.
void drawWidthsBelow(const WidthRows& rows, const Multiple& piece, const Marks& marks) {
    if (piece.hasHub()) {
        rows.leadOut(Side::below, 0, 0, piece.hub + 0.1 * rows.row());
        rows.width(Side::below, 0, 0, piece.hubWidth, marks.hubWidth);
        rows.leadOut(Side::below, 1, piece.width(), piece.root, marks.totalWidth.label);
        rows.width(Side::below, 1, 0, piece.width(), marks.totalWidth);
    } else {
        rows.width(Side::below, 0, 0, piece.width(), marks.totalWidth);
    }
}

/// The height of the core, below the hub's diameter: measured where the core's level meets the outside of the piece.
void drawCoreHeight(Drawing& drawing, const Multiple& piece, double side, const Mark& coreHeight) {
    const double foot = piece.core <= piece.hub ? 0 : piece.hubWidth;
    if (foot < piece.hubWidth) {
        parts::line(drawing, {piece.hubWidth, -piece.exterior}, {foot, -piece.exterior}, parts::Pen::dimension);
    }
    parts::dimension(drawing, {foot, -piece.exterior}, {foot, -piece.core}, foot + side, coreHeight);
}

void drawDimensions(Drawing& drawing, const Multiple& piece, double row, const Marks& marks) {
    const double side = parts::sideDistance * row;
    const WidthRows rows(drawing, piece, row);
    drawRimOverAll(rows, piece, marks.rim);
    drawWidthsBelow(rows, piece, marks);
    parts::dimension(drawing, {piece.width(), piece.exterior}, {piece.width(), -piece.exterior}, side, marks.exterior);
    if (piece.hasHub()) {
        parts::dimension(drawing, {0, -piece.hub}, {0, piece.hub}, side, marks.hub);
    }
    drawCoreHeight(drawing, piece, side, marks.coreHeight);
    if (piece.rims == 2) {
        drawRimsOfTwo(rows, piece);
    } else {
        drawRimsOfThree(rows, piece);
    }
}

/// A wheel between two different hubs.
struct Variable : parts::Wheel {
    double hubA = 0;  ///< radii
    double hubB = 0;
    double hubAWidth = 0;
    double rim = 0;
    double hubBWidth = 0;

    double rimRight() const { return hubAWidth + rim; }
    double width() const { return rimRight() + hubBWidth; }
};

Variable plausibleVariable(const VariableMeasures& measures) {
    Variable piece{parts::solidWheel(measures)};
    piece.hubA = parts::hubRadius(piece, measures.hubA);
    piece.hubB = parts::hubRadius(piece, measures.hubB);
    parts::cutBore(piece, measures, std::min(piece.hubA, piece.hubB));
    piece.hubAWidth = parts::widthOr(piece, measures.hubAWidth, parts::ordinaryHubWidth);
    piece.rim = parts::widthOr(piece, measures.rim, parts::ordinaryRim);
    piece.hubBWidth = parts::widthOr(piece, measures.hubBWidth, parts::ordinaryHubWidth);
    return piece;
}

void drawSection(Drawing& drawing, const Variable& piece, double row) {
    const double left = piece.hubAWidth;
    const double right = piece.rimRight();
    parts::drawCutMetal(drawing, piece,
                        {{0, piece.hubA},
                         {left, piece.hubA},
                         {left, piece.root},
                         {right, piece.root},
                         {right, piece.hubB},
                         {piece.width(), piece.hubB}});
    if (piece.hasTeeth()) {
        parts::drawTeethInSection(drawing, piece, left, right);
        parts::drawPitchLine(drawing, piece, left, right, row);
    }
    parts::drawAxis(drawing, piece.width(), row);
}

void drawDimensions(Drawing& drawing, const Variable& piece, double row) {
    const double right = piece.rimRight();
    const double width = piece.width();
    const double side = parts::sideDistance * row;
    const double edgeA = piece.hubA + 0.1 * row;
    const double edgeB = piece.hubB + 0.1 * row;
    const WidthRows rows(drawing, piece, row);
    const Mark total = mark(VariableLabel::totalWidth, "Total");
    rows.leadOut(Side::above, 1, 0, edgeA, total.label);
    rows.leadOut(Side::above, 1, width, edgeB, total.label);
    rows.width(Side::above, 1, 0, width, total);
    rows.width(Side::above, 0, piece.hubAWidth, right, mark(VariableLabel::rim, "Llanta"));
    rows.leadOut(Side::below, 0, 0, edgeA);
    rows.width(Side::below, 0, 0, piece.hubAWidth, mark(VariableLabel::hubAWidth, "Cubo A"));
    rows.leadOut(Side::below, 1, right, piece.root);
    rows.leadOut(Side::below, 1, width, edgeB);
    rows.width(Side::below, 1, right, width, mark(VariableLabel::hubBWidth, "Cubo B"));

    parts::dimension(drawing, {0, -piece.hubA}, {0, piece.hubA}, side, mark(VariableLabel::hubA, "Ø A"));
    parts::dimension(drawing, {width, piece.hubB}, {width, -piece.hubB}, side, mark(VariableLabel::hubB, "Ø B"));
    parts::dimension(drawing, {right, piece.exterior}, {right, -piece.exterior},
                     width - right + side + columnDistance * row, mark(VariableLabel::exterior, "De"));
}

}  // namespace

screen::Drawing drawMultiple(Rims rims, bool withHub, const MultipleMeasures& measures) {
    const Multiple piece = plausibleMultiple(rims, withHub, measures);
    const Stand stand =
        parts::arrange(piece, piece.width(),
                       {.above = piece.rims + 1, .below = 3, .between = parts::sideDistance + parts::viewDistance});
    Drawing drawing;
    drawDimensions(drawing, piece, stand.row, rims == Rims::two ? marks<DoubleLabel>("B2") : marks<TripleLabel>("B3"));
    drawSection(drawing, piece, stand.row);
    parts::drawFrontView(drawing, piece, stand, piece.hasHub() ? std::optional(piece.hub) : std::nullopt);
    return drawing;
}

screen::Drawing drawVariable(const VariableMeasures& measures) {
    const Variable piece = plausibleVariable(measures);
    const Stand stand =
        parts::arrange(piece, piece.width(),
                       {.above = 2, .below = 2, .between = parts::sideDistance + columnDistance + parts::viewDistance});
    Drawing drawing;
    drawDimensions(drawing, piece, stand.row);
    drawSection(drawing, piece, stand.row);
    parts::drawFrontView(drawing, piece, stand, piece.hubA);
    if (piece.hubB > piece.hubA) {
        // Hub B is hidden by the rim in this view.
        parts::circle(drawing, {stand.viewX, 0}, piece.hubB, parts::Pen::hidden);
    }
    return drawing;
}

}  // namespace velmora::estimate
