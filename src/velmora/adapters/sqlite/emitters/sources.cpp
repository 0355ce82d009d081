#include "velmora/adapters/sqlite/emitters/sources.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "velmora/adapters/sqlite/emitters/quoting.h"
#include "velmora/adapters/tsql/refusals.h"
#include "velmora/adapters/tsql/tokenizer.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::sqlite {

using namespace tsql;

namespace {

const Output* outputNamed(const std::vector<Output>& outputs, std::string_view name) {
    const auto found =
        std::ranges::find_if(outputs, [&](const Output& output) { return isSameName(output.name, name); });
    return found == outputs.end() ? nullptr : &*found;
}

}  // namespace

Source tableSource(const Table& table, std::string alias) {
    Source source{.alias = std::move(alias), .columns = {}, .stored = true, .rowOrder = table.rowOrder};
    source.columns.reserve(table.columns.size());
    for (const TableColumn& column : table.columns) {
        source.columns.push_back({column.name, column.type});
    }
    return source;
}

Emitted reference(const Source& source, const Output& column) {
    return {.sql = quotedName(source.alias) + "." + quotedName(column.name),
            .type = column.type,
            .storedColumn = source.stored};
}

Emitted columnMeant(const Expression& expression, const Scope& scope) {
    const std::string& owner = expression.qualifier;
    for (const Scope* level = &scope; level; level = level->outer) {
        std::optional<Emitted> found;
        for (const Source& source : level->sources) {
            if (!owner.empty() && !isSameName(source.alias, owner)) {
                continue;
            }
            if (const Output* column = outputNamed(source.columns, expression.text)) {
                if (found) {
                    throwSyntax("La columna '" + expression.text + "' es ambigua");
                }
                found = reference(source, *column);
            }
        }
        if (found) {
            return *found;
        }
    }
    refuseColumn(expression.qualifier.empty() ? expression.text : expression.qualifier + "." + expression.text);
}

void refuseColumn(std::string_view name) {
    throw sql::DbError(sql::provider::syntax, "La columna '" + std::string(name) + "' no existe.",
                       {.sqlState = "42S22"});
}

}  // namespace velmora::sqlite
