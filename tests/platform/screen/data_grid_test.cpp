#include "velmora/platform/screen/data_grid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/runtime/date.h"
#include "velmora/platform/screen/form.h"

namespace velmora::screen {
namespace {

sql::Recordset rows() {
    return sql::Recordset(sql::rowsInMemory({{"DPI_Id"}, {"DPI_Fecha"}, {"DPI_ImpTP"}, {"Nombre"}, {"Activo"}},
                                            {{7, runtime::Date::of(2026, 1, 5), 1234.5, "Á ñ", true},
                                             {1000001, sql::Value{}, 0.005, sql::Value{}, false}}));
}

class DataGridTest : public ::testing::Test {
  protected:
    DataGridTest() {
        grid.setColumns({{.field = 0, .caption = "Presupuesto", .mask = "000000"},
                         {.field = 1, .caption = "Fecha", .mask = "dd/mm/yyyy"},
                         {.field = 2, .caption = "Importe", .mask = "#,##0.00"},
                         {.field = 3, .caption = "Nombre"},
                         {.field = 4, .caption = "Activo", .mask = "Yes/No"},
                         {.field = 9, .caption = "Fuera"}});
    }
    Form form{"f"};
    DataGrid grid{form, "dbgDPI"};
};

TEST_F(DataGridTest, CellsShowTheirMaskAndNullIsEmpty) {
    grid.bind(rows());
    const std::vector<std::vector<std::string>> expected{{"000007", "05/01/2026", "1.234,50", "Á ñ", "Sí", ""},
                                                         {"1000001", "", "0,01", "", "No", ""}};
    ASSERT_EQ(grid.rowCount(), expected.size());
    for (std::size_t row = 0; row < expected.size(); ++row) {
        for (std::size_t column = 0; column < expected[row].size(); ++column) {
            EXPECT_EQ(grid.cellText(row, column), expected[row][column]) << row << "," << column;
        }
    }
}

TEST_F(DataGridTest, AClosedRecordsetUnbinds) {
    grid.bind(rows());
    grid.bind({});
    EXPECT_EQ(grid.rowCount(), 0u);
    EXPECT_EQ(grid.cellText(0, 0), "");
    EXPECT_NO_THROW(grid.moveToRow(3));
}

TEST_F(DataGridTest, ARowThatIsNotThereIsEmpty) {
    grid.bind(rows());
    EXPECT_EQ(grid.cellText(2, 0), "");
    EXPECT_EQ(grid.cellText(0, 17), "");
}

TEST_F(DataGridTest, TheRecordsetFollowsTheUsersRow) {
    sql::Recordset set = rows();
    grid.bind(set);
    grid.moveToRow(1);
    EXPECT_EQ(set[0].toLong(), 1000001);
}

}  // namespace
}  // namespace velmora::screen
