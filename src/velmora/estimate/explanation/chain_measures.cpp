// Measures of double, two-chain and triple products, which are looked up by chain and teeth.

#include "velmora/estimate/double_sprockets.h"
#include "velmora/estimate/explanation/figures.h"
#include "velmora/estimate/rules.h"

namespace velmora::estimate::explaining {

namespace {

bool isOfChain(const data::ProductType& type) {
    return type.chainList;
}

bool hasHubOfChain(const data::ProductType& type) {
    return type.chainList && type.hasHub();
}

bool hasTwoRims(const data::ProductType& type) {
    return type.chainList && type.shape == data::ProductShape::twoRims;
}

bool hasThreeRims(const data::ProductType& type) {
    return type.chainList && type.shape == data::ProductShape::threeRims;
}

std::string chainTable(const Ground& g) {
    return "tabla de la cadena " + g.f.cboDobles.text() + ", Z " + g.f.Text1(measure::teeth).text();
}

double valueIn(Ground& g, const char* column) {
    return g.chain()[column].toDouble();
}

bool isInTable(Ground& g) {
    return !g.chain().eof();
}

/// A field that is filled from a column as it stands.
auto lookedUp(measure::Index field) {
    return [field](Ground& g) -> std::vector<Derivation> {
        if (!isInTable(g)) {
            return {};
        }
        const std::string value = g.chain()[chainColumn(field)].toText();
        return {Deriving("Valor de la tabla de piñones dobles")
                    .with("Tabla", value + " mm", chainTable(g))
                    .rounded(rounding::none)
                    .givesText(value)};
    };
}

std::vector<Derivation> heightOfChain(Ground& g) {
    if (!isInTable(g)) {
        return {};
    }
    const double exterior = valueIn(g, "PDM_de");
    const double root = valueIn(g, "PDM_DF");
    return {Deriving("(Ø Exterior − Ø Fondo) ÷ 2")
                .with("Ø Exterior", millimetres(exterior), chainTable(g))
                .with("Ø Fondo", millimetres(root), chainTable(g))
                .rounded(rounding::hundredths)
                .gives(round2((exterior - root) / 2))};
}

std::vector<Derivation> hubWidthOfChain(Ground& g) {
    if (!isInTable(g)) {
        return {};
    }
    const double total = valueIn(g, "PDM_a");
    const double rims = valueIn(g, "PDM_b2");
    return {Deriving("Ancho total − Llanta (B2)")
                .with("Ancho total", millimetres(total), chainTable(g))
                .with("Llanta (B2)", millimetres(rims), chainTable(g))
                .rounded(rounding::hundredths)
                .gives(round2(total - rims))};
}

Derivation gapAsLookedUp(Ground& g) {
    const std::string value = g.chain()["PDM_x"].toText();
    return Deriving("Valor de la tabla de piñones dobles")
        .with("Tabla", value + " mm", chainTable(g))
        .rounded(rounding::none)
        .givesText(value);
}

std::vector<Derivation> gapOfChain(Ground& g) {
    return isInTable(g) ? std::vector{gapAsLookedUp(g)} : std::vector<Derivation>{};
}

/// Two rims and the gap between them, as on the sketch.
Derivation twoRimsOnSketch(const Ground& g) {
    const double first = number(g.f.txtPDM(doubleSketch::firstRim));
    const double second = number(g.f.txtPDM(doubleSketch::secondRim));
    const double gap = number(g.f.txtPDM(doubleSketch::gap));
    return Deriving("Las dos llantas y el hueco del croquis")
        .with(g, "Llanta (b1)", g.f.txtPDM(doubleSketch::firstRim), "mm")
        .with(g, "Llanta (b1) 2", g.f.txtPDM(doubleSketch::secondRim), "mm")
        .with(g, "X Ancho Hueco", g.f.txtPDM(doubleSketch::gap), "mm")
        .rounded(rounding::none)
        .gives(first + second + gap);
}

std::vector<Derivation> twoRimsOf(Ground& g) {
    std::vector<Derivation> ways;
    if (isInTable(g)) {
        ways.push_back(Deriving("Valor de la tabla de piñones dobles")
                           .with("Tabla", millimetres(valueIn(g, "PDM_b2")), chainTable(g))
                           .rounded(rounding::none)
                           .gives(valueIn(g, "PDM_b2")));
    }
    ways.push_back(twoRimsOnSketch(g));
    return ways;
}

Derivation threeRimsInTable(Ground& g) {
    const double twoRims = valueIn(g, "PDM_b2");
    const double gap = valueIn(g, "PDM_x");
    return Deriving("(Llanta (B2) − X) ÷ 2 × 3 + 2 × X")
        .with("Llanta (B2)", millimetres(twoRims), chainTable(g))
        .with("X Ancho Hueco", millimetres(gap), chainTable(g))
        .rounded(rounding::none)
        .gives(rimsOfTriple(twoRims, gap));
}

Derivation threeRimsOnSketch(const Ground& g) {
    return Deriving("Tres veces la llanta y dos veces el hueco del croquis")
        .with(g, "Llanta (b1)", g.f.txtTriple(tripleSketch::firstRim), "mm")
        .with(g, "X Ancho Hueco", g.f.txtTriple(tripleSketch::firstGap), "mm")
        .rounded(rounding::none)
        .gives(number(g.f.txtTriple(tripleSketch::firstRim)) * 3 + number(g.f.txtTriple(tripleSketch::firstGap)) * 2);
}

std::vector<Derivation> threeRimsOf(Ground& g) {
    std::vector<Derivation> ways;
    if (isInTable(g)) {
        ways.push_back(threeRimsInTable(g));
    }
    ways.push_back(threeRimsOnSketch(g));
    ways.push_back(twoRimsOnSketch(g));
    return ways;
}

Derivation hubAndRims(const Ground& g) {
    const std::string rims(g.f.product().rimCaption);
    return Deriving("Ancho cubo + " + rims)
        .with(g, "Ancho cubo", g.f.Text1(measure::hubWidth), "mm")
        .with(g, rims, g.f.Text1(measure::rim), "mm")
        .rounded(rounding::hundredths)
        .gives(round2(g.measured(measure::hubWidth) + g.measured(measure::rim)));
}

std::vector<Derivation> totalWidthOfChain(Ground& g) {
    std::vector<Derivation> ways;
    if (g.f.product().shape == data::ProductShape::twoRims) {
        ways = lookedUp(measure::totalWidth)(g);
    }
    ways.push_back(hubAndRims(g));
    return ways;
}

}  // namespace

void addChainMeasures(Figures& figures) {
    const auto add = [&figures](measure::Index field, const char* title, bool (*holdsFor)(const data::ProductType&),
                                std::function<std::vector<Derivation>(Ground&)> derive) {
        figures.push_back({.field = field,
                           .topic = Topic::measures,
                           .title = title,
                           .unit = "mm",
                           .holdsFor = holdsFor,
                           .rule = "Valor de la tabla de piñones dobles, por cadena y Z; no hay ninguno para estos",
                           .derive = std::move(derive)});
    };
    add(measure::pitch, "Paso", isOfChain, lookedUp(measure::pitch));
    add(measure::chainWidth, "A.C.", isOfChain, lookedUp(measure::chainWidth));
    add(measure::roller, "Ø Rodillo", isOfChain, lookedUp(measure::roller));
    add(measure::bore, "Eje", isOfChain, lookedUp(measure::bore));
    add(measure::pitchDiameter, "Ø Primitivo", isOfChain, lookedUp(measure::pitchDiameter));
    add(measure::root, "Ø Fondo", isOfChain, lookedUp(measure::root));
    add(measure::exterior, "Ø Exterior", isOfChain, lookedUp(measure::exterior));
    add(measure::height, "H - Altura", isOfChain, heightOfChain);
    add(measure::firstRim, "Llanta (b1)", isOfChain, lookedUp(measure::firstRim));
    add(measure::gap, "X Ancho Hueco", isOfChain, gapOfChain);
    add(measure::rim, "Llanta (B2)", hasTwoRims, twoRimsOf);
    add(measure::rim, "Llanta (B3)", hasThreeRims, threeRimsOf);
    add(measure::hubDiameter, "Ø Cubo", hasHubOfChain, lookedUp(measure::hubDiameter));
    add(measure::hubWidth, "Ancho cubo", hasHubOfChain, hubWidthOfChain);
    add(measure::totalWidth, "Ancho Total", hasHubOfChain, totalWidthOfChain);
}

}  // namespace velmora::estimate::explaining
