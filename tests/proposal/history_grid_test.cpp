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

/// Notes what it is to print.
class Press final : public components::Printing {
  public:
    explicit Press(std::vector<std::int32_t>& printed) : printed_(printed) {}
    void setMyBd(session::Session&) override {}
    void jPrintPropuesta(std::int32_t nIdDpi, bool) override { printed_.push_back(nIdDpi); }

  private:
    std::vector<std::int32_t>& printed_;
};

/// Another user stores, accepts and deletes while the list of 3, 2 and 1 stands on the screen.
class ListInMotionTest : public HistoryGridTest {
  protected:
    ListInMotionTest() {
        shop.components.add("KOLTAR.KOLTARD", [this] { return std::make_unique<WatchedOrders>(told); });
        shop.enterToothing();
    }
    void othersWrite() {
        shop.database->execute("update DPI set DPI_Fecha='2026-02-01T00:00:00', DPI_Orden=24009 where DPI_Id=1");
        shop.database->execute("delete from DPI where DPI_Id=3");
    }
    void expectToLoad(const std::string& number) {
        shop.screen.queue(screen::Answer::yes);
        pressCell(0);
        EXPECT_THAT(shop.screen.messageTexts(),
                    ElementsAre("Realmente desea cargar los datos del presupuesto nº " + number));
        EXPECT_EQ(shop.text("txtPesu(3)"), number);
    }
    std::vector<std::string> told;
};

TEST_F(ListInMotionTest, TheButtonsActOnTheRowOnShow) {
    grid().moveToRow(2);
    othersWrite();
    EXPECT_THAT(numbers(), ElementsAre("000003", "000002", "000001"));
    pressCell(3);
    EXPECT_THAT(told, ElementsAre("MyBd", "jLoad 24001", "released")) << "the order that is on show";
    grid().moveToRow(1);
    expectToLoad("2");
}

TEST_F(ListInMotionTest, TheProposalThatWasAskedAboutIsTheOneThatLoads) {
    grid().moveToRow(1);
    shop.screen.whileAsked = [this] { othersWrite(); };
    expectToLoad("2");
}

TEST_F(ListInMotionTest, TheKeysActOnTheProposalOnTheFormWhateverTheListHolds) {
    shop.form().msCargarPresupuesto(2, true);
    grid().moveToRow(1);
    othersWrite();
    std::vector<std::int32_t> printed;
    shop.components.add("VELMORAIMP.VMORAIMP", [&] { return std::make_unique<Press>(printed); });
    shop.key(screen::Key::f8);
    EXPECT_THAT(printed, ElementsAre(2));
    shop.screen.queue(screen::Answer::yes);
    shop.key(screen::Key::f9);
    EXPECT_EQ(shop.query("select count(*) from DPI where DPI_Id=2"), "0");
    EXPECT_EQ(shop.query("select count(*) from DPI where DPI_Id=1"), "1");
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
    EXPECT_EQ(shop.focused(), "txtPesu(2)");
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
