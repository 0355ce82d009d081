#include "velmora/reference/frm_materias.h"

#include "reference/reference_form.h"

namespace velmora::reference {
namespace {

using screen::Answer;
using screen::Key;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* list =
    "SELECT PARDPI.*,ART.ART_COD,ART.ART_DES,ART.ART_ID FROM PARDPI LEFT JOIN ART ON PARDPI_ART = ART_ID order by "
    "PARDPI_id ";
constexpr const char* materialSaved = "Datos Gabados satisfactoriamente";
constexpr const char* question =
    "Desea Burcar por Codigo de Articulo.\r\nSi contesta NO, la busqueda será por Nombre de articulo";

/// The workshop's materials: 1 a disc of article 11, 2 a hub of 12, 3 a tube of 13, 4 a disc of 13, 5 a rack of 14, the
/// one article of formula 1. None is used by a proposal.
class MaterialsFormTest : public FormTest<frmMaterias> {
  protected:
    MaterialsFormTest() { shop.connection.clear(); }

    void goToRow(std::size_t row) { fields().dbgFco.moveToRow(row); }
    const std::string& articleId() { return fields().articleId(); }
    std::string materials() { return shop.query("select count(*) from PARDPI"); }
    std::string column(const char* name, const char* id) {
        return shop.query(std::string("select ") + name + " from PARDPI where PARDPI_ID=" + id);
    }
    void useInProposal(const char* columnOfUse, const char* id) {
        shop.database->execute(std::string("INSERT INTO DPI (DPI_Tipo,") + columnOfUse + ") VALUES (0," + id + ")");
    }
    void addArticle(const char* values) {
        shop.database->execute(
            std::string("INSERT INTO ART (ART_ID,ART_COD,ART_DES,ART_For,ART_Fac,ART_Pco,ART_Pve,ART_Mat,ART_Corte,"
                        "ART_Estado) VALUES (") +
            values + ")");
    }
    void typeNew(const char* name, const char* code) {
        press(fields().cmdNuevo);
        set(materialName, name);
        set(materialArticleCode, code);
        leave();
    }
    void expectEntryGone() {
        EXPECT_FALSE(fields().bNuevo);
        EXPECT_FALSE(field(materialId).locked());
        for (const int i : {materialName, materialArticleCode, materialArticle}) {
            EXPECT_EQ(text(i), "") << i;
        }
        EXPECT_EQ(articleId(), "");
    }
};

// --- The list and the row on show -----------------------------------------------------------------------------------

TEST_F(MaterialsFormTest, OpensOnTheFirstMaterial) {
    open();
    EXPECT_EQ(form().caption(), "Asignación Articulos <-> Material");
    EXPECT_THAT(shop.connection.log(), ElementsAre(list));
    EXPECT_EQ(text(materialId), "1");
    EXPECT_EQ(text(materialName), "Disco F-114");
    EXPECT_EQ(text(materialArticleCode), "R-F114");
    EXPECT_EQ(articleId(), "11");
    EXPECT_EQ(text(materialArticle), "Redondo F-114");
    EXPECT_EQ(text(materialPrinted), "Acero F-114");
    EXPECT_FALSE(fields().Check1.checked());
    EXPECT_TRUE(fields().Check2.checked());
    EXPECT_FALSE(fields().Check4.checked());
}

TEST_F(MaterialsFormTest, TheGridIsShapedByPosition) {
    EXPECT_THAT(captions(fields().dbgFco),
                ElementsAre("Codigo", "Descripcion", "Hierro", "Disco", "Detalle Material", "Cod. Art.", "Articulo"));
    std::vector<std::string> second;
    for (std::size_t i = 0; i < 10; ++i) {
        second.push_back(fields().dbgFco.cellText(1, i));
    }
    EXPECT_THAT(second, ElementsAre("2", "Cubo F-1140", "12", "No", "No", "Acero F-1140", "Falso", "R-F1140",
                                    "Redondo F-1140", "12"));
    EXPECT_EQ(fields().dbgFco.cellText(0, 4), "Sí");
}

TEST_F(MaterialsFormTest, TheRowUnderTheCursorIsOnShow) {
    goToRow(4);
    EXPECT_EQ(text(materialId), "5");
    EXPECT_TRUE(fields().Check1.checked());
    EXPECT_FALSE(fields().Check2.checked());
    EXPECT_TRUE(fields().Check4.checked());
    goToRow(0);
    EXPECT_FALSE(fields().Check1.checked());
    EXPECT_TRUE(fields().Check2.checked());
    EXPECT_FALSE(fields().Check4.checked());
    EXPECT_THAT(shop.screen.messages, IsEmpty()) << "a row on show is not checked";
}

TEST_F(MaterialsFormTest, ARackThatIsADiscInTheTableShowsOnlyTheRack) {
    shop.database->execute("update PARDPI set PARDPI_DISCO=1 where PARDPI_ID=5");
    goToRow(4);
    EXPECT_TRUE(fields().Check4.checked());
    EXPECT_FALSE(fields().Check2.checked());
}

TEST_F(MaterialsFormTest, WhatIsMissingIsEmptyAndUnticked) {
    shop.database->execute("insert into PARDPI (PARDPI_NOM,PARDPI_ART) values (N'Suelto',99)");
    goToRow(5);
    EXPECT_EQ(text(materialName), "Suelto");
    EXPECT_EQ(text(materialArticleCode), "");
    EXPECT_EQ(articleId(), "");
    EXPECT_EQ(text(materialPrinted), "");
    for (const screen::CheckBox* box : {&fields().Check1, &fields().Check2, &fields().Check4}) {
        EXPECT_FALSE(box->checked()) << box->name();
    }
}

TEST_F(MaterialsFormTest, TheFlangeCanBeTickedAndHasNoEffect) {
    tick(fields().Check3, true);
    goToRow(1);
    EXPECT_TRUE(fields().Check3.checked());
    goToRow(2);
    shop.connection.clear();
    press(fields().cmdGuardar);
    EXPECT_THAT(shop.connection.logged("UPDATE"),
                ElementsAre("UPDATE PARDPI SET PARDPI_NOM=N'Tubo E355',PARDPI_ART=N'13',PARDPI_MATP=N'Tubo E355',"
                            "PARDPI_HIERRO=0,PARDPI_CRE=0,PARDPI_DISCO=0 WHERE PARDPI_Id = 3"));
}

TEST_F(MaterialsFormTest, AnEmptyTableOpensEmpty) {
    shop.database->execute("delete from PARDPI");
    EXPECT_EQ(text(materialId), "");
    EXPECT_EQ(fields().dbgFco.rowCount(), 0u);
    set(materialId, "3");
    leave();
    EXPECT_EQ(text(materialId), "3");
}

TEST_F(MaterialsFormTest, AListThatCannotBeHadReachesTheCaller) {
    shop.connection.refuse("SELECT PARDPI");
    EXPECT_EQ(errorOf([&] { open(); }), refused);
}

// --- Finding by number --------------------------------------------------------------------------------------------

TEST_F(MaterialsFormTest, LeavingTheNumberFindsItsMaterial) {
    goToRow(3);
    set(materialId, "2");
    leave();
    EXPECT_EQ(text(materialName), "Cubo F-1140");
    EXPECT_EQ(fields().dbgFco.recordset().position(), 1u);
    EXPECT_TRUE(shop.connection.logged("find").empty());
}

TEST_F(MaterialsFormTest, ANumberThatNobodyHasLeavesTheCursorWhereItWas) {
    goToRow(3);
    for (const char* unknown : {"99", "1,5", "-2", "doce", ""}) {
        set(materialId, unknown);
        leave();
        EXPECT_EQ(fields().dbgFco.recordset().position(), 3u) << unknown;
        EXPECT_EQ(text(materialId), unknown);
        EXPECT_EQ(text(materialName), "Disco tubo") << unknown;
    }
}

TEST_F(MaterialsFormTest, FindingTheMaterialOnShowTakesTheEntryBack) {
    set(materialName, "Otro nombre");
    goTo(field(materialId));
    leave();
    EXPECT_EQ(text(materialName), "Disco F-114");
}

TEST_F(MaterialsFormTest, OnlyDigitsComeIntoTheNumber) {
    type(materialId, "a2,5");
    EXPECT_EQ(text(materialId), "25");
}

// --- Search of the article ----------------------------------------------------------------------------------------

TEST_F(MaterialsFormTest, ACodeIsLookedUpWhenItIsLeft) {
    open();
    shop.connection.clear();
    set(materialArticleCode, "R-F1140");
    leave();
    EXPECT_THAT(shop.connection.log(),
                ElementsAre("Select ART_ID,ART_COD,ART_DES,('') as Blanco FROM ART where art_cod='R-F1140'"));
    EXPECT_EQ(articleId(), "12");
    EXPECT_EQ(text(materialArticle), "Redondo F-1140");
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(MaterialsFormTest, AnArticleOutOfUseIsFoundByItsCodeOnly) {
    addArticle("20,N'VIEJO',N'Redondo retirado',2,6.165,1,1,1,1,1");
    open();
    set(materialArticleCode, "VIEJO");
    leave();
    EXPECT_EQ(articleId(), "20");
    for (const Answer by : {Answer::yes, Answer::no}) {
        shop.screen.queue(by);
        shop.screen.queuePick(std::nullopt);
        form().keyDown(Key::f1);
        EXPECT_EQ(shop.screen.searches.back().rowCount, 4u) << "the window offers only those in use";
    }
}

TEST_F(MaterialsFormTest, AnApostropheInACodeIsLookedFor) {
    addArticle("20,N'D''ARC',N'Redondo',2,6.165,1,1,1,1,0");
    open();
    set(materialArticleCode, "D'ARC");
    leave();
    EXPECT_EQ(articleId(), "20");
}

TEST_F(MaterialsFormTest, AnUnknownCodeIsAskedForAndFoundByCode) {
    open();
    shop.screen.queue(Answer::yes);
    shop.screen.queuePick(1);
    set(materialArticleCode, "X");
    leave();
    ASSERT_THAT(shop.screen.messageTexts(), ElementsAre(question));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::question);
    EXPECT_EQ(shop.screen.messages[0].buttons, screen::Buttons::yesNoCancel);
    ASSERT_EQ(shop.screen.searches.size(), 1u);
    const screen::SearchWindow& window = shop.screen.searches[0].window;
    EXPECT_EQ(window.title, "Buscar Articulos por Codigo");
    EXPECT_EQ(window.searchColumn, "CodDes");
    EXPECT_EQ(window.firstCaption, "Articulo");
    EXPECT_EQ(window.secondCaption, "Codigo");
    EXPECT_EQ(window.firstWidth, 6000);
    EXPECT_EQ(window.secondWidth, 600);
    EXPECT_EQ(shop.connection.log().back(),
              "Select ART_ID,ART_COD,ART_DES,(ART_COD + ' ' + ART_DES) as CodDes FROM ART where art_estado=0 order by "
              "ART_COD,art_des");
    EXPECT_EQ(text(materialArticleCode), "R-F114") << "the second of P-S275, R-F114, R-F1140, T-E355";
    EXPECT_EQ(articleId(), "11");
}

TEST_F(MaterialsFormTest, TheSearchByNameIsOrderedByName) {
    open();
    shop.screen.queue(Answer::no);
    shop.screen.queuePick(3);
    press(fields().cmdBuscarArticulo);
    EXPECT_EQ(shop.screen.searches[0].window.title, "Buscar Articulos por Nombre");
    EXPECT_EQ(shop.screen.searches[0].window.searchColumn, "ART_DES");
    EXPECT_EQ(shop.connection.log().back(),
              "Select ART_ID,ART_COD,ART_DES,('') as Blanco FROM ART where art_estado=0 order by ART_DES");
    EXPECT_EQ(text(materialArticleCode), "T-E355");
    EXPECT_EQ(text(materialArticle), "Tubo E355");
    EXPECT_EQ(articleId(), "13");
}

TEST_F(MaterialsFormTest, ACancelledSearchLeavesTheArticleThatWasChosen) {
    open();
    shop.screen.queue(Answer::cancel);
    set(materialArticleCode, "X");
    leave();
    EXPECT_EQ(text(materialArticleCode), "X");
    EXPECT_EQ(articleId(), "11");
    EXPECT_EQ(text(materialArticle), "Redondo F-114");
    press(fields().cmdGuardar);
    EXPECT_EQ(column("PARDPI_ART", "1"), "11");
}

TEST_F(MaterialsFormTest, AWindowLeftWithoutAChoiceTakesTheArticleAway) {
    open();
    shop.screen.queue(Answer::no);
    shop.screen.queuePick(std::nullopt);
    form().keyDown(Key::f1);
    EXPECT_EQ(text(materialArticleCode), "");
    EXPECT_EQ(articleId(), "");
    EXPECT_EQ(text(materialArticle), "");
}

TEST_F(MaterialsFormTest, AnEmptiedCodeSearchesNothingAndKeepsTheArticle) {
    open();
    set(materialArticleCode, "");
    leave();
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_EQ(articleId(), "11");
}

TEST_F(MaterialsFormTest, ARefusedLookUpReachesTheUserAndLeavesTheFields) {
    open();
    shop.connection.refuse("where art_cod=");
    set(materialArticleCode, "R-F1140");
    EXPECT_EQ(errorOf([&] { leave(); }), refused);
    EXPECT_EQ(articleId(), "11");
}

// --- The rack flag ------------------------------------------------------------------------------------------------

TEST_F(MaterialsFormTest, WithoutAnArticleTheRackUnticksWithoutAWord) {
    press(fields().cmdNuevo);
    shop.connection.clear();
    tick(fields().Check4, true);
    EXPECT_FALSE(fields().Check4.checked());
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_THAT(shop.connection.log(), IsEmpty());
}

TEST_F(MaterialsFormTest, AnArticleThatIsGoneCannotBeARack) {
    open();
    shop.database->execute("delete from ART where ART_ID=11");
    tick(fields().Check4, true);
    ASSERT_THAT(shop.screen.messageTexts(), ElementsAre("Articulo Inexistente"));
    EXPECT_EQ(shop.screen.messages[0].title, "Acción Cancelada");
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::critical);
    EXPECT_FALSE(fields().Check4.checked());
    EXPECT_TRUE(fields().Check2.checked());
}

TEST_F(MaterialsFormTest, OnlyFormulaOneIsARacks) {
    open();
    shop.connection.clear();
    tick(fields().Check4, true);
    EXPECT_THAT(shop.connection.log(), ElementsAre("Select art_for from art where art_id =11"));
    ASSERT_THAT(shop.screen.messageTexts(), ElementsAre("Articulo indicado no adecuado. Formula nº 2\r\nSolo están "
                                                        "permitidos articulos con formula nº 1"));
    EXPECT_EQ(shop.screen.messages[0].title, "Acción Cancelada");
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::critical);
    EXPECT_FALSE(fields().Check4.checked());
}

