#include <gmock/gmock.h>

#include "velmora/platform/runtime/text.h"

#include "support/proposal_workshop.h"
#include "support/staff.h"

namespace velmora::proposal {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DuplicatingTest : public ::testing::Test {
  protected:
    DuplicatingTest() {
        support::addStaff(*shop.database);
        shop.saveNewProposal();
        forget();
    }

    void forget() {
        shop.screen.messages.clear();
        shop.connection.clear();
    }
    void duplicate() {
        shop.screen.queue(screen::Answer::yes);
        shop.key(screen::Key::f6);
    }
    /// A line of proposal 1.
    void store(int idOperator, int machine, const char* rest = "45.5,20,0.7583,15.17") {
        shop.database->execute(
            "INSERT INTO MoDpi (MoDpi_Dpi,MoDpi_Ope,MoDpi_Maq,MoDpi_Minutos,MoDpi_Pvp,MoDpi_Tiempo,"
            "MoDpi_Importe) VALUES (1," +
            std::to_string(idOperator) + "," + std::to_string(machine) + "," + rest + ")");
    }
    std::string ofCopy(const std::string& column) {
        return shop.query("select " + column + " from DPI where DPI_Id=2");
    }
    std::string ofLine(const std::string& column) {
        return shop.query("select " + column + " from MoDpi where MoDpi_Dpi=2");
    }

    support::ProposalWorkshop shop;
};

TEST_F(DuplicatingTest, TheCopyIsANewPendingProposalThatCanBeEdited) {
    shop.database->execute("update DPI set DPI_Orden=24001 where DPI_Id=1");
    duplicate();
    ASSERT_THAT(shop.screen.messageTexts(),
                ElementsAre("Seguro que desea duplicar esta propuesta", "Propuesta duplicada satisfactoriamente"));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::information);
    EXPECT_EQ(shop.screen.messages[0].buttons, screen::Buttons::yesNo);
    EXPECT_EQ(shop.screen.messages[1].icon, screen::Icon::information);
    EXPECT_EQ(shop.text("txtPesu(3)"), "2");
    EXPECT_EQ(shop.text("txtPesu(4)"), "15/01/2026");
    EXPECT_EQ(ofCopy("DPI_Orden"), "NULL");
    EXPECT_EQ(ofCopy("DPI_FAcepta"), "NULL");
    EXPECT_TRUE(shop.enabled("txtPesu(0)"));
    shop.set("txtPesu(11)", "5");
    shop.key(screen::Key::f5);
    EXPECT_EQ(ofCopy("DPI_Unidades"), "5");
    EXPECT_EQ(shop.query("select DPI_Unidades from DPI where DPI_Id=1"), "3");
}

TEST_F(DuplicatingTest, EveryOtherColumnIsTheOriginals) {
    shop.database->execute(
        "update DPI set DPI_Obser=N'con ''comillas'', y coma', DPI_FPedCliente='2026-01-05T00:00:00' "
        "where DPI_Id=1");
    duplicate();
    const sql::Recordset original = shop.database->execute("select * from DPI where DPI_Id=1");
    const sql::Recordset copy = shop.database->execute("select * from DPI where DPI_Id=2");
    ASSERT_TRUE(copy.hasRows());
    for (std::size_t i = 0; i < copy.columns().size(); ++i) {
        const std::string name = runtime::UCase(copy.columns()[i].name);
        if (name != "DPI_ID" && name != "DPI_FECHA" && name != "DPI_ORDEN" && name != "DPI_FACEPTA") {
            EXPECT_EQ(copy[i], original[i]) << name;
        }
    }
}

TEST_F(DuplicatingTest, ATextThatReadsLikeANumberStaysAText) {
    shop.database->execute("update DPI set DPI_RefCli=N'00123', DPI_ProTex=N'1,5' where DPI_Id=1");
    duplicate();
    EXPECT_EQ(ofCopy("DPI_RefCli"), "00123");
    EXPECT_EQ(ofCopy("DPI_ProTex"), "1,5");
}

TEST_F(DuplicatingTest, AHostsBitColumnIsCopiedAsABit) {
    shop.database->execute("ALTER TABLE DPI ADD DPI_Marca bit NULL");
    shop.database->execute("update DPI set DPI_Marca=1 where DPI_Id=1");
    duplicate();
    EXPECT_EQ(shop.database->execute("select DPI_Marca from DPI where DPI_Id=2")[0], sql::Value(true));
}

TEST_F(DuplicatingTest, NumbersAreCopiedWithTwoDecimals) {
    shop.database->execute("update DPI set DPI_Pas=9.525 where DPI_Id=1");
    duplicate();
    EXPECT_EQ(ofCopy("DPI_Pas"), "9,53");
}

