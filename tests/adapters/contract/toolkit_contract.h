#pragma once
// The suite that every toolkit runs:
//   INSTANTIATE_TEST_SUITE_P(Qt, ToolkitContract, ::testing::Values(ToolkitUnderTest{"Qt", makeUser}));

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/toolkit/grid_keys.h"

#include "contract_form.h"

namespace velmora::test {

/// A person before one toolkit: hands and eyes. Everything but `play` is called from inside the part that is played.
class ToolkitUser {
  public:
    virtual ~ToolkitUser() = default;

    /// Shows the form as a program does, runs the part once it stands on the screen, and unloads the form afterwards.
    /// Boxes with an error are read and closed.
    virtual void play(screen::Form& form, const std::function<void()>& part) = 0;

    // Keys, to whatever has the keyboard.
    virtual void key(screen::Key key, bool shift = false) = 0;
    virtual void type(std::u32string_view characters) = 0;
    virtual void backspace() = 0;
    virtual void alt(char letter) = 0;
    virtual void row(toolkit::RowMove move) = 0;

    // The mouse.
    virtual void click(screen::Control& control) = 0;
    /// An item of a bar, counted from 1.
    virtual void clickItem(screen::Toolbar& bar, int item) = 0;
    /// A cell by its row and the index of its column in the grid's columns.
    virtual void clickCell(screen::DataGrid& grid, std::size_t row, std::size_t column) = 0;

    // The screen.
    virtual bool sees(const screen::Control& control) = 0;
    /// The field looks as if it could be used.
    virtual bool looksEnabled(const screen::Control& control) = 0;
    /// Text of a field, the chosen entry of a list, "on" or "off", a caption.
    virtual std::string reads(const screen::Control& control) = 0;
    virtual bool keyboardIsIn(const screen::Control& control) = 0;
    /// What the boxes with errors said so far, in order.
    virtual std::vector<std::string> errorsRead() = 0;
};

struct ToolkitUnderTest {
    std::string name;
    std::function<std::unique_ptr<ToolkitUser>()> makeUser;
};

inline void PrintTo(const ToolkitUnderTest& toolkit, std::ostream* out) {
    *out << toolkit.name;
}

class ToolkitContract : public ::testing::TestWithParam<ToolkitUnderTest> {
  protected:
    void SetUp() override {
        user = GetParam().makeUser();
        ASSERT_NE(user, nullptr);
    }
    void play(const std::function<void()>& part);

    ContractForm form;
    std::unique_ptr<ToolkitUser> user;
};

}  // namespace velmora::test