TEST_F(MaterialsFormTest, AnArticleWithoutAFormulaIsNoRacks) {
    shop.database->execute("update ART set ART_For=NULL where ART_ID=11");
    open();
    tick(fields().Check4, true);
    EXPECT_THAT(last(), StartsWith("Articulo indicado no adecuado. Formula nº \r\n"));
}

TEST_F(MaterialsFormTest, RackAndDiscExcludeEachOtherAndAMaterialMayBeNeither) {
    open();
    set(materialArticleCode, "P-S275");
    leave();
    tick(fields().Check4, true);
    EXPECT_TRUE(fields().Check4.checked());
    EXPECT_FALSE(fields().Check2.checked());
    tick(fields().Check2, true);
    EXPECT_TRUE(fields().Check2.checked());
    EXPECT_FALSE(fields().Check4.checked());
    tick(fields().Check2, false);
    EXPECT_FALSE(fields().Check4.checked());
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(MaterialsFormTest, TheArticleIsAskedForWhenTheRackIsUntickedToo) {
    shop.database->execute("update ART set ART_For=2 where ART_ID=14");
    open();
    goToRow(4);
    tick(fields().Check4, false);
    EXPECT_THAT(last(), StartsWith("Articulo indicado no adecuado. Formula nº 2"));
    EXPECT_FALSE(fields().Check4.checked());
    EXPECT_EQ(shop.screen.messages.size(), 1u) << "unticking by the program is not asked again";
}

// --- New and cancel -----------------------------------------------------------------------------------------------

TEST_F(MaterialsFormTest, NewClearsTheEntryAndKeepsWhatIsMostlyTheSame) {
    goToRow(4);
    press(fields().cmdNuevo);
    EXPECT_EQ(text(materialId), "NUEVO");
    EXPECT_TRUE(field(materialId).locked());
    EXPECT_EQ(text(materialName), "");
    EXPECT_EQ(text(materialArticleCode), "");
    EXPECT_EQ(text(materialArticle), "");
    EXPECT_EQ(text(materialPrinted), "Pletina S275");
    EXPECT_TRUE(fields().Check1.checked());
    EXPECT_TRUE(fields().Check4.checked());
    EXPECT_EQ(form().activeControl(), &field(materialName));
}

TEST_F(MaterialsFormTest, ASaveRightAfterNewAsksForAnArticle) {
    goToRow(4);
    form().keyDown(Key::f4);
    EXPECT_EQ(articleId(), "");
    press(fields().cmdGuardar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre("Falta seleccionar un articulo"));
    EXPECT_EQ(materials(), "5") << "no nameless material was stored";
}

TEST_F(MaterialsFormTest, CancelShowsNumberZeroAndNoMaterial) {
    goToRow(4);
    press(fields().cmdNuevo);
    press(fields().cmdCancelar);
    EXPECT_EQ(text(materialId), "0");
    expectEntryGone();
    press(fields().cmdGuardar);
    EXPECT_EQ(last(), "Falta seleccionar un articulo");
}

// --- Saving -------------------------------------------------------------------------------------------------------

TEST_F(MaterialsFormTest, ANewMaterialBecomesTheCurrentOneAndTheLast) {
    open();
    typeNew("Pletina nueva", "P-S275");
    tick(fields().Check1, true);
    tick(fields().Check4, true);
    shop.connection.clear();
    press(fields().cmdGuardar);
    EXPECT_THAT(shop.connection.log(),
                ElementsAre("BEGIN",
                            "INSERT INTO PARDPI (PARDPI_NOM,PARDPI_ART,PARDPI_MATP,PARDPI_HIERRO,PARDPI_DISCO,"
                            "PARDPI_CRE) VALUES (N'Pletina nueva',N'14',N'Acero F-114',1,0,1)",
                            list, "COMMIT"));
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(materialSaved));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::none);
    EXPECT_EQ(text(materialId), "6");
    EXPECT_EQ(text(materialName), "Pletina nueva");
    EXPECT_EQ(fields().dbgFco.recordset().position(), 5u);
    EXPECT_FALSE(fields().bNuevo);
    EXPECT_FALSE(field(materialId).locked());
}

