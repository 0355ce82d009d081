#include "velmora/reference/frm_pdm_val.h"

#include "velmora/data/chains.h"

#include "reference/reference_form.h"

namespace velmora::reference {
namespace {

using screen::Answer;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

constexpr const char* noValues = "No Existen Valores para este tipo\r\nDesea crear el primer registro para este tipo";

/// The workshop has one row, chain 1 with 17 teeth, to which three of chain 0 are added.
class DoublesFormTest : public FormTest<frmPDMVal> {
  protected:
    DoublesFormTest() {
        for (const char* values : {"N'diez',10,9.525,5.72,6.35,5.3,15.54,4.94,2,34,30.82,24.47,20,10,25",
                                   "N'once',11,9.525,5.72,6.35,5.3,15.54,4.94,2,37,33.8,27.45,22,10,25",
                                   "NULL,12,9.525,5.72,6.35,NULL,NULL,4.94,2,40,36.8,99,25,10,25"}) {
            shop.database->execute(
                std::string("INSERT INTO PDM (PDM_Tipo,PDM_Titulo,PDM_Z,PDM_Paso,PDM_AC,PDM_Rodillo,PDM_b1,PDM_b2,"
                            "PDM_X,PDM_H1,PDM_De,PDM_Dp,PDM_Df,PDM_Dm,PDM_D2,PDM_A) VALUES (0,") +
                values + ")");
        }
        shop.connection.clear();
    }

