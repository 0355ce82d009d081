#include "velmora/estimate/product_drawing.h"

#include <algorithm>
#include <array>

#include "velmora/data/product_types.h"
#include "velmora/estimate/multiple_drawings.h"
#include "velmora/estimate/rack_drawing.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

namespace {

constexpr double mostTeeth = 10000;

void putWheel(WheelMeasures& wheel, const data::ProductType& type, const ProductMeasures& m) {
    wheel.toothing = type.toothing;
    if (m.teeth && *m.teeth >= 0 && *m.teeth <= mostTeeth) {
        wheel.teeth = static_cast<int>(*m.teeth);
    }
    wheel.exterior = m.exterior;
    wheel.pitch = m.pitchDiameter;
    wheel.root = m.root;
    wheel.bore = m.bore;
    wheel.keyway = m.keyway;
    wheel.dimensionsBore = true;
}

/// The hubs of a piece with one rim; one for an unknown type.
Hubs hubsOfOneRim(const data::ProductType& type) {
    switch (type.hubs) {
        case data::Hubs::none:
            return Hubs::none;
        case data::Hubs::twoAlike:
            return Hubs::two;
        default:
            return Hubs::one;
    }
}

screen::Drawing drawOneRim(const data::ProductType& type, const ProductMeasures& m) {
    PieceMeasures piece;
    putWheel(piece, type, m);
    piece.hub = m.hub;
    piece.rim = m.rim;
    piece.hubWidth = m.hubWidth;
    piece.totalWidth = m.totalWidth;
    return drawPiece(hubsOfOneRim(type), piece);
}

screen::Drawing drawSeveralRims(const data::ProductType& type, const ProductMeasures& m) {
    MultipleMeasures multiple;
    putWheel(multiple, type, m);
    multiple.chainRim = m.chainRim;
    multiple.gap = m.gap;
    multiple.rim = m.rim;
    multiple.coreHeight = m.coreHeight;
    multiple.hub = m.hub;
    multiple.hubWidth = m.hubWidth;
    const Rims rims = type.shape == data::ProductShape::threeRims ? Rims::three : Rims::two;
    return drawMultiple(rims, type.hasHub(), multiple);
}

screen::Drawing drawBetweenUnlikeHubs(const data::ProductType& type, const ProductMeasures& m) {
    VariableMeasures variable;
    putWheel(variable, type, m);
    variable.hubA = m.hub;
    variable.hubAWidth = m.hubWidth;
    variable.rim = m.rim;
    variable.hubB = m.secondHub;
    variable.hubBWidth = m.secondHubWidth;
    return drawVariable(variable);
}

screen::Drawing drawBar(const data::ProductType& /*type*/, const ProductMeasures& m) {
    return drawRack({.module = m.module,
                     .pitch = m.pitch,
                     .toothHeight = m.toothHeight,
                     .height = m.height,
                     .length = m.length,
                     .width = m.width});
}

/// Collects the texts of the places.
class Labels {
  public:
    template <typename Label>
    Labels& put(Label label, std::optional<double> value, const char* words = "") {
        if (value && *value != 0) {
            texts_[static_cast<int>(label)] = words + runtime::CStr(*value);
        }
        return *this;
    }
    std::map<int, std::string> take() { return std::move(texts_); }

