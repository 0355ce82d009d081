#include "velmora/platform/toolkit/layout_plan.h"

#include <gmock/gmock.h>

#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {
namespace {

using namespace screen;
namespace lay = screen::layout;
using Part = LayoutPlan::Kind;
using ::testing::ElementsAre;

/// "caption 0,0 control 0,1+2 unit 0,2": kind, row, column, span of each cell of a grid.
std::string cellsOf(const LayoutPlan& plan) {
    static const char* const names[] = {"nothing", "control", "caption", "unit", "space",
                                        "box",     "grid",    "turns",   "group"};
    std::string all;
    for (const PlanCell& cell : plan.cells) {
        all += (all.empty() ? "" : " ") + std::string(names[static_cast<int>(cell.part.kind)]);
        if (plan.kind == Part::grid) {
            all += " " + std::to_string(cell.row) + "," + std::to_string(cell.column);
            all += cell.columnSpan > 1 ? "+" + std::to_string(cell.columnSpan) : "";
        } else if (cell.stretch > 0) {
            all += "*" + std::to_string(cell.stretch);
        }
    }
    return all;
}

class LayoutPlanTest : public ::testing::Test {
  protected:
    Form form{"frm"};
    Frame frame{form, "frame"};
    Frame other{form, "other"};
    TextBox a{form, "a"};
    TextBox b{form, "b"};
    TextBox c{form, "c"};
    Button button{form, "button"};
    DataGrid table{form, "table"};
};

TEST_F(LayoutPlanTest, CaptionsControlsAndUnitsOfAColumnLineUp) {
    const Layout tree = lay::column(lay::field("A", a, 8).units("mm"), lay::field("B", b, 8), lay::plain(button));
    const LayoutPlan plan = planOf(tree);
    EXPECT_EQ(plan.kind, Part::grid);
    EXPECT_EQ(cellsOf(plan), "caption 0,0 control 0,1 unit 0,2 caption 1,0 control 1,1 control 2,0+4");
    EXPECT_EQ(plan.spacing, Spacing::lines);
    EXPECT_THAT(plan.columnStretch, ElementsAre(0, 0, 0, 1)) << "nothing grows: the rest stays at the right";
    EXPECT_THAT(plan.rowStretch, ElementsAre(0, 0, 0, 1)) << "and below";
}

TEST_F(LayoutPlanTest, AFieldThatGrowsReachesTheEdgeUnlessAUnitFollows) {
    const Layout tree = lay::column(lay::field("A", a), lay::field("B", b).units("mm"));
    const LayoutPlan plan = planOf(tree);
    EXPECT_EQ(cellsOf(plan), "caption 0,0 control 0,1+3 caption 1,0 control 1,1 unit 1,2");
    EXPECT_THAT(plan.columnStretch, ElementsAre(0, 1, 0, 0));
    EXPECT_EQ(plan.cells[1].alignment, Alignment::fill);
}

TEST_F(LayoutPlanTest, AGridOfTwoColumnsHasThreePlannedOnesForEach) {
    const Layout tree = lay::grid(2, lay::field("A", a, 8), lay::field("B", b, 8), lay::gap(), lay::field("C", c, 8));
    const LayoutPlan plan = planOf(tree);
    EXPECT_EQ(cellsOf(plan), "caption 0,0 control 0,1 caption 0,3 control 0,4 caption 1,3 control 1,4");
    EXPECT_FALSE(plan.cells[0].indented);
    EXPECT_TRUE(plan.cells[2].indented) << "it follows another column";
}

TEST_F(LayoutPlanTest, ARowThatBeginsWithACaptionLinesItUp) {
    const Layout tree =
        lay::column(lay::field("A", a, 8), lay::row(lay::field("B", b, 8).units("mm"), lay::plain(button)));
    const LayoutPlan plan = planOf(tree);
    EXPECT_EQ(cellsOf(plan), "caption 0,0 control 0,1 caption 1,0 box 1,1+3");
    EXPECT_EQ(cellsOf(plan.cells.back().part), "control unit control space*1");
}

TEST_F(LayoutPlanTest, FieldsThatTakeTurnsShareACellEachForCaptionControlAndUnit) {
    const Layout tree = lay::column(lay::takeTurns(lay::field("A", a, 8).units("mm"), lay::field("B", b, 8)));
    const LayoutPlan boxed = planOf(tree);
    EXPECT_EQ(boxed.kind, Part::box) << "without a captioned field beside them they are one thing";
    const Layout gridded = lay::grid(1, lay::takeTurns(lay::field("A", a, 8).units("mm"), lay::field("B", b, 8)));
    const LayoutPlan plan = planOf(gridded);
    EXPECT_EQ(cellsOf(plan), "turns 0,0 turns 0,1 turns 0,2");
    EXPECT_EQ(cellsOf(plan.cells[0].part), "caption caption");
    EXPECT_EQ(cellsOf(plan.cells[1].part), "box box");
    EXPECT_EQ(cellsOf(plan.cells[2].part), "unit nothing");
    EXPECT_TRUE(plan.cells[0].part.cells[0].part.shownByTurn);
    EXPECT_EQ(plan.cells[0].part.node, &gridded.children[0]);
}

TEST_F(LayoutPlanTest, GroupsThatTakeTurnsAreShownByTheirTurn) {
    const Layout tree = lay::takeTurns(lay::group(frame, lay::field("A", a)), lay::field("B", b));
    const LayoutPlan plan = planOf(tree);
    EXPECT_EQ(plan.kind, Part::turns);
    EXPECT_EQ(cellsOf(plan), "group box");
    EXPECT_TRUE(plan.cells[0].part.shownByTurn);
    EXPECT_FALSE(plan.cells[1].part.shownByTurn);
    EXPECT_FALSE(planOf(lay::group(frame, lay::field("A", a))).shownByTurn);
}

TEST_F(LayoutPlanTest, WhatGrowsInABoxStretchesAndElseTheRestIsLeftOver) {
    EXPECT_EQ(cellsOf(planOf(lay::row(lay::plain(button), lay::plain(a, 8)))), "control control space*1");
    EXPECT_EQ(cellsOf(planOf(lay::row(lay::plain(button), lay::plain(a)))), "control control*1");
    EXPECT_EQ(cellsOf(planOf(lay::row(lay::plain(button), lay::space()))), "control space*1");
    EXPECT_EQ(cellsOf(planOf(lay::column(lay::plain(button), lay::plain(table).stretched(3)))), "control control*3");
    EXPECT_EQ(cellsOf(planOf(lay::column(lay::plain(button), lay::gap()))), "control space*1");
}

TEST_F(LayoutPlanTest, BesideSomethingTallASingleFieldStandsAtTheTop) {
    const Layout tree = lay::row(lay::plain(button), lay::plain(table));
    const LayoutPlan plan = planOf(tree);
    EXPECT_EQ(plan.spacing, Spacing::groups);
    EXPECT_EQ(plan.cells[0].alignment, Alignment::top);
    EXPECT_EQ(plan.cells[1].alignment, Alignment::fill);
    EXPECT_EQ(planOf(lay::row(lay::plain(button), lay::plain(a))).cells[0].alignment, Alignment::fill);
}

TEST_F(LayoutPlanTest, ACaptionMayStandAboveItsFieldAndItsUnit) {
    const Layout tree = lay::field("A", a, 8).units("mm").above();
    const LayoutPlan plan = planOf(tree);
    EXPECT_FALSE(plan.horizontal);
    EXPECT_EQ(plan.spacing, Spacing::caption);
    EXPECT_EQ(cellsOf(plan), "caption box");
    EXPECT_EQ(cellsOf(plan.cells[1].part), "control*1 unit");
}

TEST_F(LayoutPlanTest, ACaptionBesideATextOfSeveralLinesStandsAtItsTop) {
    const Layout tree = lay::column(lay::field("A", a, 8), lay::field("B", b, 8));
    EXPECT_EQ(planOf(tree).cells[2].alignment, Alignment::leftCentre);
    b.setMultiLine(true);
    EXPECT_EQ(planOf(tree).cells[2].alignment, Alignment::leftTop);
}

}  // namespace
}  // namespace velmora::toolkit