    void expectChainFields(bool enabled) {
        for (const int i : {1, 2, 3, 4, 5}) {
            EXPECT_EQ(field(i).enabled(), enabled) << i;
        }
        EXPECT_FALSE(field(11).enabled());
    }
    /// Selects the second chain, which has no rows, and begins its first one.
    void beginFirstRow() {
        shop.screen.queue(Answer::yes);
        open();
        fields().cboDobles.setListIndex(2);
    }
    std::string rowsOf(const char* chain) {
        return shop.query(std::string("select count(*) from PDM where PDM_Tipo=") + chain);
    }
};

// --- Choosing a chain ---------------------------------------------------------------------------------------------

TEST_F(DoublesFormTest, OpensOnTheFirstChainOfTheCatalogue) {
    open();
    EXPECT_EQ(form().caption(), "Mantenimiento de valores para piñones / discos dobles");
    EXPECT_THAT(fields().cboDobles.items(), ElementsAreArray(data::chains.begin(), data::chains.end()));
    EXPECT_EQ(fields().cboDobles.listIndex(), 0);
    EXPECT_THAT(shop.connection.log(), ElementsAre("Select * from PDM where PDM_Tipo = 0"));
    EXPECT_EQ(fields().dbgRs.rowCount(), 3u);
    EXPECT_EQ(text(chainTeeth), "10,00");
}

TEST_F(DoublesFormTest, TheGridHidesTwoColumnsAndTakesThePrefixOffTheOthers) {
    EXPECT_THAT(captions(fields().dbgRs), ElementsAre("Titulo", "Z", "Paso", "AC", "Rodillo", "b1", "b2", "X", "H1",
                                                      "De", "Dp", "Df", "Dm", "D2", "A"));
    EXPECT_FALSE(fields().dbgRs.columns()[0].visible);
    EXPECT_FALSE(fields().dbgRs.columns()[1].visible);
    EXPECT_EQ(fields().dbgRs.cellText(1, 2), "once");
}

TEST_F(DoublesFormTest, AChainWithoutRowsOffersToCreateTheFirst) {
    open();
    shop.screen.queue(Answer::no);
    fields().cboDobles.setListIndex(2);
    ASSERT_THAT(shop.screen.messageTexts(), ElementsAre(noValues));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::critical);
    EXPECT_EQ(shop.screen.messages[0].buttons, screen::Buttons::yesNo);
    EXPECT_EQ(fields().dbgRs.rowCount(), 0u);
    EXPECT_EQ(fields().cmdNuevo.caption(), "Nuevo Registro");
}

TEST_F(DoublesFormTest, TheFirstRowOfAChainMayHaveTheChainsValuesTyped) {
    beginFirstRow();
    EXPECT_EQ(fields().cmdNuevo.caption(), "Cancelar");
    EXPECT_TRUE(fields().Frame1.enabled());
    expectChainFields(true);
    EXPECT_FALSE(field(chainPitch).locked());
    EXPECT_EQ(form().activeControl(), &field(chainPitch));
}

TEST_F(DoublesFormTest, AnEmptyTableIsOfferedItsFirstRowOnOpening) {
    shop.database->execute("delete from PDM");
    shop.screen.queue(Answer::yes);
    open();
    EXPECT_EQ(fields().cmdNuevo.caption(), "Cancelar");
    EXPECT_EQ(text(chainTeeth), "0");
}

TEST_F(DoublesFormTest, AFirstRowBegunTwiceIsStillBegun) {
    beginFirstRow();
    shop.screen.queue(Answer::yes);
    fields().cboDobles.setListIndex(3);
    EXPECT_EQ(fields().cmdNuevo.caption(), "Cancelar");
    expectChainFields(true);
}

TEST_F(DoublesFormTest, ARefusedListReachesTheUser) {
    open();
    shop.connection.refuse("PDM_Tipo = 1");
    EXPECT_EQ(errorOf([&] { fields().cboDobles.setListIndex(1); }), refused);
}

// --- Showing a row ------------------------------------------------------------------------------------------------

TEST_F(DoublesFormTest, ARowFillsEveryFieldWithTwoDecimals) {
    open();
    fields().dbgRs.moveToRow(1);
    const std::vector<std::string> shown{"11,00", "9,53",  "6,35",  "5,72",  "5,30",  "15,54", "10,00",
                                         "22,00", "33,80", "27,45", "37,00", "10,24", "25,00", "2,00"};
    for (int i = 0; i <= 13; ++i) {
        EXPECT_EQ(text(i), shown[static_cast<std::size_t>(i)]) << i;
    }
    expectChainFields(false);
}

TEST_F(DoublesFormTest, GapAndRootAreWorkedOutForTheScreenWhateverIsStored) {
    open();
    EXPECT_EQ(text(chainX), "10,24") << "B2 - b1";
    EXPECT_EQ(fields().dbgRs.cellText(0, 9), "4,94") << "stored";
    fields().dbgRs.moveToRow(2);
    EXPECT_EQ(text(chainDf), "30,45") << "36,8 - 6,35, where 99 is stored";
}

TEST_F(DoublesFormTest, AValueThatIsMissingCountsNothing) {
    open();
    fields().dbgRs.moveToRow(2);
    EXPECT_EQ(text(chainB1), "0,00");
    EXPECT_EQ(text(chainX), "0,00");
}

// --- New and cancel -----------------------------------------------------------------------------------------------

TEST_F(DoublesFormTest, NewKeepsTheChainsValuesAndStartsAtTheTeeth) {
    open();
    press(fields().cmdNuevo);
    EXPECT_EQ(fields().cmdNuevo.caption(), "Cancelar");
    EXPECT_FALSE(fields().Frame1.enabled());
    EXPECT_EQ(form().activeControl(), &field(chainTeeth));
    EXPECT_EQ(text(chainPitch), "9,53");
    press(fields().cmdNuevo);
    EXPECT_EQ(fields().cmdNuevo.caption(), "Nuevo Registro");
    EXPECT_TRUE(fields().Frame1.enabled());
    expectChainFields(false);
}

TEST_F(DoublesFormTest, CancellingTheFirstRowClosesTheChainsValues) {
    beginFirstRow();
    press(fields().cmdNuevo);
    EXPECT_EQ(fields().cmdNuevo.caption(), "Nuevo Registro");
    expectChainFields(false);
}

// --- Leaving a field ----------------------------------------------------------------------------------------------

TEST_F(DoublesFormTest, TheTeethOfANewRowGiveThePitchDiameterCutToTwoDecimals) {
    open();
    fields().cboDobles.setListIndex(1);
    press(fields().cmdNuevo);
    set(chainTeeth, "25");
    leave();
    EXPECT_EQ(text(chainDp), "101,32") << "12,7 ÷ sin(7,2 × 3,1416 ÷ 180) is 101,329...";
    EXPECT_EQ(text(chainTeeth), "25") << "the mask is for what is computed";
}

TEST_F(DoublesFormTest, APitchDiameterTypedByHandStays) {
    open();
    set(chainDp, "31");
    set(chainTeeth, "12");
    leave();
    EXPECT_EQ(text(chainDp), "31") << "no row is being added";
    press(fields().cmdNuevo);
    set(chainTeeth, "12");
    set(chainDp, "37");
    leave();
    EXPECT_EQ(text(chainDp), "37");
}

TEST_F(DoublesFormTest, NoTeethGiveNoPitchDiameter) {
    open();
    press(fields().cmdNuevo);
    set(chainTeeth, "");
    leave();
    EXPECT_EQ(text(chainTeeth), "0");
    EXPECT_EQ(text(chainDp), "0,00");
}

TEST_F(DoublesFormTest, LeavingB2GivesTheGapAndLeavingThePitchDiameterTheRoot) {
    beginFirstRow();
    set(chainB1, "9");
    leave();
    set(chainB2, "26,5");
    leave();
    EXPECT_EQ(text(chainX), "17,50");
    set(chainRoller, "10,16");
    set(chainDp, "80");
    leave();
    EXPECT_EQ(text(chainDf), "69,84");
    EXPECT_EQ(text(chainB2), "26,5");
    EXPECT_EQ(text(chainDp), "80");
}

TEST_F(DoublesFormTest, AnEmptyFieldBecomesZero) {
    beginFirstRow();
    for (const int i : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 13}) {
        set(i, "");
        leave();
        EXPECT_EQ(text(i), "0") << i;
    }
}

