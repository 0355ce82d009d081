#include "velmora/platform/toolkit/grid_keys.h"

#include <algorithm>

namespace velmora::toolkit {

namespace {

using screen::DataGrid;

/// The set that the grid shows; nullopt when it has no rows.
std::optional<sql::Recordset> rowsOf(const DataGrid& grid) {
    const sql::Recordset& rows = grid.recordset();
    return rows.isOpen() && rows.hasRows() ? std::optional(rows) : std::nullopt;
}

/// The last existing row from `from`, which exists, up to `to`.
std::size_t lastRowUpTo(const sql::Recordset& rows, std::size_t from, std::size_t to) {
    while (to > from && rows.peek(to) == nullptr) {
        --to;
    }
    return to;
}

void step(DataGrid& grid, const sql::Recordset& rows, bool down, std::size_t count) {
    const std::optional<std::size_t> here = rows.position();
    if (!here) {
        grid.moveToRow(0);
        return;
    }
    const std::size_t target = down ? lastRowUpTo(rows, *here, *here + count) : *here - std::min(*here, count);
    if (target != *here) {
        grid.moveToRow(target);
    }
}

}  // namespace

void moveRow(DataGrid& grid, RowMove move, std::size_t page) {
    std::optional<sql::Recordset> rows = rowsOf(grid);
    if (!rows) {
        return;
    }
    switch (move) {
        case RowMove::up:
            step(grid, *rows, false, 1);
            break;
        case RowMove::down:
            step(grid, *rows, true, 1);
            break;
        case RowMove::pageUp:
            step(grid, *rows, false, page);
            break;
        case RowMove::pageDown:
            step(grid, *rows, true, page);
            break;
        case RowMove::first:
            rows->moveFirst();
            break;
        case RowMove::last:
            rows->moveLast();
            break;
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
