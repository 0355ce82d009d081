#pragma once
// The materials of a small shop as a connection without an engine answers them.

#include <optional>
#include <string>
#include <vector>

#include "support/scripted_connection.h"

namespace velmora::support {

/// A row of PARDPI with its article. `disc` tells discs (true) from hubs (false); a material of neither is null there.
struct Material {
    int id;
    const char* name;  ///< null for none
    std::optional<bool> disc;
    bool iron;
    bool rack;
    const char* article;
    sql::Value formula;
    double factor;  ///< kg per mm³ of the formula, in millions
    double cost;    ///< € per kg, like `sale`
    double sale;
    std::optional<double> rate;  ///< € per mm of cut; none for an article without a kind of material
};

/// Discs 1, 3, 4 and 6; hubs 2, 5 and 7; 8 is the rack's.
inline std::vector<Material> shopMaterials() {
    return {{1, "Disco F-114", true, false, false, "R-F114", 2, 6.165, 0.95, 1.4, 0.05},
            {2, "Cubo F-1140", false, false, false, "R-F1140", 2, 6.165, 1.02, 1.5, 0.02},
            {3, "Chapa hierro", true, true, false, "CH-FE", 2, 6.165, 0.6, 0.9, 0.04},
            {4, "Tubo disco", true, false, false, "TB-4", 4, 6.165, 2, 3, 0.03},
            {5, "Tubo cubo", false, false, false, "TB-6", 6, 6.165, 2, 3, 0.03},
            {6, "Sin tarifa", true, false, false, "R-0", 2, 6.165, 1, 2, 0},
            {7, "Sin material", false, false, false, "R-X", {}, 6.165, 1, 2, std::nullopt},
            {8, "Pletina", std::nullopt, false, true, "PL", 1, 7.85, 1, 2, 0.05}};
}

/// The statement that opens the row of a material with its article.
inline std::string rowStatement(int id) {
    return "SELECT PARDPI.*,ART.* FROM PARDPI INNER JOIN ART ON PARDPI_ART = ART_ID WHERE PARDPI_ID= " +
           std::to_string(id);
}

/// Answers the lists, the rows and the rates of cut of these materials; whoever is not among them has no row.
inline void answerMaterials(ScriptedConnection& database, const std::vector<Material>& materials) {
    std::vector<sql::Row> discs;
    std::vector<sql::Row> hubs;
    std::vector<sql::Row> racks;
    std::vector<sql::Row> rates;
    const std::vector<std::string> columns{"PARDPI_ID", "ART_COD", "PARDPI_HIERRO", "ART_FOR",
                                           "ART_FAC",   "ART_PCO", "ART_PVE"};
    for (const Material& absent : shopMaterials()) {
        database.answer(rowStatement(absent.id), columns);
    }
    for (const Material& one : materials) {
        const sql::Row entry{one.id, one.name == nullptr ? sql::Value() : sql::Value(one.name)};
        if (one.disc) {
            (*one.disc ? discs : hubs).push_back(entry);
        }
        if (one.rack) {
            racks.push_back(entry);
        }
        if (one.rate) {
            rates.push_back({one.id, *one.rate});
        }
        database.answer(rowStatement(one.id), columns,
                        {{one.id, one.article, one.iron, one.formula, one.factor, one.cost, one.sale}});
    }
    const std::vector<std::string> listed{"PARDPI_ID", "PARDPI_NOM"};
    database.answer("SELECT * FROM PARDPI where PARDPI_DISCO=1", listed, discs);
    database.answer("SELECT * FROM PARDPI where PARDPI_DISCO=0", listed, hubs);
    database.answer("SELECT * FROM PARDPI where PARDPI_CRE=1", listed, racks);
    database.answer(
        "Select PARDPI_ID,mat_pcs from materiales inner join art on materiales.mat_id= art.art_mat inner join "
        "PARDPI on art_id = PARDPI_ART where PARDPI_ID>0 ",
        {"PARDPI_ID", "mat_pcs"}, rates);
}

}  // namespace velmora::support