TEST_F(MaterialsFormTest, AnEditedMaterialIsUpdatedAndStaysCurrent) {
    goToRow(1);
    set(materialName, "Cubo d'acer");
    tick(fields().Check2, true);
    shop.connection.clear();
    press(fields().cmdGuardar);
    EXPECT_THAT(shop.connection.log(),
                ElementsAre("Select count(*) from dpi where DPI_IdParDisco = 2 Or DPI_IdParCubo = 2", "BEGIN",
                            "SELECT PARDPI.* FROM PARDPI WHERE PARDPI_Id = 2",
                            "Select count(*) from dpi where DPI_IdParDisco = 2 Or DPI_IdParCubo = 2",
                            "UPDATE PARDPI SET PARDPI_NOM=N'Cubo d''acer',PARDPI_ART=N'12',PARDPI_MATP=N'Acero "
                            "F-1140',PARDPI_HIERRO=0,PARDPI_CRE=0,PARDPI_DISCO=1 WHERE PARDPI_Id = 2",
                            list, "COMMIT"));
    EXPECT_EQ(text(materialId), "2");
    EXPECT_EQ(text(materialName), "Cubo d'acer");
    EXPECT_EQ(fields().dbgFco.recordset().position(), 1u);
}

TEST_F(MaterialsFormTest, AMaterialInUseCanBeSeenButNotSavedNorDeleted) {
    for (const char* use : {"DPI_IdParDisco", "DPI_IdParCubo"}) {
        useInProposal(use, "2");
        goToRow(1);
        EXPECT_EQ(text(materialName), "Cubo F-1140");
        set(materialName, "Otro");
        shop.screen.messages.clear();
        press(fields().cmdGuardar);
        press(fields().cmdBorrar);
        ASSERT_THAT(shop.screen.messageTexts(),
                    ElementsAre("No es posible modificar un Indice de Material ya utilizado",
                                "No es posible eliminar este material al estar utilizado en una propuesta."));
        EXPECT_EQ(shop.screen.messages[0].title, "Accion Cancelada");
        EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::critical);
        EXPECT_EQ(shop.screen.messages[1].title, "");
        EXPECT_EQ(shop.screen.messages[1].icon, screen::Icon::critical);
        EXPECT_EQ(column("PARDPI_NOM", "2"), "Cubo F-1140");
        EXPECT_EQ(text(materialName), "Otro");
        shop.database->execute("delete from DPI");
        open();
    }
}

