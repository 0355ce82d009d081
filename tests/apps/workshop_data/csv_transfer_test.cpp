#include "velmora/apps/workshop_data/csv_transfer.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <sys/wait.h>

#include "workshop_bench.h"

namespace velmora::workshop_data {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::string manyMachines(int count) {
    std::string file = "Número;Nombre\n";
    for (int i = 1; i <= count; ++i) {
        file += std::to_string(1000 + i) + ";Máquina " + std::to_string(i) + "\n";
    }
    return file;
}

class CsvTransferTest : public ::testing::Test {
  protected:
    TableStore store(Workshop& workshop, const char* table) const { return {workshop.session, *findTable(table)}; }
    Imported importInto(Workshop& workshop, const char* table, const std::string& bytes) {
        const TableStore in = store(workshop, table);
        const CsvContent file = contentOf(bytes);
        const ImportPlan plan = planNow(in, file);
        EXPECT_THAT(plan.faults, IsEmpty()) << table << ": " << plan.faults.front().reason;
        screen::Progress progress;
        return importNow(workshop.session.Connection(), in, file, plan, progress);
    }

    Workshop shop{emptyDatabase()};
};

TEST_F(CsvTransferTest, WhatIsExportedFillsAnEmptyWorkshopWithTheSame) {
    Workshop demo{demoDatabase()};
    for (const Table& table : allTables()) {
        const std::string file = csvOfTable(store(demo, table.name.data()));
        EXPECT_EQ(importInto(shop, table.name.data(), file), Imported::all);
        EXPECT_EQ(shop.rowsOf(table.name.data()), demo.rowsOf(table.name.data())) << table.name;
        EXPECT_EQ(csvOfTable(store(shop, table.name.data())), file) << table.name;
        EXPECT_EQ(planNow(store(shop, table.name.data()), contentOf(file)).count(Fate::equal),
                  demo.rowsOf(table.name.data()).size());
    }
    // The database itself: numbers as numbers, null as null, apostrophes single.
    EXPECT_EQ(shop.query("SELECT ART_COD,ART_Fac,ART_Corte FROM ART WHERE ART_COD like 'CAS%'"),
              demo.query("SELECT ART_COD,ART_Fac,ART_Corte FROM ART WHERE ART_COD like 'CAS%'"));
    EXPECT_EQ(shop.query("SELECT PARDPI_ID,PARDPI_ART,PARDPI_NOM FROM PARDPI ORDER BY PARDPI_ID"),
              demo.query("SELECT PARDPI_ID,PARDPI_ART,PARDPI_NOM FROM PARDPI ORDER BY PARDPI_ID"));
}

TEST_F(CsvTransferTest, RowsWithoutANumberThatIsLeftAreRefusedByLine) {
    Workshop demo{demoDatabase()};
    demo.database->execute("SET IDENTITY_INSERT PARDPI ON");
    demo.database->execute(
        "INSERT INTO PARDPI (PARDPI_ID,PARDPI_NOM,PARDPI_ART,PARDPI_DISCO,PARDPI_CRE) VALUES (998,N'Último',1,0,0)");
    demo.database->execute("SET IDENTITY_INSERT PARDPI OFF");
    const ImportPlan plan =
        planNow(store(demo, "PARDPI"), contentOf("Descripción;Artículo\nUno;RED-F114\nDos;RED-F114\nTres;RED-F114\n"));
    ASSERT_EQ(plan.faults.size(), 2u);
    EXPECT_EQ(plan.faults[0].line, 3u);
    EXPECT_EQ(plan.faults[1].line, 4u);
    EXPECT_THAT(plan.faults[0].reason, HasSubstr("el último que el programa admite es el 999"));
    EXPECT_FALSE(plan.mayRun());
}

TEST_F(CsvTransferTest, AFileOfAnOlderSpreadsheetIsReadInItsLetters) {
    EXPECT_EQ(importInto(shop, "RSEC", "N\xFAmero;Nombre\r\n1;Fresado y pi\xF1ones\r\n"), Imported::all);
    EXPECT_EQ(shop.query("SELECT RSEC_NOM FROM RSEC"), "Fresado y piñones");
}

TEST_F(CsvTransferTest, AnErrorOfTheDatabaseInTheMiddleLeavesNothing) {
    const TableStore machines = store(shop, "MAQ");
    const CsvContent file = contentOf(manyMachines(50));
    const ImportPlan plan = planNow(machines, file);
    shop.connection.before("(1030,", [] { throw sql::DbError(sql::provider::failure, "disco lleno"); });
    screen::Progress progress;
    EXPECT_THROW(importNow(shop.session.Connection(), machines, file, plan, progress), runtime::RuntimeError);
    EXPECT_EQ(shop.query("SELECT count(*) FROM MAQ"), "0");
}

TEST_F(CsvTransferTest, ATableThatHasChangedSinceThePreviewIsNotWritten) {
    const TableStore machines = store(shop, "MAQ");
    const CsvContent file = contentOf(manyMachines(3));
    const ImportPlan plan = planNow(machines, file);
    shop.database->execute("INSERT INTO MAQ (MAQ_ID,MAQ_NOM) VALUES (1002,N'De otro')");
    screen::Progress progress;
    EXPECT_EQ(importNow(shop.session.Connection(), machines, file, plan, progress), Imported::outdated);
    EXPECT_EQ(shop.query("SELECT MAQ_NOM FROM MAQ"), "De otro");
}

TEST_F(CsvTransferTest, ACancelLeavesNothing) {
    class Cancelled : public screen::Progress {
        bool cancelled() override { return ++asked_ > 1; }
        int asked_ = 0;
    } progress;
    const TableStore machines = store(shop, "MAQ");
    const CsvContent file = contentOf(manyMachines(500));
    EXPECT_EQ(importNow(shop.session.Connection(), machines, file, planNow(machines, file), progress),
              Imported::cancelled);
    EXPECT_EQ(shop.query("SELECT count(*) FROM MAQ"), "0");
}

// Another process, which is killed in the middle of the rows.
TEST_F(CsvTransferTest, AKillInTheMiddleLeavesNothing) {
    const std::string path = shop.folder.file("taller.db");
    { const auto made = emptyDatabase(path); }
    const std::string bytes = manyMachines(500);
    ASSERT_EQ(writeFile(shop.folder.file("maquinas.csv"), bytes), "");
    const int status = std::system(
        (std::string(VELMORA_KILLED_IMPORT) + " '" + path + "' '" + shop.folder.file("maquinas.csv") + "'").c_str());
    ASSERT_TRUE(WIFEXITED(status) ? WEXITSTATUS(status) == 128 + SIGKILL : WTERMSIG(status) == SIGKILL)
        << "it was not killed";
    Workshop after(openDatabase(path));
    EXPECT_EQ(after.query("SELECT count(*) FROM MAQ"), "0");
    EXPECT_EQ(importInto(after, "MAQ", bytes), Imported::all);
}

TEST_F(CsvTransferTest, FilesAreWrittenAsAWholeOrNotAtAll) {
    const std::string path = shop.folder.file("copia.csv");
    EXPECT_EQ(writeFile(path, "uno"), "");
    EXPECT_EQ(writeFile(path, "dos"), "");
    EXPECT_EQ(std::get<std::string>(readFile(path)), "dos");
    EXPECT_THAT(writeFile(shop.folder.file("no/hay.csv"), "x"), HasSubstr("No se puede escribir el archivo"));
    std::filesystem::create_directory(shop.folder.file("carpeta.csv"));
    EXPECT_THAT(writeFile(shop.folder.file("carpeta.csv"), "x"), HasSubstr("No se puede escribir el archivo"));
    EXPECT_FALSE(std::filesystem::exists(shop.folder.file("carpeta.csv.parcial")));
}

TEST_F(CsvTransferTest, AFileThatCannotBeReadIsToldInWords) {
    EXPECT_THAT(std::get<Refusal>(readFile(shop.folder.file("nada.csv"))).reason, HasSubstr("No se puede leer"));
    EXPECT_THAT(std::get<Refusal>(readFile(shop.folder.path().string())).reason, HasSubstr("No se puede leer"));
    const std::string large = shop.folder.file("grande.csv");
    std::ofstream(large) << "x";
    std::filesystem::resize_file(large, 65u * 1024 * 1024);
    EXPECT_THAT(std::get<Refusal>(readFile(large)).reason, HasSubstr("más de 64 MB"));
}

}  // namespace
}  // namespace velmora::workshop_data
