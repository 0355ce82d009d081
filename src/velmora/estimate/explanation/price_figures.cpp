// Labour, material, price of the piece and of the lot.

#include "velmora/estimate/explanation/figures.h"
#include "velmora/estimate/price.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate::explaining {

namespace {

bool isAny(const data::ProductType& /*type*/) {
    return true;
}

std::string textOrDash(const sql::Value& value) {
    return value.isNull() ? "—" : value.toText();
}

/// The stored lines of labour, one step each.
void addLabourLines(Deriving& made, const Ground& g) {
    sql::Recordset lines = g.sources.session.Connection().execute(
        "select MoDpi_Minutos,MoDpi_Pvp,MoDpi_Importe,"
        "(select maq_nom from maq where maq_id = modpi_maq) as Maquina "
        "from modpi where modpi_dpi=" +
        g.f.proposal.number() + " order by MoDpi_Id");
    for (; !lines.eof(); lines.moveNext()) {
        made.step("· " + textOrDash(lines["Maquina"]) + ": " + textOrDash(lines["MoDpi_Minutos"]) + " min a " +
                  textOrDash(lines["MoDpi_Pvp"]) + " €/hora = " + textOrDash(lines["MoDpi_Importe"]) + " €");
    }
}

std::vector<Derivation> labourOf(Ground& g) {
    if (g.f.proposal.isNew()) {
        return {Deriving("Sin líneas de mano de obra: F1 las calcula, o se escribe el importe")
                    .rounded(rounding::none)
                    .givesText("0")};
    }
    const sql::Recordset sum = g.sources.session.Connection().execute(
        "Select isnull(sum(modpi_importe),0) as Importe from modpi where modpi_dpi = " + g.f.proposal.number());
    Deriving made("Suma de las líneas de mano de obra (F1)");
    addLabourLines(made, g);
    return {made.rounded(rounding::none).givesText(sum.eof() ? "0" : sum["Importe"].toText())};
}

std::vector<Derivation> materialOfPiece(Ground& g) {
    if (g.f.product().shape == data::ProductShape::rack) {
        return {Deriving("Importe de la barra")
                    .with(g, "Importe de la barra", g.f.txtPesu(money::barAmount), "€")
                    .rounded(rounding::cents)
                    .gives(cents(g.amount(money::barAmount)))};
    }
    return {Deriving("Importe del disco + Importe del cubo")
                .with(g, "Importe del disco", g.f.txtPesu(money::discAmount), "€")
                .with(g, "Importe del cubo", g.f.txtPesu(money::hubAmount), "€")
                .rounded(rounding::cents)
                .gives(materialOf(g.amount(money::discAmount), g.amount(money::hubAmount)))};
}

/// The piece's parts with the whole saw charge, a share of it, or none.
Derivation pieceWith(const Ground& g, const char* rule, double sawCharge, const std::string& step) {
    Deriving made(rule);
    made.with(g, "Importe Material", g.f.txtPesu(money::material), "€")
        .with(g, "Fijo Sierra", g.f.txtPesu(money::sawCharge), "€")
        .with(g, "Mano Obra", g.f.txtPesu(money::labour), "€")
        .with(g, "Subcontratados", g.f.txtPesu(money::subcontracted), "€")
        .with(g, "Varios", g.f.txtPesu(money::sundries), "€");
    if (!step.empty()) {
        made.step(step);
    }
    return made.rounded(rounding::cents)
        .gives(piecePrice({.material = g.amount(money::material),
                           .sawCharge = sawCharge,
                           .labour = g.amount(money::labour),
                           .subcontracted = g.amount(money::subcontracted),
                           .sundries = g.amount(money::sundries)}));
}

std::vector<Derivation> pieceOf(Ground& g) {
    const double charge = g.amount(money::sawCharge);
    std::vector<Derivation> ways{
        pieceWith(g, "Material + Fijo Sierra + Mano Obra + Subcontratados + Varios", charge, "")};
    if (charge == 0) {
        return ways;
    }
    const double units = g.f.proposal.units();
    if (units != 0) {
        const double share = spreadSawCharge(charge, units);
        ways.push_back(pieceWith(g, "Material + parte del Fijo Sierra + Mano Obra + Subcontratados + Varios", share,
                                 "El fijo de sierra se escribió o se sumó el último: se reparte, " + euros(charge) +
                                     " ÷ " + plain(units) + " = " + euros(share) + " por pieza"));
    }
    ways.push_back(
        pieceWith(g, "Material + Mano Obra + Subcontratados + Varios", 0,
                  "El fijo de sierra no está en el precio: al escribirlo no había piezas o importes entre los "
                  "que repartirlo"));
    return ways;
}

std::vector<Derivation> lotOf(Ground& g) {
    return {Deriving("Total Pieza × Nº de Piezas")
                .with(g, "Total Pieza", g.f.txtPesu(money::piece), "€")
                .with(g, "Nº de Piezas", g.f.txtPesu(money::pieces), "")
                .rounded(rounding::cents)
                .gives(lotPrice(g.amount(money::piece), g.amount(money::pieces)))};
}

}  // namespace

void addPriceFigures(Figures& figures) {
    const auto add = [&figures](money::Index field, const char* title,
                                std::function<std::vector<Derivation>(Ground&)> derive) {
        figures.push_back({.field = field,
                           .topic = Topic::price,
                           .title = title,
                           .unit = "€",
                           .holdsFor = isAny,
                           .rule = "Se suma con cada importe que cambia",
                           .derive = std::move(derive)});
    };
    add(money::material, "Importe Material", materialOfPiece);
    add(money::labour, "Mano Obra", labourOf);
    add(money::piece, "Total Pieza", pieceOf);
    add(money::lot, "Importe Total", lotOf);
}

}  // namespace velmora::estimate::explaining
