#include <gmock/gmock.h>

#include "labour_form.h"

namespace velmora::labour {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MachineAndOperatorsTest : public LabourTest {
  protected:
    MachineAndOperatorsTest() { open(); }

    void enterMachine(std::string_view id) {
        press(fields().cmdNuevaLinea);
        set(machine, id);
        form->leaveFocus();
    }
};

TEST_F(MachineAndOperatorsTest, AMachineBringsItsNameItsSectionAndItsOwnOperator) {
    enterMachine("10");
    EXPECT_EQ(line(machineName).text(), "Torno CNC");
    EXPECT_EQ(line(section).text(), "Torno");
    EXPECT_THAT(fields().cboOperarios.items(), ElementsAre("Ana"));
    EXPECT_THAT(fields().cboOperPvp.items(), ElementsAre("001|30"));
    EXPECT_EQ(fields().cboOperarios.listIndex(), 0);
    EXPECT_EQ(fields().cboOperPvp.listIndex(), 0);
    EXPECT_EQ(line(hourPrice).text(), "30");
    EXPECT_EQ(line(hourPrice).tag(), "001");
    EXPECT_EQ(line(minutePrice).text(), "0,5");
}

TEST_F(MachineAndOperatorsTest, AnOperatorOfTheMachineWhoIsAlsoAssignedIsListedOnceAtThePriceOfTheAssignment) {
    enterMachine("11");
    EXPECT_THAT(fields().cboOperarios.items(), ElementsAre("Begoña", "Ana", "Carlos"));
    EXPECT_THAT(fields().cboOperPvp.items(), ElementsAre("002|39,5", "001|33", "003|0"));
    EXPECT_EQ(line(hourPrice).text(), "39,5");
}

TEST_F(MachineAndOperatorsTest, AMachineWithoutOperatorsSaysSo) {
    enterMachine("13");
    EXPECT_THAT(fields().cboOperarios.items(), ElementsAre("!No Existen Operarios para esta maquina"));
    EXPECT_THAT(fields().cboOperPvp.items(), ElementsAre("000|0"));
    EXPECT_EQ(line(hourPrice).text(), "0");
    EXPECT_EQ(line(hourPrice).tag(), "0");
    EXPECT_EQ(line(minutePrice).text(), "0");
}

TEST_F(MachineAndOperatorsTest, AMachineWithoutSectionIsUsable) {
    enterMachine("12");
    EXPECT_EQ(line(section).text(), "Maquina sín sección");
    EXPECT_EQ(line(hourPrice).text(), "24");
    set(minutes, "10");
    press(fields().cmdGrabarLinea);
    EXPECT_EQ(shop.query("select MoDpi_Maq from MoDpi"), "12");
}

TEST_F(MachineAndOperatorsTest, AnUnknownMachineClearsTheLine) {
    enterMachine("11");
    set(minutes, "60");
    set(machine, "99");
    form->leaveFocus();
    for (const int cleared : {0, 1, 2, 3, 4}) {
        EXPECT_EQ(line(cleared).text(), "") << cleared;
    }
    for (const int zeroed : {5, 6, 7}) {
        EXPECT_EQ(line(zeroed).text(), "0") << zeroed;
    }
    EXPECT_THAT(fields().cboOperarios.items(), IsEmpty());
    EXPECT_THAT(fields().cboOperPvp.items(), IsEmpty());
}

TEST_F(MachineAndOperatorsTest, AMachineThatIsNoNumberBecomesZeroAndIsNotFound) {
    press(fields().cmdNuevaLinea);
    set(machine, "torno");
    form->leaveFocus();
    EXPECT_EQ(line(machine).text(), "");
}

TEST_F(MachineAndOperatorsTest, AnotherOperatorBringsThePriceAndTheAmount) {
    enterMachine("11");
    set(minutes, "60");
    form->leaveFocus();
    EXPECT_EQ(line(amount).text(), "39,5");
    fields().cboOperarios.setListIndex(1);
    EXPECT_EQ(line(hourPrice).text(), "33");
    EXPECT_EQ(line(hourPrice).tag(), "001");
    EXPECT_EQ(line(minutePrice).text(), "0,55");
    EXPECT_EQ(line(amount).text(), "33");
}

TEST_F(MachineAndOperatorsTest, AnOperatorWithoutAPriceLeavesTheAmountOfTheOneBefore) {
    enterMachine("11");
    set(minutes, "60");
    form->leaveFocus();
    fields().cboOperarios.setListIndex(2);
    EXPECT_EQ(line(hourPrice).text(), "0");
    EXPECT_EQ(line(amount).text(), "39,5");
    set(minutes, "60");
    form->leaveFocus();
    EXPECT_EQ(line(amount).text(), "0");
}

TEST_F(MachineAndOperatorsTest, AnEntryWithoutABarHasNoPrice) {
    enterMachine("11");
    fields().cboOperPvp.setList(1, "001");
    fields().cboOperarios.setListIndex(1);
    EXPECT_EQ(line(hourPrice).text(), "0");
    EXPECT_EQ(line(minutePrice).text(), "0");
}

TEST_F(MachineAndOperatorsTest, TheAmountComesFromTheQuotientAndNotFromThePricePerMinuteOnShow) {
    enterMachine("11");
    set(minutes, "1000");
    form->leaveFocus();
    EXPECT_EQ(line(minutePrice).text(), "0,6583");
    EXPECT_EQ(line(amount).text(), "658,33") << "658,3 by the displayed price";
}

TEST_F(MachineAndOperatorsTest, APriceTypedByHandCountsWhenTheMinutesAreLeft) {
    enterMachine("11");
    set(minutes, "60");
    set(hourPrice, "50");
    form->leaveFocus();
    EXPECT_EQ(line(amount).text(), "39,5");
    set(minutes, "60");
    form->leaveFocus();
    EXPECT_EQ(line(amount).text(), "50");
}

TEST_F(MachineAndOperatorsTest, MinutesThatAreNoNumberBecomeZero) {
    enterMachine("10");
    set(minutes, "");
    form->leaveFocus();
    EXPECT_EQ(line(minutes).text(), "0");
    EXPECT_EQ(line(amount).text(), "0");
}

TEST_F(MachineAndOperatorsTest, WhatTheLineOnlyShowsCannotBeEntered) {
    press(fields().cmdNuevaLinea);
    for (const int shown : {1, 2, 7, 8}) {
        EXPECT_FALSE(form->moveFocus(line(shown), screen::Form::Insist::yes)) << shown;
    }
    for (const int typed : {0, 5, 6}) {
        EXPECT_TRUE(form->moveFocus(line(typed), screen::Form::Insist::yes)) << typed;
    }
}

TEST_F(MachineAndOperatorsTest, MachineTakesWholeNumbersMinutesTakeAComma) {
    press(fields().cmdNuevaLinea);
    type(machine, "1a,0");
    EXPECT_EQ(line(machine).text(), "10");
    type(minutes, "1.5x");
    EXPECT_EQ(line(minutes).text(), "1,5");
}

TEST_F(MachineAndOperatorsTest, TheFieldWithTheFocusIsYellow) {
    press(fields().cmdNuevaLinea);
    EXPECT_EQ(line(machine).backColor(), screen::colors::yellow);
    goTo(line(minutes));
    EXPECT_EQ(line(machine).backColor(), screen::colors::white);
}

TEST_F(MachineAndOperatorsTest, TheSearchFindsMachinesByName) {
    press(fields().cmdNuevaLinea);
    shop.connection.clear();
    shop.screen.queuePick(1);
    form->keyDown(screen::Key::f2);
    ASSERT_EQ(shop.screen.searches.size(), 1u);
    const screen::SearchWindow& window = shop.screen.searches[0].window;
    EXPECT_EQ(window.title, "Buscar maquinas");
    EXPECT_EQ(window.searchColumn, "maq_nom");
    EXPECT_EQ(window.firstCaption, "Maquina");
    EXPECT_EQ(window.secondCaption, "Sección");
    EXPECT_EQ(window.firstWidth, 3500);
    EXPECT_EQ(window.secondWidth, 3500);
    EXPECT_EQ(shop.connection.log().front(),
              "Select maq_id, maq_nom,rsec_nom from maq inner join rsec on maq_sec = rsec_id order by rsec_nom");
    EXPECT_EQ(shop.screen.searches[0].rowCount, 3u) << "a machine without a section cannot be found";
    EXPECT_EQ(line(machine).text(), "13");
    EXPECT_EQ(line(machineName).text(), "Robot");
}

TEST_F(MachineAndOperatorsTest, ASearchLeftWithoutAChoiceChangesNothing) {
    enterMachine("11");
    shop.screen.queuePick(std::nullopt);
    press(fields().cmdBuscarMaquina);
    EXPECT_EQ(line(machine).text(), "11");
}

TEST_F(MachineAndOperatorsTest, NobodySearchesWhileTheLineIsClosed) {
    press(fields().cmdNuevaLinea);
    press(fields().cmdCancelar);
    form->keyDown(screen::Key::f2);
    EXPECT_THAT(shop.screen.searches, IsEmpty());
}

TEST_F(MachineAndOperatorsTest, EnterMovesOnAndThePadsPointIsAComma) {
    press(fields().cmdNuevaLinea);
    EXPECT_EQ(form->keyDown(screen::Key::enter), screen::Key::none);
    EXPECT_EQ(form->activeControl(), &fields().cboOperarios);
    EXPECT_EQ(form->keyDown(screen::Key::padDecimal), screen::Key::comma);
}

TEST(OperatorOfAnEntry, IsItsFirstThreeCharacters) {
    EXPECT_EQ(operatorOf("002|39,5"), 2);
    EXPECT_EQ(operatorOf("000|0"), 0);
    EXPECT_EQ(operatorOf(""), 0);
    EXPECT_EQ(operatorOf("1005|30"), 100) << "the whole number in front is 1005";
}

}  // namespace
}  // namespace velmora::labour
