#include "acceptance_shop.h"

#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"

#include "support/database_template.h"

namespace velmora::tracking {

namespace {

const runtime::Date morning = runtime::Date::of(2026, 1, 15, 10);

std::string article(const std::string& values) {
    return "INSERT INTO ART (ART_ID,ART_COD,ART_DES,ART_For,ART_Fac,ART_Pco,ART_Pve,ART_Mat,ART_Corte,ART_Estado) "
           "VALUES (" +
           values + ",0)";
}

std::string customer(const std::string& values) {
    return "INSERT INTO CLI (CLI_ID,CLI_COD,CLI_NOM,CLI_COMER,CLI_GtosFinan,CLI_Riesgo,CLI_ImpMaxRiesgo) VALUES (" +
           values + ")";
}

const std::string shopRows[] = {
    article("11,N'R-114',N'Redondo F-114',2,6.165,0.95,1.4,1,1"),
    article("12,N'R-140',N'Redondo F-1140',2,6.2,1.02,1.5,2,1"),
    article("13,N'T-355',N'Tubo E355',4,6.165,1.45,2.1,2,1"),
    article("14,N'P-275',N'Pletina S275',1,7.85,0.8,1.2,3,1"),
    article("15,N'R-NC',N'Redondo sin corte',2,6.165,0.95,1.4,1,NULL"),
    article("16,N'S-6',N'Tubo macizo',6,6.165,2,3,1,1"),
    article("17,N'S-0',N'Suelto',0,1,2,3,1,1"),
    article("18,N'S-5',N'Suelto cinco',5,1,2,3,1,1"),
    customer("1,1001,N'TALLERES NORTE SL',N'NORTE',1.5,0,0"),
    customer("2,1002,N'ÁRIDOS DEL SUR SA',N'ARISUR',NULL,1,1000"),
    customer("3,1003,N'CANTERAS DEL ESTE',N'CANESTE',0,1,NULL"),
};

const Columns usualProposal{
    {"DPI_Tipo", "0"},
    {"DPI_CodCliente", "1001"},
    {"DPI_NomCliente", "N'TALLERES NORTE SL'"},
    {"DPI_RefCli", "N'R-77'"},
    {"DPI_PedCliente", "N'P-9'"},
    {"DPI_Z", "38"},
    {"DPI_Pas", "12.7"},
    {"DPI_AC", "7.75"},
    {"DPI_Rodillo", "8.51"},
    {"DPI_Eje", "24"},
    {"DPI_Chav", "8"},
    {"DPI_Pri", "2"},
    {"DPI_DmPri", "153.8"},
    {"DPI_DmFon", "145.29"},
    {"DPI_DmExt", "161.5"},
    {"DPI_DmCub", "90"},
    {"DPI_Alt", "8.1"},
    {"DPI_AnchoTotal", "62"},
    {"DPI_Llanta", "7.2"},
    {"DPI_AnchoCubo", "54.8"},
    {"DPI_ArtDisco", "11"},
    {"DPI_DisCortDM", "165"},
    {"DPI_DisCortAN", "10"},
    {"DPI_DmInterno", "0"},
    {"DPI_DisCortPESO", "1.7"},
    {"DPI_ArtCubo", "12"},
    {"DPI_CubCortDM", "95"},
    {"DPI_CubCortAN", "57"},
    {"DPI_CuboDmInterno", "20"},
    {"DPI_CubCortPESO", "3.2"},
    {"DPI_ImpMat", "20.5"},
    {"DPI_ImpMO", "15"},
    {"DPI_ImpTS", "0"},
    {"DPI_ImpVA", "0"},
    {"DPI_ImpTP", "35.55"},
    {"DPI_Unidades", "3"},
    {"DPI_Importe", "106.65"},
};

sqlite::Options shopOptions(std::chrono::milliseconds busyTimeout) {
    return {.clock = [] { return morning; }, .busyTimeout = busyTimeout};
}

std::string shown(const sql::Value& value) {
    return value.isNull() ? "NULL" : value.toText();
}

}  // namespace

std::vector<std::string> AnsweringScreen::texts() const {
    std::vector<std::string> all;
    for (const screen::MessageBox& box : messages) {
        all.push_back(box.text);
    }
    return all;
}

screen::Answer AnsweringScreen::show(const screen::MessageBox& box) {
    messages.push_back(box);
    if (whileOpen) {
        whileOpen(box);
    }
    if (box.buttons == screen::Buttons::ok) {
        return screen::Answer::ok;
    }
    if (box.text.find("para el Disco") != std::string::npos) {
        return cutsDisc;
    }
    return box.text.find("para el Cubo") != std::string::npos ? cutsHub : confirms;
}

void AnsweringScreen::setPointer(screen::Pointer pointer) {
    hourglasses += pointer == screen::Pointer::hourglass ? 1 : 0;
}

void AnsweringScreen::processEvents() {
    ++yields;
    if (onYield) {
        onYield();
    }
}

void fillShop(sql::Connection& database) {
    data::createDatabase(database);
    for (const std::string& row : shopRows) {
        database.execute(row);
    }
}

std::unique_ptr<sql::Connection> openShopDatabase(const std::string& path, std::chrono::milliseconds busyTimeout) {
    return sqlite::openDatabase(path, shopOptions(busyTimeout));
}

std::unique_ptr<sql::Connection> makeShopDatabase(const std::string& path) {
    static const support::DatabaseTemplate shop(fillShop);
    return shop.copy(path, shopOptions(usualBusyTimeout));
}

std::int32_t addProposal(sql::Connection& connection, const Columns& columns) {
    Columns all = columns;
    all.insert(usualProposal.begin(), usualProposal.end());
    std::string names;
    std::string values;
    for (const auto& [name, value] : all) {
        names += (names.empty() ? "" : ",") + name;
        values += (values.empty() ? "" : ",") + value;
    }
    connection.execute("INSERT INTO DPI (" + names + ") VALUES (" + values + ")");
    return connection.execute("SELECT MAX(DPI_Id) FROM DPI")[0].toLong();
}

void addLabour(sql::Connection& connection, std::int32_t proposal, int machine, const std::string& hours) {
    connection.execute(
        "INSERT INTO MoDpi (MoDpi_Dpi,MoDpi_Ope,MoDpi_Maq,MoDpi_Minutos,MoDpi_Pvp,MoDpi_Tiempo,MoDpi_Importe) VALUES "
        "(" +
        std::to_string(proposal) + ",1," + std::to_string(machine) + ",0,0," + hours + ",0)");
}

std::string rowsOf(sql::Connection& connection, std::string_view statement) {
    std::string all;
    for (sql::Recordset row = connection.execute(statement); !row.eof(); row.moveNext()) {
        all += all.empty() ? "" : "\n";
        for (std::size_t column = 0; column < row.columns().size(); ++column) {
            all += (column == 0 ? "" : "|") + shown(row[column]);
        }
    }
    return all;
}

AcceptanceShop::AcceptanceShop(std::unique_ptr<sql::Connection> opened)
    : database(std::move(opened)),
      connection(*database),
      session(connection, 7),
      acceptance(fields, session, oUtil, desk, [this] {
          ++reloads;
          const std::string& number = fields.txtCriterio(numberFrom).text();
          list(number.empty() ? " Where  ( DPI_FAcepta is null )  Order by DPI_Fecha DESC "
                              : " Where  (DPI_id = " + number + " )  Order by DPI_Fecha DESC");
      }) {
    for (const char* state : {"Solo Aceptados", "Solo Pendientes", "Todos"}) {
        fields.cboFiltroHistorico.addItem(state);
    }
    fields.cboFiltroHistorico.setListIndex(onlyPending);
    fields.rsDpi.onMoveComplete = [this] { panel.rsDpi_MoveComplete(); };
}

void AcceptanceShop::list(const std::string& where) {
    fields.rsDpi = database->execute(
        "select DPI_Id, DPI_Fecha,DPI_FAcepta,DPI_Orden,DPI_Unidades,DPI_ImpTP,DPI_CodCliente,DPI_NomCliente,dpi.* "
        "from DPI " +
        where);
}

void AcceptanceShop::accept() {
    try {
        acceptance.msAceptarPresupuesto();
    } catch (const runtime::RuntimeError& error) {
        errors.push_back(error);
    }
}

std::vector<std::string> AcceptanceShop::errorTexts() const {
    std::vector<std::string> all;
    for (const runtime::RuntimeError& error : errors) {
        all.push_back(error.description());
    }
    return all;
}

}  // namespace velmora::tracking