TEST_F(MaterialsFormTest, TheRowUnderTheCursorIsSavedWhateverNumberIsTyped) {
    goToRow(1);
    set(materialId, "99");
    set(materialName, "Cubo nuevo");
    press(fields().cmdGuardar);
    EXPECT_EQ(column("PARDPI_NOM", "2"), "Cubo nuevo");
    EXPECT_EQ(fields().dbgFco.recordset().position(), 0u) << "99 is not there: the list stands where it was opened";
}

TEST_F(MaterialsFormTest, ARefusedWriteIsToldAndLeavesTableAndEntry) {
    for (const char* statement : {"UPDATE PARDPI", "SELECT PARDPI", "Select count(*)"}) {
        open();
        goToRow(1);
        set(materialName, "Otro");
        shop.connection.refuse(statement, sql::provider::failure, "Sin sitio");
        shop.screen.messages.clear();
        press(fields().cmdGuardar);
        EXPECT_THAT(shop.screen.messageTexts(), ElementsAre("Error al actualizar los almacenes\r\nSin sitio"))
            << statement;
        EXPECT_EQ(column("PARDPI_NOM", "2"), "Cubo F-1140") << statement;
        EXPECT_EQ(text(materialName), "Otro") << statement;
        EXPECT_EQ(articleId(), "12") << statement;
        EXPECT_EQ(fields().dbgFco.recordset().position(), 1u) << statement;
    }
    press(fields().cmdGuardar);
    EXPECT_EQ(column("PARDPI_NOM", "2"), "Otro") << "no transaction was left open, no field left over";
}

