#include "velmora/paper/stored_proposal.h"

#include "velmora/data/product_types.h"
#include "velmora/estimate/stored_fields.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::paper {

namespace {

using estimate::columnOf;
using estimate::FieldMap;
using sql::Recordset;
namespace column = estimate::column;
namespace cut = estimate::cut;
namespace doubleSketch = estimate::doubleSketch;
namespace measure = estimate::measure;
namespace money = estimate::money;

std::optional<double> number(const sql::Value& value) {
    return value.isNull() ? std::nullopt : std::optional(value.toDouble());
}

std::string text(const sql::Value& value) {
    return value.isNull() ? std::string() : runtime::Trim(value.toText());
}

/// A text of several lines: tabs and blanks that a line begins with belong to it, empty lines at either end do not.
// Differs D-271: blanks at the beginning were taken off, and a list that is set in lost its first line's place.
std::string runningText(const sql::Value& value) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::string all = value.isNull() ? std::string() : value.toText();
    const std::size_t first = all.find_first_not_of(blanks);
    if (first == std::string::npos) {
        return {};
    }
    const std::size_t lineEnd = all.find_last_of("\r\n", first);
    const std::size_t begin = lineEnd == std::string::npos ? 0 : lineEnd + 1;
    return all.substr(begin, all.find_last_not_of(blanks) + 1 - begin);
}

std::optional<runtime::Date> date(const sql::Value& value) {
    return value.isNull() ? std::nullopt : std::optional(value.toDate());
}

/// The row with this key; at its end when the key is null or names none.
Recordset rowOf(sql::Connection& connection, const std::string& select, const sql::Value& key) {
    return connection.execute(select + runtime::CStr(std::int64_t{key.isNull() ? 0 : key.toLong()}));
}

void readMaterial(sql::Connection& connection, const Recordset& row, estimate::ComboBox FieldMap::*list,
                  estimate::Material article, StoredCut& piece) {
    const Recordset material =
        rowOf(connection, "select PARDPI_NOM,PARDPI_MATP from PARDPI where PARDPI_ID=", row[columnOf(list)]);
    if (!material.eof()) {
        piece.material = text(material["PARDPI_NOM"]);
        piece.printed = text(material["PARDPI_MATP"]);
    }
    const Recordset stock = rowOf(connection, "select ART_COD,ART_DES from ART where ART_ID=", row[columnOf(article)]);
    if (!stock.eof()) {
        piece.articleCode = text(stock["ART_COD"]);
        piece.article = text(stock["ART_DES"]);
    }
}

StoredCut readDisc(sql::Connection& connection, const Recordset& row, bool rack) {
    StoredCut piece{.diameter = number(row[columnOf(cut::discDiameter)]),
                    .width = number(row[columnOf(cut::discWidth)]),
                    .weight = number(row[columnOf(cut::discWeight)]),
                    .price = number(row[columnOf(money::discPrice)]),
                    .cut = number(row[columnOf(money::discCut)]),
                    .amount = number(row[columnOf(money::discAmount)])};
    if (rack) {
        piece.thickness = number(row[columnOf(cut::barThickness)]);
    } else {
        piece.inner = number(row[columnOf(cut::discInner)]);
    }
    readMaterial(connection, row, &FieldMap::cboMatDisco, &FieldMap::rsMatDisco, piece);
    return piece;
}

/// What an amount holds beyond weight and price is its cut.
// Chosen C-216: no column holds the cut of a hub, nor that of a rack; the paper shows what the stored amount leaves for
// it, so that its figures add up to the cent.
std::optional<double> cutWithin(const StoredCut& piece) {
    if (!piece.amount || !piece.weight || !piece.price) {
        return std::nullopt;
    }
    return runtime::Redondear(*piece.amount - runtime::Redondear(*piece.weight * *piece.price, 2), 2);
}

std::optional<StoredCut> readHub(sql::Connection& connection, const Recordset& row) {
    StoredCut piece{.diameter = number(row[columnOf(cut::hubDiameter)]),
                    .width = number(row[columnOf(cut::hubLength)]),
                    .inner = number(row[columnOf(cut::hubInner)]),
                    .weight = number(row[columnOf(cut::hubWeight)]),
                    .price = number(row[columnOf(money::hubPrice)]),
                    .amount = number(row[columnOf(money::hubAmount)])};
    if (piece.weight.value_or(0) == 0 && piece.amount.value_or(0) == 0) {
        return std::nullopt;
    }
    piece.cut = cutWithin(piece);
    readMaterial(connection, row, &FieldMap::cboMatCubo, &FieldMap::rsMatCubo, piece);
    return piece;
}

