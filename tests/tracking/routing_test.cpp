#include "velmora/tracking/routing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "acceptance_shop.h"

namespace velmora::tracking {
namespace {

using ::testing::ElementsAre;

constexpr const char* route =
    "select RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos from RUT order by RUT_IdOrden, "
    "RUT_pos";

class RoutingTest : public ::testing::Test {
  protected:
    void add(const WorkOrder& order, std::string_view pieces) {
        addRoute(shop.session, shop.database->execute("select * from DPI where dpi_id = " + std::to_string(proposal)),
                 order, pieces);
    }

    AcceptanceShop shop;
    std::int32_t proposal = shop.addProposal();
};

TEST_F(RoutingTest, ARowIsWrittenColumnByColumn) {
    EXPECT_TRUE(FnAltaRuta(shop.session, 2, 30, 400, 1.256, 11));
    EXPECT_THAT(shop.connection.log(),
                ElementsAre("BEGIN", "select isnull(max(rut_mpos),0)+1 from rut where rut_maq =11",
                            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos)"
                            " VALUES (7,2,30,400,11,1.26,1)",
                            "COMMIT"));
    EXPECT_EQ(shop.query(route), "7|2|30|400|11|1,26|1");
}

TEST_F(RoutingTest, TheQueueOfAMachineGoesOnFromAnyOrder) {
    FnAltaRuta(shop.session, 1, 1, 1, 1, 131);
    FnAltaRuta(shop.session, 1, 2, 2, 1, 131);
    FnAltaRuta(shop.session, 2, 2, 2, 1, 10);
    EXPECT_EQ(shop.query("select RUT_Mpos from RUT where RUT_Maq = 131 order by RUT_Mpos"), "1\n2");
    EXPECT_EQ(shop.query("select RUT_Mpos from RUT where RUT_Maq = 10"), "1") << "an empty machine";
}

// Begin, place, row, commit.
TEST_F(RoutingTest, ARefusedRowGivesFalse) {
    for (const int refused : {2, 3}) {
        shop.connection.restore();
        shop.connection.refuse(refused);
        EXPECT_FALSE(FnAltaRuta(shop.session, 1, 1, 1, 1, 10));
        EXPECT_EQ(shop.count("RUT"), "0");
        EXPECT_TRUE(shop.session.Campos().fields().empty());
        EXPECT_FALSE(shop.connection.transactionOpen());
    }
}

TEST_F(RoutingTest, AFailingBeginOrLookUpGoesUp) {
    for (const int refused : {0, 1}) {
        shop.connection.restore();
        shop.connection.refuse(refused);
        EXPECT_THROW(FnAltaRuta(shop.session, 1, 1, 1, 1, 10), sql::DbError);
        EXPECT_FALSE(shop.connection.transactionOpen());
    }
}

TEST_F(RoutingTest, NothingToDoIsNoRow) {
    add({.number = 5, .id = 4}, "3");
    EXPECT_EQ(shop.count("RUT"), "0");
}

TEST_F(RoutingTest, CutsComeFirstAndTheLabourFollowsInItsOrder) {
    shop.addLabour(proposal, 12, "0.5");
    shop.addLabour(proposal, 10, "0.25");
    shop.addLabour(proposal + 1, 10, "9");
    add({.number = 5, .id = 4, .cuts = 2}, "3");
    EXPECT_EQ(shop.query(route),
              "7|1|4|5|131|1|1\n"
              "7|2|4|5|131|1|2\n"
              "7|3|4|5|12|1,5|1\n"
              "7|4|4|5|10|0,75|1");
}

TEST_F(RoutingTest, PiecesWithADecimalCommaReachTheServerWithAPoint) {
    shop.addLabour(proposal, 10, "2");
    add({.number = 5, .id = 4}, "2,5");
    EXPECT_EQ(shop.connection.log().front(),
              "Select (modpi_tiempo * 2.5)as Tiempo ,modpi_maq from modpi where "
              "modpi_dpi=1 Order by modpi_id asc");
    EXPECT_EQ(shop.query("select RUT_Estimado from RUT"), "5");
}

TEST_F(RoutingTest, ARefusedRowLeavesAGapAndTheRouteGoesOn) {
    shop.addLabour(proposal, 10, "1");
    shop.addLabour(proposal, 11, "1");
    shop.addLabour(proposal, 12, "1");
    shop.connection.refuse(7);  // labour lines, four operations of 10, begin, place and row of 11
    add({.number = 5, .id = 4}, "1");
    EXPECT_EQ(shop.query("select RUT_pos,RUT_Maq from RUT order by RUT_pos"), "1|10\n3|12");
}

TEST_F(RoutingTest, ARefusedRowDoesNotMoveTheOthersUp) {
    shop.addLabour(proposal, 10, "1");
    shop.addLabour(proposal, 11, "1");
    shop.connection.refuse(3);  // the first row
    add({.number = 5, .id = 4}, "1");
    EXPECT_EQ(shop.query("select RUT_pos from RUT"), "2");
}

}  // namespace
}  // namespace velmora::tracking
