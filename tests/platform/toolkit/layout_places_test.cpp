#include "velmora/platform/toolkit/layout_places.h"

#include <map>

#include <gmock/gmock.h>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {
namespace {

namespace lay = screen::layout;
using screen::Layout;
using ::testing::ElementsAre;

/// A part of a fixed size.
class FixedPart : public PlacedPart {
  public:
    FixedPart(int width, int height) : needs_{.width = {width, width}, .height = {height, height}} {}

    Needs needs() const override { return needs_; }
    bool fillsWidth() const override { return fills; }
    bool fillsHeight() const override { return fills; }
    bool takesRoom() const override { return visible || keepsRoom; }
    bool place(const Area& given, bool shown) override {
        area = given;
        isShown = shown && visible;
        return isShown;
    }

    bool fills = false;
    bool visible = true;
    bool keepsRoom = false;
    Area area;
    bool isShown = false;

  private:
    Needs needs_;
};

/// Captions are 40 wide and 10 high, controls ten times their digits wide (0: 50 at least) and 20 high, units 15 wide.
class Places : public ::testing::Test, public PartSource, public Distances {
  protected:
    PlacedPart* control(const Layout& field) override {
        const int width = field.width > 0 ? field.width * 10 : 50;
        FixedPart& part = parts.try_emplace(field.control, width, 20).first->second;
        part.fills = part.fills || field.width == 0;
        return &part;
    }
    PlacedPart* caption(const Layout& field, bool) override {
        return &captions.try_emplace(field.control, 40, 10).first->second;
    }
    PlacedPart* unit(const Layout& field) override { return &units.try_emplace(field.control, 15, 10).first->second; }
    PlacedPart& openGroup(const Layout& group, bool) override {
        FixedPart& part = parts.try_emplace(group.control, 0, 0).first->second;
        part.fills = true;
        return part;
    }
    void closeGroup() override {}
    int pixels(Spacing spacing) const override { return spacing == Spacing::groups ? 12 : 6; }
    GroupEdges edgesOf(const Layout&) const override { return {.left = 2, .top = 14, .right = 2, .bottom = 2}; }

    Area areaOf(const screen::Control& control) const { return parts.at(&control).area; }

    /// Arranges a layout in its natural size.
    Needs arrange(const Layout& tree, int width = 0, int height = 0) {
        const LayoutPlan plan = planOf(tree);
        LayoutPlaces places(plan, *this, *this);
        prepare();
        const Needs needs = places.measure();
        places.place(
            {.width = width > 0 ? width : needs.width.natural, .height = height > 0 ? height : needs.height.natural});
        return needs;
    }

