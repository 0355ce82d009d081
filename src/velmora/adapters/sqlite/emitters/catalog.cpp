#include "velmora/adapters/sqlite/emitters/catalog.h"

#include <algorithm>
#include <utility>

#include "velmora/adapters/tsql/refusals.h"
#include "velmora/adapters/tsql/tokenizer.h"

namespace velmora::sqlite {

using namespace tsql;

namespace {

bool isKeyByItself(const KeyDefinition& key, const ColumnDefinition& column) {
    return key.primary && key.columns.size() == 1 && isSameName(key.columns.front(), column.name);
}

}  // namespace

const TableColumn* Table::column(std::string_view wanted) const {
    const auto found =
        std::ranges::find_if(columns, [&](const TableColumn& column) { return isSameName(column.name, wanted); });
    return found == columns.end() ? nullptr : &*found;
}

Table definedTable(std::string schema, const CreateTable& create) {
    Table table{.schema = std::move(schema), .name = create.table.name, .columns = {}, .rowOrder = {}};
    for (const ColumnDefinition& column : create.columns) {
        if (table.column(column.name)) {
            throwSyntax("La columna '" + column.name + "' está dos veces");
        }
        const bool key = column.primaryKey || std::ranges::any_of(create.keys, [&](const KeyDefinition& definition) {
                             return isKeyByItself(definition, column);
                         });
        table.columns.push_back({.name = column.name,
                                 .type = column.type,
                                 .identity = column.identity,
                                 .key = key,
                                 .notNull = column.notNull});
    }
    return table;
}

}  // namespace velmora::sqlite
