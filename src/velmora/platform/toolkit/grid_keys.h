#pragma once
// Keys in a grid. The grid's current row is its recordset's, so every move notifies the set's listeners.

#include <cstddef>
#include <optional>

#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::toolkit {

/// Moves of the current row by the arrow keys, Page Up, Page Down, Home and End.
enum class RowMove { up, down, pageUp, pageDown, first, last };

/// Moves the current row; `page` is the number of rows per page. Moves stop at the first and the last row; without a
/// current row they go to the first. The set determines its own last row. Does nothing in a grid without rows. Errors:
/// the set's.
void moveRow(screen::DataGrid& grid, RowMove move, std::size_t page = 1);

/// Whether the cell shows a button: its column has buttons, and the value is neither nothing nor zero, so that there is
/// something to open. Errors: the set's.
bool hasButton(const screen::DataGrid& grid, std::size_t row, std::size_t column);

/// The column that a grid without buttons is told when a row of it is pressed.
inline constexpr int wholeRow = -1;

/// Presses the current row's button, as a double click does: the first one that it has; in a grid without any column of
/// buttons the row itself is pressed. False when neither is there.
bool pressRow(screen::DataGrid& grid);

/// Presses the button in the current row's cell; `column` is an index into the grid's columns. False when the column
/// shows no buttons or there is no row.
bool pressCell(screen::DataGrid& grid, std::size_t column);

/// A key that the form has let through: Space presses the button that the user's cell shows, every other key goes to
/// the grid's KeyDown. `column` is the column of that cell, an index into the grid's columns; nullopt where the toolkit
/// has no current cell: Space is then an ordinary key.
void keyInGrid(screen::DataGrid& grid, const KeyStroke& stroke, std::optional<std::size_t> column);

}  // namespace velmora::toolkit