TEST_F(MaterialsFormTest, AFailureAtAnyStepOfANewMaterialLeavesTableAndEntry) {
    open();
    typeNew("Nuevo", "R-F114");
    for (int step = 0; step < 4; ++step) {
        shop.faults.failAt(step);
        press(fields().cmdGuardar);
        shop.faults.count();
        EXPECT_EQ(last(), "Error al actualizar los almacenes\r\nFallo provocado") << step;
        EXPECT_EQ(materials(), "5") << step;
        EXPECT_TRUE(fields().bNuevo) << step;
        EXPECT_EQ(text(materialId), "NUEVO") << step;
        EXPECT_EQ(text(materialName), "Nuevo") << step;
        EXPECT_EQ(articleId(), "11") << step;
    }
    press(fields().cmdGuardar);
    EXPECT_EQ(materials(), "6");
    EXPECT_EQ(last(), materialSaved);
}

TEST_F(MaterialsFormTest, WithNoMaterialAtAllThereIsNoneToChange) {
    shop.database->execute("delete from PARDPI");
    open();
    set(materialArticleCode, "R-F114");
    leave();
    press(fields().cmdGuardar);
    EXPECT_THAT(last(), StartsWith("Error al actualizar los almacenes\r\n"));
    EXPECT_EQ(materials(), "0");
    typeNew("Primero", "R-F114");
    press(fields().cmdGuardar);
    EXPECT_EQ(last(), materialSaved);
    EXPECT_EQ(text(materialName), "Primero");
}

TEST_F(MaterialsFormTest, ALostConnectionIsTold) {
    open();
    shop.connection.lose();
    fields().cmdGuardar.onClick();
    EXPECT_EQ(last(), "Error al actualizar los almacenes\r\nSe perdió la conexión");
}

// --- Deleting -----------------------------------------------------------------------------------------------------

