#include <gmock/gmock.h>

#include "velmora/labour/frm_mano_obra.h"
#include "velmora/platform/runtime/numbers.h"

#include "support/proposal_workshop.h"
#include "support/staff.h"

namespace velmora::proposal {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LabourStepTest : public ::testing::Test {
  protected:
    LabourStepTest() { support::addStaff(*shop.database); }

    /// What a person does in the labour form, typed: the fields by their control.
    static void addLine(screen::Form& form, std::string_view machine, std::string_view minutes) {
        auto& fields = dynamic_cast<labour::frmManoObra&>(form).fields();
        fields.cmdNuevaLinea.onClick();
        fields.txtLinea(0).setText(machine);
        form.moveFocus(fields.txtLinea(6), screen::Form::Insist::yes);
        fields.txtLinea(6).setText(minutes);
        form.moveFocus(fields.cmdGrabarLinea, screen::Form::Insist::yes);
        fields.cmdGrabarLinea.onClick();
    }
    void oneLine(std::string_view machine, std::string_view minutes) {
        shop.screen.queueModal([=](screen::Form& form) { addLine(form, machine, minutes); });
        shop.key(screen::Key::f1);
    }
    void accept(const char* order) {
        shop.database->execute(std::string("update DPI set DPI_FAcepta=getdate(), DPI_Orden=") + order);
        shop.openAnew().msCargarPresupuesto(1, false);
    }

