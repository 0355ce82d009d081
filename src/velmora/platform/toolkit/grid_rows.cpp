#include "velmora/platform/toolkit/grid_rows.h"

#include <algorithm>
#include <utility>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/toolkit/grid_keys.h"
#include "velmora/platform/toolkit/painted_number.h"

namespace velmora::toolkit {

void GridRows::restart() {
    failed_ = false;
    shown_.clear();
    looks_.clear();
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

void GridRows::take(const Known& known) {
    known_ = known;
    if (!looks_.empty() || known_.rows == 0 || failed_) {
        return;
    }
    try {
        for (std::size_t i = 0; i < shown_.size(); ++i) {
            looks_.push_back(lookOf(i));
        }
    } catch (...) {
        looks_.clear();
        failed();
    }
}

// Chosen C-404: alignment and decimals of a column follow its first rows, so that a set of a million rows is not read
// for them. A later number with more decimals is painted with all of them.
GridRows::Look GridRows::lookOf(std::size_t column) const {
    constexpr std::size_t sample = 64;
    const screen::GridColumn& form = shape(column);
    Look look;
    for (std::size_t row = 0; row < std::min(known_.rows, sample); ++row) {
        const sql::Row* values = grid_.recordset().peek(row);
        const auto field = static_cast<std::size_t>(form.field);
        if (values == nullptr || field >= values->size() || (*values)[field].isNull()) {
            continue;
        }
        if (form.button || !(*values)[field].isNumber()) {
            return {};
        }
        look.numbers = true;
        if (form.mask.empty()) {
            look.decimals = std::max(look.decimals, decimalsOf(grid_.cellText(row, shown_[column])));
        }
    }
    return look;
}

std::string GridRows::painted(std::size_t row, std::size_t column) const {
    const std::string told = text(row, column);
    return column < looks_.size() ? paintedNumber(told, looks_[column].decimals) : told;
}

bool GridRows::isRight(std::size_t column) const {
    return shape(column).right || (column < looks_.size() && looks_[column].numbers);
}

std::string countText(std::optional<std::size_t> currentRow, const GridRows::Known& known) {
    const auto number = [](std::size_t value) { return runtime::Format(static_cast<double>(value), "#,##0"); };
    const std::string total =
        (known.complete ? "" : "más de ") + number(known.rows) + (known.rows == 1 ? " fila" : " filas");
    return currentRow ? "Fila " + number(*currentRow + 1) + " de " + total : total;
}

}  // namespace velmora::toolkit
