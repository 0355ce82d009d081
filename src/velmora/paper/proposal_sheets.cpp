#include "velmora/paper/proposal_sheets.h"

#include <algorithm>
#include <chrono>
#include <iterator>

#include "velmora/data/product_types.h"
#include "velmora/estimate/multiple_drawings.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::paper {

namespace {

using Number = std::optional<double>;

std::string day(const std::optional<runtime::Date>& date) {
    return date ? runtime::Format(*date, "dd/mm/yyyy") : std::string();
}

std::string plain(const Number& value) {
    return value ? runtime::CStr(*value) : std::string();
}

std::string amount(const Number& value) {
    return value ? runtime::Format(*value, "#,##0.00") : std::string();
}

std::string euros(const Number& value) {
    return value ? amount(value) + " €" : std::string();
}

std::string withWords(const std::string& first, const std::string& between, const std::string& second) {
    return first.empty() || second.empty() ? first + second : first + between + second;
}

const data::ProductType& typeOf(const StoredProposal& p) {
    return data::productType(p.type);
}

bool isRack(const StoredProposal& p) {
    return typeOf(p).shape == data::ProductShape::rack;
}

bool isDisc(const StoredProposal& p) {
    return typeOf(p).hubs == data::Hubs::none;
}

bool hasTwoEqualHubs(const StoredProposal& p) {
    return typeOf(p).hubs == data::Hubs::twoAlike;
}

bool hasUnlikeHubs(const StoredProposal& p) {
    return typeOf(p).hubs == data::Hubs::twoUnlike;
}

std::string typeName(const StoredProposal& p) {
    const std::string name(typeOf(p).name);
    return name.empty() ? "Pieza especial" : name;
}

/// A measure that is missing or zero is not shown.
bool isThere(const Number& value) {
    return value && *value != 0;
}

/// Collects the fields that have a value.
class FieldsOf {
  public:
    FieldsOf& add(const std::string& caption, const std::string& value, bool isNumber = false) {
        if (!value.empty()) {
            fields_.push_back({.caption = caption, .value = value, .number = isNumber});
        }
        return *this;
    }
    FieldsOf& number(const std::string& caption, const std::string& value) { return add(caption, value, true); }
    FieldsOf& measure(const std::string& caption, const Number& value) {
        return isThere(value) ? number(caption, plain(value) + " mm") : *this;
    }
    FieldsOf& count(const std::string& caption, const Number& value) {
        return isThere(value) ? number(caption, plain(value)) : *this;
    }
    std::vector<Field> take() { return std::move(fields_); }