TEST_F(DoublesFormTest, ATextThatIsNoNumberIsTold) {
    beginFirstRow();
    set(chainB2, "ancho");
    EXPECT_EQ(errorOf([&] { leave(); }), runtime::typeMismatch);
}

// --- Saving -------------------------------------------------------------------------------------------------------

TEST_F(DoublesFormTest, AnEditedRowIsUpdatedAndShownAgain) {
    open();
    fields().dbgRs.moveToRow(1);
    set(chainDe, "37,5");
    shop.connection.clear();
    press(fields().cmdGrabar);
    EXPECT_THAT(shop.connection.log(),
                ElementsAre("BEGIN", "Select * from PDM where PDM_ID = 3",
                            "UPDATE PDM SET PDM_Tipo=0,PDM_Titulo=N'Piñon ISO 3/8'''' Doble Z11',PDM_Z=11,PDM_De=37.5,"
                            "PDM_Dp=33.8,PDM_Df=27.45,PDM_Dm=22,PDM_D2=10,PDM_A=25,PDM_B1=5.3,PDM_B2=15.54,PDM_X=10.24,"
                            "PDM_Paso=9.53,PDM_AC=5.72,PDM_Rodillo=6.35,PDM_H1=2 Where PDM_ID = 3",
                            "COMMIT"));
    ASSERT_THAT(shop.screen.messageTexts(), ElementsAre("Datos grabados satisfactoriamente"));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::information);
    EXPECT_EQ(text(chainTeeth), "11,00") << "the row that was saved is the current one";
    EXPECT_EQ(fields().dbgRs.cellText(1, 11), "37,5");
    EXPECT_EQ(shop.query("select PDM_X from PDM where PDM_ID=3"), "10,24") << "the gap of the screen is what is kept";
}

