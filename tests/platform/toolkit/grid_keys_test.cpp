#include "velmora/platform/toolkit/grid_keys.h"

#include <gmock/gmock.h>

#include "velmora/platform/screen/form.h"

#include "counted_rows.h"

namespace velmora::toolkit {
namespace {

using screen::Key;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GridKeysTest : public ::testing::Test {
  protected:
    GridKeysTest() {
        grid.setColumns({{.field = 0, .caption = "Id", .button = true},
                         {.field = 1, .caption = "Texto"},
                         {.field = 1, .caption = "Oculta", .button = true, .visible = false}});
        grid.onButtonClick = [this](int column) { pressed.push_back(column); };
        grid.onKeyDown = [this](screen::KeyDown& down) { keys.push_back(down.key); };
    }
    sql::Recordset bind(std::size_t count) {
        grid.bind(sql::Recordset(std::make_unique<CountedRows>(count, reading)));
        return grid.recordset();
    }
    std::optional<std::size_t> row() const { return grid.recordset().position(); }

    Reading reading;
    screen::Form form{"frm"};
    screen::DataGrid grid{form, "grid"};
    std::vector<int> pressed;
    std::vector<Key> keys;
};

TEST_F(GridKeysTest, StepsMoveTheSetAndTellItsListenersOnce) {
    struct Row {
        RowMove move;
        std::size_t row;
    };
    sql::Recordset rows = bind(20);
    int moves = 0;
    const sql::Subscription listening = rows.onMoveComplete([&] { ++moves; });
    for (const Row& step : {Row{RowMove::down, 1}, Row{RowMove::pageDown, 9}, Row{RowMove::up, 8},
                            Row{RowMove::last, 19}, Row{RowMove::pageUp, 11}, Row{RowMove::first, 0}}) {
        moves = 0;
        moveRow(grid, step.move, 8);
        EXPECT_EQ(row(), step.row);
        EXPECT_EQ(moves, 1) << step.row;
    }
}

TEST_F(GridKeysTest, StepsStopAtTheEndsAndTellNobodyThere) {
    sql::Recordset rows = bind(10);
    moveRow(grid, RowMove::pageDown, 100);
    EXPECT_EQ(row(), 9U);
    int moves = 0;
    const sql::Subscription listening = rows.onMoveComplete([&] { ++moves; });
    moveRow(grid, RowMove::down);
    EXPECT_EQ(row(), 9U);
    EXPECT_EQ(moves, 0);
    moveRow(grid, RowMove::pageUp, 100);
    EXPECT_EQ(row(), 0U);
    moveRow(grid, RowMove::up);
    EXPECT_EQ(row(), 0U);
    EXPECT_EQ(moves, 1);
}

TEST_F(GridKeysTest, WithoutACurrentRowAStepGoesToTheFirst) {
    for (const RowMove move : {RowMove::down, RowMove::up}) {
        sql::Recordset rows = bind(10);
        rows.moveTo(10);
        ASSERT_FALSE(row().has_value());
        moveRow(grid, move);
        EXPECT_EQ(row(), 0U);
    }
}

TEST_F(GridKeysTest, TheLastRowOfALongSetIsFoundByTheSet) {
    bind(1310720);
    moveRow(grid, RowMove::last);
    EXPECT_EQ(row(), 1310719U);
}

TEST_F(GridKeysTest, AGridWithoutRowsIsLeftAlone) {
    for (const bool bound : {true, false}) {
        if (bound) {
            bind(0);
        } else {
            grid.bind({});
        }
        for (const RowMove move : {RowMove::down, RowMove::up, RowMove::first, RowMove::last}) {
            moveRow(grid, move);
        }
        EXPECT_FALSE(pressCell(grid, 0));
    }
    EXPECT_THAT(pressed, IsEmpty());
}

TEST_F(GridKeysTest, OnlyCellsThatShowAButtonArePressed) {
    bind(3);
    EXPECT_TRUE(pressCell(grid, 0));
    EXPECT_FALSE(pressCell(grid, 1)) << "no button";
    EXPECT_FALSE(pressCell(grid, 2)) << "hidden";
    EXPECT_FALSE(pressCell(grid, 3)) << "no such column";
    EXPECT_THAT(pressed, ElementsAre(0));
}

TEST_F(GridKeysTest, ACellWithoutAValueHasNoButton) {
    grid.setColumns({{.field = 0, .caption = "Orden", .button = true},
                     {.field = 1, .caption = "Presupuesto", .mask = "000000", .button = true},
                     {.field = 1, .caption = "Texto"}});
    grid.bind(sql::Recordset(sql::rowsInMemory(
        {{"o"}, {"p"}}, {{24123, 7}, {sql::Value{}, 8}, {0, 9}, {" ", 0}, {"0", sql::Value{}}, {"A-7", 10}})));
    struct Row {
        std::size_t row;
        bool order;
        bool proposal;
    };
    for (const Row& expected : {Row{0, true, true}, Row{1, false, true}, Row{2, false, true}, Row{3, false, false},
                                Row{4, false, false}, Row{5, true, true}, Row{6, false, false}}) {
        EXPECT_EQ(hasButton(grid, expected.row, 0), expected.order) << expected.row;
        EXPECT_EQ(hasButton(grid, expected.row, 1), expected.proposal) << expected.row;
        EXPECT_FALSE(hasButton(grid, expected.row, 2)) << expected.row;
    }
    EXPECT_TRUE(pressRow(grid));
    grid.moveToRow(1);
    keyInGrid(grid, strokeTyping(U' '), 0);
    EXPECT_TRUE(pressRow(grid));
    grid.moveToRow(3);
    EXPECT_FALSE(pressRow(grid));
    EXPECT_THAT(pressed, ElementsAre(0, 1));
}

TEST_F(GridKeysTest, ARowOfAGridWithoutButtonsIsPressedAsAWhole) {
    grid.setColumns({{.field = 0, .caption = "Fichero"}});
    EXPECT_FALSE(pressRow(grid)) << "no rows";
    grid.bind(sql::Recordset(sql::rowsInMemory({{"f"}}, {{"plano.pdf"}})));
    EXPECT_TRUE(pressRow(grid));
    EXPECT_THAT(pressed, ElementsAre(wholeRow));
}

TEST_F(GridKeysTest, SpacePressesTheCellAndOtherKeysGoToTheGrid) {
    bind(3);
    moveRow(grid, RowMove::down);
    keyInGrid(grid, strokeTyping(U' '), 0);
    keyInGrid(grid, strokeTyping(U' '), 1);
    keyInGrid(grid, strokeOf(Key::f8), 0);
    keyInGrid(grid, strokeTyping(U'a'), 0);
    EXPECT_THAT(pressed, ElementsAre(0));
    EXPECT_THAT(keys, ElementsAre(Key::f8, Key::character));
}

TEST_F(GridKeysTest, WithoutACellSpaceIsAKeyLikeAnyOther) {
    bind(3);
    keyInGrid(grid, strokeTyping(U' '), std::nullopt);
    EXPECT_THAT(pressed, IsEmpty());
    EXPECT_THAT(keys, ElementsAre(Key::character));
}

}  // namespace
}  // namespace velmora::toolkit
