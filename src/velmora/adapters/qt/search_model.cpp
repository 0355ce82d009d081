#include "velmora/adapters/qt/search_model.h"

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

SearchModel::SearchModel(const screen::SearchWindow& window, QObject* parent)
    : QAbstractTableModel(parent), window_(window), rows_(window) {
    readOn();
}

int SearchModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.count());
}

int SearchModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 2;
}

QVariant SearchModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole) {
        return {};
    }
    return toQt(rows_.text(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column())));
}

QVariant SearchModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return toQt(section == 0 ? window_.firstCaption : window_.secondCaption);
}

bool SearchModel::canFetchMore(const QModelIndex& parent) const {
    return !parent.isValid() && !rows_.isComplete();
}

void SearchModel::fetchMore(const QModelIndex&) {
    readOn();
}

void SearchModel::readOn() {
    const std::vector<std::size_t> found = rows_.readOn();
    if (!found.empty()) {
        const int first = static_cast<int>(rows_.count());
        beginInsertRows({}, first, first + static_cast<int>(found.size()) - 1);
        rows_.take(found);
        endInsertRows();
    }
}

void SearchModel::setFilter(const QString& filter) {
    beginResetModel();
    rows_.restart(fromQt(filter));
    endResetModel();
    readOn();
}

}  // namespace velmora::qt
