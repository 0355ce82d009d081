#pragma once
// Actions of a person on the controls of a form, with the refusals that a person meets.

#include <optional>
#include <string_view>

#include "velmora/adapters/script/journal.h"
#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/toolkit/grid_keys.h"
#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::script {

/// A control that is hidden, disabled or locked, itself or through its frames, refuses: then nothing is done and the
/// result is false. An error of an event's handler is printed to the journal and the action continues with its next
/// step, as for a person who has closed the error box.
class User {
  public:
    explicit User(Journal& journal) : journal_(journal) {}

    /// Moves the focus: LostFocus of the old control, GotFocus of this one.
    bool focus(screen::Control& control);
    void leave(screen::Form& form);

    /// Replaces the whole text at once. A list must be editable.
    bool set(screen::TextBox& box, std::string_view text);
    bool set(screen::ComboBox& list, std::string_view text);
    /// Key by key, each into the control that has the focus at that moment.
    bool type(screen::Control& control, std::string_view text);

    /// At the end of the field or in place of its selection, through the filter of texts that were not typed.
    bool paste(screen::TextBox& box, std::string_view text);

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
    /// A key in the grid, wherever the focus is: the form's KeyDown first.
    bool keyInGrid(screen::DataGrid& grid, const toolkit::KeyStroke& stroke);

    /// A key that moves the current row, wherever the focus is. The form does not see it.
    bool moveRow(screen::DataGrid& grid, toolkit::RowMove move);

    /// A key at the focus: the form first, then the control.
    void stroke(screen::Form& form, const toolkit::KeyStroke& stroke);
    /// Alt and a letter: presses the button or bar item with this mnemonic; does nothing when there is none, or when it
    /// would open a menu.
    void pressMnemonic(screen::Form& form, char32_t letter);

  private:
    void deliver(screen::Form& form, const toolkit::KeyStroke& stroke);

    Journal& journal_;
};

}  // namespace velmora::script
