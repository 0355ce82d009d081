#include "adapters/documents/paper_workshop.h"

#include "velmora/data/new_database.h"
#include "velmora/platform/runtime/numbers.h"

#include "support/database_template.h"

namespace velmora::support {

namespace {

/// A proposal of a type that the demonstration workshop has never had.
std::string proposalOfType(int type, const std::string& values) {
    return "INSERT INTO DPI (DPI_Tipo, DPI_CodCliente, DPI_NomCliente, DPI_RefCli, DPI_Z, DPI_Pas, DPI_AC, "
           "DPI_Rodillo, "
           "DPI_Eje, DPI_Chav, DPI_Pri, DPI_DmPri, DPI_DmFon, DPI_DmExt, DPI_DmCub, DPI_Alt, DPI_AnchoTotal, "
           "DPI_Llanta, "
           "DPI_AnchoCubo, DPI_PDM_Tipo, DPI_PDM_Texto, DPI_PDM_b1, DPI_PDM_x, DPI_PDM_h1, DPI_IdParDisco, "
           "DPI_ArtDisco, "
           "DPI_DisCortDM, DPI_DisCortAN, DPI_DmInterno, DPI_DisCortPESO, DPI_DisPVE, DPI_DisImporte, "
           "DPI_CosteCorteDisco, DPI_FijoSierra, DPI_ImpMat, DPI_ImpMO, DPI_ImpTS, DPI_ImpVA, DPI_ImpTP, DPI_Unidades, "
           "DPI_Importe) VALUES (" +
           runtime::CStr(std::int64_t{type}) + ", 1011, 'MAQUINARIA TRIGOVERDÍN SA', 'PL-36-B', " + values + ")";
}

void fillWithPapers(sql::Connection& database, runtime::Date now) {
    data::createDatabase(database);
    data::fillDemo(database, now);
    database.execute(
        proposalOfType(7,
                       "19, 12.7, 7.75, 8.51, 12, 6, 0, 77.15, 68.64, 83, 0, 7.18, 23.88, 23.88, 0, 1, "
                       "'ISO 1/2''''', 7.2, 9.48, 16.5, 1, 3, 88, 27, 0, 1.29, 1.65, 6.53, 4.4, 0, 6.53, 20, 0, "
                       "0, 26.53, 3, 79.59"));
    database.execute(
        proposalOfType(10,
                       "30, 12.7, 7.75, 8.51, 25, 8, 1, 121.5, 112.99, 127, 80, 7, 72, 7.2, 32.4, NULL, NULL, 60, "
                       "NULL, 32.4, 1, 3, 132, 10, 0, 1.07, 1.65, 8.37, 6.6, 0, 8.37, 20, 0, 0, 28.37, 2, 56.74"));
    database.execute(
        proposalOfType(11,
                       "21, 12.7, 7.92, 7.92, 25, 8, 0, 85.21, 77.29, 78, 55, 0.35, 70, 6, 34, NULL, NULL, 45, "
                       "NULL, 30, 1, 3, 83, 77, 0, 3.27, 1.5, 8.65, 3.74, 0, 8.65, 13.16, 30, 1.5, 53.31, 2, "
                       "106.62"));
    database.execute(
        proposalOfType(14,
                       "19, 12.7, 7.75, 8.51, 12, 6, 0, 77.15, 68.64, 83, 0, 7.18, 35.04, 35.04, 0, 1, "
                       "'ISO 1/2''''', 7.2, 6.72, 16.5, 1, 3, 88, 38, 0, 1.81, 1.65, 7.39, 4.4, 0, 7.39, 20, 0, "
                       "0, 27.39, 4, 109.56"));
}

std::unique_ptr<sql::Connection> paperDatabase(const system::Clock& clock) {
    static const runtime::Date made = clock.now();
    static const DatabaseTemplate filled([](sql::Connection& database) { fillWithPapers(database, made); },
                                         {.clock = [] { return made; }});
    return filled.copy(":memory:", {.clock = [&clock] { return clock.now(); }});
}

}  // namespace

PaperWorkshop::PaperWorkshop() : database(paperDatabase(clock)), session(*database) {}

std::int32_t PaperWorkshop::latestOfType(int type) {
    return execute("SELECT max(DPI_Id) FROM DPI where DPI_Tipo=" + runtime::CStr(std::int64_t{type}))[0].toLong();
}

std::int32_t PaperWorkshop::withGreatFigures(int type) {
    constexpr const char* great = "99999999.99";
    std::string assignments;
    for (const char* column :
         {"DPI_AC",        "DPI_Rodillo",     "DPI_Pas",    "DPI_DmPri",      "DPI_DmFon",           "DPI_DmExt",
          "DPI_DmCub",     "DPI_Alt",         "DPI_Eje",    "DPI_Chav",       "DPI_AnchoTotal",      "DPI_Llanta",
          "DPI_AnchoCubo", "DPI_PDM_b1",      "DPI_PDM_x",  "DPI_PDM_h1",     "DPI_DisCortDM",       "DPI_DisCortAN",
          "DPI_DmInterno", "DPI_DisCortPESO", "DPI_DisPVE", "DPI_DisImporte", "DPI_CosteCorteDisco", "DPI_CubCortDM",
          "DPI_CubCortAN", "DPI_CubCortPESO", "DPI_CubPVE", "DPI_CubImporte", "DPI_FijoSierra",      "DPI_ImpMat",
          "DPI_ImpMO",     "DPI_ImpTS",       "DPI_ImpVA",  "DPI_ImpTP",      "DPI_Unidades",        "DPI_Importe"}) {
        assignments += (assignments.empty() ? "" : ", ") + std::string(column) + "=" + great;
    }
    const std::int32_t proposal = latestOfType(type);
    const std::string number = runtime::CStr(std::int64_t{proposal});
    execute("UPDATE DPI SET " + assignments + " WHERE DPI_Id=" + number);
    execute("DELETE FROM MoDpi WHERE MoDpi_Dpi=" + number);
    execute(
        "INSERT INTO MoDpi (MoDpi_Dpi, MoDpi_Ope, MoDpi_Maq, MoDpi_Minutos, MoDpi_Pvp, MoDpi_Tiempo, MoDpi_Importe) "
        "VALUES (" +
        number + ", 2, 201, " + great + ", " + great + ", " + great + ", " + great + ")");
    return proposal;
}

}  // namespace velmora::support
