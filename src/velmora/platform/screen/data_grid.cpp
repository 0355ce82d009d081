#include "velmora/platform/screen/data_grid.h"

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::screen {

std::string shownUnder(const sql::Value& value, const std::string& mask) {
    if (value.isNull()) {
        return {};
    }
    if (mask.empty()) {
        return value.toText();
    }
    if (mask == "Yes/No") {
        return value.toBool() ? "Sí" : "No";
    }
    if (value.isDate()) {
        return runtime::Format(value.toDate(), mask);
    }
    return value.isNumber() ? runtime::Format(value.toDouble(), mask) : runtime::Format(value.toText(), mask);
}

void DataGrid::setColumns(std::vector<GridColumn> columns) {
    columns_ = std::move(columns);
    notify(Property::columns);
}

void DataGrid::bind(sql::Recordset recordset) {
    recordset_ = std::move(recordset);
    moves_ = recordset_.isOpen() ? recordset_.onMoveComplete([this] { notify(Property::currentRow); }) : nullptr;
    notify(Property::rows);
}

std::size_t DataGrid::rowCount() const {
    return recordset_.isOpen() ? recordset_.recordCount() : 0;
}

std::string DataGrid::cellText(std::size_t row, std::size_t column) const {
    const sql::Row* values = recordset_.isOpen() ? recordset_.peek(row) : nullptr;
    if (values == nullptr || column >= columns_.size()) {
        return {};
    }
    const GridColumn& shape = columns_[column];
    const auto field = static_cast<std::size_t>(shape.field);
    return field < values->size() ? shownUnder((*values)[field], shape.mask) : std::string{};
}

void DataGrid::moveToRow(std::size_t row) {
    if (recordset_.isOpen()) {
        recordset_.moveTo(row);
    }
}

}  // namespace velmora::screen
