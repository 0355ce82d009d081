#include "velmora/proposal/history.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/proposal_statements.h"
#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using support::ProposalWorkshop;
using support::statements::history;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HistoryTest : public ::testing::Test {
  protected:
    /// A stored proposal without more than the list shows.
    void store(int type, const std::string& toothing, const std::string& accepted = "NULL",
               const std::string& date = "'01/12/2025'") {
        workshop.database->execute(
            "INSERT INTO DPI (DPI_Tipo,DPI_Z,DPI_Pas,DPI_AC,DPI_Rodillo,DPI_FAcepta,DPI_Fecha,DPI_ImpTP,DPI_ArtDisco) "
            "VALUES (" +
            std::to_string(type) + "," + toothing + "," + accepted + "," + date + ",1234.5,11)");
    }
    std::vector<std::string> listed() {
        auto& grid = workshop.form().buttonsAndGrid().dbgDPI;
        std::vector<std::string> ids;
        for (std::size_t row = 0; row < grid.rowCount(); ++row) {
            ids.push_back(grid.cellText(row, 0));
        }
        return ids;
    }
    void fill(const std::string& teeth, const std::string& pitch, const std::string& width, const std::string& roller) {
        workshop.fields().Text1(1).setText(teeth);
        workshop.fields().Text1(0).setText(pitch);
        workshop.fields().Text1(8).setText(width);
        workshop.fields().Text1(2).setText(roller);
    }
    /// The one statement of a refreshed history.
    std::string statement(bool bSoloTipo) {
        workshop.form();
        workshop.connection.clear();
        workshop.form().msHistorico(bSoloTipo);
        return workshop.connection.log().empty() ? std::string() : workshop.connection.log().back();
    }

    ProposalWorkshop workshop;
};

TEST_F(HistoryTest, EveryCriterionStandsInTheClauseWithPointsForCommas) {
    fill("38", "12,7", "7,75", "8,51");
    EXPECT_EQ(statement(false),
              history(" WHERE DPI_Z = 38 And DPI_Pas = 12.7 And DPI_Ac = 7.75 And DPI_Rodillo = 8.51 And Dpi_Tipo = 0 "
                      "Order by DPI_Fecha DESC"));
}

TEST_F(HistoryTest, EmptyTeethAreLookedForAsZero) {
    fill("", "12,7", "7,75", "8,51");
    EXPECT_EQ(statement(false),
              history(" WHERE DPI_Z = 0 And DPI_Pas = 12.7 And DPI_Ac = 7.75 And DPI_Rodillo = 8.51 And Dpi_Tipo = 0 "
                      "Order by DPI_Fecha DESC"));
}

TEST_F(HistoryTest, OfTheTypeAloneTheFilledCriteriaAreAdded) {
    fill("38", "abc", "", "8,51");
    EXPECT_EQ(statement(true),
              history(" WHERE Dpi_Tipo = 0 And DPI_Z = 38  and DPI_Rodillo = 8.51  Order by DPI_Fecha DESC"));
    fill("0,00", "12,7", "7,75", "0");
    EXPECT_EQ(statement(true),
              history(" WHERE Dpi_Tipo = 0 and DPI_Pas = 12.7  and DPI_AC = 7.75  Order by DPI_Fecha DESC"));
}

TEST_F(HistoryTest, EmptyToothingListsNothingWhereF3ListsAllOfTheType) {
    store(0, "38,12.7,7.75,8.51");
    store(0, "17,12.7,7.75,8.51");
    store(1, "38,12.7,7.75,8.51");
    fill("0,00", "0,00", "0,00", "0,00");
    workshop.form().msHistorico(false);
    EXPECT_THAT(listed(), IsEmpty());
    fill("", "", "", "");
    workshop.form().msHistorico(false);
    EXPECT_THAT(listed(), IsEmpty());
    workshop.key(screen::Key::f3);
    EXPECT_THAT(listed(), ::testing::UnorderedElementsAre("000001", "000002"));
}

