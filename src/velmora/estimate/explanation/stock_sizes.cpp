// Sizes of the stock pieces that are cut: disc, hub, bar.

#include "velmora/estimate/explanation/figures.h"
#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate::explaining {

namespace {

bool hasDiscStock(const data::ProductType& type) {
    return type.shape != data::ProductShape::rack;
}

bool hasHubStock(const data::ProductType& type) {
    return type.hasHub();
}

bool hasBarStock(const data::ProductType& type) {
    return type.shape == data::ProductShape::rack;
}

std::vector<Derivation> discDiameterOf(Ground& g) {
    return {Deriving("Ø Exterior + 5 mm para tornear")
                .with(g, "Ø Exterior", g.f.Text1(measure::exterior), "mm")
                .rounded(rounding::none)
                .gives(g.measured(measure::exterior) + diameterAllowance)};
}

Derivation widthOfRound(const Ground& g, const char* rule) {
    return Deriving(rule)
        .with(g, "Ancho Total", g.f.Text1(measure::totalWidth), "mm")
        .rounded(rounding::none)
        .gives(g.measured(measure::totalWidth) + sawAllowance);
}

Derivation widthWithAllowance(const Ground& g) {
    const std::string& exterior = g.f.Text1(measure::exterior).text();
    if (sawnFromRound(exterior)) {
        return widthOfRound(g, "Ancho Total + 3 mm de sierra: el Ø exterior, comparado letra a letra, no pasa de 120");
    }
    return Deriving("Llanta + 1, 2 ó 3 mm según el Ø exterior, comparado letra a letra con 250 y 500")
        .with(g, "Llanta", g.f.Text1(measure::rim), "mm")
        .with(g, "Ø Exterior", g.f.Text1(measure::exterior), "mm")
        .with("Suplemento", millimetres(plateAllowance(exterior)))
        .rounded(rounding::none)
        .gives(g.measured(measure::rim) + plateAllowance(exterior));
}

Derivation commercialPlate(const Ground& g, int rim, bool iron, int thickness) {
    return Deriving("El grueso comercial siguiente a la llanta")
        .with(g, "Llanta", g.f.Text1(measure::rim), "mm")
        .with("Llanta en milímetros enteros", millimetres(rim))
        .with("Lista de gruesos", iron ? "chapa de hierro" : "otros metales",
              iron ? "el material es de hierro" : "el material no es de hierro")
        .rounded(rounding::none)
        .gives(thickness);
}

/// The exterior that follows from the toothing, whatever stands in the field; 0 when there is no toothing.
double exteriorOfToothing(const Ground& g) {
    runtime::ErrorTrap trap;
    double exterior = 0;
    trap([&] {
        exterior =
            FnDmexterior(g.measured(measure::pitchDiameter), g.measured(measure::teeth), g.measured(measure::roller));
    });
    return exterior;
}

/// The thickness as the last of the form's steps leaves it.
Derivation thicknessOf(const Ground& g) {
    const double exterior = exteriorOfToothing(g);
    if (exterior == 0) {
        return widthWithAllowance(g);
    }
    if (!g.f.product().cutFromPlate && exterior <= onePieceLimit) {
        return widthOfRound(g, "Ancho Total + 3 mm de sierra: hasta 120 mm la pieza sale de un solo redondo");
    }
    const int rim = runtime::CLng(numberOrZero(g.f.Text1(measure::rim)));
    if (rim == 0 || !isChosen(g.f.rsMatDisco)) {
        return widthWithAllowance(g);
    }
    const bool iron = (*g.f.rsMatDisco)["PARDPI_HIERRO"].toBool();
    const int thickness = commercialThickness(rim, iron);
    return thickness == 0 ? widthWithAllowance(g) : commercialPlate(g, rim, iron, thickness);
}

std::vector<Derivation> discWidthOf(Ground& g) {
    std::vector<Derivation> ways{thicknessOf(g)};
    if (!g.f.secondHubIsKnown() && numberOrZero(g.f.Text1(measure::exterior)) <= onePieceLimit) {
        ways.push_back(widthOfRound(g, "Ancho Total + 3 mm de sierra, al dejar el ancho del cubo"));
    }
    return ways;
}

bool isOnePiece(const Ground& g) {
    return g.f.product().shape != data::ProductShape::variable && g.measured(measure::exterior) <= onePieceLimit;
}

Derivation noHubStock(const Ground& g) {
    return Deriving("Hasta 120 mm de Ø exterior la pieza es un solo redondo, sin cubo aparte")
        .with(g, "Ø Exterior", g.f.Text1(measure::exterior), "mm")
        .rounded(rounding::none)
        .givesText("0");
}

std::vector<Derivation> hubDiameterOfStock(Ground& g) {
    if (isOnePiece(g)) {
        return {noHubStock(g)};
    }
    return {Deriving("Ø Cubo + 5 mm para tornear, al múltiplo de 5 siguiente")
                .with(g, "Ø Cubo", g.f.Text1(measure::hubDiameter), "mm")
                .rounded("al múltiplo de 5 siguiente")
                .gives(hubStockDiameter(g.measured(measure::hubDiameter)))};
}

std::vector<Derivation> hubLengthOfStock(Ground& g) {
    if (isOnePiece(g)) {
        return {noHubStock(g)};
    }
    const bool whole = g.f.product().shape == data::ProductShape::variable;
    const int field = whole ? measure::totalWidth : measure::hubWidth;
    const std::string name = whole ? "Ancho Total" : "Ancho cubo";
    return {Deriving(name + " + 3 mm de sierra")
                .with(g, name, g.f.Text1(field), "mm")
                .rounded(rounding::none)
                .gives(g.measured(field) + sawAllowance)};
}

/// A size of the bar is a measure of the rack.
auto repeated(rackSketch::Index shown, const char* name) {
    return [shown, name](Ground& g) {
        return std::vector{Deriving(std::string(name) + " de la cremallera")
                               .with(name, g.f.txtCre(shown).text() + " mm")
                               .rounded(rounding::none)
                               .givesText(g.f.txtCre(shown).text())};
    };
}

}  // namespace

void addStockSizes(Figures& figures) {
    const auto add = [&figures](cut::Index field, const char* title, bool (*holdsFor)(const data::ProductType&),
                                std::function<std::vector<Derivation>(Ground&)> derive) {
        figures.push_back({.field = field,
                           .topic = Topic::stockSizes,
                           .title = title,
                           .unit = "mm",
                           .holdsFor = holdsFor,
                           .rule = "Se calcula con las medidas de la pieza",
                           .derive = std::move(derive)});
    };
    add(cut::discDiameter, "Ø del disco", hasDiscStock, discDiameterOf);
    add(cut::discWidth, "Ancho del disco", hasDiscStock, discWidthOf);
    add(cut::hubDiameter, "Ø del cubo", hasHubStock, hubDiameterOfStock);
    add(cut::hubLength, "Ancho del cubo", hasHubStock, hubLengthOfStock);
    add(cut::barLength, "Largo de la barra", hasBarStock, repeated(rackSketch::width, "B"));
    add(cut::barWidth, "Ancho de la barra", hasBarStock, repeated(rackSketch::length, "L"));
    add(cut::barThickness, "Grosor de la barra", hasBarStock, repeated(rackSketch::heightAtTheEnd, "H"));
}

}  // namespace velmora::estimate::explaining