  private:
    std::vector<Field> fields_;
};

void addToothing(FieldsOf& fields, const StoredProposal& p) {
    const estimate::ProductMeasures& m = p.measures;
    fields.add("Cadena", p.chain);
    if (typeOf(p).toothing == data::Toothing::gear) {
        fields.count("Módulo", m.module).count("Nº de dientes (Z)", m.teeth);
    } else {
        fields.measure("Paso", m.pitch)
            .count("Nº de dientes (Z)", m.teeth)
            .measure("Ancho cadena (A.C.)", p.chainWidth)
            .measure("Ø Rodillo", p.roller);
    }
    fields.measure("Ø Primitivo", m.pitchDiameter).measure("Ø Fondo", m.root).measure("Altura (H)", p.toothHeight);
}

/// The total width that the papers show; none for a disc.
// Differs D-265: a disc's stored total, which its screen hides, was printed as well. Chosen C-274: for two different
// hubs the total is the stored one, which the form showed when the proposal was saved; without one, the sum of rim and
// hubs.
Number totalWidthOf(const StoredProposal& p) {
    const estimate::ProductMeasures& m = p.measures;
    if (isDisc(p)) {
        return std::nullopt;
    }
    if (hasUnlikeHubs(p) && !isThere(m.totalWidth) && isThere(m.hubWidth) && isThere(m.rim) &&
        isThere(m.secondHubWidth)) {
        return runtime::Redondear(*m.hubWidth + *m.rim + *m.secondHubWidth, 2);
    }
    return m.totalWidth;
}

void addBody(FieldsOf& fields, const StoredProposal& p) {
    const estimate::ProductMeasures& m = p.measures;
    const bool unlike = hasUnlikeHubs(p);
    fields.measure("Ø Exterior", m.exterior).measure(std::string(typeOf(p).rimCaption), m.rim);
    fields.measure("Llanta (b1)", m.chainRim).measure("Ancho hueco (X)", m.gap).measure("Altura (H1)", m.coreHeight);
    if (typeOf(p).hasHub()) {
        fields.measure(unlike ? "Ø Cubo A" : "Ø Cubo", m.hub)
            .measure(unlike ? "Ancho cubo A" : "Ancho cubo", m.hubWidth)
            .measure("Ø Cubo B", m.secondHub)
            .measure("Ancho cubo B", m.secondHubWidth);
    }
    fields.measure("Ancho total", totalWidthOf(p))
        .measure("Eje", m.bore)
        .measure("Chavetero", m.keyway)
        .count("Prisioneros", p.setScrews)
        .add("Herramienta del eje", p.tool)
        .add("Acoplamiento", p.coupling ? "Sí" : "");
}

Fields measuresOf(const StoredProposal& p) {
    const estimate::ProductMeasures& m = p.measures;
    FieldsOf fields;
    if (isRack(p)) {
        fields.count("Módulo", m.module)
            .measure("Paso", m.pitch)
            .measure("Altura del diente (h)", m.toothHeight)
            .measure("Altura (H)", m.height)
            .measure("Largo (L)", m.length)
            .measure("Ancho (B)", m.width);
    } else {
        // The toothing of a type outside the list is not known.
        if (data::findProductType(p.type) && typeOf(p).toothing != data::Toothing::smooth) {
            addToothing(fields, p);
        }
        addBody(fields, p);
    }
    return {.title = typeName(p), .fields = fields.take(), .columns = 3};
}

/// The texts of the sketch, with at most one total width, the one that the paper shows.
// Differs D-266: two equal hubs had their total twice, and two different ones the sum of the widths beside another
// total.
std::map<int, std::string> labelsOf(const StoredProposal& p) {
    std::map<int, std::string> labels = estimate::drawingLabels(p.type, p.measures);
    if (hasTwoEqualHubs(p)) {
        labels.erase(static_cast<int>(estimate::PieceLabel::totalWidth));
    }
    const auto sum = labels.find(static_cast<int>(estimate::VariableLabel::totalWidth));
    if (hasUnlikeHubs(p) && sum != labels.end() && sum->second != plain(totalWidthOf(p))) {
        labels.erase(sum);
    }
    return labels;
}

/// A sketch without any measure would be that of any other piece.
// Differs D-272: a proposal without measures was drawn as an ordinary piece.
void addSketch(std::vector<Block>& blocks, const StoredProposal& p, double height, double leastHeight) {
    std::map<int, std::string> labels = labelsOf(p);
    if (!labels.empty()) {
        blocks.emplace_back(SketchBlock{.drawing = estimate::drawProduct(p.type, p.measures),
                                        .labels = std::move(labels),
                                        .height = height,
                                        .leastHeight = leastHeight});
    }
}

/// The customer's text for the material, and the hub's if it differs.
Fields materialWords(const StoredProposal& p) {
    FieldsOf fields;
    const bool unlike = p.hub && !p.hub->printed.empty() && p.hub->printed != p.disc.printed;
    fields.add(unlike ? "Material del disco" : "Material", p.disc.printed);
    if (unlike) {
        fields.add("Material del cubo", p.hub->printed);
    }
    return {.title = {}, .fields = fields.take(), .columns = 2};
}

void addRemarks(std::vector<Block>& blocks, const StoredProposal& p) {
    if (!p.remarks.empty()) {
        blocks.emplace_back(Paragraph{"Observaciones", p.remarks});
    }
    if (!p.extra.empty()) {
        blocks.emplace_back(Paragraph{"Notas", p.extra});
    }
}

/// The customer on the left, the dates on the right.
std::vector<Field> customerFields(const StoredProposal& p) {
    FieldsOf customer;
    customer.add("Cliente", withWords(p.customerCode, " · ", p.customerName))
        .add("Su referencia", p.customerReference)
        .add("Su pedido", withWords(p.customerOrder, " del ", day(p.orderDate)));
    FieldsOf days;
    days.add("Fecha", day(p.created))
        .add("Fecha de entrega", day(p.delivery))
        .add("Aceptada", day(p.accepted))
        .add("Orden", p.order);
    std::vector<Field> fields = customer.take();
    const std::vector<Field> right = days.take();
    fields.resize(std::max(fields.size(), right.size()));
    fields.insert(fields.end(), right.begin(), right.end());
    return fields;
}

std::string_view withoutReturn(std::string_view line) {
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

/// Those that are not empty, without blanks at their ends.
std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        if (std::string line = runtime::Trim(withoutReturn(std::string_view(text).substr(begin, end - begin)));
            !line.empty()) {
            lines.push_back(std::move(line));
        }
        begin = end + 1;
    }
    return lines;
}

