// Prices and amounts of the stock pieces.

#include "velmora/estimate/explanation/figures.h"
#include "velmora/estimate/price.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::estimate::explaining {

namespace {

bool hasDiscLine(const data::ProductType& type) {
    return type.shape != data::ProductShape::rack;
}

bool hasHubLine(const data::ProductType& type) {
    return type.hasHub();
}

bool hasBarLine(const data::ProductType& type) {
    return type.shape == data::ProductShape::rack;
}

/// The material of a stock piece: the row and what its article is bought and sold for.
using MaterialRow = sql::ListenedRecordset FieldMap::*;

/// The last delivery of an article, for the price's provenance; empty when it cannot be read.
std::string lastPurchase(const Ground& g, const sql::ListenedRecordset& material) {
    std::string words;
    runtime::ErrorTrap trap;
    trap([&] {
        const sql::Recordset row = g.sources.session.Connection().execute(
            "select top 1 cac_fecha,lac_precio from cac inner join lac on cac_id = lac_idcac where lac_codart = '" +
            runtime::Replace(runtime::Trim((*material)["art_cod"].toText()), "'", "''") + "' order by cac_fecha desc ");
        words = row.eof() ? "No consta ninguna compra de este artículo."
                          : "Última compra: " + plain(row["lac_precio"].toDouble()) + " el " +
                                runtime::Format(row["cac_fecha"].toDate(), "dd/mm/yyyy") + ".";
    });
    return words;
}

std::vector<Derivation> pricesOf(const Ground& g, MaterialRow row, const char* column, const char* rule) {
    const sql::ListenedRecordset& material = g.f.*row;
    std::vector<Derivation> ways;
    if (isChosen(material) && !(*material)[column].isNull()) {
        const std::string price = (*material)[column].toText();
        ways.push_back(Deriving(rule)
                           .with("Artículo", price + " €/kg", articleWords(material))
                           .rounded(rounding::none)
                           .givesText(price));
    }
    return ways;
}

auto saleOf(MaterialRow row) {
    return [row](Ground& g) {
        std::vector<Derivation> ways = pricesOf(g, row, "art_pve", "Precio de venta del artículo del material elegido");
        if (row == &FieldMap::rsMatCubo && g.cutting(cut::hubLength) == 0) {
            ways.push_back(
                Deriving("Una sola pieza: el cubo no se cobra aparte").rounded(rounding::none).givesText("0"));
        }
        return ways;
    };
}

auto costOf(MaterialRow row) {
    return [row](Ground& g) {
        std::vector<Derivation> ways = pricesOf(g, row, "art_pco", "Precio de coste del artículo del material elegido");
        if (const std::string bought = ways.empty() ? "" : lastPurchase(g, g.f.*row); !bought.empty()) {
            ways.front().steps.push_back(bought);
        }
        if (row == &FieldMap::rsMatCubo && g.cutting(cut::hubLength) == 0) {
            ways.push_back(
                Deriving("Una sola pieza: el cubo no se cobra aparte").rounded(rounding::none).givesText("0"));
        }
        return ways;
    };
}

/// The fields of a line of stock.
struct LineFields {
    cut::Index weight;
    money::Index price;
    money::Index sawing;
};

Deriving lineInWords(const Ground& g, const LineFields& fields, const char* rule) {
    const double material = g.cutting(fields.weight) * g.amount(fields.price);
    Deriving made(rule);
    made.with(g, "Peso", g.f.Text4(fields.weight), "kg")
        .with(g, "Precio de venta", g.f.txtPesu(fields.price), "€/kg")
        .with(g, "Corte", g.f.txtPesu(fields.sawing), "€")
        .step("Material: " + plain(material) + " €");
    return made;
}

StockLine stockLine(const Ground& g, const LineFields& fields) {
    return {.weight = g.cutting(fields.weight), .price = g.amount(fields.price), .cut = g.amount(fields.sawing)};
}

auto lineOf(LineFields fields) {
    return [fields](Ground& g) {
        const StockLine line = stockLine(g, fields);
        const double once = lineRoundedOnce(line);
        const double twice = lineRoundedTwice(line);
        if (once == twice) {
            return std::vector{
                lineInWords(g, fields, "Peso × Precio de venta + Corte").rounded(rounding::cents).gives(once)};
        }
        return std::vector{lineInWords(g, fields, "Peso × Precio de venta, redondeado, + Corte")
                               .rounded("el material a céntimos y la suma otra vez a céntimos")
                               .gives(twice),
                           lineInWords(g, fields, "Peso × Precio de venta + Corte")
                               .rounded("una sola vez, al final, a céntimos")
                               .gives(once)};
    };
}

std::vector<Derivation> barLineOf(Ground& g) {
    constexpr LineFields fields{.weight = cut::barWeight, .price = money::barPrice, .sawing = money::barCut};
    const StockLine line = stockLine(g, fields);
    return {lineInWords(g, fields, "Peso × Precio de venta + Corte")
                .rounded(rounding::shown)
                .gives(barLine(line), amountMask),
            lineInWords(g, fields, "Peso × Precio de venta + Corte")
                .rounded(rounding::cents)
                .gives(lineRoundedOnce(line), amountMask)};
}

}  // namespace

void addMaterialLines(Figures& figures) {
    const auto add = [&figures](money::Index field, const char* title, const char* unit,
                                bool (*holdsFor)(const data::ProductType&),
                                std::function<std::vector<Derivation>(Ground&)> derive) {
        figures.push_back({.field = field,
                           .topic = Topic::materials,
                           .title = title,
                           .unit = unit,
                           .holdsFor = holdsFor,
                           .rule = "Del artículo del material; no hay ninguno elegido con precio",
                           .derive = std::move(derive)});
    };
    add(money::discCost, "Precio de coste del disco", "€/kg", hasDiscLine, costOf(&FieldMap::rsMatDisco));
    add(money::discPrice, "Precio de venta del disco", "€/kg", hasDiscLine, saleOf(&FieldMap::rsMatDisco));
    add(money::discAmount, "Importe del disco", "€", hasDiscLine,
        lineOf({.weight = cut::discWeight, .price = money::discPrice, .sawing = money::discCut}));
    add(money::hubCost, "Precio de coste del cubo", "€/kg", hasHubLine, costOf(&FieldMap::rsMatCubo));
    add(money::hubPrice, "Precio de venta del cubo", "€/kg", hasHubLine, saleOf(&FieldMap::rsMatCubo));
    add(money::hubAmount, "Importe del cubo", "€", hasHubLine,
        lineOf({.weight = cut::hubWeight, .price = money::hubPrice, .sawing = money::hubCut}));
    add(money::barCost, "Precio de coste de la barra", "€/kg", hasBarLine, costOf(&FieldMap::rsMatCre));
    add(money::barPrice, "Precio de venta de la barra", "€/kg", hasBarLine, saleOf(&FieldMap::rsMatCre));
    add(money::barAmount, "Importe de la barra", "€", hasBarLine, barLineOf);
}

}  // namespace velmora::estimate::explaining
