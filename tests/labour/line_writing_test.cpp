// Comparison of a line of labour with its proposal and its own row before it is written.

#include "velmora/labour/line_writing.h"

#include <stdexcept>

#include <gmock/gmock.h>

#include "labour_form.h"

namespace velmora::labour {
namespace {

using screen::Answer;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* accepted = "El presupuesto ya fue aceptado, orden de trabajo nº 24001";
constexpr const char* gone = "El presupuesto ya no existe, otro usuario lo ha eliminado";
constexpr const char* lineGone = "La linea ya no existe, otro usuario la ha eliminado";
constexpr const char* saveQuestion =
    "La linea ha sido modificada por otro usuario desde que se cargó.\r\n¿Desea grabar encima de sus cambios?";
constexpr const char* deleteQuestion =
    "La linea ha sido modificada por otro usuario desde que se cargó.\r\n¿Desea eliminarla de todos modos?";
constexpr const char* toAccepted = "update DPI set DPI_FAcepta=getdate(), DPI_Orden=24001";

class LineWritingTest : public LabourTest {
  protected:
    void meanwhile(const std::string& statement) { shop.database->execute(statement); }

    void typeNewLine() {
        open();
        press(fields().cmdNuevaLinea);
        set(machine, "10");
        set(minutes, "20");
        form->leaveFocus();
    }
    void typeIntoLine() {
        store(1, "60", "33", "33");
        open();
        press(fields().cmdEditarLinea);
        set(minutes, "120");
        form->leaveFocus();
    }
    std::vector<std::string> typed() {
        std::vector<std::string> all{fields().fraLinea.caption(), fields().cboOperarios.text()};
        for (int i = 0; i <= 8; ++i) {
            all.push_back(line(i).text());
        }
        return all;
    }
    std::string stored() {
        const sql::Recordset rows = shop.database->execute("select * from MoDpi order by MoDpi_Id");
        std::string all = std::to_string(rows.recordCount());
        return rows.hasRows() ? all + " lines, the first of " + rows["MoDpi_Minutos"].toText() : all;
    }
    /// The messages after "Grabar Linea". The line stays open as typed, and nothing is stored.
    std::vector<std::string> refused() {
        const auto before = typed();
        const std::string rows = stored();
        shop.screen.messages.clear();
        press(fields().cmdGrabarLinea);
        EXPECT_EQ(typed(), before);
        EXPECT_EQ(stored(), rows);
        EXPECT_TRUE(fields().fraLinea.enabled());
        EXPECT_TRUE(shop.session.Campos().fields().empty());
        EXPECT_NO_THROW(shop.database->beginTrans()) << "no transaction was left behind";
        shop.database->rollbackTrans();
        return shop.screen.messageTexts();
    }
};

TEST_F(LineWritingTest, ForAProposalThatIsGoneNoLineIsStored) {
    typeNewLine();
    meanwhile("delete from DPI");
    EXPECT_THAT(refused(), ElementsAre(gone));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::critical);
    EXPECT_EQ(shop.query("select count(*) from MoDpi"), "0");
}

TEST_F(LineWritingTest, ForAProposalThatWasAcceptedMeanwhileNoLineIsStoredOrChanged) {
    typeNewLine();
    meanwhile(toAccepted);
    EXPECT_THAT(refused(), ElementsAre(accepted));
    meanwhile("update DPI set DPI_FAcepta=null");
    typeIntoLine();
    meanwhile(toAccepted);
    EXPECT_THAT(refused(), ElementsAre(accepted));
}

TEST_F(LineWritingTest, ALineThatAnotherUserHasDeletedIsNotSaidToBeStored) {
    typeIntoLine();
    meanwhile("delete from MoDpi");
    EXPECT_THAT(refused(), ElementsAre(lineGone));
}

TEST_F(LineWritingTest, ALineThatAnotherUserHasChangedIsWrittenOverOnYesAlone) {
    for (const char* change :
         {"MoDpi_Minutos=61", "MoDpi_Ope=2", "MoDpi_Maq=10", "MoDpi_Pvp=34", "MoDpi_Tiempo=9", "MoDpi_Importe=34"}) {
        meanwhile("delete from MoDpi");
        typeIntoLine();
        meanwhile(std::string("update MoDpi set ") + change);
        shop.screen.queue(Answer::no);
        EXPECT_THAT(refused(), ElementsAre(saveQuestion)) << change;
        shop.screen.queue(Answer::yes);
        press(fields().cmdGrabarLinea);
        EXPECT_EQ(stored(), "1 lines, the first of 120") << change;
        EXPECT_EQ(fields().fraLinea.caption(), "Datos de la Linea");
    }
}

TEST_F(LineWritingTest, ANewLineHasNothingToBeHeldAgainst) {
    store(1, "60", "33", "33");
    typeNewLine();
    meanwhile("update MoDpi set MoDpi_Minutos=61");
    press(fields().cmdGrabarLinea);
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_EQ(stored(), "2 lines, the first of 61");
}

TEST_F(LineWritingTest, AnOwnSaveIsNoChange) {
    typeIntoLine();
    press(fields().cmdGrabarLinea);
    press(fields().cmdEditarLinea);
    set(minutes, "30");
    press(fields().cmdGrabarLinea);
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_EQ(stored(), "1 lines, the first of 30");
}

TEST_F(LineWritingTest, TheProposalThatClosesWhileTheUserReadsIsStillRefused) {
    typeIntoLine();
    meanwhile("update MoDpi set MoDpi_Minutos=61");
    shop.screen.whileOpen = [this](const screen::MessageBox& box) {
        if (box.text == saveQuestion) {
            meanwhile(toAccepted);
        }
    };
    shop.screen.queue(Answer::yes);
    press(fields().cmdGrabarLinea);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(saveQuestion, accepted));
    EXPECT_EQ(stored(), "1 lines, the first of 61");
}