TEST_F(DoublesFormTest, ANewRowIsInsertedAndBecomesTheCurrentOne) {
    open();
    press(fields().cmdNuevo);
    set(chainTeeth, "17");
    set(chainDp, "51,8");
    leave();
    shop.connection.clear();
    press(fields().cmdGrabar);
    EXPECT_THAT(
        shop.connection.log(),
        ElementsAre("BEGIN",
                    "INSERT INTO PDM (PDM_Tipo,PDM_Titulo,PDM_Z,PDM_De,PDM_Dp,PDM_Df,PDM_Dm,PDM_D2,PDM_A,PDM_B1,"
                    "PDM_B2,PDM_X,PDM_Paso,PDM_AC,PDM_Rodillo,PDM_H1) VALUES (0,N'Piñon ISO 3/8'''' Doble "
                    "Z17',17,34,51.8,45.45,20,10,25,5.3,15.54,10.24,9.53,5.72,6.35,2)",
                    "Select max(PDM_ID) from PDM", "COMMIT"));
    EXPECT_EQ(text(chainTeeth), "17,00");
    EXPECT_EQ(fields().cmdNuevo.caption(), "Nuevo Registro");
    EXPECT_TRUE(fields().Frame1.enabled());
    EXPECT_EQ(rowsOf("0"), "4");
    EXPECT_EQ(captions(fields().dbgRs).size(), 15u);
}

TEST_F(DoublesFormTest, TheFirstRowOfAChainIsInserted) {
    beginFirstRow();
    set(chainPitch, "15,875");
    set(chainTeeth, "17");
    leave();
    press(fields().cmdGrabar);
    EXPECT_EQ(shop.query("select PDM_Titulo from PDM where PDM_Tipo=2"), "Piñon ISO 5/8'' Doble Z17");
    EXPECT_EQ(fields().dbgRs.rowCount(), 1u);
    expectChainFields(false);
}

TEST_F(DoublesFormTest, NothingIsCheckedAndTwoRowsMayHaveTheSameTeeth) {
    open();
    press(fields().cmdNuevo);
    set(chainTeeth, "10");
    press(fields().cmdGrabar);
    EXPECT_EQ(shop.query("select count(*) from PDM where PDM_Tipo=0 and PDM_Z=10"), "2");
    press(fields().cmdNuevo);
    set(chainTeeth, "0");
    set(chainDp, "0");
    press(fields().cmdGrabar);
    EXPECT_EQ(shop.query("select PDM_Dp from PDM where PDM_Tipo=0 and PDM_Z=0"), "0");
}

TEST_F(DoublesFormTest, WithNoRowToEditTheWriteIsRefused) {
    open();
    shop.screen.queue(Answer::no);
    fields().cboDobles.setListIndex(2);
    press(fields().cmdGrabar);
    EXPECT_THAT(last(), ::testing::StartsWith("Grabación Cancelada.\r\nError nº 3021\r\n"));
    EXPECT_EQ(rowsOf("2"), "0");
}

TEST_F(DoublesFormTest, ARefusedWriteIsToldAndLeavesTableAndEntry) {
    open();
    press(fields().cmdNuevo);
    set(chainTeeth, "17");
    leave();
    shop.connection.refuse("INSERT INTO PDM", sql::provider::failure, "Sin sitio");
    press(fields().cmdGrabar);
    EXPECT_EQ(last(), "Grabación Cancelada.\r\nError nº -2147467259\r\nSin sitio");
    EXPECT_EQ(shop.screen.messages.back().icon, screen::Icon::critical);
    EXPECT_EQ(fields().cmdNuevo.caption(), "Cancelar") << "still being added";
    EXPECT_EQ(text(chainTeeth), "17");
    EXPECT_EQ(rowsOf("0"), "3");
    press(fields().cmdGrabar);
    EXPECT_EQ(rowsOf("0"), "4");
}