TEST_F(DuplicatingTest, ALineOfTheMachinesOwnOperatorTakesTodaysRate) {
    store(1, 10);
    duplicate();
    EXPECT_THAT(shop.connection.logged("insert into modpi"),
                ElementsAre("insert into modpi "
                            "(MoDpi_Dpi,MoDpi_Ope,MoDpi_Maq,MoDpi_Minutos,MoDpi_Pvp,MoDpi_Tiempo,MoDpi_Importe) values "
                            "(2,1,10,45.5,30,0.7583,22.75)"));
    EXPECT_THAT(shop.connection.logged("OPE_VENTA"),
                ElementsAre("select top 1 OPE_VENTA from ope where ope_mad = 10 and ope_id = 1"));
    EXPECT_EQ(shop.query("select MoDpi_Importe from MoDpi where MoDpi_Dpi=1"), "15,17") << "the original's stays";
}

TEST_F(DuplicatingTest, ALineWhoseMachineIsNoLongerPricedKeepsItsOldPrice) {
    store(1, 10);
    shop.database->execute("update OPE set OPE_VENTA=0 where OPE_ID=1");
    duplicate();
    EXPECT_EQ(ofLine("MoDpi_Pvp"), "20");
    EXPECT_EQ(ofLine("MoDpi_Importe"), "15,17");
}

TEST_F(DuplicatingTest, ALineOfAnOperatorWhoIsGoneKeepsItsOldPrice) {
    store(9, 77);
    duplicate();
    EXPECT_EQ(ofLine("MoDpi_Pvp"), "20");
    EXPECT_EQ(ofLine("MoDpi_Tiempo"), "0,7583");
}

TEST_F(DuplicatingTest, ThePriceOfAnAssignmentIsNotAsked) {
    store(1, 11);  // Ana is assigned to the saw at 33
    duplicate();
    EXPECT_EQ(ofLine("MoDpi_Pvp"), "20");
}

TEST_F(DuplicatingTest, TheLabourOfTheCopyWaitsForTheLabourForm) {
    store(1, 10);
    shop.database->execute("update DPI set DPI_ImpMO=15.17 where DPI_Id=1");
    duplicate();
    EXPECT_EQ(ofCopy("DPI_ImpMO"), "15,17");
    shop.screen.queueModal([](screen::Form&) {});
    shop.key(screen::Key::f1);
    EXPECT_EQ(ofCopy("DPI_ImpMO"), "22,75");
}

TEST_F(DuplicatingTest, ALineWithAGapIsCopiedWithItsGap) {
    shop.database->execute("INSERT INTO MoDpi (MoDpi_Dpi,MoDpi_Maq,MoDpi_Importe) VALUES (1,10,7.5)");
    duplicate();
    EXPECT_EQ(shop.screen.messages.back().text, "Propuesta duplicada satisfactoriamente");
    EXPECT_EQ(ofLine("MoDpi_Ope"), "NULL");
    EXPECT_EQ(ofLine("MoDpi_Importe"), "7,5");
}

TEST_F(DuplicatingTest, EveryLineIsCopied) {
    for (int i = 0; i < 300; ++i) {
        store(1, 10);
    }
    duplicate();
    EXPECT_EQ(shop.query("select count(*) from MoDpi where MoDpi_Dpi=2"), "300");
    EXPECT_EQ(shop.query("select count(*) from MoDpi where MoDpi_Dpi=1"), "300");
}

TEST_F(DuplicatingTest, OnNoNothingIsCopied) {
    shop.screen.queue(screen::Answer::no);
    shop.key(screen::Key::f6);
    EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
}

TEST_F(DuplicatingTest, AnEmptyProposalIsNotAskedFor) {
    shop.openAnew();
    shop.key(screen::Key::f6);
    shop.press("cmdDuplicar");
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(DuplicatingTest, AReadOnlyProposalIsAskedForAndNotCopied) {
    shop.form().msCargarPresupuesto(1, false);
    duplicate();
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre("Seguro que desea duplicar esta propuesta"));
    EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
}