TEST_F(HistoryTest, TheProposalOnTheFormNeverListsItself) {
    workshop.saveNewProposal();
    store(0, "38,12.7,7.75,7.75");
    workshop.form().msHistorico(false);
    EXPECT_THAT(listed(), ElementsAre("000002"));
    EXPECT_THAT(workshop.connection.log().back(), ::testing::HasSubstr(" And Dpi_Tipo = 0 and DPI_Id <> 1 Order by"));
    workshop.key(screen::Key::f3);
    EXPECT_THAT(listed(), ElementsAre("000002"));
}

TEST_F(HistoryTest, AcceptedOnesAreSortedByTheirAcceptanceTheOthersByTheirDate) {
    store(0, "38,12.7,7.75,8.51", "'10/12/2025'", "'03/12/2025'");
    store(0, "38,12.7,7.75,8.51", "'20/12/2025'", "'01/12/2025'");
    store(0, "38,12.7,7.75,8.51", "NULL", "'02/12/2025'");
    store(0, "38,12.7,7.75,8.51", "NULL", "'04/12/2025'");
    fill("38", "12,7", "7,75", "8,51");
    workshop.choose("cboFiltroHistorico", 0);
    EXPECT_THAT(listed(), ElementsAre("000002", "000001"));
    workshop.choose("cboFiltroHistorico", 1);
    EXPECT_THAT(listed(), ElementsAre("000004", "000003"));
    workshop.choose("cboFiltroHistorico", 2);
    EXPECT_THAT(listed(), ElementsAre("000004", "000001", "000003", "000002"));
}

TEST_F(HistoryTest, TheFiltersEndTheStatementToTheLetter) {
    fill("38", "12,7", "7,75", "8,51");
    const std::string criteria =
        " WHERE DPI_Z = 38 And DPI_Pas = 12.7 And DPI_Ac = 7.75 And DPI_Rodillo = 8.51 And Dpi_Tipo = 0";
    workshop.fields().cboFiltroHistorico.setListIndex(0);
    EXPECT_EQ(statement(false), history(criteria + " And ( not DPI_FAcepta is null ) Order by DPI_FAcepta DESC "));
    workshop.fields().cboFiltroHistorico.setListIndex(1);
    EXPECT_EQ(statement(false), history(criteria + " And ( DPI_FAcepta is null ) Order by DPI_Fecha DESC "));
    workshop.fields().cboFiltroHistorico.setListIndex(-1);
    EXPECT_EQ(statement(false), history(criteria + " Order by DPI_Fecha DESC"));
}

TEST_F(HistoryTest, ACriterionThatIsNoNumberEmptiesTheGridWithNothingShown) {
    store(0, "38,12.7,7.75,8.51");
    fill("38", "12,7", "7,75", "8,51");
    workshop.form().msHistorico(false);
    EXPECT_THAT(listed(), ElementsAre("000001"));
    fill("38", "doce", "7,75", "8,51");
    EXPECT_NO_THROW(workshop.form().msHistorico(false));
    EXPECT_THAT(listed(), IsEmpty());
    EXPECT_THAT(workshop.screen.messages, IsEmpty());
    EXPECT_TRUE(workshop.form().enabled());
    EXPECT_EQ(workshop.screen.pointers.back(), screen::Pointer::normal);
}

TEST_F(HistoryTest, ASecondStatementInACriterionIsNotRun) {
    store(0, "38,12.7,7.75,8.51");
    fill("38", "12,7", "7,75", "8,51; delete from DPI");
    workshop.form().msHistorico(false);
    EXPECT_THAT(listed(), IsEmpty());
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "1");
}

