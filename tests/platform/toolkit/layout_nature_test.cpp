#include "velmora/platform/toolkit/layout_nature.h"

#include <gtest/gtest.h>

#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::toolkit {
namespace {

using namespace screen;
namespace lay = screen::layout;

class LayoutNatureTest : public ::testing::Test {
  protected:
    LayoutNatureTest() { memo.setMultiLine(true); }

    Form form{"frm"};
    Frame frame{form, "frame"};
    TextBox box{form, "box"};
    TextBox memo{form, "memo"};
    ComboBox list{form, "list"};
    CheckBox check{form, "check"};
    Button button{form, "button"};
    Label label{form, "label"};
    Toolbar bar{form, "bar"};
    DataGrid grid{form, "grid"};
    Sketch sketch{form, "sketch"};
};

TEST_F(LayoutNatureTest, WhatTakesTheWidthAndTheHeightThatAreLeftOver) {
    struct Row {
        const char* what;
        Layout node;
        bool sideways;
        bool downward;
    };
    const std::vector<Row> rows{
        {"a field as wide as there is room", lay::field("", box), true, false},
        {"a field of eight digits", lay::field("", box, 8), false, false},
        {"a list as wide as there is room", lay::field("", list), true, false},
        {"a list of eight digits", lay::field("", list, 8), false, false},
        {"a text of several lines", lay::field("", memo, 8), false, false},
        {"a stretched text of several lines", lay::field("", memo, 8).stretched(), false, true},
        {"a stretched field", lay::field("", box, 8).stretched(), false, false},
        {"a check box", lay::plain(check), false, false},
        {"a button", lay::plain(button), false, false},
        {"a bar", lay::plain(bar), true, false},
        {"a grid", lay::plain(grid), true, true},
        {"a sketch", lay::plain(sketch, 8), true, true},
        {"a space", lay::space(), true, false},
        {"a gap", lay::gap(), false, false},
        {"a column with a space", lay::column(lay::field("", box, 8), lay::space()), true, true},
        {"a row with a space", lay::row(lay::field("", box, 8), lay::space()), true, false},
        {"a group around a grid", lay::group(frame, lay::plain(grid)), true, true},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(growsSideways(row.node), row.sideways) << row.what;
        EXPECT_EQ(growsDownward(row.node), row.downward) << row.what;
    }
}

TEST_F(LayoutNatureTest, AnythingButASingleFieldIsTall) {
    EXPECT_FALSE(isTall(lay::field("", box)));
    EXPECT_FALSE(isTall(lay::row(lay::field("", box), lay::plain(button))));
    EXPECT_FALSE(isTall(lay::column(lay::field("", box))));
    EXPECT_TRUE(isTall(lay::column(lay::field("", box), lay::plain(button))));
    EXPECT_TRUE(isTall(lay::group(frame, lay::field("", box))));
    EXPECT_TRUE(isTall(lay::plain(grid)));
    EXPECT_TRUE(isTall(lay::row(lay::plain(button), lay::plain(sketch))));
}

TEST_F(LayoutNatureTest, ChecksButtonsAndLabelsNeedNoCaption) {
    EXPECT_TRUE(speaksForItself(lay::plain(check)));
    EXPECT_TRUE(speaksForItself(lay::plain(button)));
    EXPECT_TRUE(speaksForItself(lay::plain(label)));
    EXPECT_FALSE(speaksForItself(lay::plain(box)));
    EXPECT_FALSE(speaksForItself(lay::plain(grid)));
}

}  // namespace
}  // namespace velmora::toolkit
