#pragma once
// The rows of a grid for a toolkit's table, read as they come into sight.

#include <cstddef>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "velmora/platform/screen/data_grid.h"

namespace velmora::toolkit {

/// Chosen C-242: it knows as many rows as have been asked for so far, a chunk at a time, and whether there are more: a
/// set of a million rows is neither counted nor loaded when it opens, and its count reads "más de" until its end is
/// seen.
class GridRows {
  public:
    /// Rows that are asked for at once.
    static constexpr std::size_t chunk = 256;

    /// How much is known of the set.
    struct Known {
        std::size_t rows = 0;
        bool complete = true;  ///< `rows` are all there are
    };

    using Report = std::function<void(std::exception_ptr)>;

    /// `report` is given the first error that reading the set raises after each restart; from then on the cells are
    /// empty.
    GridRows(const screen::DataGrid& grid, Report report) : grid_(grid), report_(std::move(report)) {}

    /// The grid has other columns or other rows: forgets everything and knows no row.
    void restart();

    const Known& known() const { return known_; }
    /// What would be known once so many rows have been asked for. Takes effect with `take`, so that a table can be told
    /// before.
    Known reach(std::size_t rows) const;
    void take(const Known& known) { known_ = known; }

    /// The visible columns, from 0.
    std::size_t columnCount() const { return shown_.size(); }
    /// Their index into the grid's columns.
    std::size_t gridColumn(std::size_t column) const { return shown_[column]; }
    const screen::GridColumn& shape(std::size_t column) const { return grid_.columns()[shown_[column]]; }
    /// A cell as shown; empty when it could not be read.
    std::string text(std::size_t row, std::size_t column) const;

  private:
    bool hasRow(std::size_t row) const;
    std::size_t countBetween(std::size_t known, std::size_t missing) const;
    void failed() const;

    const screen::DataGrid& grid_;
    Report report_;
    std::vector<std::size_t> shown_;
    Known known_;
    mutable bool failed_ = false;
};

/// What stands below a grid: "Fila 3 de más de 256 filas"; without a current row "1.240 filas".
std::string countText(std::optional<std::size_t> currentRow, const GridRows::Known& known);

}  // namespace velmora::toolkit
