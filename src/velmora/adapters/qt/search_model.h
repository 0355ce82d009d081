#pragma once
// The rows of a search window that match the filter box, read when they are scrolled into view.

#include <QAbstractTableModel>
#include <cstddef>
#include <exception>
#include <vector>

#include "velmora/platform/screen/screen.h"

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
    std::size_t sourceRow(int row) const { return matches_[static_cast<std::size_t>(row)]; }
    bool isComplete() const { return complete_; }
    /// The error that stopped the reading, if any.
    std::exception_ptr failure() const { return failure_; }

  private:
    QString shown(std::size_t row, std::size_t column) const;
    void scan();

    const screen::SearchWindow& window_;
    std::size_t searched_ = 2;
    QString filter_;
    std::vector<std::size_t> matches_;
    std::size_t scanned_ = 0;
    bool complete_ = false;
    mutable std::exception_ptr failure_;
};

}  // namespace velmora::qt
