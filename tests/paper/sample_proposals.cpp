#include "paper/sample_proposals.h"

#include <array>
#include <map>
#include <utility>

#include "velmora/data/new_database.h"
#include "velmora/data/product_types.h"
#include "velmora/platform/runtime/numbers.h"

#include "support/database_template.h"

namespace velmora::support {

namespace {

/// Column to literal.
using Row = std::map<std::string, std::string>;

/// A plain sprocket of 20 pieces: 11.66 and 9.09 of material, 20.75 in all.
const Row& plainSprocket() {
    static const Row row{
        {"DPI_Fecha", "'15/01/2026'"},
        {"DPI_FAcepta", "'22/01/2026'"},
        {"DPI_Orden", "26031"},
        {"DPI_CodCliente", "1013"},
        {"DPI_NomCliente", "'LAVANDERÍAS ESPUMAÑUL SL'"},
        {"DPI_RefCli", "'REF-17-A'"},
        {"DPI_PedCliente", "'PC-77'"},
        {"DPI_FPedCliente", "'21/01/2026'"},
        {"DPI_FechaEntrega", "'20/02/2026'"},
        {"DPI_Obser", "'Taladros M8 a 120°:\r\n  - dos en el cubo\r\n  - uno en el disco'"},
        {"DPI_Extra", "'Dientes templados'"},
        {"DPI_ProTex", "'Aceros Consultados'"},
        {"DPI_Z", "38"},
        {"DPI_Pas", "12.7"},
        {"DPI_AC", "7.75"},
        {"DPI_Rodillo", "8.51"},
        {"DPI_Modulo", "0"},
        {"DPI_Eje", "25"},
        {"DPI_Chav", "8"},
        {"DPI_Pri", "2"},
        {"DPI_DmPri", "153.79"},
        {"DPI_DmFon", "145.28"},
        {"DPI_DmExt", "160"},
        {"DPI_DmCub", "95"},
        {"DPI_Alt", "7.36"},
        {"DPI_AnchoTotal", "50"},
        {"DPI_Llanta", "6"},
        {"DPI_AnchoCubo", "44"},
        {"DPI_IdParDisco", "1"},
        {"DPI_ArtDisco", "1"},
        {"DPI_DisCortDM", "165"},
        {"DPI_DisCortAN", "9"},
        {"DPI_DmInterno", "0"},
        {"DPI_DisCortPESO", "1.34"},
        {"DPI_DisPVE", "1.31"},
        {"DPI_DisImporte", "11.66"},
        {"DPI_CosteCorteDisco", "9.9"},
        {"DPI_IdParCubo", "2"},
        {"DPI_ArtCubo", "2"},
        {"DPI_CubCortDM", "102"},
        {"DPI_CubCortAN", "47"},
        {"DPI_CuboDmInterno", "21"},
        {"DPI_CubCortPESO", "3.02"},
        {"DPI_CubPVE", "1.52"},
        {"DPI_CubImporte", "9.09"},
        {"DPI_FijoSierra", "2.53"},
        {"DPI_ImpMat", "20.75"},
        {"DPI_ImpMO", "24.98"},
        {"DPI_ImpTS", "1031.17"},
        {"DPI_ImpVA", "1.05"},
        {"DPI_ImpTP", "1080.48"},
        {"DPI_Unidades", "20"},
        {"DPI_Importe", "21609.6"},
        {"DPI_HERRAMIENTA", "'H7'"},
        {"DPI_Acopla", "1"},
    };
    return row;
}

/// No hub, neither drawn nor cut.
const Row withoutHub{{"DPI_DmCub", "0"},        {"DPI_AnchoCubo", "0"},  {"DPI_CubCortPESO", "0"},
                     {"DPI_CubImporte", "0"},   {"DPI_ImpMat", "11.66"}, {"DPI_ImpTP", "1071.39"},
                     {"DPI_Importe", "21427.8"}};
const Row twoRims{{"DPI_PDM_Tipo", "1"},     {"DPI_PDM_Texto", "'ISO 1/2'''''"},
                  {"DPI_PDM_b1", "7.2"},     {"DPI_PDM_x", "6.72"},
                  {"DPI_PDM_h1", "16.5"},    {"DPI_Llanta", "21.12"},
                  {"DPI_AnchoCubo", "28.88"}};
const Row twoChains{{"DPI_PDM_x", "9.48"}, {"DPI_Llanta", "23.88"}, {"DPI_AnchoCubo", "26.12"}};
const Row threeRims{{"DPI_Llanta", "35.04"}, {"DPI_AnchoCubo", "14.96"}};
const Row gear{{"DPI_Modulo", "4"},  {"DPI_Pas", "12.57"}, {"DPI_AC", "0"}, {"DPI_Rodillo", "0"},
               {"DPI_DmPri", "152"}, {"DPI_DmFon", "142"}, {"DPI_Alt", "9"}};
const Row twinHubs{{"DPI_AnchoCubo", "22"}};
const Row unlikeHubs{{"DPI_AnchoCubo", "24"}, {"DPI_PDM_b1", "80"}, {"DPI_PDM_h1", "20"}};
const Row withoutTeeth{{"DPI_Z", "0"},     {"DPI_Pas", "0"}, {"DPI_AC", "0"},     {"DPI_Rodillo", "0"},
                       {"DPI_DmPri", "0"}, {"DPI_Alt", "0"}, {"DPI_DmFon", "160"}};
/// The saw's charge of the lot, 10 euros, is half a euro a piece.
const Row sawSpread{{"DPI_FijoSierra", "10"}, {"DPI_ImpTP", "1078.45"}, {"DPI_Importe", "21569"}};
const Row bar{{"DPI_Modulo", "4"},
              {"DPI_Pas", "12.57"},
              {"DPI_AC", "9"},
              {"DPI_Alt", "40"},
              {"DPI_Llanta", "1000"},
              {"DPI_AnchoCubo", "30"},
              {"DPI_DmFon", "45"},
              {"DPI_DisCortDM", "35"},
              {"DPI_DisCortAN", "1010"},
              {"DPI_DisCortPESO", "12.49"},
              {"DPI_DisImporte", "26.26"},
              {"DPI_CubCortPESO", "0"},
              {"DPI_CubImporte", "0"},
              {"DPI_ImpMat", "26.26"},
              {"DPI_ImpTP", "1085.99"},
              {"DPI_Importe", "21719.8"},
              {"DPI_IdParDisco", "3"},
              {"DPI_ArtDisco", "3"}};

/// What a type changes of the plain sprocket, later rows over earlier ones.
std::vector<const Row*> changesOf(int type) {
    switch (type) {
        case data::disc:
            return {&withoutHub};
        case data::twoHubSprocket:
            return {&twinHubs};
        case data::smoothPulley:
            return {&twinHubs, &withoutTeeth};
        case data::doubleSprocket:
            return {&twoRims, &sawSpread};
        case data::twoChainSprocket:
            return {&twoRims, &twoChains};
        case data::doubleDisc:
            return {&twoRims, &withoutHub};
        case data::twoChainDisc:
            return {&twoRims, &twoChains, &withoutHub};
        case data::gear:
            return {&gear};
        case data::gearDisc:
            return {&gear, &withoutHub};
        case data::variableSprocket:
            return {&unlikeHubs};
        case data::variablePulley:
            return {&unlikeHubs, &withoutTeeth};
        case data::tripleSprocket:
            return {&twoRims, &threeRims};
        case data::rack:
            return {&bar};
        case data::tripleDisc:
            return {&twoRims, &threeRims, &withoutHub};
        default:
            return {};
    }
}

std::string insertOf(int type) {
    Row row = plainSprocket();
    for (const Row* changes : changesOf(type)) {
        for (const auto& [column, value] : *changes) {
            row[column] = value;
        }
    }
    std::string columns = "DPI_Tipo";
    std::string values = runtime::CStr(std::int64_t{type});
    for (const auto& [column, value] : row) {
        columns += "," + column;
        values += "," + value;
    }
    return "INSERT INTO DPI (" + columns + ") VALUES (" + values + ")";
}

constexpr std::array references{
    "INSERT INTO ART (ART_ID,ART_COD,ART_DES) VALUES (1,'DIS-S275','Disco oxicorte hierro S275JR')",
    "INSERT INTO ART (ART_ID,ART_COD,ART_DES) VALUES (2,'RED-F1140','Redondo acero F-1140 (C45E) calibrado')",
    "INSERT INTO ART (ART_ID,ART_COD,ART_DES) VALUES (3,'PLE-F114','Pletina acero F-114')",
    "INSERT INTO PARDPI (PARDPI_NOM,PARDPI_MATP) VALUES ('Disco hierro S275JR','Hierro S275JR')",
    "INSERT INTO PARDPI (PARDPI_NOM,PARDPI_MATP) VALUES ('Cubo F-1140','Acero F-1140')",
    "INSERT INTO PARDPI (PARDPI_NOM,PARDPI_MATP) VALUES ('Pletina F-114','Pletina de acero F-114')",
    "INSERT INTO RSEC (RSEC_ID,RSEC_NOM) VALUES (2,'Torno')",
    "INSERT INTO RSEC (RSEC_ID,RSEC_NOM) VALUES (3,'Tallado')",
    "INSERT INTO MAQ (MAQ_ID,MAQ_NOM,MAQ_SEC) VALUES (201,'Torno CNC 1',2)",
    "INSERT INTO MAQ (MAQ_ID,MAQ_NOM,MAQ_SEC) VALUES (303,'Fresadora madre 1',3)",
    "INSERT INTO OPE (OPE_ID,OPE_NOM) VALUES (2,'Begoña L.')",
    "INSERT INTO OPE (OPE_ID,OPE_NOM) VALUES (5,'Eneko S.')",
};

/// Two lines, 24.98 in all.
std::string labourOf(std::int32_t proposal) {
    const std::string number = runtime::CStr(std::int64_t{proposal});
    return "INSERT INTO MoDpi (MoDpi_Dpi, MoDpi_Ope, MoDpi_Maq, MoDpi_Minutos, MoDpi_Pvp, MoDpi_Tiempo, MoDpi_Importe) "
           "VALUES (" +
           number + ", 2, 201, 16.4, 39.5, 0.2733, 10.8), (" + number + ", 5, 303, 20.25, 42, 0.3375, 14.18)";
}

void fill(sql::Connection& database) {
    data::createDatabase(database);
    for (const char* statement : references) {
        database.execute(statement);
    }
    for (const data::ProductType& type : data::productTypes) {
        database.execute(insertOf(type.number));
        database.execute(labourOf(SampleProposals::numberOf(type.number)));
    }
}

}  // namespace

SampleProposals::SampleProposals() {
    static const DatabaseTemplate samples(fill);
    database_ = samples.copy();
}

void SampleProposals::set(std::int32_t proposal, const std::string& assignments) {
    database_->execute("UPDATE DPI SET " + assignments + " WHERE DPI_Id=" + runtime::CStr(std::int64_t{proposal}));
}

}  // namespace velmora::support
