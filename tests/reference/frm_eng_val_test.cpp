#include "velmora/reference/frm_eng_val.h"

#include "reference/reference_form.h"

namespace velmora::reference {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GearFormTest : public FormTest<frmENGVal> {
  protected:
    GearFormTest() {
        nIdEngranaje = 0;
        for (const char* values : {
                 "0,2,20,6.28,40,35,44,20,10,4.5,30,20,10",
                 "0,2.5,20,7.85,50,43.75,55,25,12,5.63,35,25,10",
                 "0,2,30,6.28,60,55,64,35,14,4.5,30,20,10",
                 "1,2,20,6.28,40,35,44,0,10,4.5,0,20,0",
             }) {
            shop.database->execute(
                std::string("INSERT INTO ENG (ENG_Tipo,ENG_Modulo,ENG_Z,ENG_Paso,ENG_Dp,ENG_Di,ENG_De,ENG_Dm,ENG_D1,"
                            "ENG_H,ENG_A,ENG_B,ENG_C) VALUES (") +
                values + ")");
        }
        shop.connection.clear();
    }

    /// A gear of module 3 and 10 teeth as a user types it.
    void typeGear() {
        for (const auto& [i, value] : std::vector<std::pair<int, const char*>>{{gearModule, "3"},
                                                                               {gearTeeth, "10"},
                                                                               {gearHeight, "6,75"},
                                                                               {gearHubDiameter, "15"},
                                                                               {gearBore, "8"},
                                                                               {gearTotalWidth, "45"},
                                                                               {gearFaceWidth, "30"}}) {
            set(i, value);
        }
        leave();
        shop.connection.clear();
    }
    std::vector<std::string> filtersOf(int i, std::string_view value) {
        shop.connection.clear();
        set(i, value);
        leave();
        return shop.connection.log();
    }
    std::size_t rows() { return fields().dbgRs.rowCount(); }
    std::string countOfRows() { return shop.query("select count(*) from ENG"); }
};

// --- Load and family ----------------------------------------------------------------------------------------------

TEST_F(GearFormTest, OpensOnTheFirstFamilyWithZerosAndAnEmptyList) {
    EXPECT_EQ(form().caption(), "Mantenimiento de valores para Engranajes");
    EXPECT_THAT(fields().cboDobles.items(), ElementsAre("Engranajes", "Engranaje Disco"));
    EXPECT_EQ(fields().cboDobles.listIndex(), 0);
    fields().Text1.forEach([](screen::TextBox& box) { EXPECT_EQ(box.text(), "0") << box.fullName(); });
    EXPECT_EQ(rows(), 0u);
    EXPECT_THAT(shop.connection.log(), IsEmpty());
    EXPECT_EQ(fields().cmdNuevo.caption(), "Nuevo Registro");
}

TEST_F(GearFormTest, AGearDiscHasNoHub) {
    for (const int family : {1, 0, 1}) {
        fields().cboDobles.setListIndex(family);
        for (const int i : {6, 8, 10}) {
            EXPECT_EQ(field(i).isVisible(), family == 0) << i;
            EXPECT_EQ(fields().Label1(i).isVisible(), family == 0) << i;
        }
        for (const int i : {0, 1, 2, 3, 4, 5, 7, 9, 11}) {
            EXPECT_TRUE(field(i).isVisible()) << i;
        }
    }
    EXPECT_EQ(fields().Label1(6).caption(), "Dm :");
    EXPECT_EQ(fields().Label1(8).caption(), "A :");
    EXPECT_EQ(fields().Label1(10).caption(), "C :");
}

TEST_F(GearFormTest, ChoosingAFamilyListsNothing) {
    set(gearModule, "2");
    leave();
    EXPECT_EQ(rows(), 2u);
    shop.connection.clear();
    fields().cboDobles.setListIndex(1);
    EXPECT_THAT(shop.connection.log(), IsEmpty());
    EXPECT_EQ(rows(), 2u);
}

// --- Derived values -----------------------------------------------------------------------------------------------

TEST_F(GearFormTest, ModuleTwoAndTwentyTeeth) {
    set(gearModule, "2");
    set(gearTeeth, "20");
    leave();
    EXPECT_EQ(text(gearPitch), "6,28");
    EXPECT_EQ(text(gearPitchDiameter), "40,00");
    EXPECT_EQ(text(gearOutsideDiameter), "44,00");
    EXPECT_EQ(text(gearInnerDiameter), "35,00");
    EXPECT_EQ(text(gearModule), "2");
    EXPECT_EQ(text(gearTeeth), "20") << "the mask is for what is computed";
}

TEST_F(GearFormTest, WithoutModuleOrTeethNothingIsDerived) {
    set(gearTeeth, "20");
    leave();
    EXPECT_EQ(text(gearPitch), "0");
    set(gearModule, "2");
    set(gearTeeth, "");
    leave();
    EXPECT_EQ(text(gearTeeth), "0");
    EXPECT_EQ(text(gearPitch), "0");
}

TEST_F(GearFormTest, AModuleTypedAfterTheTeethIsDerivedWhenTheTeethAreLeftAgain) {
    set(gearModule, "2");
    set(gearTeeth, "20");
    set(gearModule, "3");
    leave();
    EXPECT_EQ(text(gearPitchDiameter), "40,00");
    goTo(field(gearTeeth));
    leave();
    EXPECT_EQ(text(gearPitchDiameter), "60,00");
}

TEST_F(GearFormTest, TheHubIsWhatTheFaceLeavesOfTheTotal) {
    set(gearTotalWidth, "30,5");
    leave();
    EXPECT_EQ(text(gearHubWidth), "0") << "only leaving B works it out";
    set(gearFaceWidth, "20");
    leave();
    EXPECT_EQ(text(gearHubWidth), "10,50");
    EXPECT_EQ(text(gearFaceWidth), "20");
}

TEST_F(GearFormTest, AnEmptyFieldBecomesZero) {
    for (int i = 0; i <= 11; ++i) {
        set(i, "");
        leave();
        EXPECT_EQ(text(i), "0") << i;
    }
    EXPECT_THAT(shop.connection.log(), IsEmpty());
}

TEST_F(GearFormTest, ATextThatIsNoNumberIsTold) {
    set(gearModule, "dos");
    EXPECT_EQ(errorOf([&] { leave(); }), runtime::typeMismatch);
    EXPECT_EQ(form().activeControl(), nullptr) << "the field was left nevertheless";
}

// --- The filter ---------------------------------------------------------------------------------------------------

TEST_F(GearFormTest, EachFieldFiltersByItsOwnColumnAlone) {
    EXPECT_THAT(filtersOf(gearModule, "2,5"), ElementsAre("select * from eng where ENG_Tipo=0 And ENG_Modulo=2.5"));
    EXPECT_EQ(rows(), 1u);
    EXPECT_THAT(filtersOf(gearTeeth, "20"), ElementsAre("select * from eng where ENG_Tipo=0 And ENG_z=20"));
    EXPECT_EQ(rows(), 2u) << "the module's filter does not add up with it";
    EXPECT_THAT(filtersOf(gearHubDiameter, "35"), ElementsAre("select * from eng where ENG_Tipo=0 And ENG_DM=35"));
    EXPECT_EQ(rows(), 1u);
    EXPECT_THAT(filtersOf(gearBore, "12"), ElementsAre("select * from eng where ENG_Tipo=0 And ENG_D1=12"));
    EXPECT_THAT(filtersOf(gearTotalWidth, "30"), ElementsAre("select * from eng where ENG_Tipo=0 And ENG_A=30"));
    EXPECT_EQ(rows(), 2u);
    EXPECT_THAT(filtersOf(gearFaceWidth, "20"), ElementsAre("select * from eng where ENG_Tipo=0 And ENG_B=20"));
    EXPECT_EQ(rows(), 2u);
    EXPECT_EQ(fields().dbgRs.cellText(1, 3), "30");
}

TEST_F(GearFormTest, LeavingAnyOtherFieldEmptiesTheList) {
    for (const int i : {2, 3, 4, 5, 10, 11}) {
        set(gearModule, "2");
        leave();
        EXPECT_EQ(rows(), 2u);
        EXPECT_THAT(filtersOf(i, "6,28"), ElementsAre("select * from eng where ENG_Tipo=-1")) << i;
        EXPECT_EQ(rows(), 0u) << i;
    }
}

TEST_F(GearFormTest, AFieldOfZeroFiltersNothing) {
    set(gearModule, "2");
    leave();
    EXPECT_THAT(filtersOf(gearHeight, "0,00"), IsEmpty());
    EXPECT_EQ(rows(), 2u);
}

TEST_F(GearFormTest, GearDiscsAreFilteredAmongTheirOwn) {
    fields().cboDobles.setListIndex(1);
    EXPECT_THAT(filtersOf(gearTeeth, "20"), ElementsAre("select * from eng where ENG_Tipo=1 And ENG_z=20"));
    EXPECT_EQ(rows(), 1u);
}

TEST_F(GearFormTest, TheCaptionsLoseTheirPrefixAndTheFirstColumnBearsTheButton) {
    set(gearModule, "2");
    leave();
    EXPECT_THAT(captions(fields().dbgRs),
                ElementsAre("Id", "Tipo", "Modulo", "Z", "Paso", "Dp", "Di", "De", "Dm", "D1", "H", "A", "B", "C"));
    EXPECT_TRUE(fields().dbgRs.columns()[0].button);
    EXPECT_FALSE(fields().dbgRs.columns()[1].button);
}

TEST_F(GearFormTest, ARefusedFilterReachesTheUserAndLeavesTheList) {
    set(gearModule, "2");
    leave();
    shop.connection.refuse("ENG_z=");
    set(gearTeeth, "20");
    EXPECT_EQ(errorOf([&] { leave(); }), refused);
    EXPECT_EQ(rows(), 2u);
    EXPECT_EQ(text(gearPitchDiameter), "40,00");
}

// --- Choosing -----------------------------------------------------------------------------------------------------

TEST_F(GearFormTest, PressingARowsButtonChoosesItAndCloses) {
    set(gearModule, "2");
    leave();
    fields().dbgRs.moveToRow(1);
    fields().dbgRs.onButtonClick(0);
    EXPECT_EQ(nIdEngranaje, 3);
    EXPECT_TRUE(form().isUnloaded());
}

TEST_F(GearFormTest, WithoutRowsTheButtonChoosesNothing) {
    fields().dbgRs.onButtonClick(0);
    EXPECT_EQ(nIdEngranaje, 0);
    EXPECT_FALSE(form().isUnloaded());
    set(gearHeight, "4");
    leave();
    fields().dbgRs.onButtonClick(0);
    EXPECT_FALSE(form().isUnloaded());
}

TEST_F(GearFormTest, ClosingWithoutChoosingLeavesTheChosenGearAsItWas) {
    nIdEngranaje = 7;
    press(fields().cmdSalir);
    EXPECT_TRUE(form().isUnloaded());
    EXPECT_EQ(nIdEngranaje, 7);
}

// --- Two users ----------------------------------------------------------------------------------------------------

constexpr const char* gearGone = "Este engranaje ya no existe: otro usuario lo ha eliminado.";
constexpr const char* takeAllTheSame =
    "Otro usuario ha cambiado este engranaje desde que se mostró.\r\n¿Desea elegirlo con sus valores de ahora?";

/// Three gears of module 2, the second under the cursor.
class GearsOfTwoUsersTest : public TwoUsersTest<frmENGVal> {
  protected:
    GearsOfTwoUsersTest() {
        nIdEngranaje = 0;
        for (const char* teeth : {"20", "30", "40"}) {
            another->execute(
                std::string("INSERT INTO ENG (ENG_Tipo,ENG_Modulo,ENG_Z,ENG_Paso,ENG_Dp,ENG_Di,ENG_De,ENG_Dm,ENG_D1,"
                            "ENG_H,ENG_A,ENG_B,ENG_C) VALUES (0,2,") +
                teeth + ",6.28,40,35,44,20,10,4.5,30,20,10)");
        }
        set(gearModule, "2");
        leave();
        fields().dbgRs.moveToRow(1);
    }
    void choose() { fields().dbgRs.onButtonClick(0); }
};

TEST_F(GearsOfTwoUsersTest, AGearThatIsGoneIsNotChosenAndLeavesTheList) {
    another->execute("delete from ENG where ENG_Id=2");
    choose();
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(gearGone));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::critical);
    EXPECT_EQ(nIdEngranaje, 0);
    EXPECT_FALSE(form().isUnloaded());
    EXPECT_EQ(fields().dbgRs.rowCount(), 2u);
    EXPECT_EQ(text(gearModule), "2");
}

