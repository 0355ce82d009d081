#include <algorithm>

#include <gmock/gmock.h>

#include "labour_form.h"

namespace velmora::labour {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LineSavingTest : public LabourTest {
  protected:
    std::vector<std::string> firstOperations(std::size_t count) {
        const auto& log = shop.connection.log();
        return {log.begin(), log.begin() + static_cast<std::ptrdiff_t>(std::min(count, log.size()))};
    }
};

TEST_F(LineSavingTest, NinetyMinutesAtThirtyEurosAreOneHourAndAHalfAndFortyFiveEuros) {
    open();
    press(fields().cmdNuevaLinea);
    set(machine, "10");
    set(minutes, "90");
    form->leaveFocus();
    EXPECT_EQ(line(minutePrice).text(), "0,5");
    EXPECT_EQ(line(amount).text(), "45");
    shop.connection.clear();
    press(fields().cmdGrabarLinea);
    EXPECT_THAT(
        firstOperations(4),
        ElementsAre(
            "BEGIN", "Select DPI_FAcepta,DPI_Orden from DPI where DPI_Id = 1",
            "INSERT INTO MoDpi (MoDpi_Dpi,MoDpi_Ope,MoDpi_Maq,MoDpi_Minutos,MoDpi_Pvp,MoDpi_Importe,MoDpi_Tiempo) "
            "VALUES (1,1,10,90,30,45,1.5)",
            "COMMIT"));
    EXPECT_EQ(form->fields().DataGrid1.cellText(0, 7), "45,00");
    EXPECT_EQ(fields().Label2.caption(), "45,00 €");
}

TEST_F(LineSavingTest, AStoredLineIsToldAlsoWhenTheListCannotBeReadAgain) {
    open();
    press(fields().cmdNuevaLinea);
    set(machine, "10");
    set(minutes, "90");
    form->leaveFocus();
    shop.connection.refuse("as Operario");
    EXPECT_THROW(fields().cmdGrabarLinea.onClick(), sql::DbError);
    EXPECT_THAT(form->status().deed(), ::testing::StartsWith("Línea grabada a las "));
    EXPECT_EQ(shop.query("select count(*) from MoDpi"), "1");
}

TEST_F(LineSavingTest, MinutesAndHoursKeepFourDecimals) {
    open();
    add("10", "0,12345");
    EXPECT_EQ(shop.query("select MoDpi_Minutos from MoDpi"), "0,1235");
    EXPECT_EQ(shop.query("select MoDpi_Tiempo from MoDpi"), "0,0021");
}

TEST_F(LineSavingTest, ALineWithoutAMachineIsRefused) {
    open();
    press(fields().cmdNuevaLinea);
    press(fields().cmdGrabarLinea);
    ASSERT_THAT(shop.screen.messageTexts(), ElementsAre("Falta Maquina"));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::critical);
    EXPECT_EQ(form->activeControl(), &line(machine));
    EXPECT_EQ(shop.query("select count(*) from MoDpi"), "0");
}

TEST_F(LineSavingTest, AMachineThatNobodyRunsIsRefusedForItsOperator) {
    open();
    add("13", "10");
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre("Falta Operario"));
    EXPECT_EQ(form->activeControl(), &line(machine));
    EXPECT_EQ(shop.query("select count(*) from MoDpi"), "0");
}

TEST_F(LineSavingTest, MinutesThatAreNoNumberAreRefused) {
    open();
    press(fields().cmdNuevaLinea);
    set(machine, "10");
    form->leaveFocus();
    line(minutes).setText("diez");
    fields().cmdGrabarLinea.onClick();
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre("Falta valor Minutos"));
    EXPECT_EQ(form->activeControl(), &line(minutes));
}

TEST_F(LineSavingTest, NoMinutesAtAllPass) {
    open();
    add("10", "0");
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_EQ(shop.query("select MoDpi_Importe from MoDpi"), "0");
}

