#pragma once
// How a script writes what stands on a form, and the values of a result set.

#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::script {

/// Line breaks of every kind turned into LF.
std::string withPlainBreaks(std::string_view text);
/// The text in double quotes, with \" \\ and \n.
std::string inQuotes(std::string_view text);
/// A whole number that takes up the whole text; none otherwise.
std::optional<int> wholeNumber(std::string_view text);

/// What a person reads on the control: a text, the chosen entry, on or off, a caption, a grid's number of rows, a
/// bar's captions joined by "|", nothing for a drawing.
std::string textOf(const screen::Control& control);
/// "NAME = …" as `print` writes it.
std::string printed(const screen::Control& control);

/// What `state` tells of a control or a form. Enabled and visible are what holds with its frames and form.
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

/// The visible columns: a line of captions, then a line a row, tab-separated, each line ended.
std::string tableOf(const screen::DataGrid& grid);

/// One value: shortest digits with a point, NULL, 2026-01-15 10:00:00, bit as 0 or 1, text as it is, 0x… for bytes.
std::string printed(const sql::Value& value);
/// The names of the columns, tab-separated.
std::string headingOf(const sql::Recordset& rows);
/// A line a row, tab-separated, divided by LF; reads the set to its end.
std::string rowsOf(sql::Recordset& rows);

}  // namespace velmora::script
