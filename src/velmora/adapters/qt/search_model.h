#pragma once
// The rows of a search window that match the filter box, as a table model.

#include <QAbstractTableModel>
#include <cstddef>
#include <exception>

#include "velmora/platform/toolkit/search_rows.h"

namespace velmora::qt {

class SearchModel : public QAbstractTableModel {
  public:
    SearchModel(const screen::SearchWindow& window, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

    /// Only rows whose search column contains this text; compared without case, with accents.
    void setFilter(const QString& filter);
    std::size_t sourceRow(int row) const { return rows_.sourceRow(static_cast<std::size_t>(row)); }
    bool isComplete() const { return rows_.isComplete(); }
    /// The error that stopped the reading, if any.
    std::exception_ptr failure() const { return rows_.failure(); }

  private:
    void readOn();

    const screen::SearchWindow& window_;
    toolkit::SearchRows rows_;
};

}  // namespace velmora::qt
