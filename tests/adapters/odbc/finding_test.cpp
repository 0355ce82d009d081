// The searches of the start window on a server: they find there what they find on the embedded engine.

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/database.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/finding/proposal_finder.h"

#include "finding/finder_rows.h"
#include "server_under_test.h"

namespace velmora::odbc {
namespace {

std::vector<std::int32_t> found(sql::Connection& connection, const char* text, finding::Reach reach) {
    std::vector<std::int32_t> numbers;
    for (const auto& proposal : findProposals(connection, finding::readWanted(text), reach).proposals) {
        numbers.push_back(proposal.number);
    }
    return numbers;
}

class FindingOnServer : public ::testing::Test {
  protected:
    static void TearDownTestSuite() { test::dropAllTables(*test::testServer()); }

    FindingOnServer() {
        test::dropAllTables(*test::testServer());
        server_ = openDatabase(readConnectionText(*test::testServer()));
        finding::fillProposals(*server_);
        finding::fillProposals(*embedded_);
    }

    std::unique_ptr<sql::Connection> server_;
    const std::unique_ptr<sql::Connection> embedded_ = sqlite::openDatabase(":memory:");
};

TEST_F(FindingOnServer, EverySearchFindsWhatItFindsOnTheEmbeddedEngine) {
    for (const char* text : {"", "1", "1001", "38 x 12,7", "38", "20 x M2", "d'ebre", "50%", "eje_7", "[urgente]",
                             "pc-2122", "vieja", "POLEA", "talleres s.l.", "'; drop table DPI--"}) {
        for (const auto reach : {finding::Reach::recent, finding::Reach::all}) {
            EXPECT_EQ(found(*server_, text, reach), found(*embedded_, text, reach)) << text;
        }
    }
    EXPECT_EQ(found(*server_, "", finding::Reach::recent).size(), 8U);
    EXPECT_EQ(found(*server_, "38 x 12,7", finding::Reach::recent).size(), 2U);
    EXPECT_EQ(found(*server_, "eje_7", finding::Reach::recent).size(), 1U);
}

// The server for tests takes no letter outside ASCII in a set of LIKE: N'á' LIKE N'[aá]' is false there. What it finds
// beyond letters with accents is right all the same.
TEST_F(FindingOnServer, AWordWithAccentsFindsNothingElse) {
    for (const char* text : {"fernandez talleres", "cigueña", "CIGUENA", "ferñan"}) {
        const auto there = found(*server_, text, finding::Reach::recent);
        const auto here = found(*embedded_, text, finding::Reach::recent);
        EXPECT_FALSE(here.empty()) << text;
        EXPECT_TRUE(std::ranges::includes(here, there, std::greater<>{})) << text;
    }
}

TEST_F(FindingOnServer, ARowShowsTheSameThereAsOnTheEmbeddedEngine) {
    const auto there = findProposals(*server_, finding::readWanted("eje_7"), finding::Reach::recent).proposals;
    const auto here = findProposals(*embedded_, finding::readWanted("eje_7"), finding::Reach::recent).proposals;
    ASSERT_EQ(there.size(), 1U);
    ASSERT_EQ(here.size(), 1U);
    EXPECT_EQ(there[0].customer, here[0].customer);
    EXPECT_EQ(there[0].piece, here[0].piece);
    EXPECT_EQ(there[0].state, here[0].state);
    EXPECT_EQ(there[0].total, here[0].total);
    EXPECT_EQ(there[0].units, here[0].units);
}

}  // namespace
}  // namespace velmora::odbc