TEST_F(GearsOfTwoUsersTest, AGearThatAnotherChangedIsChosenOnlyAfterAYes) {
    another->execute("update ENG set ENG_D1=12 where ENG_Id=2");
    shop.screen.queue(screen::Answer::no);
    choose();
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(takeAllTheSame));
    EXPECT_EQ(nIdEngranaje, 0);
    EXPECT_EQ(fields().dbgRs.cellText(1, 9), "12") << "the list is read anew";
    fields().dbgRs.moveToRow(1);
    choose();
    EXPECT_EQ(nIdEngranaje, 2) << "it is as it is on show now";
    EXPECT_TRUE(form().isUnloaded());
}

TEST_F(GearsOfTwoUsersTest, AGearChangedByAnotherCanBeTakenAsItIsNow) {
    another->execute("update ENG set ENG_D1=12 where ENG_Id=2");
    shop.screen.queue(screen::Answer::yes);
    choose();
    EXPECT_EQ(nIdEngranaje, 2);
    EXPECT_TRUE(form().isUnloaded());
}

TEST_F(GearsOfTwoUsersTest, RowsThatCameAndWentDoNotMoveTheChoice) {
    another->execute("delete from ENG where ENG_Id=1");
    choose();
    EXPECT_EQ(nIdEngranaje, 2);
}

