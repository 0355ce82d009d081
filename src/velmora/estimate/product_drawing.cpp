#include "velmora/estimate/product_drawing.h"

#include "velmora/data/product_numbers.h"
#include "velmora/estimate/multiple_drawings.h"
#include "velmora/estimate/rack_drawing.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

namespace {

constexpr double mostTeeth = 10000;

Toothing toothing(int type) {
    if (data::isSmoothPulley(type)) {
        return Toothing::smooth;
    }
    return data::isGear(type) ? Toothing::gear : Toothing::chain;
}

void putWheel(WheelMeasures& wheel, int type, const ProductMeasures& m) {
    wheel.toothing = toothing(type);
    if (m.teeth && *m.teeth >= 0 && *m.teeth <= mostTeeth) {
        wheel.teeth = static_cast<int>(*m.teeth);
    }
    wheel.exterior = m.exterior;
    wheel.pitch = m.pitchDiameter;
    wheel.root = m.root;
    wheel.bore = m.bore;
    wheel.keyway = m.keyway;
}

screen::Drawing drawOneRim(int type, const ProductMeasures& m) {
    PieceMeasures piece;
    putWheel(piece, type, m);
    piece.hub = m.hub;
    piece.rim = m.rim;
    piece.hubWidth = m.hubWidth;
    piece.totalWidth = m.totalWidth;
    return drawPiece(hubsOf(type), piece);
}

screen::Drawing drawSeveralRims(int type, const ProductMeasures& m) {
    MultipleMeasures multiple;
    putWheel(multiple, type, m);
    multiple.chainRim = m.chainRim;
    multiple.gap = m.gap;
    multiple.rim = m.rim;
    multiple.coreHeight = m.coreHeight;
    multiple.hub = m.hub;
    multiple.hubWidth = m.hubWidth;
    return drawMultiple(data::isTriple(type) ? Rims::three : Rims::two, data::hasHub(type), multiple);
}

screen::Drawing drawTwoUnlikeHubs(int type, const ProductMeasures& m) {
    VariableMeasures variable;
    putWheel(variable, type, m);
    variable.hubA = m.hub;
    variable.hubAWidth = m.hubWidth;
    variable.rim = m.rim;
    variable.hubB = m.secondHub;
    variable.hubBWidth = m.secondHubWidth;
    return drawVariable(variable);
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

Labels labelsOfOneRim(int type, const ProductMeasures& m) {
    Labels labels;
    labels.put(PieceLabel::exterior, m.exterior, "Ø exterior ").put(PieceLabel::rim, m.rim, "Llanta ");
    const Hubs hubs = hubsOf(type);
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

Labels labelsOfTwoRims(bool hub, const ProductMeasures& m) {
    Labels labels;
    labels.put(DoubleLabel::exterior, m.exterior)
        .put(DoubleLabel::coreHeight, m.coreHeight)
        .put(DoubleLabel::rim, m.rim)
        .put(DoubleLabel::firstRim, m.chainRim)
        .put(DoubleLabel::gap, m.gap)
        .put(DoubleLabel::secondRim, m.chainRim);
    if (hub) {
        labels.put(DoubleLabel::hub, m.hub)
            .put(DoubleLabel::hubWidth, m.hubWidth)
            .put(DoubleLabel::totalWidth, m.totalWidth);
    }
    return labels;
}

Labels labelsOfThreeRims(bool hub, const ProductMeasures& m) {
    Labels labels;
    labels.put(TripleLabel::exterior, m.exterior)
        .put(TripleLabel::coreHeight, m.coreHeight)
        .put(TripleLabel::rim, m.rim)
        .put(TripleLabel::firstRim, m.chainRim)
        .put(TripleLabel::firstGap, m.gap)
        .put(TripleLabel::secondRim, m.chainRim)
        .put(TripleLabel::secondGap, m.gap)
        .put(TripleLabel::thirdRim, m.chainRim);
    if (hub) {
        labels.put(TripleLabel::hub, m.hub)
            .put(TripleLabel::hubWidth, m.hubWidth)
            .put(TripleLabel::totalWidth, m.totalWidth);
    }
    return labels;
}

Labels labelsOfTwoUnlikeHubs(const ProductMeasures& m) {
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

Labels labelsOfRack(const ProductMeasures& m) {
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

}  // namespace

Hubs hubsOf(int type) {
    if (type == data::disc || type == data::gearDisc) {
        return Hubs::none;
    }
    return data::hasTwinHubs(type) ? Hubs::two : Hubs::one;
}

screen::Drawing drawProduct(int type, const ProductMeasures& measures) {
    if (data::isDouble(type) || data::isTriple(type)) {
        return drawSeveralRims(type, measures);
    }
    if (data::isVariable(type)) {
        return drawTwoUnlikeHubs(type, measures);
    }
    if (data::isRack(type)) {
        return drawRack({.module = measures.module,
                         .pitch = measures.pitch,
                         .toothHeight = measures.toothHeight,
                         .height = measures.height,
                         .length = measures.length,
                         .width = measures.width});
    }
    return drawOneRim(type, measures);
}

std::map<int, std::string> drawingLabels(int type, const ProductMeasures& measures) {
    if (data::isDouble(type)) {
        return labelsOfTwoRims(data::hasHub(type), measures).take();
    }
    if (data::isTriple(type)) {
        return labelsOfThreeRims(data::hasHub(type), measures).take();
    }
    if (data::isVariable(type)) {
        return labelsOfTwoUnlikeHubs(measures).take();
    }
    if (data::isRack(type)) {
        return labelsOfRack(measures).take();
    }
    return labelsOfOneRim(type, measures).take();
}

}  // namespace velmora::estimate