TEST_F(MaterialsFormTest, AConfirmedMaterialIsDeleted) {
    goToRow(3);
    shop.connection.clear();
    shop.screen.queue(Answer::yes);
    press(fields().cmdBorrar);
    const screen::MessageBox& box = shop.screen.messages.at(0);
    EXPECT_EQ(box.text, "Confirma la eliminacion del registro \r\n4 Disco tubo");
    EXPECT_EQ(box.icon, screen::Icon::critical);
    EXPECT_EQ(box.buttons, screen::Buttons::yesNo);
    EXPECT_EQ(box.defaultButton, 2);
    EXPECT_THAT(shop.connection.log(),
                ElementsAre("Select Count(*) from dpi where DPI_IdParDisco=4 Or DPI_IdParCubo = 4", "BEGIN",
                            "SELECT PARDPI.* FROM PARDPI WHERE PARDPI_Id = 4",
                            "Select Count(*) from dpi where DPI_IdParDisco=4 Or DPI_IdParCubo = 4",
                            "DELETE FROM PARDPI WHERE PARDPI_Id = 4", "COMMIT", list));
    EXPECT_EQ(fields().dbgFco.rowCount(), 4u);
    EXPECT_EQ(text(materialId), "1");
}

TEST_F(MaterialsFormTest, AMaterialThatIsNotConfirmedStays) {
    goToRow(3);
    shop.screen.queue(Answer::no);
    press(fields().cmdBorrar);
    EXPECT_EQ(materials(), "5");
    EXPECT_EQ(text(materialId), "4");
}

TEST_F(MaterialsFormTest, WithoutANumberNothingIsDeleted) {
    set(materialId, "");
    press(fields().cmdBorrar);
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_EQ(materials(), "5");
}

TEST_F(MaterialsFormTest, WhileAMaterialIsAddedDeletingIsTheDatabasesError) {
    press(fields().cmdNuevo);
    goTo(fields().cmdBorrar);
    EXPECT_NE(errorOf([&] { fields().cmdBorrar.onClick(); }), 0);
    EXPECT_THAT(shop.connection.log().back(), ::testing::HasSubstr("DPI_IdParDisco=NUEVO"));
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_EQ(materials(), "5");
    EXPECT_EQ(text(materialId), "NUEVO");
}

TEST_F(MaterialsFormTest, ARefusedDeleteReachesTheUser) {
    goToRow(3);
    shop.connection.refuse("DELETE FROM PARDPI");
    shop.screen.queue(Answer::yes);
    goTo(fields().cmdBorrar);
    EXPECT_EQ(errorOf([&] { fields().cmdBorrar.onClick(); }), refused);
    EXPECT_EQ(materials(), "5");
    EXPECT_EQ(text(materialId), "4");
}

TEST_F(MaterialsFormTest, ATextThatIsNoWholeNumberDeletesNothing) {
    for (const char* code :
         {"2 or 1=1", "0 or 1=1", "1+1", "(2)", "1e0", "1.5", "2;", "PARDPI_Id", " ", "99999999999"}) {
        open();
        goToRow(1);
        shop.connection.clear();
        shop.screen.messages.clear();
        goTo(fields().cmdBorrar);
        field(materialId).setText(code);
        errorOf([&] { fields().cmdBorrar.onClick(); });
        EXPECT_THAT(shop.connection.logged("DELETE"), IsEmpty()) << code;
        EXPECT_EQ(materials(), "5") << code;
        EXPECT_EQ(text(materialName), "Cubo F-1140") << code;
    }
    field(materialId).setText("0 or 1=1");
    fields().cmdBorrar.onClick();
    EXPECT_EQ(last(), "El código del material debe ser un número entero.");
    EXPECT_EQ(shop.screen.messages.back().icon, screen::Icon::critical);
}

TEST_F(MaterialsFormTest, ATextThatIsNoWholeNumberIsInNoUpdate) {
    for (const char* code : {"2 or 1=1", "1.5", "doce"}) {
        open();
        goToRow(1);
        goTo(fields().cmdGuardar);
        field(materialId).setText(code);
        field(materialName).setText(code);
        shop.connection.clear();
        fields().cmdGuardar.onClick();
        ASSERT_EQ(shop.connection.logged("UPDATE").size(), 1u) << code;
        EXPECT_THAT(shop.connection.logged("UPDATE")[0], ::testing::EndsWith(" WHERE PARDPI_Id = 2")) << code;
    }
}

TEST_F(MaterialsFormTest, ANumberThatTheListDoesNotHoldDeletesNothing) {
    open();
    goToRow(1);
    shop.database->execute("insert into PARDPI (PARDPI_NOM,PARDPI_ART) values (N'De otro',11)");
    set(materialId, "6");
    press(fields().cmdBorrar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre("El material nº 6 no está en la lista."));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::critical);
    EXPECT_EQ(text(materialName), "Cubo F-1140") << "another material's name stood beside the number";
    EXPECT_EQ(materials(), "6");
    shop.database->execute("delete from PARDPI");
    open();
    set(materialId, "6");
    press(fields().cmdBorrar);
    EXPECT_EQ(last(), "El material nº 6 no está en la lista.");
}