TEST_F(LineSavingTest, AfterASaveTheListIsBrowsedAgain) {
    open();
    add("10", "30");
    EXPECT_TRUE(fields().fraAcciones.visible());
    EXPECT_FALSE(fields().fraLinea.enabled());
    EXPECT_EQ(fields().fraLinea.caption(), "Datos de la Linea");
}

TEST_F(LineSavingTest, AnEditedLineIsUpdatedAtThePriceOfToday) {
    store(2, "10", "20", "3.33");
    store(1, "60", "20", "20");
    open();
    form->fields().DataGrid1.moveToRow(1);
    press(fields().cmdEditarLinea);
    EXPECT_EQ(fields().fraLinea.caption(), "Editar Linea");
    EXPECT_FALSE(fields().fraAcciones.visible());
    line(minutes).setText("120");
    goTo(line(minutes));
    goTo(fields().cboOperarios);
    fields().cboOperarios.setListIndex(1);
    shop.connection.clear();
    press(fields().cmdGrabarLinea);
    EXPECT_THAT(
        firstOperations(5),
        ElementsAre(
            "BEGIN", "Select DPI_FAcepta,DPI_Orden from DPI where DPI_Id = 1", "Select * from modpi where modpi_id = 2",
            "UPDATE MoDpi SET MoDpi_Dpi=1,MoDpi_Ope=1,MoDpi_Maq=11,MoDpi_Minutos=120,MoDpi_Pvp=33,MoDpi_Importe=66,"
            "MoDpi_Tiempo=2 where MoDpi_Id=2",
            "COMMIT"));
}

TEST_F(LineSavingTest, PassingThroughTheMachineChoosesItsFirstOperatorAgain) {
    store(1, "60", "33", "33");
    open();
    EXPECT_EQ(fields().cboOperarios.text(), "Ana");
    press(fields().cmdEditarLinea);
    goTo(line(minutes));
    EXPECT_EQ(fields().cboOperarios.text(), "Begoña");
}

TEST_F(LineSavingTest, BeforeAnyButtonASaveUpdatesTheCurrentLine) {
    store(1, "60", "33", "33");
    open();
    EXPECT_EQ(fields().fraLinea.caption(), "Edición de linea");
    EXPECT_TRUE(fields().fraLinea.enabled());
    set(minutes, "20");
    press(fields().cmdGrabarLinea);
    EXPECT_EQ(shop.query("select MoDpi_Minutos from MoDpi where MoDpi_Id=1"), "20");
    EXPECT_EQ(shop.query("select count(*) from MoDpi"), "1");
    EXPECT_FALSE(fields().fraLinea.enabled());
}

TEST_F(LineSavingTest, BeforeAnyButtonThereMayBeNoCurrentLineToUpdate) {
    open();
    set(machine, "10");
    set(minutes, "20");
    EXPECT_THROW(press(fields().cmdGrabarLinea), runtime::RuntimeError);
    EXPECT_EQ(shop.query("select count(*) from MoDpi"), "0");
}

TEST_F(LineSavingTest, ARefusedWriteReachesTheUserAndKeepsTheLineOpen) {
    open();
    press(fields().cmdNuevaLinea);
    set(machine, "10");
    set(minutes, "20");
    form->leaveFocus();
    shop.connection.refuse("INSERT INTO MoDpi", sql::provider::failure, "Sin sitio");
    try {
        press(fields().cmdGrabarLinea);
        FAIL() << "the refusal was swallowed";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.description(), "Sin sitio");
    }
    EXPECT_EQ(fields().fraLinea.caption(), "Nueva Linea");
    EXPECT_TRUE(fields().fraLinea.enabled());
    EXPECT_EQ(line(minutes).text(), "20");
    press(fields().cmdGrabarLinea);
    EXPECT_EQ(shop.query("select count(*) from MoDpi"), "1");
}

}  // namespace
}  // namespace velmora::labour