TEST_F(DoublesFormTest, AFailureAtAnyStepOfANewRowLeavesTheTable) {
    open();
    for (int step = 0; step < 4; ++step) {
        if (step == 0) {
            press(fields().cmdNuevo);
            set(chainTeeth, "17");
            leave();
        }
        shop.faults.failAt(step);
        press(fields().cmdGrabar);
        shop.faults.count();
        EXPECT_EQ(last(), "Grabación Cancelada.\r\nError nº -2147467259\r\nFallo provocado") << step;
        EXPECT_EQ(rowsOf("0"), "3") << step;
        EXPECT_EQ(fields().cmdNuevo.caption(), "Cancelar") << step;
    }
    press(fields().cmdGrabar);
    EXPECT_EQ(rowsOf("0"), "4") << "no transaction was left open, no field left over";
}

TEST_F(DoublesFormTest, AFailureAtAnyStepOfAnEditLeavesTheRow) {
    open();
    for (int step = 0; step < 3; ++step) {
        set(chainDe, "38");
        leave();
        shop.faults.failAt(step);
        press(fields().cmdGrabar);
        shop.faults.count();
        EXPECT_EQ(last(), "Grabación Cancelada.\r\nError nº -2147467259\r\nFallo provocado") << step;
        EXPECT_EQ(shop.query("select PDM_De from PDM where PDM_ID=2"), "34") << step;
        EXPECT_EQ(text(chainDe), "38") << step;
    }
}

TEST_F(DoublesFormTest, ATooLargeNumberOfTeethIsRefusedAsAWhole) {
    open();
    set(chainTeeth, "40000");
    leave();
    press(fields().cmdGrabar);
    EXPECT_THAT(last(), ::testing::StartsWith("Grabación Cancelada.\r\nError nº 6\r\n"));
    press(fields().cmdNuevo);
    set(chainTeeth, "14");
    press(fields().cmdGrabar);
    EXPECT_EQ(rowsOf("0"), "4") << "the fields of the refused write were not kept for this one";
}

TEST_F(DoublesFormTest, APitchOfThreeDecimalsIsShownUsedAndStoredWithTwo) {
    open();
    press(fields().cmdNuevo);
    set(chainTeeth, "10");
    leave();
    EXPECT_EQ(text(chainDp), "30,83") << "from 9,53; 9,525 would give 30,82";
    press(fields().cmdNuevo);
    fields().dbgRs.moveToRow(0);
    press(fields().cmdGrabar);
    EXPECT_EQ(shop.query("select PDM_Paso from PDM where PDM_ID=2"), "9,53");
}

// --- Two users ----------------------------------------------------------------------------------------------------

constexpr const char* gone = "Este registro ya no existe: otro usuario lo ha eliminado.\r\nNo se ha grabado nada.";
constexpr const char* writeOver =
    "Otro usuario ha cambiado este registro desde que se mostró.\r\n¿Desea grabar encima de sus cambios?";
constexpr const char* saved = "Datos grabados satisfactoriamente";

/// The workshop's row, of 17 teeth, with an exterior that the user has typed.
class DoublesOfTwoUsersTest : public TwoUsersTest<frmPDMVal> {
  protected:
    void show() {
        shop.screen.queue(Answer::no);
        open();
        fields().cboDobles.setListIndex(1);
        set(chainDe, "75");
        leave();
        shop.screen.messages.clear();
    }
    std::string exterior() { return shop.query("select isnull(max(PDM_De),0) from PDM where PDM_ID=1"); }
};

TEST_F(DoublesOfTwoUsersTest, ARowThatIsGoneIsNotSavedAndTheEntryStays) {
    show();
    another->execute("delete from PDM where PDM_ID=1");
    press(fields().cmdGrabar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(gone));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::critical);
    EXPECT_EQ(text(chainDe), "75");
    EXPECT_EQ(shop.query("select count(*) from PDM"), "0");
    expectNoLock();
    press(fields().cmdNuevo);
    press(fields().cmdGrabar);
    EXPECT_EQ(shop.query("select PDM_De from PDM"), "75") << "what was typed can be kept as a new row";
}