    support::ProposalWorkshop shop;
};

TEST_F(LabourStepTest, AProposalWithoutNumberIsSavedSilentlyBeforeItsLinesAreKept) {
    shop.enterToothing();
    shop.enterCustomerAndUnits();
    std::string caption;
    shop.screen.queueModal([&](screen::Form& form) {
        caption = form.caption();
        EXPECT_EQ(form.name(), "frmManoObra");
    });
    shop.key(screen::Key::f1);
    EXPECT_EQ(caption, "Calculo de Mano de Obra para la propuesta nº 1");
    EXPECT_EQ(shop.text("txtPesu(3)"), "1");
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(LabourStepTest, ARefusedSaveOpensNoLinesAndIsSaidOnce) {
    shop.enterToothing();
    shop.connection.clear();
    shop.key(screen::Key::f1);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre("Error Falta Cliente"));
    EXPECT_THAT(shop.connection.logged("modpi"), IsEmpty());
    EXPECT_EQ(shop.query("select count(*) from DPI"), "0");
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(LabourStepTest, TheSumComesBackThroughTheDatabaseIntoThePrice) {
    shop.saveNewProposal();
    const double before = runtime::CDbl(shop.text("txtPesu(10)"));
    oneLine("10", "90");
    EXPECT_EQ(shop.text("txtPesu(8)"), "45");
    EXPECT_DOUBLE_EQ(runtime::CDbl(shop.text("txtPesu(10)")), runtime::Redondear(before + 45, 2));
    EXPECT_EQ(shop.query("select DPI_ImpMO from DPI"), "45");
    EXPECT_EQ(shop.query("select DPI_ImpTP from DPI"), shop.text("txtPesu(10)"));
    EXPECT_EQ(runtime::CDbl(shop.text("txtPesu(12)")), runtime::Redondear((before + 45) * 3, 2));
    EXPECT_EQ(shop.focused(), "txtPesu(9)");
}

TEST_F(LabourStepTest, LinesOfAnotherProposalDoNotCount) {
    shop.saveNewProposal();
    shop.database->execute("INSERT INTO MoDpi (MoDpi_Dpi,MoDpi_Importe) VALUES (2,1000)");
    shop.screen.queueModal([](screen::Form&) {});
    shop.key(screen::Key::f1);
    EXPECT_EQ(shop.text("txtPesu(8)"), "0");
}

TEST_F(LabourStepTest, WhatWasTypedSinceTheLastSaveIsLost) {
    shop.saveNewProposal();
    shop.set("txtPesu(2)", "REF-9");
    oneLine("10", "90");
    EXPECT_EQ(shop.text("txtPesu(2)"), "");
}

TEST_F(LabourStepTest, TheSawChargeIsSpreadOverTheUnits) {
    shop.saveNewProposal();
    shop.set("txtPesu(14)", "6");
    shop.set("txtPesu(9)", "1");
    shop.leave();
    shop.key(screen::Key::f5);
    const double whole = runtime::CDbl(shop.text("txtPesu(10)"));
    oneLine("10", "90");
    EXPECT_DOUBLE_EQ(runtime::CDbl(shop.text("txtPesu(10)")), runtime::Redondear(whole + 45 - 6 + 2, 2))
        << "6 a piece before, 6 for three pieces now";
}

TEST_F(LabourStepTest, TheStatementsStandInTheirOrder) {
    shop.saveNewProposal();
    shop.connection.clear();
    shop.screen.queueModal([](screen::Form&) {});
    shop.key(screen::Key::f1);
    const auto sums = shop.connection.logged("sum(modpi_importe)");
    EXPECT_THAT(sums, ElementsAre("Select isnull(sum(modpi_importe),0) as Importe from modpi where modpi_dpi = 1",
                                  "Select isnull(sum(modpi_importe),0) as Importe from modpi where modpi_dpi = 1"));
    // Loaded again after the form, after the save, and by the second return to editing.
    EXPECT_EQ(shop.connection.logged("select * from DPI where DPI_ID=1").size(), 3u);
    EXPECT_EQ(shop.connection.logged("UPDATE DPI").size(), 1u);
}

TEST_F(LabourStepTest, AnAcceptedProposalShowsItsLinesAndLetsNothingChange) {
    shop.saveNewProposal();
    accept("24001");
    bool looked = false;
    shop.screen.queueModal([&](screen::Form& form) {
        auto& fields = dynamic_cast<labour::frmManoObra&>(form).fields();
        looked = true;
        EXPECT_FALSE(fields.cmdNuevaLinea.enabled());
        EXPECT_FALSE(fields.cmdEditarLinea.enabled());
        EXPECT_FALSE(fields.cmdEliminarLinea.enabled());
        EXPECT_FALSE(fields.fraAcciones.enabled());
        EXPECT_FALSE(fields.fraLinea.enabled());
        EXPECT_TRUE(fields.cmdSalir.isEnabled());
    });
    shop.press("cmdManoObra");
    EXPECT_TRUE(looked);
    EXPECT_EQ(shop.query("select count(*) from DPI where DPI_FAcepta is null"), "0");
}

TEST_F(LabourStepTest, TheKeyDoesNothingOnAFormThatIsReadOnly) {
    shop.saveNewProposal();
    accept("24001");
    shop.key(screen::Key::f1);
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(LabourStepTest, TheKeyWorksWhereALoadHasDisabledTheButton) {
    shop.saveNewProposal();
    EXPECT_FALSE(shop.enabled("cmdManoObra"));
    oneLine("10", "60");
    EXPECT_EQ(shop.text("txtPesu(8)"), "30");
    EXPECT_TRUE(shop.enabled("cmdManoObra"));
}

TEST_F(LabourStepTest, AFailedListReachesTheUserAndTheFormGoesOn) {
    shop.saveNewProposal();
    shop.connection.refuse("from modpi");
    shop.key(screen::Key::f1);
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(sql::provider::failure));
    EXPECT_TRUE(shop.form().enabled());
    oneLine("10", "60");
    EXPECT_EQ(shop.text("txtPesu(8)"), "30");
}

// ---- What another user does meanwhile ---------------------------------------------------------------------------

class LabourMeanwhileTest : public LabourStepTest {
  protected:
    static constexpr const char* accepted =
        "Error en la actualizacion del registro\r\nEl presupuesto ya fue aceptado, orden de trabajo nº 24001";
    static constexpr const char* gone =
        "Error en la actualizacion del registro\r\nEl presupuesto ya no existe, otro usuario lo ha eliminado";
    static constexpr const char* toAccepted = "update DPI set DPI_FAcepta=getdate(), DPI_Orden=24001";

    LabourMeanwhileTest() {
        shop.saveNewProposal();
        shop.set("txtPesu(2)", "lo escrito");
        shop.set("txtExtra", "y más");
        shop.leave();
        shop.screen.messages.clear();
        shop.connection.clear();
    }
    /// F1, and what another user does while the labour form is open.
    void whileOpen(const std::string& statement) {
        shop.screen.queueModal([=, this](screen::Form&) { shop.database->execute(statement); });
        shop.key(screen::Key::f1);
    }
};

TEST_F(LabourMeanwhileTest, AProposalAcceptedOrDeletedMeanwhileTakesNoSumAndLosesNothingTyped) {
    struct Case {
        const char* deed;
        const char* words;
    };
    for (const Case& each : {Case{toAccepted, accepted}, Case{"delete from DPI", gone}}) {
        const auto typed = shop.texts();
        shop.screen.messages.clear();
        shop.connection.clear();
        whileOpen(each.deed);
        EXPECT_THAT(shop.screen.messageTexts(), ElementsAre(each.words));
        EXPECT_EQ(shop.texts(), typed);
        EXPECT_THAT(shop.connection.logged("UPDATE DPI"), IsEmpty());
        EXPECT_THAT(shop.errors, IsEmpty());
        EXPECT_TRUE(shop.form().enabled());
        shop.database->execute("update DPI set DPI_FAcepta=null, DPI_Orden=null");
    }
}

TEST_F(LabourMeanwhileTest, OneAcceptedRightBeforeItIsLoadedAgainTakesNoSumEither) {
    shop.screen.onEvents = [this] { shop.database->execute(toAccepted); };
    whileOpen("update MoDpi set MoDpi_Importe=0");
    EXPECT_EQ(shop.screen.messages.back().text, accepted);
    EXPECT_THAT(shop.connection.logged("UPDATE DPI"), IsEmpty());
}

TEST_F(LabourMeanwhileTest, WhatAnotherUserHasSavedMeanwhileComesWithTheReloadAndIsNotAskedFor) {
    whileOpen("update DPI set DPI_RefCli=N'de otro'");
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_EQ(shop.text("txtPesu(2)"), "de otro");
    EXPECT_EQ(shop.query("select DPI_RefCli from DPI"), "de otro");
}

TEST_F(LabourMeanwhileTest, OnNoTheSumStaysOnTheFormAndUnsaved) {
    shop.database->execute(
        "INSERT INTO MoDpi (MoDpi_Dpi,MoDpi_Ope,MoDpi_Maq,MoDpi_Minutos,MoDpi_Pvp,MoDpi_Tiempo,MoDpi_Importe) VALUES "
        "(1,1,10,90,30,1.5,45)");
    /// Another user saves between the reload and the save with the sum.
    class Intruder final : public screen::FormObserver {
      public:
        explicit Intruder(support::ProposalWorkshop& shop) : shop_(shop) { shop_.form().addObserver(*this); }
        ~Intruder() override { shop_.form().removeObserver(*this); }
        Intruder(const Intruder&) = delete;
        Intruder& operator=(const Intruder&) = delete;
        void controlChanged(screen::Control& control, screen::Property) override {
            if (control.fullName() == "txtPesu(8)" && shop_.text("txtPesu(8)") == "45") {
                shop_.database->execute("update DPI set DPI_RefCli=N'de otro'");
            }
        }
        void formChanged() override {}
        void focusMoved(screen::Control*) override {}

      private:
        support::ProposalWorkshop& shop_;
    } const intruder(shop);
    shop.screen.queue(screen::Answer::no);
    shop.screen.queueModal([](screen::Form&) {});
    shop.key(screen::Key::f1);
    ASSERT_EQ(shop.screen.messages.size(), 1u);
    EXPECT_EQ(shop.screen.messages[0].buttons, screen::Buttons::yesNo);
    EXPECT_EQ(shop.text("txtPesu(8)"), "45");
    EXPECT_EQ(shop.query("select DPI_ImpMO from DPI"), "0");
    EXPECT_EQ(shop.query("select DPI_RefCli from DPI"), "de otro");
}

TEST_F(LabourMeanwhileTest, OneThatWasAcceptedBeforeIsNotToldAgain) {
    accept("24001");
    shop.screen.messages.clear();
    shop.screen.queueModal([](screen::Form&) {});
    shop.press("cmdManoObra");
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

}  // namespace
}  // namespace velmora::proposal
