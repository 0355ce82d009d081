// Weights of the stock pieces by their article's formula, and the approximate weight of the finished piece.

#include "velmora/estimate/explanation/figures.h"
#include "velmora/estimate/rules.h"

namespace velmora::estimate::explaining {

namespace {

bool hasDiscWeight(const data::ProductType& type) {
    return type.shape != data::ProductShape::rack;
}

bool hasHubWeight(const data::ProductType& type) {
    return type.hasHub();
}

bool hasBarWeight(const data::ProductType& type) {
    return type.shape == data::ProductShape::rack;
}

/// The sizes of a stock piece in the words of its fields.
struct Sizes {
    std::string width;  ///< "Ancho del disco + 2 mm"
    std::string diameter;
    std::string inner;
};

std::string ruleInWords(WeightRule rule, const Sizes& sizes) {
    switch (rule) {
        case WeightRule::quantity:
            return "Se compra por piezas: una";
        case WeightRule::plate:
            return sizes.width + " × 1 × 1 × factor ÷ 1.000.000";
        case WeightRule::round:
            return sizes.diameter + "² × " + sizes.width + " × factor ÷ 1.000.000";
        case WeightRule::tube:
            return "(" + sizes.diameter + "² − " + sizes.inner + "²) × " + sizes.width +
                   " × factor ÷ 1.000.000, con los diámetros sin decimales";
        case WeightRule::none:
            break;
    }
    return "El artículo no tiene fórmula de peso";
}

/// The words for one stock piece of this material.
Deriving weighing(const Ground& g, const sql::ListenedRecordset& material, const Sizes& sizes) {
    const WeightRule rule = g.sources.weights.ruleOf((*material)["art_for"]);
    Deriving made(ruleInWords(rule, sizes));
    if (rule != WeightRule::none && rule != WeightRule::quantity) {
        made.with("Factor", plain((*material)["art_fac"].toDouble()), articleWords(material));
    }
    if (!g.f.chkFormulas.checked() && rule == WeightRule::round) {
        made.step("«Fórmula de cada artículo» está sin marcar: todo pesa como un redondo.");
    }
    made.rounded(rounding::hundredths);
    return made;
}

double weightOf(const Ground& g, const sql::ListenedRecordset& material, const Operand& width, int diameter,
                int inner) {
    return g.sources.weights.FnPeso((*material)["art_for"], 1, width, 1.0, 1.0, g.f.Text4(diameter), g.f.Text4(inner),
                                    (*material)["art_fac"]);
}

void addTubeInner(Deriving& made, const Ground& g, const sql::ListenedRecordset& material, int inner) {
    if (g.sources.weights.ruleOf((*material)["art_for"]) == WeightRule::tube) {
        made.with(g, "Ø Interior", g.f.Text4(inner), "mm");
    }
}

std::vector<Derivation> discWeightOf(Ground& g) {
    if (!isChosen(g.f.rsMatDisco)) {
        return {};
    }
    Deriving made =
        weighing(g, g.f.rsMatDisco, {.width = "Ancho del disco", .diameter = "Ø del disco", .inner = "Ø interior"});
    made.with(g, "Ancho del disco", g.f.Text4(cut::discWidth), "mm")
        .with(g, "Ø del disco", g.f.Text4(cut::discDiameter), "mm");
    addTubeInner(made, g, g.f.rsMatDisco, cut::discInner);
    return {made.gives(weightOf(g, g.f.rsMatDisco, g.f.Text4(cut::discWidth), cut::discDiameter, cut::discInner))};
}

std::vector<Derivation> hubWeightOf(Ground& g) {
    if (!isChosen(g.f.rsMatCubo)) {
        return {};
    }
    const double length = g.cutting(cut::hubLength);
    const double one =
        weightOf(g, g.f.rsMatCubo, Operand(length + hubWeightAllowance), cut::hubDiameter, cut::hubInner);
    Deriving made = weighing(g, g.f.rsMatCubo,
                             {.width = "(Ancho del cubo + 2 mm)", .diameter = "Ø del cubo", .inner = "Ø interior"});
    made.with(g, "Ancho del cubo", g.f.Text4(cut::hubLength), "mm")
        .with(g, "Ø del cubo", g.f.Text4(cut::hubDiameter), "mm");
    addTubeInner(made, g, g.f.rsMatCubo, cut::hubInner);
    std::vector<Derivation> ways;
    if (g.f.product().hubs == data::Hubs::twoAlike) {
        made.step("Dos cubos iguales: 2 × " + kilograms(one));
        ways.push_back(made.gives(round2(one + one)));
    } else {
        ways.push_back(made.gives(one));
    }
    if (length == 0) {
        ways.push_back(Deriving("Una sola pieza: el cubo no pesa aparte").rounded(rounding::none).givesText("0"));
    }
    return ways;
}

std::vector<Derivation> barWeightOf(Ground& g) {
    if (!isChosen(g.f.rsMatCre)) {
        return {};
    }
    return {Deriving("Ancho × Largo × Grosor × factor ÷ 1.000.000")
                .with(g, "Ancho de la barra", g.f.Text4(cut::barWidth), "mm")
                .with(g, "Largo de la barra", g.f.Text4(cut::barLength), "mm")
                .with(g, "Grosor de la barra", g.f.Text4(cut::barThickness), "mm")
                .with("Factor", plain((*g.f.rsMatCre)["art_fac"].toDouble()), articleWords(g.f.rsMatCre))
                .rounded(rounding::hundredths)
                .gives(g.sources.weights.rackWeight(), amountMask)};
}

Derivation roughWeightOf(const Ground& g) {
    const auto measured = [&g](int field) { return numberOrZero(g.f.Text1(field)); };
    const auto [solid, removed] = roughWeight({.teeth = measured(measure::teeth),
                                               .exterior = measured(measure::exterior),
                                               .rim = measured(measure::rim),
                                               .hubDiameter = measured(measure::hubDiameter),
                                               .hubWidth = measured(measure::hubWidth),
                                               .bore = measured(measure::bore),
                                               .totalWidth = measured(measure::totalWidth),
                                               .roller = measured(measure::roller)});
    return Deriving("(Ø Exterior × Llanta + Ø Cubo × Ancho cubo) − (Eje × Ancho Total + Ø Rodillo × Llanta × Z)")
        .step("Pieza llena: " + plain(solid))
        .step("Eje y dientes: " + plain(removed))
        .rounded(rounding::shown)
        .gives(solid - removed, amountMask);
}

std::vector<Derivation> approximateWeightOf(Ground& g) {
    std::vector<Derivation> ways;
    if (g.f.product().hubs != data::Hubs::noWheel && !g.f.product().chainList &&
        g.f.product().toothing != data::Toothing::gear) {
        ways.push_back(roughWeightOf(g));
    }
    ways.push_back(Deriving("No se calcula para esta pieza mientras no se deje una de sus medidas")
                       .rounded(rounding::none)
                       .givesText("0"));
    return ways;
}

bool isAnyType(const data::ProductType& /*type*/) {
    return true;
}

}  // namespace

void addWeights(Figures& figures) {
    const auto add = [&figures](TextField field, const char* title, bool (*holdsFor)(const data::ProductType&),
                                std::function<std::vector<Derivation>(Ground&)> derive) {
        figures.push_back({.field = field,
                           .topic = Topic::weights,
                           .title = title,
                           .unit = "kg",
                           .holdsFor = holdsFor,
                           .rule = "Por la fórmula del artículo; no hay material elegido",
                           .derive = std::move(derive)});
    };
    add(cut::discWeight, "Peso del disco", hasDiscWeight, discWeightOf);
    add(cut::hubWeight, "Peso del cubo", hasHubWeight, hubWeightOf);
    add(cut::barWeight, "Peso de la barra", hasBarWeight, barWeightOf);
    add(money::approximateWeight, "Peso Aprox. del Piñon", isAnyType, approximateWeightOf);
}

}  // namespace velmora::estimate::explaining
