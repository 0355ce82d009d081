#include <gmock/gmock.h>

#include "labour_form.h"
#include "support/scripted_connection.h"

namespace velmora::labour {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LinesTest : public LabourTest {};

TEST_F(LinesTest, TheLinesOfAProposalAreAskedForInTheseWords) {
    open();
    EXPECT_EQ(form->caption(), "Calculo de Mano de Obra para la propuesta nº 1");
    EXPECT_THAT(shop.connection.log(),
                ElementsAre("select *,(select ope_nom from ope where ope_id = modpi_ope) as Operario, "
                            "(select maq_nom from maq where maq_id = modpi_maq) as Maquina, "
                            "(select rsec_nom from rsec inner join maq on rsec_id = maq_sec where maq_id = modpi_maq) "
                            "as Seccion from modpi where modpi_dpi=1",
                            "Select isnull(sum(modpi_importe),0) as Importe from modpi where modpi_dpi = 1"));
}

TEST_F(LinesTest, TheGridShowsMinutesAmountAndNames) {
    store(1, "1234.5", "33", "678.975");
    open();
    std::vector<std::string> captions;
    std::vector<std::string> cells;
    const auto& columns = fields().DataGrid1.columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].visible) {
            captions.push_back(columns[i].caption);
            cells.push_back(fields().DataGrid1.cellText(0, i));
        }
    }
    EXPECT_THAT(captions, ElementsAre("Minutos", "Importe", "Operario", "Maquina", "Seccion"));
    EXPECT_THAT(cells, ElementsAre("1.234,5000", "678,98", "Ana", "Sierra", "Corte"));
    EXPECT_EQ(columns.size(), 11u);
    EXPECT_TRUE(columns[4].right);
    EXPECT_EQ(columns[7].width, 1000);
    EXPECT_EQ(columns[8].width, 3500);
}

TEST_F(LinesTest, OnlyTheProposalsOwnLinesAreListedAndSummed) {
    store(1, "60", "33", "33");
    store(2, "60", "39.5", "39.5");
    shop.database->execute("INSERT INTO MoDpi (MoDpi_Dpi,MoDpi_Importe) VALUES (2,1000)");
    open();
    EXPECT_EQ(fields().DataGrid1.rowCount(), 2u);
    EXPECT_EQ(fields().Label2.caption(), "72,50 €");
}

TEST_F(LinesTest, AnEmptyProposalSumsToZeroUnderTheMask) {
    open();
    EXPECT_EQ(fields().Label2.caption(), "0,00 €");
}

TEST_F(LinesTest, ASumWithoutARowIsABareZero) {
    support::ScriptedConnection silent;
    silent.answer("Select isnull(sum(modpi_importe),0) as Importe from modpi where modpi_dpi = 7", {"Importe"});
    adapters::StandInSession session(silent);
    frmManoObra quiet(session, shop.desk);
    quiet.nIdDpi = 7;
    quiet.msCargarTotal();
    EXPECT_EQ(quiet.fields().Label2.caption(), "0");
}

TEST_F(LinesTest, TheLineUnderTheCursorIsShownAtThePriceOfToday) {
    store(1, "60", "20", "20");
    open();
    EXPECT_EQ(line(machine).text(), "11");
    EXPECT_EQ(line(machineName).text(), "Sierra");
    EXPECT_EQ(fields().cboOperarios.text(), "Ana");
    EXPECT_EQ(fields().cboOperPvp.text(), "001|33");
    EXPECT_EQ(line(hourPrice).text(), "33") << "stored at 20";
    EXPECT_EQ(line(minutes).text(), "60");
    EXPECT_EQ(line(amount).text(), "33");
}

TEST_F(LinesTest, MovingInTheGridBringsTheLineUp) {
    store(1, "60", "33", "33");
    store(4, "30", "24", "12", 12);
    open();
    fields().DataGrid1.moveToRow(1);
    EXPECT_EQ(line(machine).text(), "12");
    EXPECT_EQ(fields().cboOperarios.text(), "Dora");
    EXPECT_EQ(line(amount).text(), "12");
}

TEST_F(LinesTest, OfSeveralEntriesOfAnOperatorTheLastIsChosen) {
    shop.database->execute("INSERT INTO OBM (OBM_OPE,OBM_MAQ,OBM_PTR) VALUES (1,11,60)");
    store(1, "60", "33", "33");
    open();
    EXPECT_EQ(fields().cboOperPvp.text(), "001|60");
}

