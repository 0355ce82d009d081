#include "velmora/reference/value_sketches.h"

#include <map>
#include <variant>

#include "velmora/estimate/drawings.h"
#include "velmora/estimate/multiple_drawings.h"

namespace velmora::reference {

namespace {

using screen::Dimension;
using screen::Drawing;
using Letters = std::map<int, const char*>;

constexpr double exampleBore = 26;  // mm

template <typename Label>
int labelOf(Label label) {
    return static_cast<int>(label);
}

/// The drawing with letters instead of value labels. Dimensions without a letter, and lines that belong to them, are
/// left out.
Drawing lettered(const Drawing& drawing, const Letters& letters) {
    Drawing result;
    for (const screen::Shape& shape : drawing.shapes) {
        if (const auto* dimension = std::get_if<Dimension>(&shape)) {
            if (const auto letter = letters.find(dimension->label); letter != letters.end()) {
                Dimension named = *dimension;
                named.label = -1;
                named.caption = letter->second;
                result.shapes.emplace_back(named);
            }
        } else if (const auto* path = std::get_if<screen::Path>(&shape)) {
            if (path->label < 0 || letters.contains(path->label)) {
                screen::Path line = *path;
                line.label = -1;
                result.shapes.emplace_back(line);
            }
        } else {
            result.shapes.push_back(shape);
        }
    }
    return result;
}

/// The bore in the section whose right end is at `right`, measured within the piece.
void measureBore(Drawing& drawing, double right, const char* letter) {
    const double x = right * 0.75;
    drawing.shapes.emplace_back(Dimension{
        .from = {x, -exampleBore / 2}, .to = {x, exampleBore / 2}, .offset = 0, .label = -1, .caption = letter});
}

/// A line below the view beside the section.
void writeBelowView(Drawing& drawing, double radius, const char* text) {
    for (const screen::Shape& shape : drawing.shapes) {
        if (const auto* circle = std::get_if<screen::Circle>(&shape)) {
            const screen::Point below{circle->centre.x, -1.3 * radius};
            drawing.shapes.emplace_back(screen::Caption{.at = below, .text = text});
            return;
        }
    }
}

}  // namespace

Drawing gearSketch(bool withHub) {
    using estimate::PieceLabel;
    constexpr double exteriorRadius = 50;
    constexpr double face = 34;
    constexpr double hubWidth = 26;
    estimate::PieceMeasures gear;
    gear.toothing = data::Toothing::gear;
    gear.teeth = 18;
    gear.exterior = 2 * exteriorRadius;
    gear.pitch = 90;
    gear.root = 77;
    gear.bore = exampleBore;
    gear.keyway = 0;
    gear.hub = 56;
    gear.rim = face;
    gear.hubWidth = hubWidth;
    gear.totalWidth = face + hubWidth;
    const estimate::Hubs hubs = withHub ? estimate::Hubs::one : estimate::Hubs::none;
    Drawing drawing = lettered(estimate::drawPiece(hubs, gear), {{labelOf(PieceLabel::exterior), "De"},
                                                                 {labelOf(PieceLabel::rim), "B"},
                                                                 {labelOf(PieceLabel::hub), "Dm"},
                                                                 {labelOf(PieceLabel::hubWidth), "C"},
                                                                 {labelOf(PieceLabel::totalWidth), "A"}});
    measureBore(drawing, withHub ? face + hubWidth : face, "D1");
    writeBelowView(drawing, exteriorRadius, "M = Dp / Z");
    return drawing;
}

Drawing doubleSketch() {
    using estimate::DoubleLabel;
    constexpr double rims = 44;
    constexpr double hubWidth = 22;
    estimate::MultipleMeasures piece;
    piece.toothing = data::Toothing::chain;
    piece.teeth = 17;
    piece.exterior = 112;
    piece.pitch = 102;
    piece.root = 90;
    piece.bore = exampleBore;
    piece.keyway = 0;
    piece.chainRim = 14;
    piece.gap = 16;
    piece.rim = rims;
    piece.coreHeight = 24;
    piece.hub = 60;
    piece.hubWidth = hubWidth;
    Drawing drawing =
        lettered(estimate::drawMultiple(estimate::Rims::two, true, piece), {{labelOf(DoubleLabel::exterior), "De"},
                                                                            {labelOf(DoubleLabel::hub), "Dm"},
                                                                            {labelOf(DoubleLabel::coreHeight), "H1"},
                                                                            {labelOf(DoubleLabel::totalWidth), "A"},
                                                                            {labelOf(DoubleLabel::rim), "B2"},
                                                                            {labelOf(DoubleLabel::firstRim), "b1"},
                                                                            {labelOf(DoubleLabel::secondRim), "b1"},
                                                                            {labelOf(DoubleLabel::gap), "X"}});
    measureBore(drawing, rims + hubWidth, "D2");
    return drawing;
}

}  // namespace velmora::reference