std::optional<Letterhead> letterheadOf(const Company& company) {
    Letterhead head{.name = company.name, .lines = {}, .logo = company.logo};
    if (!company.taxNumber.empty()) {
        head.lines.push_back("NIF " + company.taxNumber);
    }
    std::ranges::copy(linesOf(company.address), std::back_inserter(head.lines));
    if (const std::string reached =
            withWords(company.telephone.empty() ? "" : "Tel. " + company.telephone, " · ", company.email);
        !reached.empty()) {
        head.lines.push_back(reached);
    }
    const bool isEmpty = head.name.empty() && head.lines.empty() && head.logo.empty();
    return isEmpty ? std::nullopt : std::optional(std::move(head));
}

// Chosen C-530: an offer is valid from the date of its proposal, not of its print: the same proposal printed again says
// the same day. Without a date, and once it is accepted, nothing is said.
std::string validityOf(const StoredProposal& p, const Company& company) {
    if (company.validityDays <= 0 || !p.created || p.accepted) {
        return {};
    }
    runtime::Date last = *p.created;
    last.at += std::chrono::days(company.validityDays);
    return "Oferta válida hasta " + day(last);
}

std::optional<Closing> closingOf(const StoredProposal& p, const Company& company) {
    Closing closing{.validity = validityOf(p, company), .terms = company.terms};
    return closing.validity.empty() && closing.terms.empty() ? std::nullopt : std::optional(std::move(closing));
}

// --- The shop's sheet

std::string stockName(const StoredProposal& p) {
    if (isRack(p)) {
        return "Pletina";
    }
    return p.hub || isDisc(p) ? "Disco" : "Pieza";
}

std::string size(const StoredCut& cut, bool rack) {
    const auto side = [](const std::string& caption, const Number& value) {
        return value && *value != 0 ? caption + plain(value) : std::string();
    };
    std::string text = rack ? plain(cut.width) : side("Ø ", cut.diameter);
    text = withWords(text, " × ", rack ? plain(cut.diameter) : plain(cut.width));
    text = withWords(text, " × ", side("", cut.thickness));
    return withWords(text, ", interior ", side("Ø ", cut.inner));
}

std::vector<std::string> stockRow(const std::string& name, const StoredCut& cut, bool rack) {
    return {name,
            withWords(cut.material, "\n", withWords(cut.articleCode, " · ", cut.article)),
            size(cut, rack),
            amount(cut.weight),
            amount(cut.price),
            amount(cut.cut),
            amount(cut.amount)};
}

Number times(const Number& a, const Number& b) {
    return a && b ? Number(runtime::Redondear(*a * *b, 2)) : std::nullopt;
}

Number sum(const Number& a, const Number& b) {
    return a || b ? Number(runtime::Redondear(a.value_or(0) + b.value_or(0), 2)) : std::nullopt;
}

Table stockOf(const StoredProposal& p) {
    Table table{.title = "Material por pieza",
                .columns = {{"", 0.8},
                            {"Material", 2.5},
                            {"Corte (mm)", 1.6},
                            {"Peso kg", 0.8, true},
                            {"€/kg", 0.7, true},
                            {"Corte €", 0.8, true},
                            {"Importe €", 0.95, true}}};
    const bool rack = isRack(p);
    table.rows.push_back(stockRow(stockName(p), p.disc, rack));
    Number weight = p.disc.weight;
    if (p.hub) {
        table.rows.push_back(stockRow(hasTwoEqualHubs(p) ? "2 cubos" : "Cubo", *p.hub, false));
        weight = sum(weight, p.hub->weight);
    }
    table.total = {"", "", "", amount(weight), "", "", amount(p.material)};
    return table;
}

Fields lotOf(const StoredProposal& p) {
    FieldsOf fields;
    const Number weight = times(sum(p.disc.weight, p.hub ? p.hub->weight : Number()), p.units);
    fields.number("Nº de piezas", plain(p.units))
        .number("Peso del lote", weight ? amount(weight) + " kg" : "")
        .add("Consultado a", p.supplier);
    return {.title = {}, .fields = fields.take(), .columns = 2};
}

Table labourOf(const StoredProposal& p) {
    Table table{.title = "Mano de obra por pieza",
                .columns = {{"Sección", 1.3},
                            {"Máquina", 1.8},
                            {"Operario", 1.8},
                            {"Minutos", 0.8, true},
                            {"Horas", 0.8, true},
                            {"€/hora", 0.8, true},
                            {"Importe €", 0.95, true}}};
    Number minutes;
    Number amounts;
    for (const StoredLabour& line : p.labour) {
        table.rows.push_back(
            {line.section, line.machine, line.worker, line.minutes ? runtime::Format(*line.minutes, "#,##0.00") : "",
             line.hours ? runtime::Format(*line.hours, "#,##0.0000") : "", amount(line.rate), amount(line.amount)});
        minutes = sum(minutes, line.minutes);
        amounts = sum(amounts, line.amount);
    }
    table.total = {"", "", "", amount(minutes), "", "", amount(amounts)};
    return table;
}