// --- Two users ----------------------------------------------------------------------------------------------------

constexpr const char* materialGone = "El material nº 2 ya no existe: otro usuario lo ha eliminado.";
constexpr const char* writeOverMaterial =
    "Otro usuario ha cambiado este material desde que se mostró.\r\n¿Desea grabar encima de sus cambios?";
constexpr const char* deleteAllTheSame =
    "Otro usuario ha cambiado este material desde que se mostró.\r\n¿Desea eliminarlo de todos modos?";
constexpr const char* proposalWithMaterialTwo =
    "INSERT INTO DPI (DPI_Tipo,DPI_IdParDisco,DPI_IdParCubo) VALUES (0,1,2)";
constexpr const char* inUseNotChanged = "No es posible modificar un Indice de Material ya utilizado";
constexpr const char* inUseNotDeleted = "No es posible eliminar este material al estar utilizado en una propuesta.";
constexpr const char* confirm = "Confirma la eliminacion del registro \r\n2 Cubo F-1140";

class MaterialsOfTwoUsersTest : public TwoUsersTest<frmMaterias> {
  protected:
    /// Shows material 2 in the fields, with a name typed by the user if given.
    void show(const char* typed = nullptr) {
        open();
        fields().dbgFco.moveToRow(1);
        if (typed != nullptr) {
            set(materialName, typed);
        }
        shop.screen.messages.clear();
    }
    std::string nameOf(const char* id) {
        return shop.query(std::string("select isnull(max(PARDPI_NOM),'-') from PARDPI where PARDPI_ID=") + id);
    }
};

TEST_F(MaterialsOfTwoUsersTest, AMaterialThatIsGoneIsNotSavedAndTheEntryStays) {
    show("Otro nombre");
    another->execute("delete from PARDPI where PARDPI_ID=2");
    press(fields().cmdGuardar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(std::string(materialGone) + "\r\nNo se ha grabado nada."));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::critical);
    EXPECT_EQ(shop.screen.messages[0].title, "Accion Cancelada");
    EXPECT_EQ(text(materialId), "2");
    EXPECT_EQ(text(materialName), "Otro nombre");
    EXPECT_EQ(shop.query("select count(*) from PARDPI where PARDPI_NOM='Otro nombre'"), "0");
    expectNoLock();
}

TEST_F(MaterialsOfTwoUsersTest, AMaterialThatAnotherChangedIsWrittenOverAfterAYes) {
    show("Mio");
    another->execute("update PARDPI set PARDPI_MATP=N'Suyo' where PARDPI_ID=2");
    shop.screen.queue(Answer::yes);
    press(fields().cmdGuardar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(writeOverMaterial, materialSaved));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::exclamation);
    EXPECT_EQ(shop.screen.messages[0].buttons, screen::Buttons::yesNo);
    EXPECT_EQ(shop.screen.messages[0].defaultButton, 2);
    EXPECT_EQ(nameOf("2"), "Mio");
    EXPECT_EQ(shop.query("select PARDPI_MATP from PARDPI where PARDPI_ID=2"), "Acero F-1140") << "as it was on show";
}

TEST_F(MaterialsOfTwoUsersTest, OnNoTheOthersChangeAndTheOwnEntryStay) {
    show("Mio");
    another->execute("update PARDPI set PARDPI_NOM=N'Suyo' where PARDPI_ID=2");
    shop.screen.queue(Answer::no);
    press(fields().cmdGuardar);
    EXPECT_EQ(nameOf("2"), "Suyo");
    EXPECT_EQ(text(materialName), "Mio");
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(writeOverMaterial));
    expectNoLock();
}

TEST_F(MaterialsOfTwoUsersTest, WhileTheQuestionStandsTheOtherUserCanWrite) {
    show("Mio");
    another->execute("update PARDPI set PARDPI_NOM=N'Suyo' where PARDPI_ID=2");
    whileAsked("update PARDPI set PARDPI_NOM=N'Suyo otra vez' where PARDPI_ID=2");
    shop.screen.queue(Answer::yes);
    press(fields().cmdGuardar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(writeOverMaterial, materialSaved)) << "asked once";
    EXPECT_EQ(nameOf("2"), "Mio");
}

TEST_F(MaterialsOfTwoUsersTest, AMaterialThatGoesWhileTheQuestionStandsIsNotSaved) {
    show("Mio");
    another->execute("update PARDPI set PARDPI_NOM=N'Suyo' where PARDPI_ID=2");
    whileAsked("delete from PARDPI where PARDPI_ID=2");
    shop.screen.queue(Answer::yes);
    press(fields().cmdGuardar);
    EXPECT_THAT(shop.screen.messageTexts(),
                ElementsAre(writeOverMaterial, std::string(materialGone) + "\r\nNo se ha grabado nada."));
    EXPECT_EQ(text(materialName), "Mio");
}