TEST_F(LinesTest, ALineOfAnOperatorWhoLeftTheMachineShowsItsFirstOperator) {
    store(4, "60", "24", "24");
    open();
    EXPECT_EQ(fields().cboOperarios.text(), "Begoña");
    EXPECT_EQ(line(minutes).text(), "60");
    EXPECT_EQ(line(amount).text(), "39,5");
}

TEST_F(LinesTest, ANewLineBeginsEmpty) {
    store(1, "60", "33", "33");
    open();
    press(fields().cmdNuevaLinea);
    EXPECT_FALSE(fields().fraAcciones.visible());
    EXPECT_TRUE(fields().fraLinea.enabled());
    EXPECT_EQ(fields().fraLinea.caption(), "Nueva Linea");
    EXPECT_EQ(form->activeControl(), &line(machine));
    for (const int empty : {0, 1, 2, 3, 4}) {
        EXPECT_EQ(line(empty).text(), "") << empty;
    }
    for (const int zero : {5, 6, 7, 8}) {
        EXPECT_EQ(line(zero).text(), "0") << zero;
    }
}

TEST_F(LinesTest, CancellingClosesTheLineAndBringsTheActionsBack) {
    open();
    press(fields().cmdNuevaLinea);
    press(fields().cmdCancelar);
    EXPECT_TRUE(fields().fraAcciones.visible());
    EXPECT_FALSE(fields().fraLinea.enabled());
    EXPECT_FALSE(form->moveFocus(line(machine)));
}

TEST_F(LinesTest, WithoutLinesEditingChangesTheCaptionAlone) {
    open();
    press(fields().cmdNuevaLinea);
    press(fields().cmdCancelar);
    press(fields().cmdEditarLinea);
    EXPECT_EQ(fields().fraLinea.caption(), "Editar Linea");
    EXPECT_FALSE(fields().fraLinea.enabled());
    EXPECT_TRUE(fields().fraAcciones.visible());
}

TEST_F(LinesTest, ADeletedLineGoesFromTheListAndTheSum) {
    store(1, "60", "33", "33");
    store(2, "60", "39.5", "39.5");
    open();
    fields().DataGrid1.moveToRow(1);
    shop.screen.queue(screen::Answer::yes);
    press(fields().cmdEliminarLinea);
    ASSERT_THAT(shop.screen.messageTexts(), ElementsAre("Realmente desea eliminar la linea del operario Begoña"));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::question);
    EXPECT_THAT(shop.connection.logged("Delete"), ElementsAre("Delete from modpi where modpi_id = 2"));
    EXPECT_EQ(fields().DataGrid1.rowCount(), 1u);
    EXPECT_EQ(fields().Label2.caption(), "33,00 €");
}

TEST_F(LinesTest, OnNoTheLineStays) {
    store(1, "60", "33", "33");
    open();
    shop.screen.queue(screen::Answer::no);
    press(fields().cmdEliminarLinea);
    EXPECT_THAT(shop.connection.logged("Delete"), IsEmpty());
}

TEST_F(LinesTest, WithoutLinesThereIsNothingToDelete) {
    open();
    press(fields().cmdEliminarLinea);
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(LinesTest, AFormThatMayNotChangeLinesHasNeitherFrameEnabled) {
    store(1, "60", "33", "33");
    open(1, false);
    EXPECT_FALSE(fields().fraAcciones.enabled());
    EXPECT_FALSE(fields().fraLinea.enabled());
    EXPECT_EQ(line(minutes).text(), "60");
    form->keyDown(screen::Key::f2);
    EXPECT_THAT(shop.screen.searches, IsEmpty());
}

TEST_F(LinesTest, AFormThatMayChangeLinesOpensWithTheLineEnabled) {
    open();
    EXPECT_TRUE(fields().fraAcciones.enabled());
    EXPECT_TRUE(fields().fraLinea.enabled());
}

TEST_F(LinesTest, LeavingWritesNothing) {
    store(1, "60", "33", "33");
    open();
    press(fields().cmdEditarLinea);
    line(minutes).setText("5");
    shop.connection.clear();
    press(fields().cmdSalir);
    EXPECT_TRUE(form->isUnloaded());
    EXPECT_EQ(shop.query("select MoDpi_Minutos from MoDpi"), "60");
}

TEST_F(LinesTest, AFailedListReachesTheUser) {
    shop.connection.refuse("from modpi");
    EXPECT_THROW(open(), sql::DbError);
}

}  // namespace
}  // namespace velmora::labour
