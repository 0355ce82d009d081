#pragma once
// The rows of a grid for a toolkit's table, read when they are scrolled into view.

#include <cstddef>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "velmora/platform/screen/data_grid.h"

namespace velmora::toolkit {

/// Chosen C-242: only the rows asked for so far are known, a chunk at a time, and whether there are more: a set of a
/// million rows is neither counted nor loaded on opening, and its count reads "más de" until the end has been reached.
class GridRows {
  public:
    /// Number of rows read at once.
    static constexpr std::size_t chunk = 256;

    /// What is known of the set so far.
    struct Known {
        std::size_t rows = 0;
        bool complete = true;  ///< true when `rows` is the number of all rows
    };

    using Report = std::function<void(std::exception_ptr)>;

    /// `report` receives the first error raised while reading the set after each restart; the cells are empty from then
    /// on.
    GridRows(const screen::DataGrid& grid, Report report) : grid_(grid), report_(std::move(report)) {}

    /// Columns or rows of the grid have changed: forgets all rows.
    void restart();

    const Known& known() const { return known_; }
    /// What will be known once `rows` rows have been asked for. Takes effect with `take`, so that a table can announce
    /// new rows before they exist.
    Known reach(std::size_t rows) const;
    void take(const Known& known);

    /// Number of visible columns.
    std::size_t columnCount() const { return shown_.size(); }
    /// Converts the index of a visible column to an index into the grid's columns.
    std::size_t gridColumn(std::size_t column) const { return shown_[column]; }
    const screen::GridColumn& shape(std::size_t column) const { return grid_.columns()[shown_[column]]; }
    /// Whether the cell shows a button; false when it could not be read.
    bool hasButton(std::size_t row, std::size_t column) const;
    /// The text of a cell; empty when it could not be read.
    std::string text(std::size_t row, std::size_t column) const;
    /// The text of a cell as it is painted: a number of a column without a mask has the decimals of that column.
    std::string painted(std::size_t row, std::size_t column) const;
    /// Whether a column is right-aligned: it says so, or it holds numbers.
    bool isRight(std::size_t column) const;

  private:
    /// How a column is painted, by its first rows.
    struct Look {
        bool numbers = false;
        int decimals = 0;  ///< most decimals of a number without a mask
    };

    Look lookOf(std::size_t column) const;
    bool hasRow(std::size_t row) const;
    std::size_t countBetween(std::size_t known, std::size_t missing) const;
    void failed() const;

    const screen::DataGrid& grid_;
    Report report_;
    std::vector<std::size_t> shown_;
    std::vector<Look> looks_;  ///< of the visible columns, once rows are known
    Known known_;
    mutable bool failed_ = false;
};

/// The text below a grid: "Fila 3 de más de 256 filas"; without a current row "1.240 filas".
std::string countText(std::optional<std::size_t> currentRow, const GridRows::Known& known);

}  // namespace velmora::toolkit
