// What the saw's cuts cost.

#include "velmora/estimate/explanation/figures.h"
#include "velmora/estimate/price.h"
#include "velmora/estimate/rules.h"

namespace velmora::estimate::explaining {

namespace {

bool hasDiscCut(const data::ProductType& type) {
    return type.shape != data::ProductShape::rack;
}

bool hasHubCut(const data::ProductType& type) {
    return type.hasHub();
}

bool hasBarCut(const data::ProductType& type) {
    return type.shape == data::ProductShape::rack;
}

/// The rate of the material chosen in a list, as an input.
double addRate(Deriving& made, const Ground& g, const ComboBox& list) {
    const double rate = g.sources.cutPrices.FnPrecioCorte(entryKey(list));
    made.with("Tarifa de sierra", plain(rate) + " €/mm",
              g.sources.cutPrices.hasOwnRate(entryKey(list)) ? "tabla de materiales, " + list.text()
                                                             : "el material no tiene tarifa: la mínima");
    return rate;
}

Derivation noCut(const char* rule) {
    return Deriving(rule).rounded(rounding::none).givesText("0");
}

std::vector<Derivation> discCutOf(Ground& g) {
    Deriving made("Ø del disco × tarifa de sierra");
    made.with(g, "Ø del disco", g.f.Text4(cut::discDiameter), "mm");
    const double rate = addRate(made, g, g.f.cboMatDisco);
    if (numberOrZero(g.f.Text1(measure::exterior)) > onePieceLimit) {
        made.step("Por encima de 120 mm de Ø exterior sólo se calcula al elegir el material.");
    }
    std::vector<Derivation> ways{made.rounded(rounding::cents).gives(sawCut(g.cutting(cut::discDiameter), rate))};
    ways.push_back(noCut("Sin corte: al elegir el material el disco aún no tenía peso"));
    return ways;
}

std::vector<Derivation> hubCutOf(Ground& g) {
    if (g.cutting(cut::hubWeight) <= 0) {
        return {noCut("Sin corte: el cubo no tiene peso")};
    }
    const bool two = g.f.product().hubs == data::Hubs::twoAlike;
    Deriving made(two ? "2 × (Ø del cubo × tarifa de sierra)" : "Ø del cubo × tarifa de sierra");
    made.with(g, "Ø del cubo", g.f.Text4(cut::hubDiameter), "mm");
    const double rate = addRate(made, g, g.f.cboMatCubo);
    const double diameter = g.cutting(cut::hubDiameter);
    if (two) {
        made.step("Un corte: " + euros(sawCut(diameter, rate)) + "; dos cubos, dos cortes");
    }
    return {made.rounded(rounding::cents).gives(hubsSawCut(diameter, rate, two ? 2 : 1))};
}

std::vector<Derivation> barCutOf(Ground& g) {
    Deriving made("El mayor de Largo y Grosor × tarifa de sierra");
    made.with(g, "Largo de la barra", g.f.Text4(cut::barLength), "mm")
        .with(g, "Grosor de la barra", g.f.Text4(cut::barThickness), "mm");
    const double rate = addRate(made, g, g.f.cboMatCre);
    return {made.rounded(rounding::shown)
                .gives(barSawCut(g.cutting(cut::barLength), g.cutting(cut::barThickness), rate), amountMask)};
}

}  // namespace

void addCuts(Figures& figures) {
    const auto add = [&figures](money::Index field, const char* title, bool (*holdsFor)(const data::ProductType&),
                                std::function<std::vector<Derivation>(Ground&)> derive) {
        figures.push_back({.field = field,
                           .topic = Topic::cuts,
                           .title = title,
                           .unit = "€",
                           .holdsFor = holdsFor,
                           .rule = "Milímetros de corte × tarifa de sierra del material",
                           .derive = std::move(derive)});
    };
    add(money::discCut, "Corte del disco", hasDiscCut, discCutOf);
    add(money::hubCut, "Corte del cubo", hasHubCut, hubCutOf);
    add(money::barCut, "Corte de la barra", hasBarCut, barCutOf);
}

}  // namespace velmora::estimate::explaining
