#include "velmora/paper/stored_proposal.h"

#include "velmora/data/product_numbers.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::paper {

namespace {

using sql::Recordset;

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

void readMaterial(sql::Connection& connection, const Recordset& row, const char* parameter, const char* article,
                  StoredCut& cut) {
    const Recordset material =
        rowOf(connection, "select PARDPI_NOM,PARDPI_MATP from PARDPI where PARDPI_ID=", row[parameter]);
    if (!material.eof()) {
        cut.material = text(material["PARDPI_NOM"]);
        cut.printed = text(material["PARDPI_MATP"]);
    }
    const Recordset stock = rowOf(connection, "select ART_COD,ART_DES from ART where ART_ID=", row[article]);
    if (!stock.eof()) {
        cut.articleCode = text(stock["ART_COD"]);
        cut.article = text(stock["ART_DES"]);
    }
}

StoredCut readDisc(sql::Connection& connection, const Recordset& row, bool rack) {
    StoredCut cut{.diameter = number(row["DPI_DisCortDM"]),
                  .width = number(row["DPI_DisCortAN"]),
                  .weight = number(row["DPI_DisCortPESO"]),
                  .price = number(row["DPI_DisPVE"]),
                  .cut = number(row["DPI_CosteCorteDisco"]),
                  .amount = number(row["DPI_DisImporte"])};
    if (rack) {
        cut.thickness = number(row["DPI_DmFon"]);
    } else {
        cut.inner = number(row["DPI_DmInterno"]);
    }
    readMaterial(connection, row, "DPI_IdParDisco", "DPI_ArtDisco", cut);
    return cut;
}

/// What an amount holds beyond weight and price is its cut.
// Chosen C-216: no column holds the cut of a hub, nor that of a rack; the paper shows what the stored amount leaves for
// it, so that its figures add up to the cent.
std::optional<double> cutWithin(const StoredCut& cut) {
    if (!cut.amount || !cut.weight || !cut.price) {
        return std::nullopt;
    }
    return runtime::Redondear(*cut.amount - runtime::Redondear(*cut.weight * *cut.price, 2), 2);
}

std::optional<StoredCut> readHub(sql::Connection& connection, const Recordset& row) {
    StoredCut cut{.diameter = number(row["DPI_CubCortDM"]),
                  .width = number(row["DPI_CubCortAN"]),
                  .inner = number(row["DPI_CuboDmInterno"]),
                  .weight = number(row["DPI_CubCortPESO"]),
                  .price = number(row["DPI_CubPVE"]),
                  .amount = number(row["DPI_CubImporte"])};
    if (cut.weight.value_or(0) == 0 && cut.amount.value_or(0) == 0) {
        return std::nullopt;
    }
    cut.cut = cutWithin(cut);
    readMaterial(connection, row, "DPI_IdParCubo", "DPI_ArtCubo", cut);
    return cut;
}

estimate::ProductMeasures readMeasures(const Recordset& row, int type) {
    estimate::ProductMeasures m;
    m.pitch = number(row["DPI_Pas"]);
    m.module = number(row["DPI_Modulo"]);
    if (data::isRack(type)) {
        m.toothHeight = number(row["DPI_AC"]);
        m.height = number(row["DPI_Alt"]);
        m.length = number(row["DPI_Llanta"]);
        m.width = number(row["DPI_AnchoCubo"]);
        return m;
    }
    m.teeth = number(row["DPI_Z"]);
    m.exterior = number(row["DPI_DmExt"]);
    m.pitchDiameter = number(row["DPI_DmPri"]);
    m.root = number(row["DPI_DmFon"]);
    m.bore = number(row["DPI_Eje"]);
    m.keyway = number(row["DPI_Chav"]);
    m.hub = number(row["DPI_DmCub"]);
    m.hubWidth = number(row["DPI_AnchoCubo"]);
    m.rim = number(row["DPI_Llanta"]);
    m.totalWidth = number(row["DPI_AnchoTotal"]);
    if (data::isVariable(type)) {
        m.secondHub = number(row["DPI_PDM_b1"]);
        m.secondHubWidth = number(row["DPI_PDM_h1"]);
    } else if (data::hasChainList(type)) {
        m.chainRim = number(row["DPI_PDM_b1"]);
        m.gap = number(row["DPI_PDM_x"]);
        m.coreHeight = number(row["DPI_PDM_h1"]);
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
    p.type = row["DPI_Tipo"].isNull() ? -1 : row["DPI_Tipo"].toLong();
    p.created = date(row["DPI_Fecha"]);
    p.accepted = date(row["DPI_FAcepta"]);
    p.order = text(row["DPI_Orden"]);
    p.customerCode = text(row["DPI_CodCliente"]);
    p.customerName = text(row["DPI_NomCliente"]);
    p.customerReference = text(row["DPI_RefCli"]);
    p.customerOrder = text(row["DPI_PedCliente"]);
    p.orderDate = date(row["DPI_FPedCliente"]);
    p.delivery = date(row["DPI_FechaEntrega"]);
    p.remarks = runningText(row["DPI_Obser"]);
    p.extra = runningText(row["DPI_Extra"]);
    p.supplier = text(row["DPI_ProTex"]);
    p.chain = text(row["DPI_PDM_Texto"]);
    p.measures = readMeasures(row, p.type);
    if (!data::isRack(p.type)) {
        p.chainWidth = number(row["DPI_AC"]);
        p.roller = number(row["DPI_Rodillo"]);
        p.toothHeight = number(row["DPI_Alt"]);
        p.setScrews = number(row["DPI_Pri"]);
        p.tool = text(row["DPI_HERRAMIENTA"]);
        p.coupling = row["DPI_Acopla"].toBool();
    }
    p.disc = readDisc(connection, row, data::isRack(p.type));
    if (data::isRack(p.type)) {
        p.disc.cut = cutWithin(p.disc);
    } else {
        p.hub = readHub(connection, row);
    }
    p.labour = readLabour(connection, wanted);
    p.material = number(row["DPI_ImpMat"]);
    p.labourAmount = number(row["DPI_ImpMO"]);
    p.subcontracted = number(row["DPI_ImpTS"]);
    p.others = number(row["DPI_ImpVA"]);
    p.saw = number(row["DPI_FijoSierra"]);
    p.piece = number(row["DPI_ImpTP"]);
    p.units = number(row["DPI_Unidades"]);
    p.total = number(row["DPI_Importe"]);
    return p;
}

}  // namespace velmora::paper
