#include "velmora/proposal/buttons.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using support::ProposalWorkshop;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ButtonsTest : public ::testing::Test {
  protected:
    /// A stored proposal, looked at read-only on a new form.
    void lookAtStored() {
        workshop.saveNewProposal();
        workshop.openAnew();
        ASSERT_TRUE(workshop.form().msCargarPresupuesto(1, false));
        workshop.connection.clear();
        workshop.screen.messages.clear();
    }

    ProposalWorkshop workshop;
};

TEST_F(ButtonsTest, WithNothingToSaveOnlyLeavingAndPrintingAreLeft) {
    workshop.form().msCancelarBotones();
    for (const char* off : {"XPGrabar", "cmdCambios", "cmdDuplicar", "cmdeliminarrPropuesta"}) {
        EXPECT_FALSE(workshop.enabled(off)) << off;
    }
    EXPECT_TRUE(workshop.enabled("XPImprime"));
    EXPECT_TRUE(workshop.enabled("XPSalir"));
    workshop.form().bConsulta = true;
    workshop.form().msCancelarBotones();
    EXPECT_FALSE(workshop.enabled("XPImprime"));
}

TEST_F(ButtonsTest, OnAReadOnlyFormF5ChangesNothingAndShowsNothing) {
    lookAtStored();
    EXPECT_TRUE(workshop.enabled("XPGrabar")) << "it is the customer's field that stops the save";
    workshop.key(screen::Key::f5);
    EXPECT_THAT(workshop.screen.messages, IsEmpty());
    EXPECT_THAT(workshop.connection.log(), IsEmpty());
    EXPECT_THAT(workshop.errors, IsEmpty());
}

TEST_F(ButtonsTest, ChangesOpenAReadOnlyProposalForEditing) {
    lookAtStored();
    EXPECT_FALSE(workshop.enabled("txtPesu(0)"));
    workshop.press("cmdCambios");
    for (const char* on :
         {"txtPesu(0)", "Text1(0)", "Text4(1)", "txtObservaciones", "cboMatDisco", "cboMatCubo", "cmdManoObra"}) {
        EXPECT_TRUE(workshop.enabled(on)) << on;
    }
    for (const char* off : {"Text1(20)", "Text1(21)", "Text1(23)", "txtPesu(3)", "txtPesu(4)", "txtPesu(6)",
                            "txtPesu(13)", "cboTipoPre", "cmdEng"}) {
        EXPECT_FALSE(workshop.enabled(off)) << off;
    }
    EXPECT_THAT(workshop.connection.logged("select * from DPI"), ElementsAre("select * from DPI where DPI_ID=1"));
}

TEST_F(ButtonsTest, AProposalWithAWorkOrderStaysReadOnly) {
    lookAtStored();
    workshop.fields().txtPesu(6).setText("88");
    workshop.press("cmdCambios");
    EXPECT_FALSE(workshop.enabled("txtPesu(0)"));
    EXPECT_THAT(workshop.connection.log(), IsEmpty());
}

TEST_F(ButtonsTest, ANewProposalMayPressChangesToo) {
    workshop.enterToothing();
    const std::string total = workshop.text("txtPesu(7)");
    workshop.connection.clear();
    workshop.press("cmdCambios");
    EXPECT_TRUE(workshop.enabled("txtPesu(0)"));
    EXPECT_FALSE(workshop.enabled("txtPesu(3)"));
    EXPECT_TRUE(workshop.enabled("cboMatCre"));
    EXPECT_THAT(workshop.connection.logged("select * from DPI"), IsEmpty());
    EXPECT_EQ(workshop.text("txtPesu(7)"), total);
}

TEST_F(ButtonsTest, AnAcceptedProposalOpensItsFieldsAndKeepsItsLists) {
    workshop.saveNewProposal();
    workshop.database->execute("UPDATE DPI SET DPI_FAcepta=getdate() WHERE DPI_Id=1");
    workshop.openAnew();
    workshop.form().msCargarPresupuesto(1, false);
    EXPECT_FALSE(workshop.enabled("cmdCambios"));
    // Nothing but code can press it now.
    dynamic_cast<screen::Button&>(workshop.control("cmdCambios")).onClick();
    EXPECT_FALSE(workshop.enabled("cmdCambios"));
    EXPECT_FALSE(workshop.enabled("cboTipoPre"));
    EXPECT_FALSE(workshop.enabled("cboDobles"));
    EXPECT_TRUE(workshop.enabled("txtPesu(0)"));
    EXPECT_TRUE(workshop.enabled("cmdManoObra"));
    workshop.screen.messages.clear();
    workshop.key(screen::Key::f5);
    EXPECT_THAT(workshop.screen.messages, IsEmpty()) << "and still it is not saved";
}

TEST_F(ButtonsTest, ChangesShowTheTypeAgain) {
    // The reset of the presentation is seen: a caption that somebody else wrote is written over.
    workshop.fields().Label1(13).setCaption("x");
    workshop.press("cmdCambios");
    EXPECT_EQ(workshop.text("Label1(13)"), "Ancho cubo");
    EXPECT_TRUE(workshop.visible("fraCubo"));
}

TEST_F(ButtonsTest, ChangesDoNotLeaveTheHubAsItWasHidden) {
    workshop.fields().fraCubo.setVisible(false);
    workshop.fields().Text1(16).setVisible(false);
    workshop.press("cmdCambios");
    EXPECT_TRUE(workshop.visible("fraCubo")) << "hub and disc are shown again as for the type";
    EXPECT_TRUE(workshop.visible("Text1(16)"));
}

TEST_F(ButtonsTest, TypesWhoseWidthsComeFromTheirTableKeepThemDisabled) {
    struct Case {
        int type;
        bool widths;
        bool gear;
    };
    const std::vector<Case> cases{{0, true, false}, {4, false, false}, {12, false, false}, {14, false, false},
                                  {8, true, true},  {9, true, true},   {1, true, false}};
    for (const Case& each : cases) {
        workshop.openAnew();
        workshop.fields().cboTipoPre.setListIndex(each.type);
        workshop.press("cmdCambios");
        for (const char* width : {"Text1(17)", "Text1(9)"}) {
            EXPECT_EQ(workshop.enabled(width), each.widths) << width << " of type " << each.type;
        }
        if (!each.widths) {
            EXPECT_FALSE(workshop.enabled("Text1(5)")) << each.type;
        }
        EXPECT_EQ(workshop.enabled("cmdEng"), each.gear) << each.type;
    }
}

TEST_F(ButtonsTest, ChangesOnARackGiveTheRemarksTheFocus) {
    workshop.fields().cboTipoPre.setListIndex(13);
    workshop.press("cmdCambios");
    EXPECT_EQ(workshop.focused(), "txtObservaciones");
}

TEST_F(ButtonsTest, ALoadTurnsTheLabourButtonOffAndChangesTurnItOn) {
    lookAtStored();
    EXPECT_FALSE(workshop.enabled("cmdManoObra"));
    EXPECT_TRUE(workshop.enabled("cmdCambios"));
    workshop.press("cmdCambios");
    EXPECT_TRUE(workshop.enabled("cmdManoObra"));
}

TEST_F(ButtonsTest, TheLabourButtonIsNotLeftOnForAPendingProposal) {
    workshop.saveNewProposal();
    EXPECT_TRUE(workshop.enabled("txtPesu(0)")) << "it can be edited, so labour could be entered";
    EXPECT_FALSE(workshop.enabled("cmdManoObra"));
}

}  // namespace
}  // namespace velmora::proposal
