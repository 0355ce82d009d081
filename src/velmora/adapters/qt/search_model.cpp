#include "velmora/adapters/qt/search_model.h"

#include <algorithm>

#include "velmora/adapters/qt/text.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::qt {

namespace {
constexpr std::size_t chunk = 100;  ///< number of matches read at once
}

SearchModel::SearchModel(const screen::SearchWindow& window, QObject* parent)
    : QAbstractTableModel(parent), window_(window) {
    const std::vector<sql::Column>& columns = window.rows.columns();
    const std::string wanted = runtime::UCase(window.searchColumn);
    const auto found =
        std::ranges::find_if(columns, [&](const sql::Column& c) { return runtime::UCase(c.name) == wanted; });
    if (found != columns.end()) {
        searched_ = static_cast<std::size_t>(found - columns.begin());
    }
    scan();
}

int SearchModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(matches_.size());
}

int SearchModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 2;
}

QString SearchModel::shown(std::size_t row, std::size_t column) const {
    const sql::Row* values = window_.rows.peek(row);
    if (values == nullptr || column >= values->size() || (*values)[column].isNull()) {
        return {};
    }
    return toQt((*values)[column].toText());
}

QVariant SearchModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole || failure_) {
        return {};
    }
    try {
        return shown(sourceRow(index.row()), static_cast<std::size_t>(index.column()) + 1);
    } catch (...) {
        failure_ = std::current_exception();
        return {};
    }
}

QVariant SearchModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return toQt(section == 0 ? window_.firstCaption : window_.secondCaption);
}

bool SearchModel::canFetchMore(const QModelIndex& parent) const {
    return !parent.isValid() && !complete_;
}

void SearchModel::fetchMore(const QModelIndex&) {
    scan();
}

void SearchModel::scan() {
    std::vector<std::size_t> found;
    try {
        while (!complete_ && found.size() < chunk) {
            if (window_.rows.peek(scanned_) == nullptr) {
                complete_ = true;
                break;
            }
            const QString text = shown(scanned_, searched_).normalized(QString::NormalizationForm_C);
            if (text.contains(filter_, Qt::CaseInsensitive)) {
                found.push_back(scanned_);
            }
            ++scanned_;
        }
    } catch (...) {
        failure_ = std::current_exception();
        complete_ = true;
    }
    if (!found.empty()) {
        const int first = static_cast<int>(matches_.size());
        beginInsertRows({}, first, first + static_cast<int>(found.size()) - 1);
        matches_.insert(matches_.end(), found.begin(), found.end());
        endInsertRows();
    }
}

void SearchModel::setFilter(const QString& filter) {
    beginResetModel();
    filter_ = filter.trimmed().normalized(QString::NormalizationForm_C);
    matches_.clear();
    scanned_ = 0;
    complete_ = failure_ != nullptr;
    endResetModel();
    scan();
}

}  // namespace velmora::qt
