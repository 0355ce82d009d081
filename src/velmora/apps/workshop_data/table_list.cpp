#include "velmora/apps/workshop_data/table_list.h"

#include <algorithm>
#include <utility>

#include "velmora/apps/workshop_data/cell_text.h"
#include "velmora/apps/workshop_data/search_words.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::workshop_data {

namespace {

// Widths in twips.
constexpr int twipsOfADigit = 105;
constexpr int margin = 200;
constexpr int widestColumn = 5200;
constexpr int widthOfNames = 30;  ///< digits, of texts without a width on the form

int widthInGrid(const Column& column) {
    const bool isBox = column.kind == Kind::flag || column.kind == Kind::presence;
    const int digits = isBox ? 0 : column.width == 0 ? widthOfNames : column.width;
    const int named = column.kind == Kind::reference ? digits + widthOfNames / 2 : digits;
    const int ofCaption = static_cast<int>(runtime::Len(column.caption)) + 1;
    return std::min(std::max(named, ofCaption) * twipsOfADigit + margin, widestColumn);
}

std::string maskOf(const Column& column) {
    if (!isNumber(column)) {
        return {};
    }
    return column.decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(column.decimals), '0');
}

}  // namespace

TableList::TableList(screen::DataGrid& grid, const Table& table) : grid_(grid), table_(table) {
    grid_.setAccessibleName(table.title);
    set_.onMoveComplete = [this] {
        if (onMoved) {
            onMoved();
        }
    };
}

std::vector<screen::GridColumn> TableList::gridColumns() const {
    std::vector<screen::GridColumn> columns;
    for (const Column& column : table_.columns) {
        const std::string unit = column.unit.empty() ? "" : " (" + std::string(column.unit) + ")";
        columns.push_back({.field = static_cast<int>(columns.size()),
                           .caption = std::string(column.caption) + unit,
                           .width = widthInGrid(column),
                           .mask = maskOf(column),
                           .right = isNumber(column)});
    }
    return columns;
}

sql::Row TableList::cellsOf(const StoredRow& row, const References& references) const {
    sql::Row cells;
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        const Column& column = table_.columns[i];
        const std::string& text = row.texts[i];
        const auto number = isNumber(column) ? numberOf(text) : std::nullopt;
        if (number) {
            cells.emplace_back(*number);
        } else if (column.kind == Kind::reference && !text.empty()) {
            cells.emplace_back(text + "  " + references.nameOf(*column.reference, text));
        } else {
            cells.emplace_back(text);
        }
    }
    return cells;
}

void TableList::show(std::vector<StoredRow> rows, const References& references) {
    rows_ = std::move(rows);
    cells_.clear();
    folded_.clear();
    for (const StoredRow& row : rows_) {
        cells_.push_back(cellsOf(row, references));
        std::string all;
        for (std::size_t i = 0; i < cells_.back().size(); ++i) {
            const sql::Value& cell = cells_.back()[i];
            all += (cell.isText() ? cell.toText() : row.texts[i]) + " ";
        }
        folded_.push_back(foldedText(all));
    }
    bindMatches();
}

void TableList::search(std::string_view words) {
    words_ = searchWords(words);
    bindMatches();
}

void TableList::bindMatches() {
    shown_.clear();
    std::vector<sql::Row> matches;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (containsAll(folded_[i], words_)) {
            shown_.push_back(i);
            matches.push_back(cells_[i]);
        }
    }
    std::vector<sql::Column> names;
    for (const Column& column : table_.columns) {
        names.push_back({std::string(column.name)});
    }
    sql::Recordset set(sql::rowsInMemory(std::move(names), std::move(matches)));
    grid_.bind(set);
    grid_.setColumns(gridColumns());
    set_ = std::move(set);
}

void TableList::goTo(const std::string& key) {
    const auto row =
        std::ranges::find_if(rows_, [&](const StoredRow& each) { return keyOf(table_, each.texts) == key; });
    if (row == rows_.end()) {
        return;
    }
    const auto position = static_cast<std::size_t>(row - rows_.begin());
    auto found = std::ranges::find(shown_, position);
    if (found == shown_.end()) {
        search("");
        found = std::ranges::find(shown_, position);
    }
    set_->moveTo(static_cast<std::size_t>(found - shown_.begin()));
}

const StoredRow* TableList::current() const {
    if (!set_->isOpen()) {
        return nullptr;
    }
    const auto position = set_->position();
    return position && *position < shown_.size() ? &rows_[shown_[*position]] : nullptr;
}

}  // namespace velmora::workshop_data
