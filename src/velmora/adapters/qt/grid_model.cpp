#include "velmora/adapters/qt/grid_model.h"

#include <algorithm>
#include <utility>

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

namespace {
constexpr std::size_t chunk = 256;
}

GridModel::GridModel(const screen::DataGrid& grid, Reporter report, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid), report_(std::move(report)) {}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(known_);
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

const screen::GridColumn& GridModel::shape(int section) const {
    return grid_.columns()[static_cast<std::size_t>(gridColumn(section))];
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || failed_) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(
            Qt::Alignment((shape(index.column()).right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    try {
        return toQt(grid_.cellText(static_cast<std::size_t>(index.row()),
                                   static_cast<std::size_t>(gridColumn(index.column()))));
    } catch (...) {
        failed();
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return toQt(shape(section).caption);
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(
            Qt::Alignment((shape(section).right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
    }
    return {};
}

bool GridModel::canFetchMore(const QModelIndex& parent) const {
    return !parent.isValid() && !complete_;
}

void GridModel::fetchMore(const QModelIndex&) {
    grow(known_ + chunk);
}

bool GridModel::hasRow(std::size_t row) const {
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

void GridModel::failed() const {
    if (!std::exchange(failed_, true)) {
        report_(std::current_exception());
    }
}

// The last row of the wanted ones is asked for first: when it is there, so are all before it.
void GridModel::grow(std::size_t rows) {
    if (complete_ || rows <= known_) {
        return;
    }
    std::size_t low = known_;
    std::size_t high = rows;
    if (!hasRow(rows - 1)) {
        complete_ = true;
        while (low < high) {
            const std::size_t middle = low + (high - low) / 2;
            if (hasRow(middle)) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
    } else {
        low = rows;
        complete_ = !hasRow(rows);
    }
    if (low > known_) {
        beginInsertRows({}, static_cast<int>(known_), static_cast<int>(low) - 1);
        known_ = low;
        endInsertRows();
    }
}

void GridModel::reload() {
    beginResetModel();
    failed_ = false;
    shown_.clear();
    for (std::size_t i = 0; i < grid_.columns().size(); ++i) {
        if (grid_.columns()[i].visible) {
            shown_.push_back(static_cast<int>(i));
        }
    }
    known_ = 0;
    complete_ = !grid_.recordset().isOpen();
    endResetModel();
    grow(chunk);
}

void GridModel::ensureRow(std::size_t row) {
    if (row >= known_) {
        grow((row / chunk + 1) * chunk);
    }
}

}  // namespace velmora::qt
