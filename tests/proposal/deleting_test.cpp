#include <gmock/gmock.h>

#include "labour/staff.h"
#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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
    EXPECT_NE(shop.query("select count(*) from MoDpi"), "0");
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

}  // namespace
}  // namespace velmora::proposal
