#pragma once
// The rows of a grid as a table model.

#include <QAbstractTableModel>
#include <cstddef>

#include "velmora/platform/toolkit/grid_rows.h"

namespace velmora::qt {

class GridModel : public QAbstractTableModel {
  public:
    GridModel(const screen::DataGrid& grid, toolkit::GridRows::Report report, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

    /// Columns or rows have changed: resets the model.
    void reload();
    /// Makes the row known to the table if the set has it.
    void ensureRow(std::size_t row);

    const toolkit::GridRows& rows() const { return rows_; }
    bool isRight(int section) const { return rows_.isRight(static_cast<std::size_t>(section)); }
    /// The text of a cell as it is painted.
    QString painted(const QModelIndex& index) const;
    const screen::GridColumn& shape(int section) const { return rows_.shape(static_cast<std::size_t>(section)); }

  private:
    void grow(std::size_t rows);

    toolkit::GridRows rows_;
};

}  // namespace velmora::qt
