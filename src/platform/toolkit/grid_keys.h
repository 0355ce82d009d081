#pragma once
// What keys do in a grid. The grid's current row is its recordset's, so that every step tells the set's listeners.

#include <cstddef>
#include <optional>

#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::toolkit {

/// Moves the current row by a number of rows, upward when negative: 1 for the arrow keys, the rows in sight for a page.
/// Stops at the first and the last row; with no current row goes to the first. Nothing happens in a grid without rows.
/// Errors: the set's.
void stepRows(screen::DataGrid& grid, std::ptrdiff_t rows);

/// To the first, the last row of the set, which finds it by itself; nothing in a grid without rows. Errors: the set's.
void goToFirstRow(screen::DataGrid& grid);
void goToLastRow(screen::DataGrid& grid);

/// Presses the button in the current row's cell; `column` is an index into the grid's columns. False when the column
/// shows no buttons or there is no row.
bool pressCell(screen::DataGrid& grid, std::size_t column);

/// A key that the form has let through: Space presses the button of the cell that the user stands in, every other key
/// goes to the grid's KeyDown. `column` is that cell's, an index into the grid's columns; none where the toolkit has no
/// such cell: then Space is a key like any other.
void keyInGrid(screen::DataGrid& grid, const KeyStroke& stroke, std::optional<std::size_t> column);

}  // namespace velmora::toolkit