/// The amounts of one piece and their relation to its stored total.
struct PieceSum {
    Number saw;              ///< share of the fixed saw charge for one piece
    bool sawSpread = false;  ///< over the pieces of the lot
    double difference = 0;   ///< stored total minus the sum of the amounts
};

bool isSameAmount(double a, double b) {
    return runtime::Redondear(a - b, 2) == 0;
}

PieceSum pieceSumOf(const StoredProposal& p) {
    if (!p.piece) {
        return {.saw = p.saw};
    }
    const double saw = p.saw.value_or(0);
    const double beside = *p.piece - p.material.value_or(0) - p.labourAmount.value_or(0) - p.subcontracted.value_or(0) -
                          p.others.value_or(0);
    if (isSameAmount(beside, saw)) {
        return {.saw = p.saw};
    }
    if (isThere(p.saw) && isThere(p.units)) {
        const double share = runtime::Redondear(saw / *p.units, 2);
        if (isSameAmount(beside, share)) {
            return {.saw = share, .sawSpread = true};
        }
    }
    return {.saw = p.saw, .difference = runtime::Redondear(beside - saw, 2)};
}

// Differs D-268: the amounts of a piece add up to its total. When the saw charge is spread over the lot, its column
// shows the share of one piece, and a line below says so. Chosen C-275: a total that is not the sum of its amounts,
// because it was typed or computed for another number of pieces, gets a column with the difference.
Table costsOf(const StoredProposal& p) {
    const PieceSum sum = pieceSumOf(p);
    Table table{.title = "Importes por pieza y del lote (€)", .columns = {}};
    const auto add = [&](const char* caption, double share, std::string value) {
        table.columns.push_back({.caption = caption, .share = share, .right = true});
        table.total.push_back(std::move(value));
    };
    add("Material", 0.85, amount(p.material));
    add("Mano de obra", 1.15, amount(p.labourAmount));
    add("Subcontratados", 1.3, amount(p.subcontracted));
    add("Varios", 0.7, amount(p.others));
    add("Fijo sierra", 0.9, amount(sum.saw));
    if (sum.difference != 0) {
        add("Diferencia", 0.9, amount(sum.difference));
    }
    add("Total pieza", 0.95, amount(p.piece));
    add("Piezas", 0.65, plain(p.units));
    add("Importe total", 1.15, amount(p.total));
    if (sum.sawSpread) {
        table.note = "Fijo de sierra (" + euros(p.saw) + ") repartido entre las " + plain(p.units) +
                     " piezas del lote: " + euros(sum.saw) + " por pieza.";
    }
    return table;
}

}  // namespace

std::string numberOf(const StoredProposal& proposal) {
    return runtime::Format(proposal.number, "000000");
}

Sheet customerSheet(const StoredProposal& p, const Company& company) {
    Sheet sheet{.title = "Propuesta " + numberOf(p), .name = "Propuesta " + numberOf(p), .heading = customerFields(p)};
    sheet.blocks.emplace_back(measuresOf(p));
    addSketch(sheet.blocks, p, 105, 75);
    if (Fields material = materialWords(p); !material.fields.empty()) {
        sheet.blocks.emplace_back(std::move(material));
    }
    FieldsOf figures;
    figures.number("Nº de piezas", plain(p.units))
        .number("Precio por pieza", euros(p.piece))
        .number("Importe total", euros(p.total));
    if (Figures all{figures.take()}; !all.figures.empty()) {
        sheet.blocks.emplace_back(std::move(all));
    }
    addRemarks(sheet.blocks, p);
    sheet.letterhead = letterheadOf(company);
    sheet.closing = closingOf(p, company);
    return sheet;
}

Sheet shopSheet(const StoredProposal& p) {
    Sheet sheet{
        .title = "Hoja de corte " + numberOf(p), .name = "Hoja de corte " + numberOf(p), .heading = customerFields(p)};
    sheet.blocks.emplace_back(measuresOf(p));
    // Many dimensions need space.
    const bool many = typeOf(p).chainList;
    addSketch(sheet.blocks, p, many ? 80 : 60, many ? 64 : 46);
    sheet.blocks.emplace_back(stockOf(p));
    sheet.blocks.emplace_back(lotOf(p));
    if (!p.labour.empty()) {
        sheet.blocks.emplace_back(labourOf(p));
    }
    sheet.blocks.emplace_back(costsOf(p));
    addRemarks(sheet.blocks, p);
    return sheet;
}

}  // namespace velmora::paper
