#include "velmora/platform/toolkit/grid_columns.h"

#include <gmock/gmock.h>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {
namespace {

using ::testing::ElementsAre;

/// Widths in a font whose letters are all ten pixels wide, with four pixels beside a caption.
ColumnWidths widthsOf(std::vector<screen::GridColumn> columns) {
    screen::Form form("frm");
    screen::DataGrid grid(form, "grid");
    grid.setColumns(std::move(columns));
    GridRows rows(grid, [](std::exception_ptr) {});
    rows.restart();
    return columnWidths(
        rows, [](const std::string& text) { return 10 * static_cast<int>(text.size()); }, 4);
}

TEST(GridColumnsTest, TwipsAreFifteenAPixel) {
    EXPECT_THAT(widthsOf({{.caption = "Id", .width = 1500}}).pixels, ElementsAre(100));
}

TEST(GridColumnsTest, NoColumnIsNarrowerThanItsCaptionNorThanADate) {
    EXPECT_THAT(
        widthsOf({{.caption = "Propuesta", .width = 150}, {.caption = "", .width = 150, .mask = "dd/mm/yyyy"}}).pixels,
        ElementsAre(94, 104));
}

TEST(GridColumnsTest, TheWidestColumnOfTextStretches) {
    EXPECT_EQ(widthsOf({{.caption = "a", .width = 600},
                        {.caption = "b", .width = 900},
                        {.caption = "c", .width = 3000, .right = true},
                        {.caption = "d", .width = 3000, .button = true}})
                  .stretching,
              1);
    EXPECT_EQ(widthsOf({{.caption = "c", .width = 3000, .right = true}}).stretching, -1);
}

TEST(GridColumnsTest, LongTextsGetTheRoomThatIsThereAndTheRestStretches) {
    const ColumnWidths widths{.pixels = {50, 40, 60}, .wanted = {80, 40, 300}, .stretching = 2};
    EXPECT_THAT(fitted(widths, 100), ElementsAre(50, 40, 60)) << "less than the nominal widths is scrolled";
    EXPECT_THAT(fitted(widths, 160), ElementsAre(60, 40, 60));
    EXPECT_THAT(fitted(widths, 200), ElementsAre(80, 40, 80));
    EXPECT_THAT(fitted(widths, 600), ElementsAre(80, 40, 480));
    EXPECT_THAT(fitted({.pixels = {50, 40}, .wanted = {50, 40}}, 600), ElementsAre(50, 40));
}

TEST(GridColumnsTest, TheTextsOfTheRowsAreWanted) {
    screen::Form form("frm");
    screen::DataGrid grid(form, "grid");
    grid.setColumns({{.field = 0, .caption = "Tipo", .width = 600}, {.field = 1, .caption = "Id", .width = 600}});
    grid.bind(sql::Recordset(sql::rowsInMemory({{"t"}, {"i"}}, {{"Disco Engranaje", 1}, {"Disco", 2}})));
    GridRows rows(grid, [](std::exception_ptr) {});
    rows.restart();
    rows.take(rows.reach(GridRows::chunk));
    const ColumnWidths widths = columnWidths(
        rows, [](const std::string& text) { return 10 * static_cast<int>(text.size()); }, 4);
    EXPECT_THAT(widths.pixels, ElementsAre(44, 40));
    EXPECT_THAT(widths.wanted, ElementsAre(154, 40));
}

TEST(GridColumnsTest, HiddenColumnsCountNowhere) {
    const ColumnWidths widths =
        widthsOf({{.caption = "a", .width = 9000, .visible = false}, {.caption = "b", .width = 900}});
    EXPECT_THAT(widths.pixels, ElementsAre(60));
    EXPECT_EQ(widths.stretching, 0);
}

}  // namespace
}  // namespace velmora::toolkit
