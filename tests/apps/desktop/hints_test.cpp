// What the status line tells of the field with the focus, on every form.

#include <QApplication>

#include <gtest/gtest.h>

#include "velmora/platform/screen/data_grid.h"

#include "every_form.h"

namespace velmora::desktop {
namespace {

/// Fields, lists, boxes and grids that the keyboard can reach and change; a button says what it does by itself.
bool needsHint(const screen::Control& control) {
    const auto* text = dynamic_cast<const screen::TextBox*>(&control);
    const bool entered = (text != nullptr && !text->locked()) ||
                         dynamic_cast<const screen::ComboBox*>(&control) != nullptr ||
                         dynamic_cast<const screen::CheckBox*>(&control) != nullptr ||
                         dynamic_cast<const screen::DataGrid*>(&control) != nullptr;
    return entered && control.tabStop();
}

TEST(Hints, EveryFieldThatTabReachesTellsWhatMayBeEntered) {
    int count = 1;
    char name[] = "test_desktop";
    char* arguments[] = {name, nullptr};
    const QApplication application(count, arguments);
    EveryForm every;
    int fields = 0;
    for (const WindowPicture& picture : every.forms()) {
        const auto form = picture.make();
        for (const screen::Control* control : form->tabOrder()) {
            if (needsHint(*control)) {
                ++fields;
                EXPECT_FALSE(control->hint().empty()) << picture.name << ": " << control->fullName();
            }
        }
    }
    EXPECT_GT(fields, 200);
}

}  // namespace
}  // namespace velmora::desktop
