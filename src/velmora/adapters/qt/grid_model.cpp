#include "velmora/adapters/qt/grid_model.h"

#include <utility>

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

namespace {

using toolkit::GridRows;

QVariant alignment(bool right) {
    return QVariant::fromValue(Qt::Alignment((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
}

}  // namespace

GridModel::GridModel(const screen::DataGrid& grid, GridRows::Report report, QObject* parent)
    : QAbstractTableModel(parent), rows_(grid, std::move(report)) {}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.known().rows);
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.columnCount());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return alignment(isRight(index.column()));
    }
    if (role == Qt::DisplayRole) {
        return toQt(rows_.text(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column())));
    }
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return toQt(shape(section).caption);
    }
    return role == Qt::TextAlignmentRole ? alignment(isRight(section)) : QVariant();
}

QString GridModel::painted(const QModelIndex& index) const {
    return toQt(rows_.painted(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column())));
}

bool GridModel::canFetchMore(const QModelIndex& parent) const {
    return !parent.isValid() && !rows_.known().complete;
}

void GridModel::fetchMore(const QModelIndex&) {
    grow(rows_.known().rows + GridRows::chunk);
}

void GridModel::grow(std::size_t rows) {
    const GridRows::Known wanted = rows_.reach(rows);
    if (wanted.rows == rows_.known().rows) {
        rows_.take(wanted);
        return;
    }
    beginInsertRows({}, rowCount(), static_cast<int>(wanted.rows) - 1);
    rows_.take(wanted);
    endInsertRows();
}

void GridModel::reload() {
    beginResetModel();
    rows_.restart();
    endResetModel();
    grow(GridRows::chunk);
}

void GridModel::ensureRow(std::size_t row) {
    if (row >= rows_.known().rows) {
        grow((row / GridRows::chunk + 1) * GridRows::chunk);
    }
}

}  // namespace velmora::qt
