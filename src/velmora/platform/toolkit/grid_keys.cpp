#include "velmora/platform/toolkit/grid_keys.h"

#include <algorithm>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

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

// Chosen C-481: nothing and zero open nothing.
bool opensSomething(const sql::Value& value) {
    const std::string text = value.isNull() ? std::string() : runtime::Trim(value.toText());
    return !text.empty() && (!runtime::IsNumeric(text) || runtime::CDbl(text) != 0);
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

bool hasButton(const DataGrid& grid, std::size_t row, std::size_t column) {
    if (!rowsOf(grid) || column >= grid.columns().size()) {
        return false;
    }
    const screen::GridColumn& shape = grid.columns()[column];
    const sql::Row* values = shape.button && shape.visible ? grid.recordset().peek(row) : nullptr;
    const auto field = static_cast<std::size_t>(shape.field);
    return values != nullptr && field < values->size() && opensSomething((*values)[field]);
}

bool pressRow(DataGrid& grid) {
    const auto rows = rowsOf(grid);
    const std::optional<std::size_t> row = rows ? rows->position() : std::nullopt;
    for (std::size_t column = 0; row && column < grid.columns().size(); ++column) {
        if (hasButton(grid, *row, column)) {
            return pressCell(grid, column);
        }
    }
    const bool anyButton = std::ranges::any_of(grid.columns(), &screen::GridColumn::button);
    if (row && !anyButton) {
        grid.onButtonClick(wholeRow);
    }
    return row && !anyButton;
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
        const auto rows = rowsOf(grid);
        if (const auto row = rows ? rows->position() : std::nullopt; row && hasButton(grid, *row, *column)) {
            pressCell(grid, *column);
        }
        return;
    }
    screen::KeyDown down{stroke.key, stroke.shift};
    grid.onKeyDown(down);
}

}  // namespace velmora::toolkit
