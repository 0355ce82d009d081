#include "velmora/platform/toolkit/grid_rows.h"

#include <utility>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/toolkit/grid_keys.h"

namespace velmora::toolkit {

void GridRows::restart() {
    failed_ = false;
    shown_.clear();
    for (std::size_t i = 0; i < grid_.columns().size(); ++i) {
        if (grid_.columns()[i].visible) {
            shown_.push_back(i);
        }
    }
    known_ = {.rows = 0, .complete = !grid_.recordset().isOpen()};
}

// The last of the wanted rows is read first: if it exists, so do all before it.
GridRows::Known GridRows::reach(std::size_t rows) const {
    if (known_.complete || rows <= known_.rows) {
        return known_;
    }
    if (hasRow(rows - 1)) {
        return {.rows = rows, .complete = !hasRow(rows)};
    }
    return {.rows = countBetween(known_.rows, rows), .complete = true};
}

/// Binary search for the number of rows: the first `known` rows exist, the row at `missing` - 1 does not.
std::size_t GridRows::countBetween(std::size_t known, std::size_t missing) const {
    while (known < missing) {
        const std::size_t middle = known + (missing - known) / 2;
        if (hasRow(middle)) {
            known = middle + 1;
        } else {
            missing = middle;
        }
    }
    return known;
}

bool GridRows::hasRow(std::size_t row) const {
    if (failed_ || !grid_.recordset().isOpen()) {
        return false;
    }
    try {
        return grid_.recordset().peek(row) != nullptr;
    } catch (...) {
        failed();
        return false;
    }
}

std::string GridRows::text(std::size_t row, std::size_t column) const {
    if (failed_) {
        return {};
    }
    try {
        return grid_.cellText(row, shown_[column]);
    } catch (...) {
        failed();
        return {};
    }
}

bool GridRows::hasButton(std::size_t row, std::size_t column) const {
    if (failed_) {
        return false;
    }
    try {
        return toolkit::hasButton(grid_, row, shown_[column]);
    } catch (...) {
        failed();
        return false;
    }
}

// An error is reported once, not once per cell.
void GridRows::failed() const {
    if (!std::exchange(failed_, true)) {
        report_(std::current_exception());
    }
}

std::string countText(std::optional<std::size_t> currentRow, const GridRows::Known& known) {
    const auto number = [](std::size_t value) { return runtime::Format(static_cast<double>(value), "#,##0"); };
    const std::string total =
        (known.complete ? "" : "más de ") + number(known.rows) + (known.rows == 1 ? " fila" : " filas");
    return currentRow ? "Fila " + number(*currentRow + 1) + " de " + total : total;
}

}  // namespace velmora::toolkit
