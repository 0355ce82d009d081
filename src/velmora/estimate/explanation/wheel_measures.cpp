// Measures of a wheel whose toothing is entered: a sprocket, a disc or a smooth pulley.

#include "velmora/estimate/explanation/figures.h"
#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate::explaining {

namespace {

bool isEnteredWheel(const data::ProductType& type) {
    return !type.chainList && type.hubs != data::Hubs::noWheel &&
           (type.toothing == data::Toothing::chain || type.toothing == data::Toothing::smooth);
}

bool isToothedWheel(const data::ProductType& type) {
    return isEnteredWheel(type) && type.toothing == data::Toothing::chain;
}

bool isSmoothWheel(const data::ProductType& type) {
    return isEnteredWheel(type) && type.toothing == data::Toothing::smooth;
}

bool hasEnteredHub(const data::ProductType& type) {
    return isEnteredWheel(type) && type.hasHub();
}

/// Two unlike hubs have their widths entered.
bool hasCalculatedHubWidth(const data::ProductType& type) {
    return hasEnteredHub(type) && type.hubs != data::Hubs::twoUnlike;
}

bool hasUnlikeEnteredHubs(const data::ProductType& type) {
    return hasEnteredHub(type) && type.hubs == data::Hubs::twoUnlike;
}

Derivation pitchDiameterOf(const Ground& g) {
    const double teeth = g.measured(measure::teeth);
    return Deriving("Paso ÷ sen(180° ÷ Z), con π = 3,1416")
        .with(g, "Paso", g.f.Text1(measure::pitch), "mm")
        .with(g, "Z", g.f.Text1(measure::teeth), "")
        .rounded(rounding::hundredthsToEven)
        .gives(pitchDiameter(g.measured(measure::pitch), teeth));
}

Derivation rootOf(const Ground& g) {
    return Deriving("Ø Primitivo − Ø Rodillo")
        .with(g, "Ø Primitivo", g.f.Text1(measure::pitchDiameter), "mm")
        .with(g, "Ø Rodillo", g.f.Text1(measure::roller), "mm")
        .rounded(rounding::none)
        .gives(g.measured(measure::pitchDiameter) - g.measured(measure::roller));
}

Derivation toothedExterior(const Ground& g) {
    const double dp = g.measured(measure::pitchDiameter);
    const double teeth = g.measured(measure::teeth);
    const double roller = g.measured(measure::roller);
    const double factor = rollerFactor(teeth);
    return Deriving("Ø Primitivo + Ø Rodillo × factor por número de dientes")
        .with(g, "Ø Primitivo", g.f.Text1(measure::pitchDiameter), "mm")
        .with(g, "Ø Rodillo", g.f.Text1(measure::roller), "mm")
        .with("Factor para Z " + plain(teeth), plain(factor), "de 0,5 con 6 dientes a 0,7 con más de 18")
        .step(plain(dp) + " + " + plain(roller) + " × " + plain(factor) + " = " + plain(factor * roller + dp) + " mm")
        .rounded(rounding::wholeToEven)
        .gives(FnDmexterior(dp, teeth, roller));
}

Derivation smoothExterior(const Ground& g) {
    return Deriving("Ø Fondo, subido al milímetro entero si tiene decimales")
        .with(g, "Ø Fondo", g.f.Text1(measure::root), "mm")
        .rounded(rounding::wholeToEven)
        .gives(pulleyExterior(g.measured(measure::root)), "0.00");
}

Derivation heightOf(const Ground& g) {
    return Deriving("(Ø Exterior − Ø Fondo) ÷ 2")
        .with(g, "Ø Exterior", g.f.Text1(measure::exterior), "mm")
        .with(g, "Ø Fondo", g.f.Text1(measure::root), "mm")
        .rounded(rounding::hundredthsToEven)
        .gives(toothHeight(g.measured(measure::exterior), g.measured(measure::root)));
}

/// A width or diameter as a multiple of the pitch diameter.
Derivation byConstant(const Ground& g, const char* rule, double factor) {
    double dp = g.measured(measure::pitchDiameter);
    const double result = scaledToFive(dp, factor);
    return Deriving(factor == 0 ? "Ø Primitivo, porque el factor guardado es 0" : rule)
        .with(g, "Ø Primitivo", g.f.Text1(measure::pitchDiameter), "mm")
        .with("Factor", plain(factor), "tabla de constantes de medidas, por el Ø primitivo")
        .rounded(factor == 0 ? rounding::wholeToEven : "a un número entero y de ahí al múltiplo de 5 siguiente")
        .gives(result);
}

Derivation hubDiameterOf(const Ground& g) {
    return byConstant(g, "Ø Primitivo × factor del cubo, al múltiplo de 5",
                      g.sources.constants.hubFactor(g.measured(measure::pitchDiameter)));
}

double constantTotalWidth(const Ground& g) {
    double dp = g.measured(measure::pitchDiameter);
    return scaledToFive(dp, g.sources.constants.totalWidthFactor(dp));
}

Derivation totalByConstant(const Ground& g) {
    return byConstant(g, "Ø Primitivo × factor del ancho, al múltiplo de 5",
                      g.sources.constants.totalWidthFactor(g.measured(measure::pitchDiameter)));
}

Deriving rimAndHubs(const Ground& g, const char* rule) {
    return Deriving(rule)
        .with(g, "Llanta", g.f.Text1(measure::rim), "mm")
        .with(g, "Ancho cubo", g.f.Text1(measure::hubWidth), "mm")
        .rounded(rounding::hundredths);
}

Derivation rimAndOneHub(const Ground& g) {
    return rimAndHubs(g, "Llanta + Ancho cubo")
        .gives(round2(g.measured(measure::rim) + g.measured(measure::hubWidth)), "0.00");
}

Derivation rimAndTwoHubs(const Ground& g) {
    return rimAndHubs(g, "Llanta + 2 × Ancho cubo")
        .gives(round2(g.measured(measure::rim) + 2 * g.measured(measure::hubWidth)), "0.00");
}

Derivation rimAndBothHubs(const Ground& g) {
    const auto width = [&g](int field) { return numberOrZero(g.f.Text1(field)); };
    return rimAndHubs(g, "Llanta + Ancho cubo A + Ancho cubo B")
        .with(g, "Ancho cubo B", g.f.Text1(measure::secondHubWidth), "mm")
        .gives(round2(width(measure::hubWidth) + width(measure::rim) + width(measure::secondHubWidth)));
}

std::vector<Derivation> totalWidthOf(Ground& g) {
    if (g.f.secondHubIsKnown()) {
        return {rimAndBothHubs(g)};
    }
    return {g.f.product().totalWidth == data::TotalWidth::rimAndHub ? rimAndOneHub(g) : rimAndTwoHubs(g),
            totalByConstant(g)};
}

Derivation rimOf(const Ground& g) {
    const double chain = g.measured(measure::chainWidth);
    return Deriving("Ancho de cadena (A.C.) menos el juego")
        .with(g, "A.C.", g.f.Text1(measure::chainWidth), "mm")
        .with("Juego", millimetres(rimDeduction(chain)), "2 hasta 20 mm, 2,5 hasta 30 mm, 3 por encima")
        .rounded(rounding::wholeToEven)
        .gives(FnLlanta(chain));
}

// Both are the values at the time when the toothing was entered: a rim that is typed later does not change the hub.
Derivation hubWidthOf(const Ground& g) {
    const double total = constantTotalWidth(g);
    const double rim = FnLlanta(g.measured(measure::chainWidth));
    return Deriving("Ancho Total por constante − Llanta por la cadena")
        .with("Ancho Total", millimetres(total), "Ø primitivo × factor, al múltiplo de 5")
        .with("Llanta", millimetres(rim), "A.C. menos el juego")
        .rounded(rounding::none)
        .gives(total - rim);
}

/// A figure with one derivation.
auto alone(Derivation (*derive)(const Ground&)) {
    return [derive](Ground& g) { return std::vector{derive(g)}; };
}

}  // namespace

