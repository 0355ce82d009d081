#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/proposal/loading.h"

#include "loading_form.h"

namespace velmora::proposal {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What every control holds and shows.
std::vector<std::string> everything(frmBercialPiñones& form) {
    std::vector<std::string> all;
    for (const screen::Control* control : form.controls()) {
        std::string shown = control->fullName() + (control->enabled() ? " on" : " off") +
                            (control->visible() ? " seen " : " hidden ") + control->tag() + " " + control->toolTip() +
                            " " + std::to_string(control->backColor()) + " " + std::to_string(control->foreColor());
        if (const auto* box = dynamic_cast<const screen::TextBox*>(control)) {
            shown += " = " + box->text();
        } else if (const auto* list = dynamic_cast<const screen::ComboBox*>(control)) {
            shown += " = " + std::to_string(list->listIndex()) + " " + list->text();
            for (const std::string& item : list->items()) {
                shown += "|" + item;
            }
        } else if (const auto* tick = dynamic_cast<const screen::CheckBox*>(control)) {
            shown += tick->checked() ? " = on" : " = off";
        } else if (const auto* captioned = dynamic_cast<const screen::Captioned*>(control)) {
            shown += " = " + captioned->caption();
        } else if (const auto* grid = dynamic_cast<const screen::DataGrid*>(control)) {
            shown += " = " + std::to_string(grid->rowCount());
        }
        all.push_back(shown);
    }
    return all;
}

class FailedLoadTest : public LoadingTest {
  protected:
    /// Proposal 1, a double above the one-piece limit. Proposal 2, a small sprocket of other materials, with unsaved
    /// entries on the form.
    FailedLoadTest() {
        store(4, small + ",DPI_PDM_Tipo,DPI_PDM_x,DPI_PDM_b1,DPI_PDM_h1", ",180,4,1,6.6,7.3,9.4");
        store(0, small, ",100,3");
        workshop.database->execute(
            "UPDATE DPI SET DPI_Z=20,DPI_DmPri=81.18,DPI_Acopla=0,DPI_IdParCubo=5 where DPI_Id=2");
        EXPECT_TRUE(workshop.form().msCargarPresupuesto(2, true));
        workshop.set("txtExtra", "lo escrito");
        workshop.set("txtPesu(11)", "7");
        workshop.set("cboHerramienta", "Mandrino");
        workshop.set("Text1(7)", "33");
        workshop.leave();
        workshop.connection.clear();
    }
    /// The form goes on with proposal 2: figures follow entries, and the save writes them to its row.
    void expectProposalTwo(const std::vector<std::string>& before) {
        EXPECT_EQ(everything(workshop.form()), before);
        EXPECT_FALSE(workshop.fields().bCargandoPropuesta);
        EXPECT_TRUE(workshop.form().enabled());
        EXPECT_EQ((*workshop.fields().rsMatDisco)["PARDPI_ID"].toLong(), 3);
        EXPECT_EQ((*workshop.fields().rsMatCubo)["PARDPI_ID"].toLong(), 5);
    }
    std::vector<std::string> everythingNow() { return everything(workshop.form()); }
};

TEST_F(FailedLoadTest, AMaterialThatIsMissingLeavesTheFormAsItWas) {
    struct Case {
        const char* change;
        const char* message;
    };
    const Case cases[] = {
        {"DPI_IdParDisco=99", "Error, no se encuentra el indice del material para el disco"},
        {"DPI_IdParDisco=4,DPI_IdParCubo=99", "Error, no se encuentra el ndice del material para el cubo"},
        {"DPI_Tipo=13", "Error, no se encuentra el indice del material para la cremallera"},
    };
    const auto before = everythingNow();
    for (const Case& each : cases) {
        workshop.database->execute(std::string("UPDATE DPI SET ") + each.change + " where DPI_Id=1");
        for (const bool bEditable : {true, false}) {
            workshop.screen.messages.clear();
            std::vector<std::string> atMessage;
            workshop.screen.whileOpen = [&](const screen::MessageBox&) { atMessage = everythingNow(); };
            EXPECT_FALSE(load(bEditable));
            EXPECT_THAT(messages(), ElementsAre(each.message));
            EXPECT_EQ(atMessage, before) << "no mixture is seen behind the message either";
            expectProposalTwo(before);
        }
    }
}

TEST_F(FailedLoadTest, AMissingGapLeavesTheFormAsItWas) {
    workshop.database->execute("UPDATE DPI SET DPI_PDM_x=null where DPI_Id=1");
    const auto before = everythingNow();
    EXPECT_FALSE(load(true));
    EXPECT_FALSE(load(false));
    EXPECT_THAT(messages(), IsEmpty());
    expectProposalTwo(before);
}

TEST_F(FailedLoadTest, AnErrorAtAnyStatementLeavesTheFormAsItWas) {
    workshop.faults.count();
    ASSERT_TRUE(load(true));
    const int statements = workshop.faults.operations();
    ASSERT_GT(statements, 8);
    int failed = 0;
    for (int statement = 0; statement < statements; ++statement) {
        SCOPED_TRACE(statement);
        workshop.faults.count();
        ASSERT_TRUE(workshop.form().msCargarPresupuesto(2, true));
        workshop.set("txtExtra", "lo escrito");
        workshop.set("txtPesu(11)", "7");
        workshop.set("cboHerramienta", "Mandrino");
        workshop.set("Text1(7)", "33");
        workshop.leave();
        const auto typed = everythingNow();
        workshop.errors.clear();
        workshop.faults.failAt(statement);
        bool loaded = false;
        workshop.attempt([&] { loaded = load(true); });
        workshop.faults.count();
        if (!loaded) {
            ++failed;
            EXPECT_THAT(workshop.errorNumbers(), ElementsAre(sql::provider::failure));
            expectProposalTwo(typed);
        }
    }
    EXPECT_GT(failed, 5);
}

TEST_F(FailedLoadTest, AValueThatIsMissingOrOutOfItsListLeavesTheFormAsItWas) {
    const auto before = everythingNow();
    for (const char* change : {"DPI_ImpTP=null", "DPI_Tipo=15", "DPI_PDM_Tipo=20", "DPI_CubImporte=null"}) {
        workshop.database->execute("UPDATE DPI SET DPI_ImpTP=1,DPI_Tipo=4,DPI_PDM_Tipo=1,DPI_CubImporte=1");
        workshop.database->execute(std::string("UPDATE DPI SET ") + change + " where DPI_Id=1");
        workshop.errors.clear();
        workshop.attempt([&] { load(false); });
        EXPECT_EQ(workshop.errors.size(), 1u) << change;
        expectProposalTwo(before);
    }
}

TEST_F(FailedLoadTest, TheProposalThatStayedIsSavedUnderItsOwnNumber) {
    workshop.database->execute("UPDATE DPI SET DPI_IdParCubo=99 where DPI_Id=1");
    ASSERT_FALSE(load(true));
    workshop.screen.messages.clear();
    workshop.key(screen::Key::f5);
    EXPECT_THAT(messages(), ElementsAre("Datos Grabados satisfactoriamente"));
    EXPECT_EQ(workshop.query("select DPI_Extra from DPI where DPI_Id=2"), "lo escrito");
    EXPECT_EQ(workshop.query("select DPI_Z from DPI where DPI_Id=2"), "20");
    EXPECT_EQ(workshop.query("select DPI_Tipo from DPI where DPI_Id=2"), "0");
    EXPECT_EQ(workshop.query("select DPI_Extra from DPI where DPI_Id=1"), "extra");
}

TEST_F(FailedLoadTest, WhatTheUserTypedIsStillKnownAsTyped) {
    workshop.openAnew();
    workshop.choose("cboTipoPre", data::variablePulley);
    workshop.enterToothing();
    workshop.set("Text1(14)", "22,5");
    workshop.set("Text1(18)", "60");
    workshop.enterCustomerAndUnits();
    workshop.database->execute("UPDATE DPI SET DPI_PDM_x=null where DPI_Id=1");
    ASSERT_FALSE(load(false));
    EXPECT_TRUE(workshop.fields().secondHubIsKnown());
    workshop.key(screen::Key::f5);
    EXPECT_EQ(workshop.query("select DPI_PDM_h1 from DPI where DPI_Id=3"), "22,5");
}

TEST_F(FailedLoadTest, OnANewFormNothingOfTheProposalIsLeft) {
    workshop.database->execute("UPDATE DPI SET DPI_IdParCubo=99 where DPI_Id=1");
    const auto empty = everything(workshop.openAnew());
    EXPECT_FALSE(load(false));
    EXPECT_EQ(everythingNow(), empty);
}

}  // namespace
}  // namespace velmora::proposal