TEST_F(HistoryTest, ColumnsAreCaptionedMaskedAndButtoned) {
    store(0, "38,12.7,7.75,8.51", "'10/12/2025'", "'03/12/2025'");
    fill("38", "12,7", "7,75", "8,51");
    workshop.form().msHistorico(false);
    const auto& grid = workshop.form().buttonsAndGrid().dbgDPI;
    struct Expected {
        const char* caption;
        int width;
        bool right;
        bool button;
        const char* cell;
    };
    const std::vector<Expected> expected{
        {"Presupuesto", 1000, false, true, "000001"},
        {"Fecha Presupuesto", 1500, false, false, "03/12/2025"},
        {"Fecha Aceptación", 1400, false, false, "10/12/2025"},
        {"Orden", 900, false, true, ""},
        {"Unidades", 900, true, false, ""},
        {"Imp.Unidad", 1200, true, false, "1.234,50"},
        {"Cliente", 800, true, false, ""},
        {"Paso", 800, false, false, "12,7"},
        {"A.C.", 800, false, false, "7,75"},
        {"Rodillo", 800, false, false, "8,51"},
        {"Eje", 800, false, false, ""},
        {"Prov.Consultado", 2500, false, false, ""},
        {"Nombre", 3500, false, false, ""},
        {"Material", 2500, false, false, "Redondo F-114"},
    };
    ASSERT_EQ(grid.columns().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(grid.columns()[i].caption, expected[i].caption);
        EXPECT_EQ(grid.columns()[i].width, expected[i].width) << i;
        EXPECT_EQ(grid.columns()[i].right, expected[i].right) << i;
        EXPECT_EQ(grid.columns()[i].button, expected[i].button) << i;
        EXPECT_EQ(grid.cellText(0, i), expected[i].cell) << i;
    }
}

TEST_F(HistoryTest, LeavingTheRollerRunsItsStatementsToTheLetter) {
    using namespace support::statements;
    workshop.set("Text1(0)", "12,7");
    workshop.set("Text1(8)", "7,75");
    workshop.set("Text1(1)", "38");
    workshop.set("Text1(2)", "7,75");
    workshop.connection.clear();
    workshop.leave();
    const std::string factor = "SELECT top 1 Calculos_Constante from Calculos where Calculos_Tipo = ";
    const std::string ofPitchDiameter =
        " and Calculos_Valor1<=153.79 and Calculos_Valor2>=153.79 order by Calculos_Valor2 ";
    EXPECT_THAT(
        workshop.connection.log(),
        ElementsAre(factor + "1" + ofPitchDiameter, factor + "2" + ofPitchDiameter, factor + "1" + ofPitchDiameter,
                    factor + "2" + ofPitchDiameter, discs, material("1"), hubs, material("2"), material("1"),
                    material("2"),
                    history(" WHERE DPI_Z = 38.00 And DPI_Pas = 12.70 And DPI_Ac = 7.75 And DPI_Rodillo = 7.75 And "
                            "Dpi_Tipo = 0 Order by DPI_Fecha DESC")));
}

TEST_F(HistoryTest, TheRollerRefreshesTheHistory) {
    workshop.set("Text1(1)", "38");
    workshop.set("Text1(2)", "7,75");
    workshop.connection.clear();
    workshop.leave();
    EXPECT_EQ(workshop.connection.logged("as Material from DPI").size(), 1u);
}

TEST_F(HistoryTest, PitchAndTeethDoNotRefreshTheHistory) {
    workshop.form();
    for (const char* field : {"Text1(0)", "Text1(1)", "Text1(8)"}) {
        workshop.set(field, "12");
        workshop.connection.clear();
        workshop.leave();
        EXPECT_THAT(workshop.connection.logged("as Material from DPI"), IsEmpty()) << field;
    }
}

TEST_F(HistoryTest, TheListComesBackWithTheConnection) {
    store(0, "38,12.7,7.75,8.51");
    fill("38", "12,7", "7,75", "8,51");
    workshop.connection.refuse("as Material from DPI");
    workshop.form().msHistorico(false);
    EXPECT_THAT(listed(), IsEmpty());
    workshop.form().msHistorico(false);
    EXPECT_THAT(listed(), ElementsAre("000001"));
}

}  // namespace
}  // namespace velmora::proposal