TEST_F(LineWritingTest, ALineIsDeletedOnlyFromAProposalThatIsPending) {
    struct Case {
        const char* deed;
        const char* words;
    };
    store(1, "60", "33", "33");
    for (const Case& each : {Case{toAccepted, accepted}, Case{"delete from DPI", gone}}) {
        open();
        meanwhile(each.deed);
        shop.screen.messages.clear();
        shop.screen.queue(Answer::yes);
        press(fields().cmdEliminarLinea);
        ASSERT_EQ(shop.screen.messages.size(), 2u);
        EXPECT_EQ(shop.screen.messages[1].text, each.words);
        EXPECT_EQ(stored(), "1 lines, the first of 60");
    }
}

TEST_F(LineWritingTest, ALineThatAnotherUserHasChangedIsDeletedOnASecondYesAlone) {
    store(1, "60", "33", "33");
    open();
    meanwhile("update MoDpi set MoDpi_Minutos=61");
    shop.screen.queue(Answer::yes);
    shop.screen.queue(Answer::no);
    press(fields().cmdEliminarLinea);
    EXPECT_EQ(shop.screen.messages.back().text, deleteQuestion);
    EXPECT_EQ(stored(), "1 lines, the first of 61");
    shop.screen.queue(Answer::yes);
    shop.screen.queue(Answer::yes);
    press(fields().cmdEliminarLinea);
    EXPECT_EQ(stored(), "0");
    EXPECT_EQ(fields().DataGrid1.rowCount(), 0u);
}

TEST_F(LineWritingTest, ALineThatIsGoneIsTold) {
    store(1, "60", "33", "33");
    open();
    meanwhile("delete from MoDpi");
    shop.screen.queue(Answer::yes);
    press(fields().cmdEliminarLinea);
    EXPECT_EQ(shop.screen.messages.back().text, lineGone);
}

TEST_F(LineWritingTest, WhatTheDatabaseRefusesLeavesNoTransactionOpen) {
    typeNewLine();
    for (const char* statement : {"Select DPI_FAcepta", "INSERT INTO MoDpi"}) {
        shop.connection.refuse(statement, sql::provider::failure, "Sin sitio");
        EXPECT_THROW(press(fields().cmdGrabarLinea), sql::DbError);
        EXPECT_NO_THROW(shop.database->beginTrans());
        shop.database->rollbackTrans();
        EXPECT_EQ(line(minutes).text(), "20");
    }
    press(fields().cmdGrabarLinea);
    EXPECT_EQ(stored(), "1 lines, the first of 20");
}

TEST(LineWritingBrokenTest, WhatIsNoRunTimeErrorIsRolledBackToo) {
    support::ProposalWorkshop shop;
    shop.database->execute("INSERT INTO DPI (DPI_Tipo) VALUES (0)");
    LineWriting writing(shop.session, shop.screen, shop.clock);
    EXPECT_THROW(writing.run({.nIdDpi = 1, .question = ""}, [] { throw std::runtime_error("broken"); }),
                 std::runtime_error);
    shop.faults.breakOn("Select DPI_FAcepta");
    EXPECT_THROW(writing.run({.nIdDpi = 1, .question = ""}, [] {}), std::runtime_error);
    EXPECT_NO_THROW(shop.database->beginTrans()) << "no transaction was left behind";
}

}  // namespace
}  // namespace velmora::labour