    screen::Form form{"frmPlaces"};
    screen::TextBox first{form, "first"};
    screen::TextBox second{form, "second"};
    screen::TextBox third{form, "third"};
    screen::Frame frame{form, "frame"};
    screen::Frame other{form, "other"};
    std::map<const screen::Control*, FixedPart> parts;
    std::map<const screen::Control*, FixedPart> captions;
    std::map<const screen::Control*, FixedPart> units;
    std::function<void()> prepare = [] {};
};

TEST(ShareOut, RoomLeftGoesToWhatStretchesByItsShare) {
    const std::vector<Track> tracks{{.need = {10, 20}, .empty = false},
                                    {.need = {10, 20}, .stretch = 1, .empty = false},
                                    {.need = {10, 20}, .stretch = 3, .empty = false}};
    EXPECT_THAT(shareOut(tracks, 232, 6), ElementsAre(20, 50, 150));
}

TEST(ShareOut, NothingThatStretchesGetsLessThanItsLeast) {
    const std::vector<Track> tracks{{.need = {70, 90}, .stretch = 1, .empty = false},
                                    {.need = {10, 10}, .stretch = 1, .empty = false}};
    EXPECT_THAT(shareOut(tracks, 100, 0), ElementsAre(70, 30));
    EXPECT_THAT(shareOut(tracks, 160, 0), ElementsAre(80, 80));
}

TEST(ShareOut, BelowTheNaturalSizeAllShrinkAlikeButNoneBelowItsLeast) {
    const std::vector<Track> tracks{
        {.need = {50, 50}, .empty = false}, {.need = {10, 50}, .empty = false}, {.need = {30, 50}, .empty = false}};
    EXPECT_THAT(shareOut(tracks, 120, 0), ElementsAre(50, 35, 35));
    EXPECT_THAT(shareOut(tracks, 10, 0), ElementsAre(50, 10, 30)) << "never below the least";
}

TEST(ShareOut, WhatIsEmptyTakesNoSpacing) {
    const std::vector<Track> tracks{
        {.need = {20, 20}, .empty = false}, {.stretch = 1}, {.need = {20, 20}, .empty = false}};
    EXPECT_THAT(shareOut(tracks, 100, 6), ElementsAre(20, 54, 20));
}

TEST_F(Places, CaptionsAndControlsOfAColumnLineUp) {
    const Layout tree = lay::column(lay::field("A", first, 8), lay::field("B", second, 4).units("mm"));
    const Needs needs = arrange(tree);
    EXPECT_EQ(areaOf(first), (Area{.left = 46, .top = 0, .width = 80, .height = 20}));
    EXPECT_EQ(areaOf(second), (Area{.left = 46, .top = 26, .width = 40, .height = 20}));
    EXPECT_EQ(captions.at(&second).area, (Area{.left = 0, .top = 31, .width = 40, .height = 10}));
    EXPECT_EQ(units.at(&second).area.left, 46 + 80 + 6);
    EXPECT_EQ(needs.height.natural, 46);
}

TEST_F(Places, ARowGivesTheRoomThatIsLeftToWhatGrows) {
    const Layout tree = lay::row(lay::field("A", first, 4), lay::field("B", second));
    arrange(tree, 400, 20);
    EXPECT_EQ(areaOf(first).width, 40);
    EXPECT_EQ(areaOf(second).right(), 400);
}

TEST_F(Places, AHiddenGroupGivesItsRoomBackAndHidesWhatStandsInIt) {
    const Layout tree =
        lay::column(lay::group(frame, lay::field("A", first, 8)), lay::group(other, lay::field("B", second, 8)));
    arrange(tree);
    EXPECT_EQ(areaOf(other).top, 14 + 20 + 2 + 12);
    EXPECT_TRUE(parts.at(&first).isShown);
    prepare = [this] { parts.at(&frame).visible = false; };
    arrange(tree);
    EXPECT_EQ(areaOf(other).top, 0);
    EXPECT_FALSE(parts.at(&first).isShown);
}

TEST_F(Places, AHiddenFieldThatKeepsItsRoomMovesNothing) {
    const Layout tree = lay::row(lay::field("A", first, 4), lay::field("B", second, 4));
    arrange(tree);
    const Area before = areaOf(second);
    prepare = [this] {
        parts.at(&first).visible = false;
        parts.at(&first).keepsRoom = true;
    };
    arrange(tree);
    EXPECT_EQ(areaOf(second), before);
    EXPECT_FALSE(parts.at(&first).isShown);
}

TEST_F(Places, PagesThatTakeTurnsHaveThePlaceOfTheLargest) {
    const Layout tree =
        lay::takeTurns(lay::group(frame, lay::field("A", first, 4)), lay::group(other, lay::field("B", second, 20)));
    const Needs needs = arrange(tree);
    EXPECT_EQ(needs.width.natural, 2 + 40 + 6 + 200 + 2);
    EXPECT_EQ(areaOf(frame), areaOf(other));
    EXPECT_TRUE(parts.at(&first).isShown);
    EXPECT_FALSE(parts.at(&second).isShown);
    frame.setVisible(false);
    arrange(tree);
    EXPECT_FALSE(parts.at(&first).isShown);
    EXPECT_TRUE(parts.at(&second).isShown);
}

TEST_F(Places, ASpacePushesWhatFollowsToTheEdge) {
    const Layout tree = lay::row(lay::plain(first, 4), lay::space(), lay::plain(second, 4));
    arrange(tree, 300, 20);
    EXPECT_EQ(areaOf(first).left, 0);
    EXPECT_EQ(areaOf(second).right(), 300);
}

}  // namespace
}  // namespace velmora::toolkit
