#pragma once
// How a script prints the contents of a form and the values of a result set.

#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::script {

/// All kinds of line breaks replaced by LF.
std::string withPlainBreaks(std::string_view text);
/// The text in double quotes, escaped with \" \\ and \n.
std::string inQuotes(std::string_view text);
/// The whole number that the entire text represents; nullopt otherwise.
std::optional<int> wholeNumber(std::string_view text);

/// What the user reads on the control: a text, the selected entry, on or off, a caption, a grid's number of rows, a
/// bar's captions joined by "|", nothing for a drawing.
std::string textOf(const screen::Control& control);
/// "NAME = …", as `print` prints it.
std::string printed(const screen::Control& control);

/// What `state` reports of a control or a form. Enabled and visible include the frames and the form.
struct State {
    std::string name;
    bool enabled = true;
    bool visible = true;
    bool locked = false;
    std::string text;
};
State stateOf(const screen::Control& control);
State stateOf(const screen::Form& form);
/// "NAME enabled=1 visible=0 text="…""
std::string printed(const State& state);

/// The visible columns: a line of captions, then a line per row, tab-separated, each with a line end.
std::string tableOf(const screen::DataGrid& grid);

/// One value: shortest digits with a point, NULL, 2026-01-15 10:00:00, bit as 0 or 1, text unchanged, 0x… for bytes.
std::string printed(const sql::Value& value);
/// The names of the columns, tab-separated.
std::string headingOf(const sql::Recordset& rows);
/// A line per row, tab-separated, joined by LF; reads the set to its end.
std::string rowsOf(sql::Recordset& rows);

}  // namespace velmora::script
