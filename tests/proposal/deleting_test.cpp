#include <gmock/gmock.h>

#include "support/proposal_workshop.h"
#include "support/staff.h"

namespace velmora::proposal {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSubsetOf;

class DeletingTest : public ::testing::Test {
  protected:
    DeletingTest() {
        shop.saveNewProposal();
        shop.screen.messages.clear();
        shop.connection.clear();
    }

    support::ProposalWorkshop shop;
};

TEST_F(DeletingTest, OnYesTheProposalIsGoneAndTheFormIsANewOne) {
    shop.screen.queue(screen::Answer::yes);
    shop.key(screen::Key::f9);
    ASSERT_THAT(shop.screen.messageTexts(), ElementsAre("realmente desea eliminar el presupuesto nº 1"));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::exclamation);
    EXPECT_EQ(shop.screen.messages[0].buttons, screen::Buttons::yesNo);
    EXPECT_THAT(shop.connection.logged("delete"), ElementsAre("delete from dpi where dpi_id = 1"));
    EXPECT_EQ(shop.query("select count(*) from DPI"), "0");
    for (const char* empty : {"txtPesu(0)", "txtPesu(1)", "txtPesu(3)", "txtPesu(4)", "txtPesu(13)"}) {
        EXPECT_EQ(shop.text(empty), "") << empty;
    }
    EXPECT_EQ(shop.text("Text1(7)"), "24,00");
    EXPECT_TRUE(shop.enabled("cboTipoPre"));
    EXPECT_EQ(shop.focused(), "cboTipoPre");
    EXPECT_FALSE(shop.form().isUnloaded());
}

TEST_F(DeletingTest, TheNextProposalIsANewRow) {
    shop.screen.queue(screen::Answer::yes);
    shop.key(screen::Key::f9);
    shop.saveNewProposal();
    EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
    EXPECT_EQ(shop.text("txtPesu(3)"), "2");
}

TEST_F(DeletingTest, TheNewProposalShowsTheMaterialsOfItsTypeWithTheirPrices) {
    struct Row {
        int type;
        const char* disc;
        const char* hub;
        const char* rack;
    };
    for (const Row& row : {Row{0, "1,4", "1,5", "0,00"}, Row{1, "1,4", "0", "0,00"}, Row{4, "1,4", "1,5", "0,00"},
                           Row{13, "1,4", "1,5", "1,2"}}) {
        shop.openAnew();
        shop.choose("cboTipoPre", row.type);
        shop.set("txtPesu(0)", "1001");
        shop.set("txtPesu(11)", "1");
        shop.leave();
        shop.key(screen::Key::f5);
        ASSERT_NE(shop.text("txtPesu(3)"), "") << row.type;
        shop.screen.queue(screen::Answer::yes);
        shop.key(screen::Key::f9);
        ASSERT_EQ(shop.text("txtPesu(3)"), "") << row.type;
        EXPECT_EQ(shop.text("txtPesu(21)"), row.disc) << row.type;
        EXPECT_EQ(shop.text("txtPesu(24)"), row.hub) << row.type;
        EXPECT_EQ(shop.text("txtPesu(56)"), row.rack) << row.type;
        EXPECT_THAT(shop.errors, IsEmpty()) << row.type;
    }
}

TEST_F(DeletingTest, TheNewPulleyDoesNotKnowTheSecondHubOfTheDeletedOne) {
    shop.openAnew();
    shop.choose("cboTipoPre", 11);
    shop.set("Text1(14)", "22,5");
    shop.set("txtPesu(0)", "1001");
    shop.set("txtPesu(11)", "1");
    shop.set("Text1(14)", "20");
    shop.key(screen::Key::f5);
    ASSERT_TRUE(shop.fields().secondHubIsKnown());
    shop.screen.queue(screen::Answer::yes);
    shop.key(screen::Key::f9);
    EXPECT_EQ(shop.text("Text1(14)"), "0,00");
    EXPECT_FALSE(shop.fields().secondHubIsKnown());
}

