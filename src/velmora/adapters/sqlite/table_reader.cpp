#include "velmora/adapters/sqlite/table_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <utility>

#include "velmora/adapters/sqlite/emitters/quoting.h"
#include "velmora/adapters/sqlite/emitters/storage.h"
#include "velmora/platform/sql/value.h"

namespace velmora::sqlite {

namespace {

using Names = std::vector<std::string>;

/// The engine's names of the place of a row; one that is a column's name means the column.
constexpr auto rowNumbers = std::to_array<std::string_view>({"rowid", "_rowid_", "oid"});

std::string textOf(const Statement& row, int column) {
    return row.value(column, tsql::Kind::text).toText();
}

/// The columns of the unique indexes, the oldest index first; those over a part of the rows or over expressions are
/// left out.
std::vector<Names> uniqueIndexes(Link& link, const std::string& schema, const std::string& table) {
    const auto found = link.prepare(
        "SELECT list.seq, info.name FROM pragma_index_list(" + quotedText(table) + ", " + quotedText(schema) +
        ") AS list JOIN pragma_index_info(list.name, " + quotedText(schema) +
        ") AS info WHERE list.\"unique\" AND NOT list.partial AND NOT EXISTS (SELECT 1 FROM pragma_index_info("
        "list.name, " +
        quotedText(schema) + ") AS part WHERE part.name IS NULL) ORDER BY list.seq DESC, info.seqno");
    std::vector<Names> indexes;
    std::int64_t last = -1;
    while (found->step()) {
        if (found->whole(0) != std::exchange(last, found->whole(0))) {
            indexes.emplace_back();
        }
        indexes.back().push_back(textOf(*found, 1));
    }
    return indexes;
}

bool isTable(Link& link, const std::string& schema, const std::string& name) {
    const auto found = link.prepare("SELECT 1 FROM " + quotedName(schema) +
                                    ".sqlite_schema WHERE type = 'table' AND name = " + quotedText(name));
    return found->step();
}

Names orderWithoutPrimaryKey(Link& link, const Table& table) {
    for (Names& index : uniqueIndexes(link, table.schema, table.name)) {
        if (std::ranges::all_of(index, [&](const std::string& name) { return table.column(name)->notNull; })) {
            return std::move(index);
        }
    }
    for (const std::string_view name : rowNumbers) {
        if (!table.column(name) && isTable(link, table.schema, table.name)) {
            return {std::string(name)};
        }
    }
    return {};
}

}  // namespace

Table readTable(Link& link, const std::string& schema, const std::string& name) {
    Table table{.schema = schema, .name = name, .columns = {}};
    const auto columns = link.prepare("SELECT name, type, \"notnull\", pk FROM pragma_table_info(" + quotedText(name) +
                                      ", " + quotedText(schema) + ")");
    std::map<std::int64_t, std::string> primaryKey;  // by the place in the key, from 1
    while (columns->step()) {
        const std::string declaration = textOf(*columns, 1);
        const std::int64_t placeInKey = columns->whole(3);
        TableColumn& column = table.columns.emplace_back();
        column.name = textOf(*columns, 0);
        column.type = declaredType(declaration);
        column.identity = declaration == "INTEGER" && placeInKey > 0;
        column.notNull = columns->whole(2) != 0;
        if (placeInKey > 0) {
            primaryKey.emplace(placeInKey, column.name);
        }
    }
    for (TableColumn& column : table.columns) {
        column.key = primaryKey.size() == 1 && primaryKey.begin()->second == column.name;
    }
    for (auto& [place, column] : primaryKey) {
        table.rowOrder.push_back(std::move(column));
    }
    if (table.rowOrder.empty()) {
        table.rowOrder = orderWithoutPrimaryKey(link, table);
    }
    return table;
}

}  // namespace velmora::sqlite
