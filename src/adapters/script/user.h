#pragma once
// What a person does to the controls of a form, with the refusals that a person meets.

#include <optional>
#include <string_view>

#include "velmora/adapters/script/journal.h"
#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"

namespace velmora::script {

/// A control that is hidden, disabled or locked, itself or through what it stands in, refuses: then nothing is done
/// and the answer is false. An error of an event's handler is shown in the journal, and the deed goes on with its next
/// step, as a person does who has read the error box.
class User {
  public:
    explicit User(Journal& journal) : journal_(journal) {}

    /// Moves the focus: LostFocus of the old control, GotFocus of this one.
    bool focus(screen::Control& control);
    void leave(screen::Form& form);

    /// Replaces the text at one go. A list must be an editable one.
    bool set(screen::TextBox& box, std::string_view text);
    bool set(screen::ComboBox& list, std::string_view text);
    /// Key by key, into the control that has the focus at each key.
    bool type(screen::Control& control, std::string_view text);

    bool doubleClick(screen::TextBox& box);
    bool choose(screen::ComboBox& list, int index);
    bool check(screen::CheckBox& box, bool checked);
    bool press(screen::Button& button);
    /// A button of a bar by its index, counted from 1; a menu item by its key.
    bool press(screen::Toolbar& bar, int index);
    bool press(screen::Toolbar& bar, std::string_view menuKey);

    bool moveToRow(screen::DataGrid& grid, std::size_t row);
    /// Presses the button of the current row's cell; `column` is an index into the grid's columns.
    bool pressCell(screen::DataGrid& grid, std::size_t column);
    /// A key in the grid, wherever the focus is: the form sees it first.
    bool keyInGrid(screen::DataGrid& grid, screen::Key key);

    /// A key where the focus is: the form sees it first, then the control.
    void key(screen::Form& form, screen::Key key);
    void backspace(screen::Form& form);

  private:
    void stroke(screen::Form& form, screen::Key key, char32_t character);
    void deliver(screen::Form& form, screen::Key key, char32_t character);

    Journal& journal_;
};

}  // namespace velmora::script
