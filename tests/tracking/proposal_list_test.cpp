#include "velmora/tracking/proposal_list.h"

#include <gmock/gmock.h>

#include "tracking_form.h"

namespace velmora::tracking {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* plain = " Order by DPI_Fecha DESC ";
constexpr const char* withTable = " Order by DPI.DPI_Fecha DESC ";

/// A server that refuses every statement with the text, with this number of its own.
class RefusingServer final : public support::RecordingConnection {
  public:
    RefusingServer(sql::Connection& target, std::string text, int number, std::string state = "42000")
        : RecordingConnection(target), text_(std::move(text)), number_(number), state_(std::move(state)) {}

    sql::Recordset execute(std::string_view statement) override {
        sql::Recordset rows = RecordingConnection::execute(statement);
        if (statement.find(text_) != std::string_view::npos) {
            throw sql::DbError(sql::provider::syntax, "Ambiguous column name 'DPI_Fecha'.",
                               {.sqlState = state_, .nativeCode = number_});
        }
        return rows;
    }

  private:
    std::string text_;
    int number_;
    std::string state_;
};

class ProposalListTest : public TrackingTest {
  protected:
    void openOn(sql::Connection& server) {
        session_ = std::make_unique<adapters::StandInSession>(server);
        form = std::make_unique<frmSeguimiento>(*session_, shop.desk, order_);
        form->activate();
    }
    ~ProposalListTest() override { form.reset(); }

    std::shared_ptr<ListOrder> order_ = std::make_shared<ListOrder>();
    std::unique_ptr<adapters::StandInSession> session_;
};

TEST_F(ProposalListTest, AServerThatTakesTheOrderForAmbiguousGetsTheColumnWithItsTable) {
    store("DPI_Fecha", "'14/01/2026'");
    store("DPI_Fecha", "'15/01/2026'");
    RefusingServer server(shop.connection, " Order by DPI_Fecha", 209);
    openOn(server);
    EXPECT_THAT(server.logged("dpi.* from DPI "), ElementsAre(EndsWith(plain), EndsWith(withTable)));
    server.clear();
    listAll();
    EXPECT_THAT(server.logged("dpi.* from DPI "), ElementsAre(HasSubstr(" Order by DPI.DPI_Fecha DESC")));
    EXPECT_THAT(listed(), ElementsAre("000002", "000001"));
}

TEST_F(ProposalListTest, TheServerIsAskedOnceForEveryFormOfAConnection) {
    RefusingServer server(shop.connection, " Order by DPI_Fecha", 209);
    openOn(server);
    form.reset();
    server.clear();
    openOn(server);
    EXPECT_THAT(server.logged("dpi.* from DPI "), ElementsAre(EndsWith(withTable)));
}

TEST_F(ProposalListTest, AnotherRefusalIsTold) {
    RefusingServer server(shop.connection, " Order by DPI_Fecha", 207);
    EXPECT_THROW(openOn(server), sql::DbError);
    EXPECT_THAT(server.logged(withTable), IsEmpty());
    EXPECT_FALSE(order_->needsTable);
}

TEST_F(ProposalListTest, AServerThatRefusesBothFormsIsToldAndAskedInBothAgain) {
    RefusingServer server(shop.connection, "DPI_Fecha DESC", 209);
    EXPECT_THROW(openOn(server), sql::DbError);
    EXPECT_THAT(server.logged("dpi.* from DPI "), ElementsAre(EndsWith(plain), EndsWith(withTable)));
    EXPECT_FALSE(order_->needsTable);
}

TEST_F(ProposalListTest, ACancelledQueryLeavesTheListAndThePanelAsTheyWere) {
    store("DPI_Fecha", "'14/01/2026'");
    store("DPI_Fecha", "'15/01/2026'");
    RefusingServer server(shop.connection, "7777", 0, "HY008");
    openOn(server);
    listAll();
    form->fields().dbgDPI.moveToRow(1);
    form->fields().txtPesu(customerReference).setText("escrito");
    form->fields().txtCriterio(customerFrom).setText("7777");
    EXPECT_THROW(form->fields().cmdfiltro.onClick(), sql::DbError);
    EXPECT_THAT(listed(), ElementsAre("000002", "000001"));
    EXPECT_EQ((*form->fields().rsDpi)["DPI_Id"].toLong(), 1) << "the same row";
    EXPECT_EQ(form->fields().txtPesu(customerReference).text(), "escrito");
    form->fields().dbgDPI.moveToRow(0);
    EXPECT_NE(form->fields().txtPesu(customerReference).text(), "escrito") << "the panel listens again";
}

}  // namespace
}  // namespace velmora::tracking
