// Measures of gears and gear discs, which are taken from a row of the table of gears.

#include <array>

#include "velmora/estimate/explanation/figures.h"
#include "velmora/estimate/gears.h"

namespace velmora::estimate::explaining {

namespace {

bool isGear(const data::ProductType& type) {
    return type.toothing == data::Toothing::gear;
}

bool isGearWithHub(const data::ProductType& type) {
    return isGear(type) && type.hasHub();
}

std::vector<Derivation> ofTheTable(Ground& g, const char* column) {
    std::vector<Derivation> ways;
    for (const sql::Recordset& row : g.gears()) {
        const std::string value = row[column].toText();
        ways.push_back(
            Deriving("Valor de la tabla de engranajes")
                .with("Tabla", value,
                      "engranaje de módulo " + g.f.txtModulo.text() + " y Z " + g.f.Text1(measure::teeth).text())
                .rounded(rounding::none)
                .givesText(value));
    }
    return ways;
}

std::vector<Derivation> notOfAGear(Ground& /*ground*/) {
    return {Deriving("Un engranaje no tiene esta medida").rounded(rounding::none).givesText("0")};
}

struct GearField {
    measure::Index field;
    const char* title;
    const char* unit;
    bool ofHub;
};

constexpr std::array gearFields{
    GearField{.field = measure::teeth, .title = "Z", .unit = "", .ofHub = false},
    GearField{.field = measure::pitch, .title = "Paso", .unit = "mm", .ofHub = false},
    GearField{.field = measure::chainWidth, .title = "A.C.", .unit = "mm", .ofHub = false},
    GearField{.field = measure::roller, .title = "Ø Rodillo", .unit = "mm", .ofHub = false},
    GearField{.field = measure::bore, .title = "Eje", .unit = "mm", .ofHub = false},
    GearField{.field = measure::pitchDiameter, .title = "Ø Primitivo", .unit = "mm", .ofHub = false},
    GearField{.field = measure::root, .title = "Ø Fondo", .unit = "mm", .ofHub = false},
    GearField{.field = measure::exterior, .title = "Ø Exterior", .unit = "mm", .ofHub = false},
    GearField{.field = measure::height, .title = "H - Altura", .unit = "mm", .ofHub = false},
    GearField{.field = measure::rim, .title = "Llanta", .unit = "mm", .ofHub = false},
    GearField{.field = measure::hubDiameter, .title = "Ø Cubo", .unit = "mm", .ofHub = true},
    GearField{.field = measure::hubWidth, .title = "Ancho cubo", .unit = "mm", .ofHub = true},
    GearField{.field = measure::totalWidth, .title = "Ancho Total", .unit = "mm", .ofHub = true},
};

}  // namespace

void addGearMeasures(Figures& figures) {
    const std::string rule = "Valor de la tabla de engranajes; elija el engranaje con el botón «Engranaje…»";
    const auto add = [&](TextField field, const GearField& row,
                         std::function<std::vector<Derivation>(Ground&)> derive) {
        figures.push_back({.field = field,
                           .topic = Topic::measures,
                           .title = row.title,
                           .unit = row.unit,
                           .holdsFor = row.ofHub ? isGearWithHub : isGear,
                           .rule = rule,
                           .derive = std::move(derive)});
    };
    add(&FieldMap::txtModulo, {.field = measure::pitch, .title = "Módulo", .unit = "", .ofHub = false},
        [](Ground& g) { return ofTheTable(g, "eng_modulo"); });
    for (const GearField& row : gearFields) {
        const char* column = gearColumn(row.field);
        if (column == nullptr) {
            add(row.field, row, notOfAGear);
        } else {
            add(row.field, row, [column](Ground& g) { return ofTheTable(g, column); });
        }
    }
}

}  // namespace velmora::estimate::explaining
