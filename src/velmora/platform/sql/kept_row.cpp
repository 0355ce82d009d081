#include "velmora/platform/sql/kept_row.h"

#include <algorithm>

namespace velmora::sql {

namespace {

bool same(const Value& a, const Value& b) {
    return a == b || (a.isNumber() && b.isNumber() && a.toDouble() == b.toDouble());
}

}  // namespace

Recordset keptRow(const Recordset& row) {
    std::vector<Row> rows;
    if (!row.eof()) {
        rows.emplace_back();
        for (std::size_t column = 0; column < row.columns().size(); ++column) {
            rows.back().push_back(row[column]);
        }
    }
    return Recordset(rowsInMemory(row.columns(), std::move(rows)));
}

bool differIn(const std::vector<std::string>& columns, const Recordset& one, const Recordset& other) {
    return std::ranges::any_of(columns, [&](const std::string& column) { return !same(one[column], other[column]); });
}

}  // namespace velmora::sql
