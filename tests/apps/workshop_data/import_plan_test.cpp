#include "velmora/apps/workshop_data/import_plan.h"

#include "velmora/apps/workshop_data/csv_transfer.h"

#include "workshop_bench.h"

namespace velmora::workshop_data {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ImportPlanTest : public ::testing::Test {
  protected:
    ImportPlan plan(const char* table, const std::string& text) {
        return planNow(TableStore(shop.session, *findTable(table)), contentOf(text));
    }
    static std::vector<Fate> fates(const ImportPlan& plan) {
        std::vector<Fate> all;
        for (const PlannedRow& row : plan.rows) {
            all.push_back(row.fate);
        }
        return all;
    }
    /// "2 Número: falta"
    static std::vector<std::string> told(const ImportPlan& plan) {
        std::vector<std::string> all;
        for (const PlanFault& fault : plan.faults) {
            all.push_back(std::to_string(fault.line) + (fault.column.empty() ? "" : " " + fault.column) + ": " +
                          fault.reason);
        }
        return all;
    }

    Workshop shop{demoDatabase()};
};

TEST_F(ImportPlanTest, ARowIsNewAChangeOrEqual) {
    const ImportPlan made =
        plan("MAQ", "Número;Nombre;Sección\n131;Sierra de cinta;1\n201;Torno grande;2\n999;Nueva;\n");
    EXPECT_THAT(fates(made), ElementsAre(Fate::equal, Fate::changed, Fate::added));
    EXPECT_TRUE(made.mayRun());
    EXPECT_EQ(made.rows[1].check.writes.size(), 1u) << "only what differs is written";
    EXPECT_EQ(made.rows[1].key, "201");
}

TEST_F(ImportPlanTest, ColumnsAreNamedByCaptionOrDatabaseInAnyOrderAndCase) {
    const ImportPlan made = plan("MAQ", "maq_sec; NOMBRE ;Número\n1;Sierra de cinta;131\n");
    EXPECT_THAT(fates(made), ElementsAre(Fate::equal));
}

TEST_F(ImportPlanTest, AColumnThatIsMissingKeepsItsValueOrBeginsAsOnTheForm) {
    const ImportPlan changed = plan("CLI", "Código;Nombre comercial\n1001;OTRO\n");
    ASSERT_THAT(fates(changed), ElementsAre(Fate::changed));
    EXPECT_EQ(changed.rows[0].check.texts[1], "TRANSPORTADORES CINTARBOL SL");
    const ImportPlan added = plan("CLI", "Código;Nombre fiscal\n7777;NUEVO SL\n");
    ASSERT_THAT(fates(added), ElementsAre(Fate::added));
    EXPECT_EQ(added.rows[0].check.texts[4], "No");
}

TEST_F(ImportPlanTest, EachErrorIsToldWithItsLineColumnAndReason) {
    const ImportPlan made = plan("MAQ",
                                 "Número;Nombre;Sección\n"
                                 "x;Torno;2\n"
                                 ";Sin número;2\n"
                                 "900;;9\n"
                                 "902;" +
                                     std::string(101, 'n') +
                                     ";2\n"
                                     "903;Una\n"
                                     "904;Una;1\n"
                                     "904;Otra;1\n");
    EXPECT_THAT(
        told(made),
        ElementsAre("2 Número: no es un número", "3 Número: falta", "4 Nombre: falta",
                    "4 Sección: no existe la sección 9", "5 Nombre: es demasiado largo: admite 100 letras",
                    "6: tiene 2 valores, y la cabecera 3 columnas", "8: está dos veces: ya está en la línea 7"));
    EXPECT_FALSE(made.mayRun());
}

TEST_F(ImportPlanTest, KeysAreTheSameInAnyCaseAndSpelling) {
    EXPECT_THAT(fates(plan("ART", "Código;Precio de venta\nred-f114;1,4\n")), ElementsAre(Fate::equal));
    EXPECT_THAT(fates(plan("MAQ", "Número;Nombre\n0131;Sierra de cinta\n")), ElementsAre(Fate::equal));
    EXPECT_THAT(told(plan("MAQ", "Número;Nombre\n950;A\n0950;B\n")),
                ElementsAre("3: está dos veces: ya está en la línea 2"));
}

TEST_F(ImportPlanTest, AKeyOfSeveralColumnsIsOneKey) {
    const ImportPlan made = plan("OBM", "Operario;Máquina;Precio de venta\n1;131;31\n1;132;35\n1;201;40\n");
    EXPECT_THAT(fates(made), ElementsAre(Fate::equal, Fate::changed, Fate::added));
}

TEST_F(ImportPlanTest, AHeadingThatDoesNotFitRefusesTheFile) {
    EXPECT_THAT(told(plan("MAQ", "")), ElementsAre("1: El archivo está vacío."));
    EXPECT_THAT(told(plan("MAQ", "Nombre;Color\nx;y\n")),
                ElementsAre("1 Color: columna desconocida", "1 Número: falta la columna"));
    EXPECT_THAT(told(plan("MAQ", "Número;Nombre;nombre\n1;x;y\n")), ElementsAre("1 nombre: la columna está dos veces"));
    EXPECT_THAT(told(plan("MAQ", "Número,Nombre\n1,x\n")),
                ElementsAre("1: Las columnas deben ir separadas por punto y coma (;)."));
}

TEST_F(ImportPlanTest, AFileThatIsNoTextIsRefused) {
    EXPECT_EQ(plan("MAQ", std::string("a\0b", 3)).faults.size(), 1u);
    EXPECT_THAT(told(plan("MAQ", "Número;Nombre\n1;\"x\n")), ElementsAre("2: Unas comillas se abren y no se cierran."));
}

TEST_F(ImportPlanTest, TheWholeRowIsCheckedWhenEachOfItsColumnsIsRight) {
    EXPECT_THAT(told(plan("Calculos", "Medida;Desde;Hasta;Constante\nAncho total;50;40;0,5\n")),
                ElementsAre("2: «Desde» es mayor que «Hasta»."));
}

TEST_F(ImportPlanTest, AMaterialThatAProposalUsesIsNotChanged) {
    const ImportPlan made = plan("PARDPI", "Descripción;Hierro\nDisco F-114;Sí\n");
    ASSERT_EQ(made.faults.size(), 1u);
    EXPECT_THAT(made.faults[0].reason, ::testing::StartsWith("no se puede cambiar: propuestas (disco): "));
}

TEST_F(ImportPlanTest, WhatIsStoredAndStaysIsNotChecked) {
    shop.database->execute("UPDATE MAQ SET MAQ_SEC = 77 WHERE MAQ_ID = 131");
    const ImportPlan made = plan("MAQ", "Número;Nombre;Sección\n131;Otra sierra;77\n");
    EXPECT_THAT(told(made), IsEmpty());
    EXPECT_THAT(fates(made), ElementsAre(Fate::changed));
}

}  // namespace
}  // namespace velmora::workshop_data