TEST_F(MaterialsOfTwoUsersTest, AMaterialThatAProposalTakesWhileTheQuestionStandsIsNotSaved) {
    show("Mio");
    another->execute("update PARDPI set PARDPI_NOM=N'Suyo' where PARDPI_ID=2");
    whileAsked(proposalWithMaterialTwo);
    shop.screen.queue(Answer::yes);
    press(fields().cmdGuardar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(writeOverMaterial, inUseNotChanged));
    EXPECT_EQ(nameOf("2"), "Suyo");
    EXPECT_EQ(text(materialName), "Mio");
    expectNoLock();
}

TEST_F(MaterialsOfTwoUsersTest, AMaterialThatAProposalTakesWhileTheQuestionStandsIsNotDeleted) {
    show();
    whileAsked(proposalWithMaterialTwo);
    shop.screen.queue(Answer::yes);
    press(fields().cmdBorrar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(confirm, inUseNotDeleted));
    EXPECT_EQ(nameOf("2"), "Cubo F-1140");
    expectNoLock();
}

TEST_F(MaterialsOfTwoUsersTest, ADeleteOfAMaterialThatIsGoneIsToldAndTheListReadAnew) {
    show();
    another->execute("delete from PARDPI where PARDPI_ID=2");
    shop.screen.queue(Answer::yes);
    press(fields().cmdBorrar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(confirm, materialGone));
    EXPECT_THAT(shop.connection.logged("DELETE"), IsEmpty());
    EXPECT_EQ(fields().dbgFco.rowCount(), 4u);
    EXPECT_EQ(text(materialId), "1");
    expectNoLock();
}

TEST_F(MaterialsOfTwoUsersTest, ADeleteOfAMaterialThatAnotherChangedIsAskedAboutOnce) {
    show();
    another->execute("update PARDPI set PARDPI_NOM=N'Suyo' where PARDPI_ID=2");
    shop.screen.queue(Answer::yes);
    shop.screen.queue(Answer::no);
    press(fields().cmdBorrar);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(confirm, deleteAllTheSame));
    EXPECT_EQ(shop.screen.messages[1].defaultButton, 2);
    EXPECT_EQ(nameOf("2"), "Suyo");
    EXPECT_EQ(text(materialId), "2");
    expectNoLock();
    shop.screen.queue(Answer::yes);
    shop.screen.queue(Answer::yes);
    press(fields().cmdBorrar);
    EXPECT_EQ(nameOf("2"), "-");
    EXPECT_EQ(fields().dbgFco.rowCount(), 4u);
}

TEST_F(MaterialsOfTwoUsersTest, RowsThatCameAndWentDoNotTurnASaveOnToTheirNeighbour) {
    show("Mio");
    another->execute("delete from PARDPI where PARDPI_ID=1");
    another->execute("insert into PARDPI (PARDPI_NOM,PARDPI_ART) values (N'De otro',11)");
    press(fields().cmdGuardar);
    EXPECT_EQ(last(), materialSaved);
    EXPECT_EQ(nameOf("2"), "Mio");
    EXPECT_EQ(nameOf("3"), "Tubo E355");
    EXPECT_EQ(nameOf("6"), "De otro");
    EXPECT_EQ(text(materialId), "2");
}

TEST_F(MaterialsOfTwoUsersTest, AFaultOfTheProgramInTheMidstOfAWriteIsRolledBack) {
    show("Mio");
    shop.connection.breakOn("UPDATE PARDPI");
    goTo(fields().cmdGuardar);
    EXPECT_THROW(fields().cmdGuardar.onClick(), std::logic_error);
    expectNoLock();
    EXPECT_EQ(nameOf("2"), "Cubo F-1140");
    shop.connection.breakOn("DELETE");
    shop.screen.queue(Answer::yes);
    goTo(fields().cmdBorrar);
    EXPECT_THROW(fields().cmdBorrar.onClick(), std::logic_error);
    expectNoLock();
    EXPECT_EQ(nameOf("2"), "Cubo F-1140");
    press(fields().cmdGuardar);
    EXPECT_EQ(nameOf("2"), "Mio");
}

// --- Keys ---------------------------------------------------------------------------------------------------------

TEST_F(MaterialsFormTest, TheKeysOfTheFormAlsoServeTheGrid) {
    open();
    goTo(fields().dbgFco);
    form().keyDown(Key::f4);
    EXPECT_EQ(text(materialId), "NUEVO");
    form().keyDown(Key::f5);
    EXPECT_EQ(last(), "Falta seleccionar un articulo");
    shop.screen.queue(Answer::cancel);
    goTo(fields().dbgFco);
    form().keyDown(Key::f1);
    EXPECT_EQ(last(), question);
    EXPECT_EQ(form().keyDown(Key::enter), Key::none);
    EXPECT_EQ(form().activeControl(), &field(materialId));
    form().keyDown(Key::escape);
    EXPECT_TRUE(form().isUnloaded());
}

TEST_F(MaterialsFormTest, ThePadsPointStaysAPointInACode) {
    open();
    EXPECT_EQ(form().keyDown(Key::padDecimal), Key::padDecimal);
}

}  // namespace
}  // namespace velmora::reference