TEST_F(GearsOfTwoUsersTest, AFaultOfTheProgramInTheMidstOfAWriteIsRolledBack) {
    set(gearHeight, "4");
    set(gearBore, "10");
    nIdEngranaje = 3;
    shop.connection.breakOn("Select max(ENG_ID)");
    goTo(fields().cmdGrabar);
    EXPECT_THROW(fields().cmdGrabar.onClick(), std::logic_error);
    expectNoLock();
    EXPECT_EQ(shop.query("select count(*) from ENG"), "3");
    EXPECT_EQ(nIdEngranaje, 0);
}

// --- New and cancel -----------------------------------------------------------------------------------------------

TEST_F(GearFormTest, NewDisablesTheToothingAndItsFieldCannotTakeTheFocus) {
    press(fields().cmdNuevo);
    EXPECT_EQ(fields().cmdNuevo.caption(), "Cancelar");
    EXPECT_FALSE(fields().Frame1.enabled());
    EXPECT_EQ(form().activeControl(), &fields().cmdNuevo);
}

TEST_F(GearFormTest, CancelEnablesTheToothingButForItsSixFields) {
    press(fields().cmdNuevo);
    press(fields().cmdNuevo);
    EXPECT_EQ(fields().cmdNuevo.caption(), "Nuevo Registro");
    EXPECT_TRUE(fields().Frame1.enabled());
    for (int i = 0; i <= 11; ++i) {
        EXPECT_EQ(field(i).isEnabled(), !((i >= 1 && i <= 5) || i == 11)) << i;
    }
}