TEST_F(DeletingTest, TheWordsOfTheDeletedPieceAreGone) {
    ASSERT_NE(shop.text("lblFormulaPeso"), "");
    shop.screen.queue(screen::Answer::yes);
    shop.key(screen::Key::f9);
    EXPECT_EQ(shop.text("lblFormulaPeso"), "");
    EXPECT_EQ(shop.text("txtPesu(17)"), "0,00");
}

TEST_F(DeletingTest, OnNoByTheKeyEverythingStays) {
    const auto before = shop.texts();
    shop.screen.queue(screen::Answer::no);
    shop.key(screen::Key::f9);
    EXPECT_THAT(shop.connection.logged("delete"), IsEmpty());
    EXPECT_EQ(shop.texts(), before);
    EXPECT_FALSE(shop.form().isUnloaded());
}

TEST_F(DeletingTest, TheButtonClosesTheFormOnYes) {
    shop.screen.queue(screen::Answer::yes);
    shop.press("cmdeliminarrPropuesta");
    EXPECT_TRUE(shop.form().isUnloaded());
    EXPECT_EQ(shop.query("select count(*) from DPI"), "0");
}

TEST_F(DeletingTest, TheButtonClosesTheFormOnNoToo) {
    shop.screen.queue(screen::Answer::no);
    shop.press("cmdeliminarrPropuesta");
    EXPECT_TRUE(shop.form().isUnloaded());
    EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
}

TEST_F(DeletingTest, AnAcceptedProposalIsRefused) {
    shop.database->execute("update DPI set DPI_FAcepta=getdate()");
    shop.form().msCargarPresupuesto(1, true);
    shop.key(screen::Key::f9);
    ASSERT_THAT(shop.screen.messageTexts(), ElementsAre("Error, No es posible eliminar un presupuesto aceptado"));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::critical);
    EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
}

