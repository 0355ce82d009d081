#include "velmora/proposal/draft.h"

#include <gmock/gmock.h>

#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using support::ProposalWorkshop;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

class DraftTest : public ::testing::Test {
  protected:
    /// What is typed survives the program: it is put on another form.
    Restored recover() {
        const auto draft = shop.form().unsavedDraft();
        if (!draft) {
            throw std::runtime_error("nothing to recover");
        }
        return shop.openAnew().restoreDraft(*draft);
    }
    bool hasDraft() { return shop.form().unsavedDraft().has_value(); }

    ProposalWorkshop shop;
};

TEST_F(DraftTest, NothingTypedIsNoDraft) {
    EXPECT_FALSE(hasDraft());
    shop.choose("cboTipoPre", 4);
    EXPECT_FALSE(hasDraft()) << "a type alone";
    shop.set("Text1(1)", "38");
    EXPECT_TRUE(hasDraft());
}

TEST_F(DraftTest, ASaveALoadAndADeletionLeaveNone) {
    shop.saveNewProposal();
    EXPECT_FALSE(hasDraft());
    shop.set("txtPesu(11)", "9");
    EXPECT_TRUE(hasDraft());
    shop.key(screen::Key::f5);
    EXPECT_FALSE(hasDraft());
    shop.screen.queue(screen::Answer::yes);
    shop.key(screen::Key::f9);
    EXPECT_FALSE(hasDraft());
}

/// A plain sprocket with what only a person knows: a cut of his own, remarks of several lines.
void enter(ProposalWorkshop& shop) {
    shop.enterToothing();
    shop.enterCustomerAndUnits();
    shop.set("Text4(0)", "130,5");
    shop.set("txtObservaciones", "Temple\r\nUrgente \\ piñón");
}

/// The stored row as one text.
std::string stored(ProposalWorkshop& shop) {
    shop.key(screen::Key::f5);
    const sql::Recordset row = shop.database->execute("select * from DPI");
    std::string all;
    for (std::size_t i = 0; i < row.columns().size(); ++i) {
        all += row[i].isNull() ? "NULL|" : row[i].toText() + "|";
    }
    return all;
}

TEST_F(DraftTest, ANewProposalComesBackAsItWasTypedAndIsStoredAsIfNothingHadHappened) {
    ProposalWorkshop undisturbed;
    enter(undisturbed);
    enter(shop);
    const std::vector<std::string> typed = shop.texts();
    EXPECT_EQ(recover(), Restored::asItWas);
    EXPECT_THAT(shop.texts(), ElementsAreArray(typed));
    EXPECT_EQ(shop.control("Text4(0)").backColor(), screen::colors::white);
    EXPECT_TRUE(hasDraft()) << "it is not stored yet";
    EXPECT_EQ(stored(shop), stored(undisturbed));
}

TEST_F(DraftTest, WhatIsTypedNextRecalculatesAsBefore) {
    shop.enterToothing();
    shop.enterCustomerAndUnits();
    const auto price = [&] {
        shop.set("Text1(6)", "40");
        shop.set("txtPesu(11)", "7");
        shop.leave();
        return shop.texts();
    };
    const auto draft = shop.form().unsavedDraft();
    ASSERT_TRUE(draft);
    const std::vector<std::string> undisturbed = price();
    shop.openAnew().restoreDraft(*draft);
    EXPECT_THAT(price(), ElementsAreArray(undisturbed));
}

TEST_F(DraftTest, EveryTypeComesBack) {
    for (int type = 0; type < 15; ++type) {
        SCOPED_TRACE(type);
        shop.openAnew();
        shop.choose("cboTipoPre", type);
        shop.set("txtPesu(2)", "Ref. " + std::to_string(type));
        const std::vector<std::string> typed = shop.texts();
        const auto stops = [&] {
            std::vector<std::string> names;
            for (const screen::Control* control : shop.form().controls()) {
                if (control->tabStop()) {
                    names.push_back(control->fullName());
                }
            }
            return names;
        };
        const std::vector<std::string> stopsBefore = stops();
        ASSERT_EQ(recover(), Restored::asItWas);
        EXPECT_THAT(shop.texts(), ElementsAreArray(typed));
        EXPECT_THAT(stops(), ElementsAreArray(stopsBefore));
        for (const char* frame : {"Frame2", "fraPDM", "fraTriple", "fraDobleVar", "fraCremallera"}) {
            EXPECT_EQ(shop.visible(frame), shop.form().find(frame)->visible());
        }
    }
}

TEST_F(DraftTest, AChangedProposalComesBackUnderItsNumber) {
    shop.saveNewProposal();
    EXPECT_FALSE(hasDraft());
    shop.set("txtPesu(11)", "9");
    EXPECT_EQ(recover(), Restored::asItWas);
    EXPECT_EQ(shop.text("txtPesu(11)"), "9");
    shop.key(screen::Key::f5);
    EXPECT_EQ(shop.query("select count(*) from DPI"), "1");
    EXPECT_EQ(shop.query("select DPI_Unidades from DPI"), "9");
}

TEST_F(DraftTest, AProposalThatSomebodyChangedMeanwhileIsTold) {
    shop.saveNewProposal();
    EXPECT_FALSE(hasDraft());
    shop.set("txtPesu(11)", "9");
    shop.database->execute("update DPI set DPI_RefCli = 'otra'");
    EXPECT_EQ(recover(), Restored::changedMeanwhile);
    EXPECT_EQ(shop.text("txtPesu(11)"), "9");
}

TEST_F(DraftTest, AProposalThatIsGoneOrAcceptedComesBackAsANewOne) {
    for (const char* deed : {"delete from DPI", "update DPI set DPI_FAcepta = '15/01/2026', DPI_Orden = 7"}) {
        SCOPED_TRACE(deed);
        shop.database->execute("delete from DPI");
        shop.openAnew();
        shop.saveNewProposal();
        EXPECT_FALSE(hasDraft());
        shop.set("txtPesu(11)", "9");
        shop.database->execute(deed);
        EXPECT_EQ(recover(), Restored::asNew);
        EXPECT_EQ(shop.text("txtPesu(3)"), "");
        EXPECT_EQ(shop.text("txtPesu(11)"), "9");
        EXPECT_TRUE(hasDraft());
        shop.key(screen::Key::f5);
        EXPECT_EQ(shop.query("select DPI_Unidades from DPI order by DPI_Id desc"), "9");
    }
}

TEST_F(DraftTest, AFormThatOnlyShowsHasNone) {
    shop.saveNewProposal();
    shop.form().bConsulta = true;
    shop.fields().txtPesu(11).setText("9");
    EXPECT_FALSE(hasDraft());
}

TEST_F(DraftTest, OneThatIsCutOffIsNotWhole) {
    shop.enterToothing();
    const std::string draft = *shop.form().unsavedDraft();
    EXPECT_TRUE(Draft::isWhole(draft));
    for (const std::size_t length : {draft.size() - 1, draft.size() / 2, std::size_t{0}}) {
        EXPECT_FALSE(Draft::isWhole(draft.substr(0, length)));
    }
}

TEST_F(DraftTest, IsDescribedInOneLine) {
    shop.enterToothing();
    shop.enterCustomerAndUnits();
    EXPECT_THAT(Draft::describe(*shop.form().unsavedDraft()), HasSubstr("Z 38,00, paso 12,70, TALLERES NORTE"));
}

}  // namespace
}  // namespace velmora::proposal
