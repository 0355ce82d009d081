#include "velmora/apps/workshop_data/table_form.h"

#include "velmora/apps/workshop_data/csv_transfer.h"
#include "velmora/apps/workshop_data/import_form.h"
#include "velmora/platform/screen/close_request.h"

#include "workshop_bench.h"

namespace velmora::workshop_data {
namespace {

using screen::Answer;
using screen::Key;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class TableFormTest : public ::testing::Test {
  protected:
    std::string lastMessage() const { return demo.screen.messages.empty() ? "" : demo.screen.messages.back().text; }

    Workshop demo{demoDatabase()};
};

TEST_F(TableFormTest, EveryTableIsListedWithItsFirstRowInTheFields) {
    for (const Table& table : allTables()) {
        FormUser user(demo, table.name.data());
        const auto rows = demo.rowsOf(table.name.data());
        EXPECT_EQ(user.form().caption(), table.title);
        EXPECT_EQ(dynamic_cast<screen::DataGrid&>(user.control("dbgFilas")).rowCount(), rows.size());
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            EXPECT_EQ(user.textOf(std::string(table.columns[i].name)), rows.front()[i]) << table.columns[i].name;
        }
        EXPECT_FALSE(user.isEnabled("cmdGrabar")) << table.name << ": nothing was typed";
    }
}

TEST_F(TableFormTest, AnEmptyTableBeginsWithANewRow) {
    Workshop shop{emptyDatabase()};
    FormUser user(shop, "RSEC");
    EXPECT_EQ(user.state(), "Sección nueva.");
    user.enter("RSEC_ID", "1");
    user.enter("RSEC_NOM", "Torno");
    EXPECT_EQ(user.state(), "Sección nueva sin grabar: F5 graba, F9 deshace.");
    user.key(Key::f5);
    EXPECT_EQ(shop.query("SELECT RSEC_ID,RSEC_NOM FROM RSEC"), "1\tTorno");
    EXPECT_EQ(user.deed(), "Se ha grabado la sección 1 a las 10:00");
    EXPECT_EQ(user.state(), "");
    EXPECT_THAT(shop.screen.messages, IsEmpty()) << "what was done stands in the state line";
}

TEST_F(TableFormTest, ARowThatIsTypedHoldsTheListUntilItIsSavedOrUndone) {
    FormUser user(demo, "RSEC");
    user.enter("RSEC_NOM", "Corte y sierra");
    EXPECT_FALSE(user.isEnabled("dbgFilas"));
    EXPECT_FALSE(user.isEnabled("txtBuscar"));
    EXPECT_FALSE(user.isEnabled("cmdNuevo"));
    user.key(Key::f4);
    user.key(Key::f6);
    EXPECT_EQ(user.textOf("RSEC_NOM"), "Corte y sierra") << "no other key throws it away";
    user.key(Key::f9);
    EXPECT_EQ(user.textOf("RSEC_NOM"), "Corte");
    EXPECT_TRUE(user.isEnabled("dbgFilas"));
    EXPECT_EQ(demo.query("SELECT RSEC_NOM FROM RSEC WHERE RSEC_ID=1"), "Corte");
}

TEST_F(TableFormTest, WhatWasTypedAndIsTypedBackIsNoChange) {
    FormUser user(demo, "RSEC");
    user.enter("RSEC_NOM", "Corte y sierra");
    user.enter("RSEC_NOM", "Corte");
    EXPECT_TRUE(user.isEnabled("dbgFilas"));
    EXPECT_FALSE(user.isEnabled("cmdGrabar"));
}

TEST_F(TableFormTest, OnlyTheColumnsThatChangeAreWritten) {
    FormUser user(demo, "ART");
    demo.connection.restore();
    user.enter("ART_Pve", "1,45");
    user.key(Key::f5);
    EXPECT_THAT(demo.connection.log(), ::testing::Contains("UPDATE ART SET ART_Pve=1.45 WHERE ART_ID=1"));
}

TEST_F(TableFormTest, WhatCannotBeSavedIsToldAndStaysInItsField) {
    FormUser user(demo, "OPE");
    user.key(Key::f4);
    user.enter("OPE_ID", "11");
    user.enter("OPE_NOM", "Nerea O'Hara");
    user.enter("OPE_VENTA", "caro");
    user.key(Key::f5);
    EXPECT_EQ(lastMessage(), "Precio de venta: no es un número.");
    EXPECT_EQ(user.form().activeControl(), &user.fieldOf("OPE_VENTA"));
    EXPECT_EQ(user.textOf("OPE_VENTA"), "caro");
    EXPECT_EQ(user.textOf("OPE_NOM"), "Nerea O'Hara");
    user.enter("OPE_VENTA", "35,5");
    user.enter("OPE_MAD", "999");
    user.key(Key::f5);
    EXPECT_EQ(lastMessage(), "Máquina habitual: no existe la máquina 999.");
    user.enter("OPE_MAD", "201");
    user.key(Key::f5);
    EXPECT_EQ(demo.query("SELECT OPE_NOM,OPE_VENTA,OPE_MAD FROM OPE WHERE OPE_ID=11"), "Nerea O'Hara\t35,5\t201");
}

TEST_F(TableFormTest, AnErrorOfTheDatabaseLeavesWhatWasTyped) {
    FormUser user(demo, "RSEC");
    user.enter("RSEC_NOM", "Otro");
    demo.connection.before("UPDATE RSEC", [] { throw sql::DbError(sql::provider::failure, "disco lleno"); });
    user.key(Key::f5);
    EXPECT_EQ(lastMessage(), "No se ha grabado nada.\n\ndisco lleno");
    EXPECT_EQ(user.textOf("RSEC_NOM"), "Otro");
    user.key(Key::f5);
    EXPECT_EQ(demo.query("SELECT RSEC_NOM FROM RSEC WHERE RSEC_ID=1"), "Otro");
}

TEST_F(TableFormTest, ACodeThatIsTakenIsRefused) {
    FormUser user(demo, "ART");
    user.add({{"ART_COD", "red-f114"},
              {"ART_DES", "x"},
              {"ART_For", "Redondo"},
              {"ART_Fac", "1"},
              {"ART_Pco", "1"},
              {"ART_Pve", "1"}});
    EXPECT_EQ(lastMessage(), "Ya existe el artículo red-f114.\n\nNo se ha grabado nada.");
    user.enter("ART_COD", "RED-NUEVO");
    user.key(Key::f5);
    EXPECT_EQ(demo.query("SELECT ART_ID FROM ART WHERE ART_COD='RED-NUEVO'"), "103") << "the next number";
}

TEST_F(TableFormTest, ARowInUseIsNotDeletedAndItsCodeDoesNotChange) {
    FormUser user(demo, "MAQ");
    user.key(Key::f6);
    EXPECT_THAT(lastMessage(), HasSubstr("No se puede eliminar la máquina 131 porque está en uso (operarios: 1, "));
    user.enter("MAQ_ID", "130");
    user.key(Key::f5);
    EXPECT_THAT(lastMessage(), HasSubstr("No se puede cambiar la máquina 131 porque está en uso"));
    user.key(Key::f9);
    user.enter("MAQ_NOM", "Sierra grande");
    user.key(Key::f5);
    EXPECT_EQ(demo.query("SELECT MAQ_NOM FROM MAQ WHERE MAQ_ID=131"), "Sierra grande") << "its name may change";
}

TEST_F(TableFormTest, ARowThatNobodyUsesIsDeletedAfterAYes) {
    FormUser user(demo, "RSEC");
    user.add({{"RSEC_ID", "99"}, {"RSEC_NOM", "Vieja"}});
    demo.screen.queue(Answer::no);
    user.key(Key::f6);
    EXPECT_EQ(demo.query("SELECT count(*) FROM RSEC WHERE RSEC_ID=99"), "1");
    demo.screen.queue(Answer::yes);
    user.key(Key::f6);
    EXPECT_EQ(demo.query("SELECT count(*) FROM RSEC WHERE RSEC_ID=99"), "0");
    EXPECT_EQ(user.deed(), "Se ha eliminado la sección 99");
}

TEST_F(TableFormTest, RowsWithoutAnOwnNumberAreFoundByTheirKey) {
    FormUser user(demo, "Calculos");
    user.enter("Calculos_Constante", "0,71");
    user.key(Key::f5);
    EXPECT_EQ(demo.query("SELECT Calculos_Constante FROM Calculos WHERE Calculos_Tipo=1 AND Calculos_Valor1=0"),
              "0,71");
    EXPECT_EQ(demo.query("SELECT count(*) FROM Calculos WHERE Calculos_Constante=0.71"), "1");
}

TEST_F(TableFormTest, TheSearchTakesWordsInAnyOrderWithoutAccents) {
    FormUser user(demo, "CLI");
    auto& search = dynamic_cast<screen::TextBox&>(user.control("txtBuscar"));
    user.key(Key::f2);
    EXPECT_EQ(user.form().activeControl(), &search);
    search.setText("sa quintapeña aridos");
    EXPECT_EQ(user.textOf("CLI_COD"), "1002");
    EXPECT_THAT(user.state(), ::testing::StartsWith("Se muestran 1 de "));
    search.setText("no hay nadie así");
    EXPECT_EQ(user.textOf("CLI_COD"), "");
    EXPECT_FALSE(user.isEnabled("txtCampo(0)"));
    EXPECT_FALSE(user.isEnabled("cmdBorrar"));
}

TEST_F(TableFormTest, AReferenceIsSearchedWithF1AndNamed) {
    FormUser user(demo, "MAQ");
    user.enter("MAQ_SEC", "2");
    EXPECT_EQ(user.text("txtNombre(2)"), "Torno");
    demo.screen.queuePick(0);
    user.key(Key::f1);
    ASSERT_EQ(demo.screen.searches.size(), 1u);
    EXPECT_EQ(demo.screen.searches[0].window.title, "Buscar secciones");
    EXPECT_EQ(user.textOf("MAQ_SEC"), "7") << "by name: Acabado";
    EXPECT_EQ(user.text("txtNombre(2)"), "Acabado");
}

TEST_F(TableFormTest, AChangeOfAnotherUserIsAskedAbout) {
    FormUser user(demo, "RSEC");
    user.enter("RSEC_NOM", "Mío");
    demo.database->execute("UPDATE RSEC SET RSEC_NOM=N'De otro' WHERE RSEC_ID=1");
    demo.screen.queue(Answer::no);
    user.key(Key::f5);
    EXPECT_THAT(lastMessage(), HasSubstr("Otro usuario ha cambiado la sección desde que se mostró."));
    EXPECT_EQ(user.textOf("RSEC_NOM"), "Mío");
    demo.screen.queue(Answer::yes);
    user.key(Key::f5);
    EXPECT_EQ(demo.query("SELECT RSEC_NOM FROM RSEC WHERE RSEC_ID=1"), "Mío");
}

TEST_F(TableFormTest, ARowThatAnotherUserDeletedIsNotMadeAgain) {
    FormUser user(demo, "RSEC");
    user.add({{"RSEC_ID", "99"}, {"RSEC_NOM", "Vieja"}});
    user.enter("RSEC_NOM", "Nueva");
    demo.database->execute("DELETE FROM RSEC WHERE RSEC_ID=99");
    user.key(Key::f5);
    EXPECT_EQ(lastMessage(), "Otro usuario ha eliminado la sección 99.\n\nNo se ha grabado nada.");
    EXPECT_EQ(demo.query("SELECT count(*) FROM RSEC WHERE RSEC_ID=99"), "0");
    EXPECT_EQ(user.textOf("RSEC_NOM"), "Nueva");
}

TEST_F(TableFormTest, EscLeavesAndAsksAboutARowThatWasTyped) {
    {
        FormUser user(demo, "RSEC");
        user.key(Key::escape);
        EXPECT_TRUE(user.form().isUnloaded());
    }
    FormUser user(demo, "RSEC");
    user.enter("RSEC_NOM", "Otro");
    demo.screen.queue(Answer::cancel);
    user.key(Key::escape);
    EXPECT_FALSE(user.form().isUnloaded());
    demo.screen.queue(Answer::yes);
    user.key(Key::escape);
    EXPECT_TRUE(user.form().isUnloaded());
    EXPECT_EQ(demo.query("SELECT RSEC_NOM FROM RSEC WHERE RSEC_ID=1"), "Otro");
}

TEST_F(TableFormTest, AWindowThatIsClosedByItsFrameAsksToo) {
    FormUser user(demo, "RSEC");
    user.enter("RSEC_NOM", "Otro");
    demo.screen.queue(Answer::yes);
    screen::requestClose(user.form());
    EXPECT_EQ(demo.query("SELECT RSEC_NOM FROM RSEC WHERE RSEC_ID=1"), "Otro");
    EXPECT_TRUE(user.form().isUnloaded());
}

TEST_F(TableFormTest, AWindowStaysOpenWhenWhatWasTypedCannotBeSaved) {
    FormUser user(demo, "RSEC");
    user.enter("RSEC_NOM", "Otro");
    demo.connection.before("UPDATE RSEC", [] { throw sql::DbError(sql::provider::failure, "disco lleno"); });
    demo.screen.queue(Answer::yes);
    screen::requestClose(user.form());
    EXPECT_EQ(lastMessage(), "No se ha grabado nada.\n\ndisco lleno");
    EXPECT_FALSE(user.form().isUnloaded());
    EXPECT_EQ(user.textOf("RSEC_NOM"), "Otro");

    user.enter("RSEC_NOM", "");
    demo.screen.queue(Answer::yes);
    screen::requestClose(user.form());
    EXPECT_THAT(lastMessage(), ::testing::StartsWith("Nombre: "));
    EXPECT_FALSE(user.form().isUnloaded());

    demo.screen.queue(Answer::cancel);
    screen::requestClose(user.form());
    EXPECT_FALSE(user.form().isUnloaded());
    demo.screen.queue(Answer::no);
    screen::requestClose(user.form());
    EXPECT_TRUE(user.form().isUnloaded());
    EXPECT_EQ(demo.query("SELECT RSEC_NOM FROM RSEC WHERE RSEC_ID=1"), "Corte");
}

TEST_F(TableFormTest, ARackMaterialNeedsAnArticleThatIsWeighedAsAPlate) {
    FormUser user(demo, "PARDPI");
    const std::string plate = demo.query("SELECT top 1 ART_COD FROM ART WHERE ART_For=1");
    user.add({{"PARDPI_NOM", "Cremallera nueva"}, {"PARDPI_ART", "RED-F114"}, {"PARDPI_CRE", "Sí"}});
    EXPECT_EQ(lastMessage(), "El artículo de un material de cremallera debe tener la fórmula 1, «Pletina».");
    user.enter("PARDPI_ART", plate);
    user.key(Key::f5);
    EXPECT_EQ(demo.query("SELECT count(*) FROM PARDPI WHERE PARDPI_NOM=N'Cremallera nueva' AND PARDPI_CRE=1"), "1");
}

TEST_F(TableFormTest, NoMaterialIsAddedWhoseNumberTheProposalsCannotRead) {
    demo.database->execute("SET IDENTITY_INSERT PARDPI ON");
    demo.database->execute(
        "INSERT INTO PARDPI (PARDPI_ID,PARDPI_NOM,PARDPI_ART,PARDPI_DISCO,PARDPI_CRE) VALUES (998,N'Último',1,0,0)");
    demo.database->execute("SET IDENTITY_INSERT PARDPI OFF");
    FormUser user(demo, "PARDPI");
    user.add({{"PARDPI_NOM", "Número 999"}, {"PARDPI_ART", "RED-F114"}});
    EXPECT_EQ(demo.query("SELECT PARDPI_ID FROM PARDPI WHERE PARDPI_NOM=N'Número 999'"), "999");
    user.add({{"PARDPI_NOM", "Número 1000"}, {"PARDPI_ART", "RED-F114"}});
    EXPECT_EQ(lastMessage(),
              "No se ha grabado nada.\n\nYa no quedan números: el último que el programa admite es el 999.");
    EXPECT_EQ(demo.query("SELECT count(*) FROM PARDPI WHERE PARDPI_NOM=N'Número 1000'"), "0");
    EXPECT_EQ(user.textOf("PARDPI_NOM"), "Número 1000");
}

TEST_F(TableFormTest, NothingThatWasNotStoredIsWrittenByTickingAndUnticking) {
    demo.database->execute("UPDATE CLI SET CLI_Riesgo=NULL WHERE CLI_COD=1001");
    FormUser user(demo, "CLI");
    user.enter("CLI_Riesgo", "Sí");
    EXPECT_TRUE(user.isEnabled("cmdGrabar"));
    user.enter("CLI_Riesgo", "No");
    EXPECT_FALSE(user.isEnabled("cmdGrabar"));
}

TEST_F(TableFormTest, AFileIsPreviewedAndThenImported) {
    FormUser user(demo, "RSEC");
    const std::string path = demo.folder.file("secciones.csv");
    ASSERT_EQ(writeFile(path, "Número;Nombre\n1;Corte\n2;Tornos\n50;Pintura\n"), "");
    demo.services.files.push_back(path);
    demo.screen.queueModal([](screen::Form& form) {
        auto& preview = dynamic_cast<ImportForm&>(form);
        EXPECT_EQ(dynamic_cast<screen::Label&>(*form.find("lblResumen")).caption(),
                  "secciones.csv: 1 fila nueva, 1 cambia, 1 igual");
        auto& grid = dynamic_cast<screen::DataGrid&>(*form.find("dbgFilas"));
        ASSERT_EQ(grid.rowCount(), 2u);
        EXPECT_EQ(grid.cellText(0, 4), "Torno → Tornos");
        EXPECT_EQ(grid.cellText(1, 2), "Nueva");
        preview.keyDown(Key::f5);
    });
    user.press("cmdImportar");
    EXPECT_EQ(demo.query("SELECT RSEC_NOM FROM RSEC WHERE RSEC_ID IN (2,50) ORDER BY RSEC_ID"), "Tornos\nPintura");
    EXPECT_EQ(user.deed(), "secciones.csv: 1 nuevas, 1 cambiadas");
}

TEST_F(TableFormTest, AFileWithErrorsIsShownAndNotImported) {
    FormUser user(demo, "RSEC");
    const std::string path = demo.folder.file("secciones.csv");
    ASSERT_EQ(writeFile(path, "Número;Nombre\n50;Pintura\nx;Otra\n"), "");
    demo.services.files.push_back(path);
    demo.screen.queueModal([](screen::Form& form) {
        auto& grid = dynamic_cast<screen::DataGrid&>(*form.find("dbgFilas"));
        ASSERT_EQ(grid.rowCount(), 1u);
        EXPECT_EQ(grid.cellText(0, 0), "3");
        EXPECT_EQ(grid.cellText(0, 3), "Número");
        EXPECT_EQ(grid.cellText(0, 4), "«x»: no es un número");
        EXPECT_FALSE(form.find("cmdImportar")->isEnabled());
        form.keyDown(Key::f5);
        EXPECT_FALSE(form.isUnloaded());
    });
    user.press("cmdImportar");
    EXPECT_EQ(demo.query("SELECT count(*) FROM RSEC WHERE RSEC_ID=50"), "0");
}

TEST_F(TableFormTest, ATableThatChangesBehindThePreviewIsPreviewedAgain) {
    FormUser user(demo, "RSEC");
    const std::string path = demo.folder.file("secciones.csv");
    ASSERT_EQ(writeFile(path, "Número;Nombre\n50;Pintura\n"), "");
    demo.services.files.push_back(path);
    demo.screen.queueModal([this](screen::Form& form) {
        demo.database->execute("INSERT INTO RSEC (RSEC_ID,RSEC_NOM) VALUES (50,N'De otro')");
        form.keyDown(Key::f5);
    });
    demo.screen.queueModal([](screen::Form& form) {
        auto& grid = dynamic_cast<screen::DataGrid&>(*form.find("dbgFilas"));
        EXPECT_EQ(grid.cellText(0, 4), "De otro → Pintura");
        form.keyDown(Key::escape);
    });
    user.press("cmdImportar");
    EXPECT_EQ(demo.query("SELECT RSEC_NOM FROM RSEC WHERE RSEC_ID=50"), "De otro");
}

TEST_F(TableFormTest, ATableIsExportedToTheFileThatTheUserChooses) {
    FormUser user(demo, "RSEC");
    demo.targets = {std::nullopt, demo.folder.file("mias.csv")};
    user.press("cmdExportar");
    EXPECT_EQ(user.deed(), "") << "cancelled";
    user.press("cmdExportar");
    EXPECT_EQ(std::get<std::string>(readFile(demo.folder.file("mias.csv"))).substr(0, 31),
              "\xEF\xBB\xBFNúmero;Nombre\r\n1;Corte\r\n2;T");
    EXPECT_EQ(user.deed(), "Exportado a " + demo.folder.file("mias.csv"));
}

TEST_F(TableFormTest, EveryFieldHasANameForAScreenReader) {
    for (const Table& table : allTables()) {
        FormUser user(demo, table.name.data());
        for (const screen::Control* control : user.form().tabOrder()) {
            const auto* captioned = dynamic_cast<const screen::Captioned*>(control);
            const std::string name = captioned != nullptr ? captioned->caption() : control->accessibleName();
            EXPECT_FALSE(name.empty()) << table.name << " " << control->fullName();
        }
    }
}

}  // namespace
}  // namespace velmora::workshop_data