TEST_F(DeletingTest, WithoutANumberNothingIsAsked) {
    shop.openAnew();
    shop.key(screen::Key::f9);
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(DeletingTest, TheKeyDoesNothingWhileTheButtonIsOff) {
    shop.form().msCancelarBotones();
    shop.key(screen::Key::f9);
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(DeletingTest, LabourLinesStayAndReachNoOtherProposal) {
    shop.database->execute("INSERT INTO MoDpi (MoDpi_Dpi,MoDpi_Importe) VALUES (1,45)");
    shop.screen.queue(screen::Answer::yes);
    shop.key(screen::Key::f9);
    EXPECT_EQ(shop.query("select count(*) from MoDpi where MoDpi_Dpi=1"), "1");
    shop.saveNewProposal();
    shop.screen.queueModal([](screen::Form&) {});
    shop.key(screen::Key::f1);
    EXPECT_EQ(shop.text("txtPesu(3)"), "2");
    EXPECT_EQ(shop.text("txtPesu(8)"), "0");
}

TEST_F(DeletingTest, ARefusedDeletionLeavesTheProposalOnTheForm) {
    shop.connection.refuse("delete from dpi");
    shop.screen.queue(screen::Answer::yes);
    shop.key(screen::Key::f9);
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(sql::provider::failure));
    EXPECT_EQ(shop.text("txtPesu(3)"), "1");
    EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
}

TEST_F(DeletingTest, TheDeletionLooksAtTheRowFirstInItsTransaction) {
    shop.screen.queue(screen::Answer::yes);
    shop.key(screen::Key::f9);
    const auto& log = shop.connection.log();
    ASSERT_GT(log.size(), 5u);
    EXPECT_THAT(std::vector(log.begin(), log.begin() + 5),
                ElementsAre("BEGIN", "Select * from DPI where DPI_Id = 1", "Select max(orden_NUM) FROM ORDEN",
                            "delete from dpi where dpi_id = 1", "COMMIT"));
}

class DeletingMeanwhileTest : public DeletingTest {
  protected:
    DeletingMeanwhileTest() {
        shop.set("txtPesu(2)", "lo escrito");
        shop.leave();
    }
    /// F9 and Yes, then what is said beside the first question. The form stands as it was typed.
    std::vector<std::string> refused(std::initializer_list<screen::Answer> further = {}) {
        const auto typed = shop.texts();
        shop.screen.messages.clear();
        shop.connection.clear();
        shop.screen.queue(screen::Answer::yes);
        for (const screen::Answer answer : further) {
            shop.screen.queue(answer);
        }
        shop.key(screen::Key::f9);
        EXPECT_THAT(shop.errors, IsEmpty());
        EXPECT_THAT(shop.connection.logged("delete"), IsEmpty());
        EXPECT_EQ(shop.texts(), typed);
        EXPECT_TRUE(shop.form().enabled());
        auto said = shop.screen.messageTexts();
        said.erase(said.begin());
        return said;
    }
};

TEST_F(DeletingMeanwhileTest, OneAcceptedSinceItCameOnTheFormStays) {
    shop.database->execute("update DPI set DPI_FAcepta=getdate(), DPI_Orden=24001");
    EXPECT_THAT(refused(), ElementsAre("Error, No es posible eliminar un presupuesto aceptado"));
    EXPECT_EQ(shop.screen.messages.back().icon, screen::Icon::critical);
    EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
}

TEST_F(DeletingMeanwhileTest, OneThatIsGoneIsNotSaidToBeDeleted) {
    shop.database->execute("delete from DPI");
    EXPECT_THAT(refused(), ElementsAre("El presupuesto ya no existe, otro usuario lo ha eliminado"));
    EXPECT_EQ(shop.screen.messages.back().icon, screen::Icon::critical);
}

TEST_F(DeletingMeanwhileTest, TheWorkOfAnotherUserIsDeletedOnASecondYesAlone) {
    const char* changedQuestion =
        "El presupuesto nº 1 ha sido modificado por otro usuario desde que se cargó.\r\n¿Desea eliminarlo de todos "
        "modos?";
    shop.database->execute("update DPI set DPI_Unidades=50");
    EXPECT_THAT(refused({screen::Answer::no}), ElementsAre(changedQuestion));
    EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
    shop.screen.queue(screen::Answer::yes);
    shop.screen.queue(screen::Answer::yes);
    shop.key(screen::Key::f9);
    EXPECT_EQ(shop.query("select count(*) from DPI"), "0");
    EXPECT_EQ(shop.text("txtPesu(3)"), "");
}

TEST_F(DeletingMeanwhileTest, WhatIsWrittenWhileItIsTrackedIsNoWorkOfAnotherUser) {
    shop.database->execute(
        "update DPI set DPI_PedCliente=N'PC-7', DPI_FPedCliente='12/01/2026', DPI_FechaEntrega='30/01/2026'");
    shop.screen.queue(screen::Answer::yes);
    shop.key(screen::Key::f9);
    EXPECT_EQ(shop.query("select count(*) from DPI"), "0");
}

TEST_F(DeletingMeanwhileTest, AnAcceptanceAtWorkIsWaitedForUntilItHasMarkedTheProposal) {
    shop.database->execute("insert into ORDEN (ORDEN_NUM,ORDEN_IdDPI) values (24001,1)");
    shop.screen.onEvents = [this] {
        EXPECT_FALSE(shop.form().enabled()) << "the form takes no entry meanwhile";
        shop.database->execute("update DPI set DPI_FAcepta=getdate(), DPI_Orden=24001");
    };
    EXPECT_THAT(refused(), ElementsAre("Error, No es posible eliminar un presupuesto aceptado"));
}

TEST_F(DeletingMeanwhileTest, TheButtonLeavesTheFormOpenWithWhatWasTyped) {
    shop.database->execute("update DPI set DPI_FAcepta=getdate()");
    shop.screen.queue(screen::Answer::yes);
    shop.press("cmdeliminarrPropuesta");
    EXPECT_FALSE(shop.form().isUnloaded());
    EXPECT_EQ(shop.text("txtPesu(2)"), "lo escrito");
}

TEST(DeletingBrokenTest, WhatIsNoRunTimeErrorIsRolledBackToo) {
    support::ProposalWorkshop shop;
    shop.saveNewProposal();
    shop.faults.breakOn("delete from dpi");
    shop.screen.queue(screen::Answer::yes);
    EXPECT_THROW(shop.key(screen::Key::f9), std::runtime_error);
    EXPECT_TRUE(shop.form().enabled());
    EXPECT_EQ(shop.text("txtPesu(3)"), "1");
    EXPECT_NO_THROW(shop.database->beginTrans()) << "no transaction was left behind";
}

/// Every control that is not enabled, by its name.
std::vector<std::string> disabledControls(proposal::frmBercialPiñones& form) {
    std::vector<std::string> names;
    for (const screen::Control* control : form.controls()) {
        if (!control->enabled()) {
            names.push_back(control->fullName());
        }
    }
    return names;
}

TEST(DeletingStatesTest, TheFormIsAsOpenAsANewOneOnWhichTheTypeWasChosen) {
    for (int type = 0; data::findProductType(type); ++type) {
        SCOPED_TRACE(type);
        support::ProposalWorkshop shop;
        shop.fields().cboTipoPre.setListIndex(type);
        shop.press("cmdCambios");
        const auto whenNew = disabledControls(shop.form());

        shop.database->execute(
            "INSERT INTO DPI (DPI_Tipo,DPI_CodCliente,DPI_NomCliente,DPI_RefCli,DPI_Z,DPI_Pas,DPI_AC,DPI_Rodillo,"
            "DPI_Eje,DPI_Chav,DPI_Pri,DPI_DmPri,DPI_DmFon,DPI_DmExt,DPI_DmCub,DPI_Alt,DPI_AnchoTotal,DPI_Llanta,"
            "DPI_AnchoCubo,DPI_IdParDisco,DPI_IdParCubo,DPI_ArtDisco,DPI_ArtCubo,DPI_DisCortDM,DPI_DisCortAN,"
            "DPI_DisCortPESO,DPI_DisPVE,DPI_DisImporte,DPI_CosteCorteDisco,DPI_FijoSierra,DPI_CubCortDM,DPI_CubCortAN,"
            "DPI_CubCortPESO,DPI_CubPVE,DPI_CubImporte,DPI_ImpMat,DPI_ImpMO,DPI_ImpTS,DPI_ImpVA,DPI_ImpTP,DPI_Unidades,"
            "DPI_Importe,DPI_PDM_Tipo,DPI_PDM_b1,DPI_PDM_x,DPI_PDM_h1,DPI_HERRAMIENTA,Dpi_Modulo) VALUES (" +
            std::to_string(type) + ",1001,N'N',N'',17,12.7,7.75,8.51,25,8,2,69.12,60.61,180,40,7.1,77.7,11.1,33.3," +
            (type == data::rack ? "5" : "1") +
            ",2,11,12,201.5,12.25,3.14,1.4,15.5,4.44,2.5,55.5,44.5,1.23,1.5,9.87,25.37,10,1,2,40.87,3,122.61,1,7.2,6.7,"
            "9.4,N'H7',2)");
        ASSERT_TRUE(shop.openAnew().msCargarPresupuesto(1, false));
        EXPECT_FALSE(shop.enabled("cboDobles"));
        shop.screen.queue(screen::Answer::yes);
        shop.key(screen::Key::f9);
        ASSERT_EQ(shop.query("select count(*) from DPI"), "0");
        EXPECT_THAT(disabledControls(shop.form()), IsSubsetOf(whenNew));
        EXPECT_TRUE(shop.enabled("cboDobles"));
    }
}

}  // namespace
}  // namespace velmora::proposal
