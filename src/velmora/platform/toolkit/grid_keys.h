#pragma once
// What keys do in a grid. The grid's current row is its recordset's, so that every step tells the set's listeners.

#include <cstddef>
#include <optional>

#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::toolkit {

/// Where the arrow keys, Page Up, Page Down, Home and End take the current row.
enum class RowMove { up, down, pageUp, pageDown, first, last };

/// Moves the current row; `page` is the number of rows that a page has. Steps stop at the first and the last row, and
/// with no current row go to the first; the set finds its own last row. Nothing happens in a grid without rows. Errors:
/// the set's.
void moveRow(screen::DataGrid& grid, RowMove move, std::size_t page = 1);

/// Presses the button in the current row's cell; `column` is an index into the grid's columns. False when the column
/// shows no buttons or there is no row.
bool pressCell(screen::DataGrid& grid, std::size_t column);

/// A key that the form has let through: Space presses the button of the cell that the user stands in, every other key
/// goes to the grid's KeyDown. `column` is that cell's, an index into the grid's columns; none where the toolkit has no
/// such cell: then Space is a key like any other.
void keyInGrid(screen::DataGrid& grid, const KeyStroke& stroke, std::optional<std::size_t> column);

}  // namespace velmora::toolkit
