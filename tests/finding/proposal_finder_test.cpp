#include "velmora/finding/proposal_finder.h"

#include <array>

#include <gmock/gmock.h>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/finding/proposal_statements.h"

#include "finding/finder_rows.h"
#include "support/database_template.h"
#include "support/stopped_clock.h"

namespace velmora::finding {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ProposalFinderTest : public ::testing::Test {
  protected:
    std::vector<std::int32_t> numbers(const char* text, Reach reach = Reach::recent) {
        std::vector<std::int32_t> found;
        for (const FoundProposal& proposal : findProposals(*database, readWanted(text), reach).proposals) {
            found.push_back(proposal.number);
        }
        return found;
    }

    static const support::DatabaseTemplate& templateOfAll() {
        static const support::DatabaseTemplate all(fillProposals);
        return all;
    }
    std::unique_ptr<sql::Connection> database = templateOfAll().copy();
};

TEST_F(ProposalFinderTest, NothingWantedGivesTheLatest) {
    EXPECT_THAT(numbers(""), ElementsAre(8, 7, 6, 5, 4, 3, 2, 1));
}

TEST_F(ProposalFinderTest, EachWayOfSearchingFindsItsProposals) {
    struct Row {
        const char* what;
        const char* text;
        std::vector<std::int32_t> found;
    };
    const std::array rows{
        Row{"a number", "4", {4}},
        Row{"a number with zeros", "000004", {4}},
        Row{"the number of a customer, and a reference that looks like it", "1002", {5, 3, 2}},
        Row{"teeth and pitch", "38 x 12,7", {4, 1}},
        Row{"a pitch of which two decimals are stored", "38x9,525", {2}},
        Row{"teeth alone", "38 x", {4, 2, 1}},
        Row{"a module", "20 x M2", {3}},
        Row{"a pitch or a module", "20 x 2", {3}},
        Row{"teeth that nothing has", "39 x 12,7", {}},
        Row{"a name without its accent, also of proposals under an older name", "fernandez", {8, 5, 1}},
        Row{"a name with an accent of its own", "HARÍNAS", {3, 2}},
        Row{"a commercial name", "fernan", {8, 5, 1}},
        Row{"words in any order", "ebre harinas", {3, 2}},
        Row{"a name that is no customer's", "ciguena", {4}},
        Row{"a reference", "p-100", {1}},
        Row{"the customer's order", "2122", {3}},
        Row{"customer and reference", "harinas eje_7", {3}},
        Row{"a word of each of two customers", "harinas fernandez", {}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(numbers(row.text), row.found) << row.what;
    }
}

TEST_F(ProposalFinderTest, TheNumberLookedForComesFirst) {
    database->execute("INSERT INTO DPI (DPI_RefCli) VALUES (N'pieza 3')");
    EXPECT_THAT(numbers("3"), ElementsAre(3, 9));
}

TEST_F(ProposalFinderTest, HostileTextIsText) {
    struct Row {
        const char* text;
        std::vector<std::int32_t> found;
    };
    const std::array rows{
        Row{"d'ebre", {3, 2}},
        Row{"'", {3, 2}},
        Row{"''", {}},
        Row{"50%", {2}},
        Row{"%", {2}},
        Row{"_", {3}},
        Row{"e_e", {}},
        Row{"[", {2}},
        Row{"]", {2}},
        Row{"[urgente]", {2}},
        Row{"[a-z]", {}},
        Row{"^", {}},
        Row{"\\", {}},
        Row{"--", {}},
        Row{"'; delete from DPI --", {}},
        Row{"\xF0\x9F\x94\xA7", {}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(numbers(row.text), row.found) << row.text;
    }
    EXPECT_EQ(numbers("").size(), 8u);
}

TEST_F(ProposalFinderTest, ARowTellsCustomerPieceTotalAndState) {
    const Found found = findProposals(*database, {}, Reach::recent);
    struct Row {
        std::int32_t number;
        const char* piece;
        const char* state;
    };
    const std::array rows{
        Row{1, "Piñon Especial 38 x 12,7", "Pendiente"},
        Row{2, "Disco 38 x 9,53", "Orden 57"},
        Row{3, "Engranaje Recto 20 x M2", "Aceptada"},
        Row{5, "Cremallera M2", "Pendiente"},
        Row{6, "Poleas Lisas", "Pendiente"},
        Row{7, "", "Pendiente"},
    };
    for (const Row& row : rows) {
        const FoundProposal& proposal = found.proposals.at(8 - static_cast<std::size_t>(row.number));
        EXPECT_EQ(proposal.number, row.number);
        EXPECT_EQ(proposal.piece, row.piece) << row.number;
        EXPECT_EQ(proposal.state, row.state) << row.number;
    }
    EXPECT_EQ(found.proposals.back().customer, "Talleres Fernández, S.L.");
    EXPECT_EQ(found.proposals.back().total, 300.5);
    EXPECT_EQ(found.proposals.at(1).total, std::nullopt);
}

TEST_F(ProposalFinderTest, TextsOfOlderOnesAreSearchedOnRequest) {
    database->execute("INSERT INTO DPI (DPI_RefCli) VALUES (N'nueva')");
    database->execute("SET IDENTITY_INSERT DPI ON");
    database->execute("INSERT INTO DPI (DPI_Id, DPI_RefCli) VALUES (" + std::to_string(recentProposals + 100) +
                      ", N'la última vieja')");
    const Found recent = findProposals(*database, readWanted("vieja"), Reach::recent);
    EXPECT_EQ(recent.proposals.size(), 1u);
    EXPECT_FALSE(recent.reachedAll);
    const Found all = findProposals(*database, readWanted("vieja"), Reach::all);
    EXPECT_EQ(all.proposals.size(), 2u);
    EXPECT_TRUE(all.reachedAll);
    EXPECT_THAT(numbers("4"), ElementsAre(4)) << "a number is found however old it is";
    EXPECT_THAT(numbers("fernandez"), ElementsAre(8, 5, 1)) << "and a customer";
}

TEST_F(ProposalFinderTest, ALongListIsCut) {
    for (int i = 0; i < mostRows; ++i) {
        database->execute("INSERT INTO DPI (DPI_RefCli) VALUES (N'serie')");
    }
    const Found found = findProposals(*database, readWanted("serie"), Reach::recent);
    EXPECT_EQ(found.proposals.size(), static_cast<std::size_t>(mostRows));
    EXPECT_TRUE(found.isCut);
    EXPECT_FALSE(findProposals(*database, readWanted("polea"), Reach::recent).isCut);
}

TEST_F(ProposalFinderTest, AnEmptyWorkshopHasNone) {
    database->execute("DELETE FROM DPI");
    for (const char* text : {"", "1", "38 x 12,7", "fernandez"}) {
        EXPECT_THAT(numbers(text), IsEmpty()) << text;
    }
}

}  // namespace
}  // namespace velmora::finding
