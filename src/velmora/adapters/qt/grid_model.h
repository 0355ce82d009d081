#pragma once
// The rows of a grid for the toolkit's table, read as they come into sight.

#include <QAbstractTableModel>
#include <cstddef>
#include <exception>
#include <functional>
#include <vector>

#include "velmora/platform/screen/data_grid.h"

namespace velmora::qt {

/// Chosen C-242: it knows as many rows as have been asked for so far, a chunk at a time, and whether there are more: a
/// set of a million rows is neither counted nor loaded when it opens, and its count reads "más de" until its end is
/// seen.
class GridModel : public QAbstractTableModel {
  public:
    using Reporter = std::function<void(std::exception_ptr)>;

    GridModel(const screen::DataGrid& grid, Reporter report, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

    /// Everything anew: other columns, other rows.
    void reload();
    /// Makes the row known if the set has it.
    void ensureRow(std::size_t row);
    /// True when the last row is known, so that rowCount is the count of the set.
    bool isComplete() const { return complete_; }

    /// The grid's column of a column of the table: hidden ones are left out.
    int gridColumn(int section) const { return shown_[static_cast<std::size_t>(section)]; }
    const screen::GridColumn& shape(int section) const;

  private:
    bool hasRow(std::size_t row) const;
    void grow(std::size_t rows);
    void failed() const;

    const screen::DataGrid& grid_;
    Reporter report_;
    std::vector<int> shown_;
    std::size_t known_ = 0;
    bool complete_ = true;
    mutable bool failed_ = false;  ///< one failure is told once, not once a cell
};

}  // namespace velmora::qt