// --- Saving -------------------------------------------------------------------------------------------------------

TEST_F(GearFormTest, ASavedRowIsTheChosenOneAtOnce) {
    typeGear();
    press(fields().cmdGrabar);
    EXPECT_THAT(shop.connection.log(),
                ElementsAre("BEGIN",
                            "INSERT INTO ENG (ENG_Tipo,ENG_Modulo,ENG_Z,ENG_De,ENG_Dp,ENG_Di,ENG_Dm,ENG_D1,ENG_A,ENG_B,"
                            "ENG_C,ENG_Paso,ENG_H) VALUES (0,3,10,36,30,22.5,15,8,45,30,15,9.42,6.75)",
                            "Select max(ENG_ID) from ENG", "COMMIT"));
    EXPECT_EQ(nIdEngranaje, 5);
    EXPECT_TRUE(form().isUnloaded());
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(GearFormTest, EverySaveIsANewRow) {
    set(gearModule, "2");
    set(gearTeeth, "20");
    set(gearHeight, "4,5");
    set(gearBore, "10");
    leave();
    press(fields().cmdGrabar);
    EXPECT_EQ(countOfRows(), "5") << "the same values stand there already";
    EXPECT_EQ(nIdEngranaje, 5);
}

TEST_F(GearFormTest, ANegativeHubWidthIsStoredAsZero) {
    typeGear();
    set(gearTotalWidth, "20");
    set(gearFaceWidth, "30");
    leave();
    EXPECT_EQ(text(gearHubWidth), "-10,00");
    press(fields().cmdGrabar);
    EXPECT_EQ(shop.query("select ENG_C from ENG where ENG_Id=5"), "0");
    EXPECT_EQ(shop.query("select ENG_B from ENG where ENG_Id=5"), "30");
}

TEST_F(GearFormTest, WithoutHeightOrBoreASaveDoesNothingSilently) {
    for (const int i : {int{gearHeight}, int{gearBore}}) {
        typeGear();
        set(i, "0");
        press(fields().cmdGrabar);
        EXPECT_FALSE(form().isUnloaded());
        EXPECT_THAT(shop.screen.messages, IsEmpty());
        EXPECT_EQ(countOfRows(), "4");
        EXPECT_EQ(nIdEngranaje, 0);
    }
}

TEST_F(GearFormTest, ARefusedSaveIsToldAndChoosesNothing) {
    for (const char* statement : {"INSERT INTO ENG", "Select max(ENG_ID)"}) {
        typeGear();
        nIdEngranaje = 3;
        shop.connection.refuse(statement, sql::provider::failure, "Sin sitio");
        press(fields().cmdGrabar);
        EXPECT_EQ(last(), "Grabación Cancelada.\r\nError nº -2147467259\r\nSin sitio");
        EXPECT_EQ(shop.screen.messages.back().icon, screen::Icon::critical);
        EXPECT_EQ(nIdEngranaje, 0);
        EXPECT_FALSE(form().isUnloaded());
        EXPECT_EQ(countOfRows(), "4");
        EXPECT_EQ(text(gearPitchDiameter), "30,00") << "what was typed stays";
        EXPECT_EQ(shop.connection.log().back(), "ROLLBACK");
    }
    press(fields().cmdGrabar);
    EXPECT_EQ(countOfRows(), "5");
}

TEST_F(GearFormTest, AFailureAtAnyStepOfTheSaveLeavesTheTableAndTheEntry) {
    for (int step = 0; step < 4; ++step) {
        typeGear();
        shop.screen.messages.clear();
        shop.faults.failAt(step);
        press(fields().cmdGrabar);
        shop.faults.count();
        EXPECT_EQ(last(), "Grabación Cancelada.\r\nError nº -2147467259\r\nFallo provocado") << step;
        EXPECT_EQ(countOfRows(), "4") << step;
        EXPECT_EQ(nIdEngranaje, 0) << step;
    }
    press(fields().cmdGrabar);
    EXPECT_EQ(countOfRows(), "5") << "no transaction was left open, no field left over";
}

TEST_F(GearFormTest, AValueThatIsNoNumberIsRefused) {
    typeGear();
    field(gearHubDiameter).setText("veinte");
    fields().cmdGrabar.onClick();
    EXPECT_THAT(last(), ::testing::HasSubstr("Grabación Cancelada.\r\nError nº -2147467259\r\nEl valor de ENG_Dm"));
    EXPECT_EQ(countOfRows(), "4");
}

// --- Keys ---------------------------------------------------------------------------------------------------------

TEST_F(GearFormTest, EnterMovesOnAndEscCloses) {
    goTo(field(gearModule));
    EXPECT_EQ(form().keyDown(screen::Key::enter), screen::Key::none);
    EXPECT_EQ(form().activeControl(), &field(gearTeeth));
    EXPECT_EQ(form().keyDown(screen::Key::padDecimal), screen::Key::comma);
    form().keyDown(screen::Key::escape);
    EXPECT_TRUE(form().isUnloaded());
}

TEST_F(GearFormTest, TheWayOfTheTabKeyLeavesTheListAlone) {
    set(gearModule, "2");
    set(gearTeeth, "20");
    form().keyDown(screen::Key::enter);
    EXPECT_EQ(form().activeControl(), &field(gearHeight));
    form().keyDown(screen::Key::enter);
    EXPECT_EQ(rows(), 2u) << "20 teeth of either module";
}

TEST_F(GearFormTest, OnlyNumbersComeThroughAndWholeOnesAtTheTeeth) {
    type(gearModule, "a2.5,1");
    EXPECT_EQ(text(gearModule), "2,51");
    type(gearTeeth, "2,0");
    EXPECT_EQ(text(gearTeeth), "20");
}

TEST_F(GearFormTest, AFieldIsPaintedWhileItHasTheFocus) {
    goTo(field(gearModule));
    EXPECT_EQ(field(gearModule).backColor(), screen::colors::yellow);
    EXPECT_TRUE(field(gearModule).allSelected());
    leave();
    EXPECT_EQ(field(gearModule).backColor(), screen::colors::white);
}

}  // namespace
}  // namespace velmora::reference