  private:
    std::map<int, std::string> texts_;
};

Labels labelsOfOneRim(const data::ProductType& type, const ProductMeasures& m) {
    Labels labels;
    labels.put(PieceLabel::exterior, m.exterior, "Ø exterior ").put(PieceLabel::rim, m.rim, "Llanta ");
    const Hubs hubs = hubsOfOneRim(type);
    if (hubs != Hubs::none) {
        labels.put(PieceLabel::hub, m.hub, "Ø cubo ")
            .put(PieceLabel::hubWidth, m.hubWidth, "Cubo ")
            .put(PieceLabel::totalWidth, m.totalWidth, "Ancho total ");
    }
    if (hubs == Hubs::two) {
        labels.put(PieceLabel::secondHubWidth, m.hubWidth, "Cubo ")
            .put(PieceLabel::totalWidthOfTwoHubs, m.totalWidth, "Ancho total ");
    }
    return labels;
}

Labels labelsOfTwoRims(const data::ProductType& type, const ProductMeasures& m) {
    Labels labels;
    labels.put(DoubleLabel::exterior, m.exterior)
        .put(DoubleLabel::coreHeight, m.coreHeight)
        .put(DoubleLabel::rim, m.rim)
        .put(DoubleLabel::firstRim, m.chainRim)
        .put(DoubleLabel::gap, m.gap)
        .put(DoubleLabel::secondRim, m.chainRim);
    if (type.hasHub()) {
        labels.put(DoubleLabel::hub, m.hub)
            .put(DoubleLabel::hubWidth, m.hubWidth)
            .put(DoubleLabel::totalWidth, m.totalWidth);
    }
    return labels;
}

Labels labelsOfThreeRims(const data::ProductType& type, const ProductMeasures& m) {
    Labels labels;
    labels.put(TripleLabel::exterior, m.exterior)
        .put(TripleLabel::coreHeight, m.coreHeight)
        .put(TripleLabel::rim, m.rim)
        .put(TripleLabel::firstRim, m.chainRim)
        .put(TripleLabel::firstGap, m.gap)
        .put(TripleLabel::secondRim, m.chainRim)
        .put(TripleLabel::secondGap, m.gap)
        .put(TripleLabel::thirdRim, m.chainRim);
    if (type.hasHub()) {
        labels.put(TripleLabel::hub, m.hub)
            .put(TripleLabel::hubWidth, m.hubWidth)
            .put(TripleLabel::totalWidth, m.totalWidth);
    }
    return labels;
}

Labels labelsOfUnlikeHubs(const data::ProductType& /*type*/, const ProductMeasures& m) {
    std::optional<double> total;
    if (m.hubWidth && m.rim && m.secondHubWidth) {
        total = runtime::Redondear(*m.hubWidth + *m.rim + *m.secondHubWidth, 2);
    }
    Labels labels;
    labels.put(VariableLabel::totalWidth, total)
        .put(VariableLabel::hubAWidth, m.hubWidth)
        .put(VariableLabel::rim, m.rim)
        .put(VariableLabel::hubBWidth, m.secondHubWidth)
        .put(VariableLabel::hubB, m.secondHub)
        .put(VariableLabel::hubA, m.hub)
        .put(VariableLabel::exterior, m.exterior);
    return labels;
}

Labels labelsOfRack(const data::ProductType& /*type*/, const ProductMeasures& m) {
    std::optional<double> body;
    if (m.height && m.toothHeight) {
        body = runtime::Redondear(*m.height - *m.toothHeight, 2);
    }
    Labels labels;
    labels.put(RackLabel::toothHeight, m.toothHeight)
        .put(RackLabel::height, m.height)
        .put(RackLabel::bodyHeight, body)
        .put(RackLabel::length, m.length)
        .put(RackLabel::thickness, m.height)
        .put(RackLabel::width, m.width);
    return labels;
}

/// The drawing of a shape and its texts.
struct Picture {
    data::ProductShape shape;
    screen::Drawing (*draw)(const data::ProductType&, const ProductMeasures&);
    Labels (*labels)(const data::ProductType&, const ProductMeasures&);
};

constexpr std::array pictures{
    Picture{.shape = data::ProductShape::oneRim, .draw = drawOneRim, .labels = labelsOfOneRim},
    Picture{.shape = data::ProductShape::twoRims, .draw = drawSeveralRims, .labels = labelsOfTwoRims},
    Picture{.shape = data::ProductShape::threeRims, .draw = drawSeveralRims, .labels = labelsOfThreeRims},
    Picture{.shape = data::ProductShape::variable, .draw = drawBetweenUnlikeHubs, .labels = labelsOfUnlikeHubs},
    Picture{.shape = data::ProductShape::rack, .draw = drawBar, .labels = labelsOfRack},
};

constexpr bool hasPicture(const data::ProductType& type) {
    return std::ranges::find(pictures, type.shape, &Picture::shape) != pictures.end();
}

static_assert(std::ranges::all_of(data::productTypes, hasPicture) && hasPicture(data::unknownProductType));

const Picture& pictureOf(const data::ProductType& type) {
    return *std::ranges::find(pictures, type.shape, &Picture::shape);
}

}  // namespace

Hubs hubsOf(int type) {
    return hubsOfOneRim(data::productType(type));
}

screen::Drawing drawProduct(int type, const ProductMeasures& measures) {
    const data::ProductType& row = data::productType(type);
    return pictureOf(row).draw(row, measures);
}

std::map<int, std::string> drawingLabels(int type, const ProductMeasures& measures) {
    const data::ProductType& row = data::productType(type);
    Labels labels = pictureOf(row).labels(row, measures);
    if (row.shape != data::ProductShape::rack) {
        labels.put(boreLabel, measures.bore, "Ø eje ");
    }
    return labels.take();
}

}  // namespace velmora::estimate
