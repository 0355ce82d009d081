#include "main_form.h"

#include <string>
#include <vector>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/runtime/numbers.h"

#include "support/database_template.h"

namespace velmora::support {

namespace {

std::string material(const std::string& name, int article, const std::string& iron, const std::string& disc,
                     const std::string& rack) {
    return "INSERT INTO PARDPI (PARDPI_NOM, PARDPI_ART, PARDPI_HIERRO, PARDPI_DISCO, PARDPI_MATP, PARDPI_CRE) VALUES "
           "('" +
           name + "', " + runtime::CStr(std::int64_t{article}) + ", " + iron + ", " + disc + ", 'Acero', " + rack + ")";
}

std::string article(const std::string& values) {
    return "INSERT INTO ART (ART_ID, ART_COD, ART_DES, ART_For, ART_Fac, ART_Pco, ART_Pve, ART_Mat, ART_Corte, "
           "ART_Estado) VALUES (" +
           values + ", 1, 0)";
}

const std::vector<std::string>& mainFormRows() {
    static const std::vector<std::string> rows{
        "INSERT INTO materiales (mat_id, mat_pcs) VALUES (1, 0.05)",
        "INSERT INTO materiales (mat_id, mat_pcs) VALUES (2, 0.02)",
        "INSERT INTO materiales (mat_id, mat_pcs) VALUES (3, 0.04)",
        "INSERT INTO materiales (mat_id, mat_pcs) VALUES (4, 0.03)",
        "INSERT INTO materiales (mat_id, mat_pcs) VALUES (5, 0)",
        article("1, 'R-F114', 'Redondo F-114', 2, 6.165, 0.95, 1.4, 1"),
        article("2, 'R-F1140', 'Redondo F-1140', 2, 6.165, 1.02, 1.5, 2"),
        article("3, 'CH-FE', 'Chapa de hierro', 2, 6.165, 0.6, 0.9, 3"),
        article("4, 'TB-4', 'Tubo', 4, 6.165, 2, 3, 4"),
        article("5, 'TB-6', 'Tubo macizo', 6, 6.165, 2, 3, 4"),
        article("6, 'R-0', 'Redondo sin tarifa', 2, 6.165, 1, 2, 5"),
        article("7, 'R-X', 'Redondo sin material', NULL, 6.165, 1, 2, NULL"),
        article("8, 'PL', 'Pletina', 1, 7.85, 1, 2, 1"),
        material("Disco F-114", 1, "0", "1", "0"),
        material("Cubo F-1140", 2, "0", "0", "0"),
        material("Chapa hierro", 3, "1", "1", "0"),
        material("Tubo disco", 4, "0", "1", "0"),
        material("Tubo cubo", 5, "0", "0", "0"),
        material("Sin tarifa", 6, "0", "1", "0"),
        material("Sin material", 7, "0", "0", "0"),
        material("Pletina", 8, "0", "NULL", "1"),
        "INSERT INTO Calculos (Calculos_Tipo, Calculos_Valor1, Calculos_Valor2, Calculos_Constante) VALUES (1, 0, "
        "1000, "
        "0.6)",
        "INSERT INTO Calculos (Calculos_Tipo, Calculos_Valor1, Calculos_Valor2, Calculos_Constante) VALUES (2, 0, "
        "1000, "
        "0.4)",
        "INSERT INTO CLI (CLI_ID, CLI_COD, CLI_NOM, CLI_COMER, CLI_GtosFinan, CLI_Riesgo, CLI_ImpMaxRiesgo) VALUES (1, "
        "1001, 'TALLERES NORTE SL', 'NORTE', 1.5, 0, 0)",
    };
    return rows;
}

void fillMainForm(sql::Connection& database) {
    data::createDatabase(database);
    for (const std::string& statement : mainFormRows()) {
        database.execute(statement);
    }
}

std::unique_ptr<sql::Connection> mainFormDatabase(const system::Clock& clock) {
    static const DatabaseTemplate filled(fillMainForm);
    return filled.copy(":memory:", {.clock = [&clock] { return clock.now(); }});
}

}  // namespace

MainForm::MainForm() : database(mainFormDatabase(clock)), connection(*database), session(connection) {}

proposal::frmBercialPiñones& MainForm::form() {
    if (!form_) {
        form_ = std::make_unique<proposal::frmBercialPiñones>(session, desk);
    }
    return *form_;
}

void MainForm::enter(screen::TextBox& box, std::string_view text) {
    ASSERT_TRUE(form().moveFocus(box, screen::Form::Insist::yes)) << box.fullName() << " takes no focus";
    box.setText(text);
}

void MainForm::enterLargeSprocket() {
    enter(fields().Text1(0), "12,7");
    enter(fields().Text1(8), "7,75");
    enter(fields().Text1(1), "38");
    enter(fields().Text1(2), "7,75");
    leave();
}

}  // namespace velmora::support
