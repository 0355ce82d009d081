#include "velmora/estimate/shown_proposal.h"

#include <gtest/gtest.h>

#include "velmora/estimate/field_names.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/form.h"

namespace velmora::estimate {
namespace {

class ShownProposalTest : public ::testing::Test {
  protected:
    void put(int index, const std::string& text) { fields_(index).setText(text); }
    const ShownProposal& proposal() const { return proposal_; }

  private:
    screen::Form form_{"form"};
    screen::ControlArray<screen::TextBox> fields_{form_, "txtPesu", {{0, 17}}};
    ShownProposal proposal_{fields_};
};

TEST_F(ShownProposalTest, AFormThatWasJustMadeShowsANewProposal) {
    EXPECT_EQ(proposal().number(), "");
    EXPECT_TRUE(proposal().isNew());
    EXPECT_FALSE(proposal().isAccepted());
    EXPECT_FALSE(proposal().hasOrder());
    EXPECT_EQ(proposal().units(), 0);
}

TEST_F(ShownProposalTest, ItIsNewUntilItHasANumber) {
    struct Row {
        const char* text;
        bool isNew;
    };
    // "0,00" stands there for a moment while all fields are emptied.
    for (const Row& row : {Row{"", true}, Row{"1", false}, Row{"24128", false}, Row{"2147483647", false},
                           Row{"0,00", false}, Row{"nuevo", true}}) {
        put(money::proposal, row.text);
        EXPECT_EQ(proposal().isNew(), row.isNew) << row.text;
        EXPECT_EQ(proposal().number(), row.text) << "the text as it stands, also of what is no number";
    }
}

TEST_F(ShownProposalTest, TheKeyIsTheNumberAsALong) {
    put(money::proposal, "2147483647");
    EXPECT_EQ(proposal().key(), 2147483647);
    for (const char* text : {"", "nuevo"}) {
        put(money::proposal, text);
        try {
            static_cast<void>(proposal().key());
            ADD_FAILURE() << "a new proposal has no key";
        } catch (const runtime::RuntimeError& e) {
            EXPECT_EQ(e.number(), runtime::typeMismatch) << text;
        }
    }
}

TEST_F(ShownProposalTest, AcceptanceAndOrderAreSaidByTheirOwnFields) {
    struct Row {
        const char* accepted;
        const char* order;
        bool isAccepted;
        bool hasOrder;
    };
    for (const Row& row : {Row{"", "", false, false}, Row{"15/01/2026", "", true, false}, Row{"", "24128", false, true},
                           Row{"15/01/2026", "24128", true, true}}) {
        put(money::accepted, row.accepted);
        put(money::workOrder, row.order);
        EXPECT_EQ(proposal().isAccepted(), row.isAccepted) << row.accepted << "|" << row.order;
        EXPECT_EQ(proposal().hasOrder(), row.hasOrder) << row.accepted << "|" << row.order;
    }
}

TEST_F(ShownProposalTest, UnitsAreReadAsTypedAndWhatIsNoNumberCountsNone) {
    struct Row {
        const char* text;
        double units;
    };
    for (const Row& row : {Row{"", 0}, Row{"25", 25}, Row{"0,00", 0}, Row{"0,5", 0.5}, Row{"-3", -3}, Row{"dos", 0}}) {
        put(money::pieces, row.text);
        EXPECT_EQ(proposal().units(), row.units) << row.text;
    }
}

}  // namespace
}  // namespace velmora::estimate
