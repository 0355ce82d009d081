#include "velmora/platform/toolkit/grid_keys.h"

#include <algorithm>
#include <cstdlib>

namespace velmora::toolkit {

namespace {

using screen::DataGrid;

/// The set that the grid shows; none when it has no rows.
std::optional<sql::Recordset> rowsOf(const DataGrid& grid) {
    const sql::Recordset& rows = grid.recordset();
    return rows.isOpen() && rows.hasRows() ? std::optional(rows) : std::nullopt;
}

/// The last row there is between one that is there and another below it.
std::size_t lastRowUpTo(const sql::Recordset& rows, std::size_t from, std::size_t to) {
    while (to > from && rows.peek(to) == nullptr) {
        --to;
    }
    return to;
}

}  // namespace

void stepRows(DataGrid& grid, std::ptrdiff_t rows) {
    const std::optional<sql::Recordset> set = rowsOf(grid);
    if (!set) {
        return;
    }
    const std::optional<std::size_t> here = set->position();
    if (!here) {
        grid.moveToRow(0);
        return;
    }
    const auto count = static_cast<std::size_t>(std::abs(rows));
    const std::size_t target = rows < 0 ? *here - std::min(*here, count) : lastRowUpTo(*set, *here, *here + count);
    if (target != *here) {
        grid.moveToRow(target);
    }
}

void goToFirstRow(DataGrid& grid) {
    if (std::optional<sql::Recordset> rows = rowsOf(grid)) {
        rows->moveFirst();
    }
}

void goToLastRow(DataGrid& grid) {
    if (std::optional<sql::Recordset> rows = rowsOf(grid)) {
        rows->moveLast();
    }
}

bool pressCell(DataGrid& grid, std::size_t column) {
    if (!rowsOf(grid) || column >= grid.columns().size()) {
        return false;
    }
    const screen::GridColumn& shape = grid.columns()[column];
    if (!shape.button || !shape.visible) {
        return false;
    }
    grid.onButtonClick(static_cast<int>(column));
    return true;
}

void keyInGrid(DataGrid& grid, const KeyStroke& stroke, std::optional<std::size_t> column) {
    if (stroke.character == U' ' && column) {
        pressCell(grid, *column);
        return;
    }
    screen::KeyDown down{stroke.key, stroke.shift};
    grid.onKeyDown(down);
}

}  // namespace velmora::toolkit
