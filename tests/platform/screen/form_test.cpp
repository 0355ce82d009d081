#include "velmora/platform/screen/form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/screen/places.h"

namespace velmora::screen {
namespace {

TEST(FormTest, TheFormSeesAKeyFirstAndMayChangeOrSwallowIt) {
    Form form("f");
    form.onKeyDown = [](KeyDown& down) {
        if (down.key == Key::padDecimal) {
            down.key = Key::comma;
        } else if (down.key == Key::enter) {
            down.key = Key::none;
        }
    };
    EXPECT_EQ(form.keyDown(Key::padDecimal), Key::comma);
    EXPECT_EQ(form.keyDown(Key::enter), Key::none);
    EXPECT_EQ(form.keyDown(Key::f5), Key::f5);
}

TEST(FormTest, ADisabledOrUnloadedFormSeesNoKey) {
    Form form("f");
    int keys = 0;
    form.onKeyDown = [&](KeyDown&) { ++keys; };
    form.setEnabled(false);
    EXPECT_EQ(form.keyDown(Key::f5), Key::none);
    form.setEnabled(true);
    form.unload();
    EXPECT_EQ(form.keyDown(Key::f5), Key::none);
    EXPECT_EQ(keys, 0);
}

TEST(FormTest, UnloadingIsToldOnce) {
    Form form("f");
    int unloads = 0;
    form.onUnload = [&] { ++unloads; };
    form.unload();
    form.unload();
    EXPECT_EQ(unloads, 1);
    EXPECT_TRUE(form.isUnloaded());
}

TEST(FormTest, ComingOnTheScreenActivatesAndThenTheFirstStopTakesTheFocus) {
    Form form("f");
    TextBox first(form, "a");
    TextBox second(form, "b");
    form.setTabOrder({&first, &second});
    bool focusDuringActivate = true;
    form.onActivate = [&] { focusDuringActivate = form.activeControl() != nullptr; };
    form.activate();
    EXPECT_FALSE(focusDuringActivate);
    EXPECT_EQ(form.activeControl(), &first);
}

TEST(FormTest, AFocusThatActivateGaveIsLeftAlone) {
    Form form("f");
    TextBox first(form, "a");
    TextBox second(form, "b");
    form.setTabOrder({&first, &second});
    form.onActivate = [&] { second.setFocus(); };
    form.activate();
    EXPECT_EQ(form.activeControl(), &second);
}

TEST(FormTest, TheFieldOfAControlIsFoundInTheLayout) {
    Form form("f");
    Frame frame(form, "fraEje");
    TextBox inside(form, "Text1", 7);
    TextBox outside(form, "Text1", 8);
    form.setLayout(layout::group(frame, layout::row(layout::field("Eje", inside, 8).number())));
    ASSERT_NE(fieldOf(inside, form.layout()), nullptr);
    EXPECT_EQ(fieldOf(inside, form.layout())->caption, "Eje");
    EXPECT_EQ(fieldOf(outside, form.layout()), nullptr);
    EXPECT_EQ(fieldOf(frame, form.layout()), nullptr);
}

TEST(FormTest, ALayoutPutsFieldsIntoTheFramesOfTheirGroupsAndNamesThemByTheirCaptions) {
    Form form("f");
    Frame frame(form, "fraEje");
    TextBox inside(form, "Text1", 7);
    TextBox outside(form, "Text1", 8);
    TextBox named(form, "Text1", 9);
    named.setAccessibleName("Otro");
    form.setLayout(layout::column(
        layout::group(frame, layout::column(layout::field("Eje", inside, 8), layout::field("Llanta", named, 8))),
        layout::field("A.C.", outside, 8)));
    EXPECT_EQ(inside.frame(), &frame);
    EXPECT_EQ(outside.frame(), nullptr);
    EXPECT_EQ(inside.accessibleName(), "Eje");
    EXPECT_EQ(named.accessibleName(), "Otro");
    frame.setVisible(false);
    EXPECT_FALSE(inside.canTakeFocus());
    EXPECT_TRUE(outside.canTakeFocus());
}

}  // namespace
}  // namespace velmora::screen