estimate::ProductMeasures readMeasures(const Recordset& row, int type) {
    estimate::ProductMeasures m;
    m.pitch = number(row[columnOf(measure::pitch)]);
    m.module = number(row[columnOf(&FieldMap::txtModulo)]);
    if (data::productType(type).shape == data::ProductShape::rack) {
        m.toothHeight = number(row[columnOf(measure::rackToothHeight)]);
        m.height = number(row[columnOf(measure::rackHeight)]);
        m.length = number(row[columnOf(measure::rackLength)]);
        m.width = number(row[columnOf(measure::rackWidth)]);
        return m;
    }
    m.teeth = number(row[columnOf(measure::teeth)]);
    m.exterior = number(row[columnOf(measure::exterior)]);
    m.pitchDiameter = number(row[columnOf(measure::pitchDiameter)]);
    m.root = number(row[columnOf(measure::root)]);
    m.bore = number(row[columnOf(measure::bore)]);
    m.keyway = number(row[columnOf(measure::keyway)]);
    m.hub = number(row[columnOf(measure::hubDiameter)]);
    m.hubWidth = number(row[columnOf(measure::hubWidth)]);
    m.rim = number(row[columnOf(measure::rim)]);
    m.totalWidth = number(row[columnOf(measure::totalWidth)]);
    if (data::productType(type).shape == data::ProductShape::variable) {
        m.secondHub = number(row[columnOf(measure::secondHubDiameter)]);
        m.secondHubWidth = number(row[columnOf(measure::secondHubWidth)]);
    } else if (data::productType(type).chainList) {
        m.chainRim = number(row[columnOf(measure::firstRim)]);
        m.gap = number(row[columnOf(measure::gap)]);
        m.coreHeight = number(row[columnOf(doubleSketch::hubHeight)]);
    }
    return m;
}

std::vector<StoredLabour> readLabour(sql::Connection& connection, std::int32_t proposal) {
    Recordset lines = connection.execute(
        "select MoDpi_Minutos,MoDpi_Tiempo,MoDpi_Pvp,MoDpi_Importe,"
        "(select ope_nom from ope where ope_id = modpi_ope) as Operario, "
        "(select maq_nom from maq where maq_id = modpi_maq) as Maquina, "
        "(select rsec_nom from rsec inner join maq on rsec_id = maq_sec where maq_id = modpi_maq) as Seccion "
        "from modpi where modpi_dpi=" +
        runtime::CStr(std::int64_t{proposal}) + " order by MoDpi_Id");
    std::vector<StoredLabour> labour;
    for (; !lines.eof(); lines.moveNext()) {
        labour.push_back({.section = text(lines["Seccion"]),
                          .machine = text(lines["Maquina"]),
                          .worker = text(lines["Operario"]),
                          .minutes = number(lines["MoDpi_Minutos"]),
                          .hours = number(lines["MoDpi_Tiempo"]),
                          .rate = number(lines["MoDpi_Pvp"]),
                          .amount = number(lines["MoDpi_Importe"])});
    }
    return labour;
}

}  // namespace

std::optional<StoredProposal> readProposal(sql::Connection& connection, std::int32_t wanted) {
    const Recordset row = connection.execute("select * from DPI where DPI_ID=" + runtime::CStr(std::int64_t{wanted}));
    if (row.eof()) {
        return std::nullopt;
    }
    StoredProposal p;
    p.number = wanted;
    p.type = row[columnOf(&FieldMap::cboTipoPre)].isNull() ? -1 : row[columnOf(&FieldMap::cboTipoPre)].toLong();
    p.created = date(row[column::created]);
    p.accepted = date(row[column::accepted]);
    p.order = text(row[column::order]);
    p.customerCode = text(row[columnOf(money::customerCode)]);
    p.customerName = text(row[columnOf(money::customerName)]);
    p.customerReference = text(row[columnOf(money::customerReference)]);
    p.customerOrder = text(row[column::customerOrder]);
    p.orderDate = date(row[column::customerOrderDate]);
    p.delivery = date(row[column::delivery]);
    p.remarks = runningText(row[columnOf(&FieldMap::txtObservaciones)]);
    p.extra = runningText(row[columnOf(&FieldMap::txtExtra)]);
    p.supplier = text(row[columnOf(&FieldMap::txtCPro)]);
    p.chain = text(row[column::chainName]);
    p.measures = readMeasures(row, p.type);
    if (data::productType(p.type).shape != data::ProductShape::rack) {
        p.chainWidth = number(row[columnOf(measure::chainWidth)]);
        p.roller = number(row[columnOf(measure::roller)]);
        p.toothHeight = number(row[columnOf(measure::height)]);
        p.setScrews = number(row[columnOf(measure::setScrews)]);
        p.tool = text(row[columnOf(&FieldMap::cboHerramienta)]);
        p.coupling = row[columnOf(&FieldMap::chkAcopla)].toBool();
    }
    p.disc = readDisc(connection, row, data::productType(p.type).shape == data::ProductShape::rack);
    if (data::productType(p.type).shape == data::ProductShape::rack) {
        p.disc.cut = cutWithin(p.disc);
    } else {
        p.hub = readHub(connection, row);
    }
    p.labour = readLabour(connection, wanted);
    p.material = number(row[columnOf(money::material)]);
    p.labourAmount = number(row[columnOf(money::labour)]);
    p.subcontracted = number(row[columnOf(money::subcontracted)]);
    p.others = number(row[columnOf(money::sundries)]);
    p.saw = number(row[columnOf(money::sawCharge)]);
    p.piece = number(row[columnOf(money::piece)]);
    p.units = number(row[columnOf(money::pieces)]);
    p.total = number(row[columnOf(money::lot)]);
    return p;
}

}  // namespace velmora::paper
