#include "velmora/platform/toolkit/grid_rows.h"

#include <gtest/gtest.h>

#include "velmora/platform/screen/form.h"

#include "counted_rows.h"

namespace velmora::toolkit {
namespace {

class GridRowsTest : public ::testing::Test {
  protected:
    GridRowsTest() {
        grid.setColumns({{.field = 0, .caption = "Id", .mask = "000"},
                         {.field = 1, .caption = "Oculta", .visible = false},
                         {.field = 1, .caption = "Texto"}});
    }
    void bind(std::size_t count) {
        grid.bind(sql::Recordset(std::make_unique<CountedRows>(count, reading)));
        rows.restart();
    }
    void grow(std::size_t count) { rows.take(rows.reach(count)); }

    Reading reading;
    screen::Form form{"frm"};
    screen::DataGrid grid{form, "grid"};
    int reports = 0;
    GridRows rows{grid, [this](std::exception_ptr) { ++reports; }};
};

TEST_F(GridRowsTest, AHugeSetIsNeitherCountedNorReadBeyondWhatWasAskedFor) {
    bind(1310720);
    grow(GridRows::chunk);
    EXPECT_EQ(rows.known().rows, 256U);
    EXPECT_FALSE(rows.known().complete);
    EXPECT_EQ(reading.farthest, 256U);
    EXPECT_FALSE(reading.counted);
}

TEST_F(GridRowsTest, TheEndIsSeenWhereverItLies) {
    for (const std::size_t count : {0U, 1U, 255U, 256U, 257U, 511U, 512U}) {
        bind(count);
        grow(GridRows::chunk);
        EXPECT_EQ(rows.known().rows, std::min<std::size_t>(count, 256)) << count;
        EXPECT_EQ(rows.known().complete, count <= 256) << count;
        grow(2 * GridRows::chunk);
        EXPECT_EQ(rows.known().rows, count);
        EXPECT_TRUE(rows.known().complete) << count;
    }
}

TEST_F(GridRowsTest, WhatIsKnownIsNotAskedForAgain) {
    bind(1000);
    grow(512);
    const GridRows::Known known = rows.reach(256);
    EXPECT_EQ(known.rows, 512U);
    EXPECT_FALSE(known.complete);
}

TEST_F(GridRowsTest, ReachingTakesNoEffectByItself) {
    bind(1000);
    EXPECT_EQ(rows.reach(256).rows, 256U);
    EXPECT_EQ(rows.known().rows, 0U);
}

TEST_F(GridRowsTest, HiddenColumnsAreLeftOut) {
    bind(3);
    ASSERT_EQ(rows.columnCount(), 2U);
    EXPECT_EQ(rows.shape(1).caption, "Texto");
    EXPECT_EQ(rows.gridColumn(1), 2U);
    EXPECT_EQ(rows.text(2, 0), "002");
    EXPECT_EQ(rows.text(2, 1), "Fila");
}

TEST_F(GridRowsTest, AnUnboundGridHasNoRows) {
    bind(3);
    grid.bind({});
    rows.restart();
    EXPECT_TRUE(rows.known().complete);
    EXPECT_EQ(rows.reach(256).rows, 0U);
}

TEST_F(GridRowsTest, AFailureIsToldOnceAndTheCellsStandEmptyUntilTheNextStart) {
    bind(1000);
    reading.failsFrom = 100;
    grow(256);
    EXPECT_EQ(rows.known().rows, 0U);
    EXPECT_TRUE(rows.known().complete);
    EXPECT_EQ(rows.text(0, 0), "");
    EXPECT_EQ(reports, 1);
    reading.failsFrom = 2000;
    rows.restart();
    grow(256);
    EXPECT_EQ(rows.text(0, 0), "000");
    EXPECT_EQ(reports, 1);
}

TEST(CountTextTest, TellsRowAndCountAsFarAsTheyAreKnown) {
    EXPECT_EQ(countText(std::nullopt, {.rows = 0, .complete = true}), "0 filas");
    EXPECT_EQ(countText(0, {.rows = 1, .complete = true}), "Fila 1 de 1 fila");
    EXPECT_EQ(countText(2, {.rows = 256, .complete = false}), "Fila 3 de más de 256 filas");
    EXPECT_EQ(countText(1310719, {.rows = 1310720, .complete = true}), "Fila 1.310.720 de 1.310.720 filas");
}

class GridLookTest : public ::testing::Test {
  protected:
    GridLookTest() {
        grid.setColumns({{.field = 0, .caption = "Paso"},
                         {.field = 1, .caption = "Importe", .mask = "#,##0.00"},
                         {.field = 2, .caption = "Nombre"},
                         {.field = 0, .caption = "Abrir", .button = true}});
    }
    void bind(std::vector<sql::Row> values) {
        grid.bind(sql::Recordset(sql::rowsInMemory({{"paso"}, {"importe"}, {"nombre"}}, std::move(values))));
        rows.restart();
        rows.take(rows.reach(GridRows::chunk));
    }

    screen::Form form{"frm"};
    screen::DataGrid grid{form, "grid"};
    GridRows rows{grid, [](std::exception_ptr) {}};
};

TEST_F(GridLookTest, NumbersStandRightWithTheDecimalsOfTheirColumn) {
    bind({{12.7, 5.0, "Uno"}, {9.525, 1234.5, "2"}, {sql::Value(), 3.0, "Tres"}, {38, 7.0, ""}});
    EXPECT_TRUE(rows.isRight(0));
    EXPECT_EQ(rows.painted(0, 0), "12,700");
    EXPECT_EQ(rows.painted(1, 0), "9,525");
    EXPECT_EQ(rows.painted(2, 0), "");
    EXPECT_EQ(rows.painted(3, 0), "38,000");
    EXPECT_EQ(rows.text(0, 0), "12,7") << "the text stays as told";
}

TEST_F(GridLookTest, AMaskHasItsOwnDecimals) {
    bind({{12.7, 1234.5, "Uno"}});
    EXPECT_TRUE(rows.isRight(1));
    EXPECT_EQ(rows.painted(0, 1), "1.234,50");
}

TEST_F(GridLookTest, TextsAndButtonsStayAsTheyAre) {
    bind({{12.7, 5.0, "38"}, {9.525, 5.0, "12,7"}});
    EXPECT_FALSE(rows.isRight(2));
    EXPECT_EQ(rows.painted(0, 2), "38");
    EXPECT_FALSE(rows.isRight(3));
    EXPECT_EQ(rows.painted(0, 3), "12,7");
}

TEST_F(GridLookTest, NewRowsHaveNewLooks) {
    bind({{12.7, 5.0, "Uno"}});
    bind({{"texto", 5.0, "Uno"}});
    EXPECT_FALSE(rows.isRight(0));
    bind({});
    EXPECT_FALSE(rows.isRight(0));
}

}  // namespace
}  // namespace velmora::toolkit