TEST_F(DuplicatingTest, TheKeyDoesNothingWhileTheButtonIsOff) {
    shop.form().msCancelarBotones();
    shop.key(screen::Key::f6);
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(DuplicatingTest, WithoutACustomerItIsRefused) {
    shop.set("txtPesu(1)", "");
    duplicate();
    EXPECT_EQ(shop.screen.messages.back().text, "Error Falta Cliente");
    EXPECT_EQ(shop.screen.messages.back().icon, screen::Icon::critical);
    EXPECT_EQ(shop.focused(), "txtPesu(0)");
    EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
}

TEST_F(DuplicatingTest, WithoutUnitsItIsRefused) {
    shop.set("txtPesu(11)", "0");
    duplicate();
    EXPECT_EQ(shop.screen.messages.back().text, "Error Falta indicar el numero de unidades");
    EXPECT_EQ(shop.focused(), "txtPesu(11)");
}

TEST_F(DuplicatingTest, AProposalThatIsGoneIsNotSaidToBeDuplicated) {
    shop.database->execute("delete from DPI");
    duplicate();
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(sql::provider::noTransaction));
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre("Seguro que desea duplicar esta propuesta"));
    EXPECT_FALSE(shop.fields().bCargandoPropuesta);
}

TEST_F(DuplicatingTest, ARefusedInsertShowsTheRefusalAndKeepsTheFormOnTheOriginal) {
    shop.connection.refuse("INSERT INTO DPI", sql::provider::failure, "Sin sitio");
    duplicate();
    EXPECT_EQ(shop.screen.messages.back().text, "Error en la grabacion del registro:\r\nSin sitio");
    EXPECT_EQ(shop.form().tag(), "E");
    EXPECT_EQ(shop.text("txtPesu(3)"), "1");
    EXPECT_THAT(shop.connection.logged("ROLLBACK"), ElementsAre("ROLLBACK"));
}

TEST_F(DuplicatingTest, WhateverStatementFailsNothingRemains) {
    store(1, 10);
    store(9, 77);
    const auto fields = shop.texts();
    int failures = 0;
    for (int at = 0;; ++at) {
        forget();
        shop.errors.clear();
        shop.faults.failAt(at);
        duplicate();
        shop.faults.count();
        ASSERT_LT(at, 40) << "the copy never ends";
        if (shop.query("select count(*) from DPI") == "2") {
            break;
        }
        ++failures;
        ASSERT_EQ(shop.query("select count(*) from DPI"), "1") << "operation " << at;
        ASSERT_EQ(shop.query("select count(*) from MoDpi"), "2") << "operation " << at;
        EXPECT_EQ(shop.text("txtPesu(3)"), "1") << "operation " << at;
        EXPECT_EQ(shop.texts(), fields) << "operation " << at;
        EXPECT_FALSE(shop.fields().bCargandoPropuesta);
        EXPECT_TRUE(shop.form().enabled());
        EXPECT_TRUE(shop.session.Campos().fields().empty());
        if (at > 0) {
            EXPECT_EQ(shop.screen.messages.back().text, "Error en la grabacion del registro:\r\nFallo provocado");
        }
    }
    // The row, the begin, the insert, the number, the date, the lines, two of each line, the commit.
    EXPECT_EQ(failures, 11);
    EXPECT_EQ(shop.query("select count(*) from MoDpi"), "4");
}

TEST_F(DuplicatingTest, ACopyThatDoesNotLoadLeavesTheOriginalOnTheForm) {
    shop.set("txtPesu(2)", "lo escrito");
    shop.leave();
    const auto fields = shop.texts();
    shop.database->execute("delete from PARDPI where PARDPI_DISCO=1");
    duplicate();
    EXPECT_EQ(shop.query("select count(*) from DPI"), "2");
    EXPECT_EQ(shop.screen.messages.back().text, "Error, no se encuentra el indice del material para el disco");
    EXPECT_EQ(shop.texts(), fields) << "under its own number";

    shop.connection.refuse("select * from DPI where DPI_ID=3");
    duplicate();
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(sql::provider::failure));
    EXPECT_EQ(shop.texts(), fields);
}

TEST(DuplicatingBrokenTest, WhatIsNoRunTimeErrorIsRolledBackToo) {
    for (const char* broken : {"INSERT INTO DPI", "SELECT DPI_Fecha", "FROM moDPI"}) {
        support::ProposalWorkshop shop;
        shop.saveNewProposal();
        const auto fields = shop.texts();
        shop.faults.breakOn(broken);
        shop.screen.queue(screen::Answer::yes);
        EXPECT_THROW(shop.key(screen::Key::f6), std::runtime_error);
        shop.faults.restore();
        EXPECT_EQ(shop.texts(), fields);
        EXPECT_FALSE(shop.fields().bCargandoPropuesta);
        EXPECT_TRUE(shop.session.Campos().fields().empty());
        EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
        EXPECT_NO_THROW(shop.database->beginTrans()) << "no transaction was left behind";
    }
}

}  // namespace
}  // namespace velmora::proposal
