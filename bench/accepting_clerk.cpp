#include "accepting_clerk.h"

#include <string>
#include <utility>
#include <vector>

#include "velmora/data/schema.h"

#include "workshop.h"

namespace velmora::bench {

namespace {

std::string columnsOfProposal() {
    std::string names;
    for (const data::ColumnDefinition& column : data::findTable("DPI")->columns) {
        if (column.name != "DPI_Id") {
            names += (names.empty() ? "" : ",") + std::string(column.name);
        }
    }
    return names;
}

}  // namespace

void addPendingProposals(sql::Connection& connection, int proposals) {
    const std::string names = columnsOfProposal();
    const std::string free =
        connection.execute("select top 1 CLI_COD from CLI where isnull(CLI_Riesgo,0) = 0 order by CLI_ID")[0].toText();
    const std::string first = connection.execute("select max(DPI_Id) from DPI")[0].toText();
    connection.beginTrans();
    connection.execute("INSERT INTO DPI (" + names + ") SELECT top 1 " + names +
                       " FROM DPI where DPI_Tipo = 0 and DPI_FAcepta is null and DPI_DmExt > 120 and DPI_CubCortPESO "
                       "> 0 and DPI_DisCortPESO > 0");
    connection.execute("UPDATE DPI SET DPI_CodCliente = " + free + " where DPI_Id > " + first);
    for (int made = 1; made < proposals; made *= 2) {
        connection.execute("INSERT INTO DPI (" + names + ") SELECT " + names + " FROM DPI where DPI_Id > " + first);
    }
    for (const char* machine : {"10", "11"}) {
        connection.execute(
            "INSERT INTO MoDpi (MoDpi_Dpi,MoDpi_Ope,MoDpi_Maq,MoDpi_Minutos,MoDpi_Pvp,MoDpi_Tiempo,MoDpi_Importe) "
            "SELECT DPI_Id,1," +
            std::string(machine) + ",15,30,0.25,7.5 FROM DPI where DPI_Id > " + first);
    }
    // A reference that exists: the look-up ends at its newest order, however many there are.
    connection.execute("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_REF,ORDEN_ART) SELECT top 1 " +
                       connection.execute("select isnull(max(ORDEN_NUM),0)+1 from ORDEN")[0].toText() +
                       ",N'R-77',ART_COD FROM ART where not ART_COD is null");
    connection.commitTrans();
}

AcceptingClerk::AcceptingClerk(session::Session& session, platform::Desk& desk, std::size_t proposals)
    : oUtil_(desk.screen, session.Connection()),
      panel_(fields_, oUtil_, desk.screen),
      acceptance_(fields_, session, oUtil_, desk, [] {}) {
    list(session.Connection(), proposals);
    fillPanel();
}

void AcceptingClerk::acceptNext() {
    const std::string number = (*fields_.rsDpi)["DPI_Id"].toText();
    acceptance_.msAceptarPresupuesto();
    require(fields_.txtCriterio(tracking::numberFrom).text() == number, "the proposal was not accepted");
    fields_.rsDpi->moveNext();
    fillPanel();
}

/// The rows are in memory: the cost of the list itself is measured elsewhere.
void AcceptingClerk::list(sql::Connection& connection, std::size_t proposals) {
    sql::Recordset rows = connection.execute("select dpi.* from DPI where DPI_FAcepta is null order by DPI_Id desc");
    std::vector<sql::Row> all;
    for (; all.size() < proposals && !rows.eof(); rows.moveNext()) {
        all.push_back(*rows.peek(*rows.position()));
    }
    fields_.rsDpi = sql::Recordset(sql::rowsInMemory(rows.columns(), std::move(all)));
    for (const char* state : {"Solo Aceptados", "Solo Pendientes", "Todos"}) {
        fields_.cboFiltroHistorico.addItem(state);
    }
}

/// Shows the current row, and types the customer's order data.
void AcceptingClerk::fillPanel() {
    panel_.rsDpi_MoveComplete();
    fields_.txtPesu(tracking::customerReference).setText("R-77");
    fields_.txtPesu(tracking::deliveryDate).setText("30/06/2026");
}

}  // namespace velmora::bench
