#include <gmock/gmock.h>

#include "support/proposal_workshop.h"
#include "support/watched_orders.h"

namespace velmora::proposal {
namespace {

using support::WatchedOrders;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HistoryGridTest : public ::testing::Test {
  protected:
    HistoryGridTest() {
        shop.saveNewProposal();
        // Three proposals of the same toothing, the first and the third accepted.
        duplicateRow();
        duplicateRow();
        shop.database->execute("update DPI set DPI_Fecha='2026-01-10T00:00:00' where DPI_Id=1");
        shop.database->execute("update DPI set DPI_Fecha='2026-01-11T00:00:00' where DPI_Id=2");
        shop.database->execute("update DPI set DPI_Fecha='2026-01-12T00:00:00' where DPI_Id=3");
        shop.database->execute("update DPI set DPI_FAcepta='2026-01-14T00:00:00', DPI_Orden=24001 where DPI_Id=1");
        shop.database->execute("update DPI set DPI_FAcepta='2026-01-13T00:00:00', DPI_Orden=24002 where DPI_Id=3");
        shop.openAnew();
        shop.screen.messages.clear();
    }

    void duplicateRow() {
        shop.screen.queue(screen::Answer::yes);
        shop.key(screen::Key::f6);
    }
    screen::DataGrid& grid() { return dynamic_cast<screen::DataGrid&>(shop.control("dbgDPI")); }
    std::vector<std::string> numbers() {
        std::vector<std::string> all;
        for (std::size_t i = 0; i < grid().rowCount(); ++i) {
            all.push_back(grid().cellText(i, 0));
        }
        return all;
    }
    void pressCell(int column) {
        shop.attempt([&] { grid().onButtonClick(column); });
    }

    support::ProposalWorkshop shop;
};

TEST_F(HistoryGridTest, WithNothingEnteredNothingIsListedAndF3ListsTheType) {
    shop.set("Text1(1)", "");
    shop.connection.clear();
    shop.choose("cboFiltroHistorico", 2);
    EXPECT_NE(shop.connection.logged("from DPI").back().find(" WHERE DPI_Z = 0"), std::string::npos);
    EXPECT_THAT(numbers(), IsEmpty());
    shop.key(screen::Key::f3);
    EXPECT_THAT(numbers(), ElementsAre("000003", "000002", "000001"));
}

TEST_F(HistoryGridTest, TheSameToothingIsListedByDate) {
    shop.enterToothing();
    EXPECT_THAT(numbers(), ElementsAre("000003", "000002", "000001"));
}

TEST_F(HistoryGridTest, TheFiltersChooseAndSort) {
    shop.enterToothing();
    shop.choose("cboFiltroHistorico", 0);
    EXPECT_THAT(numbers(), ElementsAre("000001", "000003")) << "by date of acceptance";
    shop.choose("cboFiltroHistorico", 1);
    EXPECT_THAT(numbers(), ElementsAre("000002"));
    shop.choose("cboFiltroHistorico", 2);
    EXPECT_THAT(numbers(), ElementsAre("000003", "000002", "000001")) << "by date of proposal";
}

TEST_F(HistoryGridTest, TheProposalOnTheFormNeverListsItself) {
    shop.form().msCargarPresupuesto(2, true);
    EXPECT_THAT(numbers(), ElementsAre("000003", "000001"));
    shop.key(screen::Key::f3);
    EXPECT_THAT(numbers(), ElementsAre("000003", "000001"));
}

TEST_F(HistoryGridTest, TheNumbersButtonAsksAndLoadsReadOnly) {
    shop.enterToothing();
    grid().moveToRow(1);
    shop.screen.queue(screen::Answer::yes);
    pressCell(0);
    ASSERT_THAT(shop.screen.messageTexts(), ElementsAre("Realmente desea cargar los datos del presupuesto nº 2"));
    EXPECT_EQ(shop.screen.messages[0].icon, screen::Icon::exclamation);
    EXPECT_EQ(shop.screen.messages[0].buttons, screen::Buttons::yesNo);
    EXPECT_EQ(shop.text("txtPesu(3)"), "2");
    EXPECT_FALSE(shop.enabled("txtPesu(0)"));
    EXPECT_EQ(shop.focused(), "cboFiltroHistorico");
}

TEST_F(HistoryGridTest, OnNoNothingIsLoaded) {
    shop.enterToothing();
    shop.screen.queue(screen::Answer::no);
    pressCell(0);
    EXPECT_EQ(shop.text("txtPesu(3)"), "");
    EXPECT_TRUE(shop.enabled("txtPesu(0)"));
}

TEST_F(HistoryGridTest, ALoadThatEndsEarlyLeavesTheFocusWhereItWas) {
    shop.enterToothing();
    shop.database->execute("delete from PARDPI where PARDPI_DISCO=1");
    shop.set("txtPesu(2)", "REF");
    shop.screen.queue(screen::Answer::yes);
    pressCell(0);
    EXPECT_EQ(shop.screen.messages.back().text, "Error, no se encuentra el indice del material para el disco");
    EXPECT_NE(shop.focused(), "cboFiltroHistorico");
}

TEST_F(HistoryGridTest, TheOrdersButtonHandsTheNumberToTheOrderModule) {
    std::vector<std::string> told;
    shop.components.add("KOLTAR.KOLTARD", [&] { return std::make_unique<WatchedOrders>(told); });
    shop.enterToothing();
    grid().moveToRow(2);
    pressCell(3);
    EXPECT_THAT(told, ElementsAre("MyBd", "jLoad 24001", "released"));
}

TEST_F(HistoryGridTest, AProposalWithoutOrderShowsNone) {
    std::vector<std::string> told;
    shop.components.add("KOLTAR.KOLTARD", [&] { return std::make_unique<WatchedOrders>(told); });
    shop.enterToothing();
    grid().moveToRow(1);
    pressCell(3);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(HistoryGridTest, AMissingOrderModuleReachesTheUser) {
    shop.enterToothing();
    pressCell(3);
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(429));
}

TEST_F(HistoryGridTest, WithoutRowsTheButtonsDoNothing) {
    pressCell(0);
    pressCell(3);
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(HistoryGridTest, AfterACriterionThatIsNoNumberTheGridIsEmptyAndItsButtonsDoNothing) {
    shop.enterToothing();
    shop.fields().Text1(0).setText("doce");
    shop.form().msHistorico(false);
    EXPECT_THAT(numbers(), IsEmpty());
    pressCell(0);
    EXPECT_THAT(shop.screen.messages, IsEmpty());
}

TEST_F(HistoryGridTest, OtherColumnsHaveNoButton) {
    shop.enterToothing();
    pressCell(1);
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_THAT(shop.errors, IsEmpty());
}

}  // namespace
}  // namespace velmora::proposal
