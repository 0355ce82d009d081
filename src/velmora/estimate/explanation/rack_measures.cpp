// Measures of a rack, from its module and its height.

#include "velmora/estimate/explanation/figures.h"
#include "velmora/estimate/rules.h"

namespace velmora::estimate::explaining {

namespace {

constexpr const char* rackMask = "#,##0.00";

bool isRack(const data::ProductType& type) {
    return type.shape == data::ProductShape::rack;
}

std::vector<Derivation> pitchOfRack(Ground& g) {
    return {Deriving("Módulo × π, con π = 3,1416")
                .with(g, "Módulo", g.f.Text1(measure::rackModule), "mm")
                .rounded(rounding::shown)
                .gives(rackPitch(g.measured(measure::rackModule)), rackMask)};
}

std::vector<Derivation> toothHeightOfRack(Ground& g) {
    return {Deriving("Módulo × 2,25")
                .with(g, "Módulo", g.f.Text1(measure::rackModule), "mm")
                .rounded(rounding::shown)
                .gives(rackToothHeight(g.measured(measure::rackModule)), rackMask)};
}

std::vector<Derivation> bodyOfRack(Ground& g) {
    return {Deriving("H − h: la altura de la barra bajo los dientes")
                .with(g, "H", g.f.Text1(measure::rackHeight), "mm")
                .with(g, "h", g.f.Text1(measure::rackToothHeight), "mm")
                .rounded(rounding::shown)
                .gives(g.measured(measure::rackHeight) - g.measured(measure::rackToothHeight), rackMask)};
}

}  // namespace

void addRackMeasures(Figures& figures) {
    const auto add = [&figures](measure::Index field, const char* title,
                                std::function<std::vector<Derivation>(Ground&)> derive) {
        figures.push_back({.field = field,
                           .topic = Topic::measures,
                           .title = title,
                           .unit = "mm",
                           .holdsFor = isRack,
                           .rule = "Se calcula al dejar el módulo o la altura",
                           .derive = std::move(derive)});
    };
    add(measure::rackPitch, "Paso", pitchOfRack);
    add(measure::rackToothHeight, "h", toothHeightOfRack);
    add(measure::rackBody, "A", bodyOfRack);
}

}  // namespace velmora::estimate::explaining