void addWheelMeasures(Figures& figures) {
    const auto add = [&figures](measure::Index field, const char* title, bool (*holdsFor)(const data::ProductType&),
                                std::function<std::vector<Derivation>(Ground&)> derive) {
        figures.push_back({.field = field,
                           .topic = Topic::measures,
                           .title = title,
                           .unit = "mm",
                           .holdsFor = holdsFor,
                           .rule = "Se calcula al dejar el dentado",
                           .derive = std::move(derive)});
    };
    add(measure::pitchDiameter, "Ø Primitivo", isEnteredWheel, alone(pitchDiameterOf));
    add(measure::root, "Ø Fondo", isEnteredWheel, alone(rootOf));
    add(measure::exterior, "Ø Exterior", isToothedWheel, alone(toothedExterior));
    add(measure::exterior, "Ø Exterior", isSmoothWheel, alone(smoothExterior));
    add(measure::height, "H - Altura", isEnteredWheel, alone(heightOf));
    add(measure::rim, "Llanta", isEnteredWheel, alone(rimOf));
    add(measure::hubDiameter, "Ø Cubo", hasCalculatedHubWidth, alone(hubDiameterOf));
    add(measure::hubDiameter, "Ø Cubo A", hasUnlikeEnteredHubs, alone(hubDiameterOf));
    add(measure::hubWidth, "Ancho cubo", hasCalculatedHubWidth, alone(hubWidthOf));
    add(measure::totalWidth, "Ancho Total", hasEnteredHub, totalWidthOf);
}

}  // namespace velmora::estimate::explaining