TEST_F(DoublesOfTwoUsersTest, ARowThatAnotherChangedIsAskedAboutOnceWithoutALock) {
    show();
    another->execute("update PDM set PDM_Dm=49 where PDM_ID=1");
    shop.screen.queue(Answer::no);
    press(fields().cmdGrabar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(writeOver));
    EXPECT_EQ(exterior(), "74,5");
    EXPECT_EQ(text(chainDe), "75");
    expectNoLock();
    whileAsked("update PDM set PDM_Dm=50 where PDM_ID=1");
    shop.screen.queue(Answer::yes);
    press(fields().cmdGrabar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(writeOver, writeOver, saved));
    EXPECT_EQ(exterior(), "75");
    EXPECT_EQ(shop.query("select PDM_Dm from PDM where PDM_ID=1"), "48") << "as it was on show";
    press(fields().cmdGrabar);
    EXPECT_EQ(shop.screen.messages.size(), 4u) << "the row on show is the one that was stored";
}

TEST_F(DoublesOfTwoUsersTest, ARowThatGoesWhileTheQuestionStandsIsNotSaved) {
    show();
    another->execute("update PDM set PDM_Dm=49 where PDM_ID=1");
    whileAsked("delete from PDM where PDM_ID=1");
    shop.screen.queue(Answer::yes);
    press(fields().cmdGrabar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(writeOver, gone));
    EXPECT_EQ(text(chainDe), "75");
}

TEST_F(DoublesOfTwoUsersTest, RowsThatCameAndWentDoNotTurnASaveOnToTheirNeighbour) {
    const auto insert = [this](const char* teeth) {
        another->execute(std::string("INSERT INTO PDM (PDM_Tipo,PDM_Z,PDM_De) VALUES (1,") + teeth + ",10)");
    };
    insert("18");
    insert("19");
    shop.screen.queue(Answer::no);
    open();
    fields().cboDobles.setListIndex(1);
    fields().dbgRs.moveToRow(1);
    set(chainDe, "80");
    another->execute("delete from PDM where PDM_ID=1");
    press(fields().cmdGrabar);
    EXPECT_EQ(last(), saved);
    EXPECT_EQ(shop.query("select PDM_De from PDM where PDM_Z=18"), "80");
    EXPECT_EQ(shop.query("select PDM_De from PDM where PDM_Z=19"), "10");
    EXPECT_EQ(text(chainTeeth), "18,00");
}

TEST_F(DoublesOfTwoUsersTest, AFaultOfTheProgramInTheMidstOfAWriteIsRolledBack) {
    show();
    shop.connection.breakOn("UPDATE PDM");
    goTo(fields().cmdGrabar);
    EXPECT_THROW(fields().cmdGrabar.onClick(), std::logic_error);
    expectNoLock();
    press(fields().cmdNuevo);
    shop.connection.breakOn("Select max(PDM_ID)");
    goTo(fields().cmdGrabar);
    EXPECT_THROW(fields().cmdGrabar.onClick(), std::logic_error);
    expectNoLock();
    EXPECT_EQ(shop.query("select count(*) from PDM"), "1");
}

// --- Keys ---------------------------------------------------------------------------------------------------------

TEST_F(DoublesFormTest, EnterMovesOnAndEscCloses) {
    open();
    goTo(field(chainTeeth));
    EXPECT_EQ(form().keyDown(screen::Key::enter), screen::Key::none);
    EXPECT_EQ(form().activeControl(), &field(chainDe));
    EXPECT_EQ(form().keyDown(screen::Key::padDecimal), screen::Key::comma);
    form().keyDown(screen::Key::escape);
    EXPECT_TRUE(form().isUnloaded());
}

TEST_F(DoublesFormTest, OnlyNumbersComeThroughAndWholeOnesAtTheTeeth) {
    open();
    type(chainDe, "x34.5");
    EXPECT_EQ(text(chainDe), "34,5");
    type(chainTeeth, "1,7");
    EXPECT_EQ(text(chainTeeth), "17");
}

}  // namespace
}  // namespace velmora::reference
