// Selects, their sources and their order.

#include <algorithm>
#include <array>
#include <utility>

#include "velmora/adapters/sqlite/emitters/casts.h"
#include "velmora/adapters/sqlite/emitters/emitter.h"
#include "velmora/adapters/sqlite/emitters/quoting.h"
#include "velmora/adapters/sqlite/emitters/storage.h"
#include "velmora/adapters/tsql/conversions.h"
#include "velmora/adapters/tsql/refusals.h"
#include "velmora/adapters/tsql/tokenizer.h"

namespace velmora::sqlite {

using namespace tsql;

namespace {

std::string_view joinText(Join join) {
    switch (join) {
        case Join::first:
            return " FROM ";
        case Join::comma:
        case Join::cross:
            return " CROSS JOIN ";
        case Join::inner:
            return " JOIN ";
        case Join::left:
            return " LEFT JOIN ";
        case Join::right:
            return " RIGHT JOIN ";
        case Join::full:
            break;
    }
    return " FULL JOIN ";
}

/// The 1-based place of the item that an ORDER BY means by this name; 0 when no item is given it as its alias.
std::size_t aliasPosition(const Select& select, const Scope& scope, std::string_view folded) {
    std::size_t position = 0;
    for (const Item& item : select.items) {
        if (item.value->form != Form::star) {
            ++position;
            if (!item.alias.empty() && foldName(item.alias) == folded) {
                return position;
            }
            continue;
        }
        const std::string owner = foldName(item.value->qualifier);
        for (const Source& source : scope.sources) {
            position += owner.empty() || foldName(source.alias) == owner ? source.columns.size() : 0;
        }
    }
    return 0;
}

constexpr auto aggregates = std::to_array<std::string_view>({"AVG", "COUNT", "MAX", "MIN", "SUM"});

/// True when the expression makes one value of many rows; a select inside it is not looked into.
bool isOverManyRows(const Expression& expression) {
    if (expression.form == Form::function && std::ranges::find(aggregates, expression.text) != aggregates.end()) {
        return true;
    }
    return std::ranges::any_of(expression.operands,
                               [](const ExpressionPtr& operand) { return isOverManyRows(*operand); });
}

/// True when each row of the select is one of its table, or of its tables joined.
bool givesRowsOfTables(const Select& select) {
    return !select.distinct && select.groupBy.empty() && !select.having &&
           std::ranges::none_of(select.items, [](const Item& item) { return isOverManyRows(*item.value); });
}

/// The order by the key of the first table, then by those of the others.
std::string orderByKeys(const Scope& scope) {
    std::string sql;
    for (const Source& source : scope.sources) {
        for (const std::string& column : source.rowOrder) {
            sql += (sql.empty() ? " ORDER BY " : ", ") + quotedName(source.alias) + "." + quotedName(column);
        }
    }
    return sql;
}

/// A condition that the engine only looks at row by row: it takes no index for a part of it.
std::string asAWhole(const std::string& condition) {
    return " WHERE (" + condition + " IS TRUE)";
}

/// True when the order names an item of the select by its place or its alias.
bool isOrderedByItems(const Select& select, const Scope& scope) {
    return std::ranges::any_of(select.orderBy, [&](const OrderItem& item) {
        const Expression& key = *item.value;
        return key.form == Form::whole || (key.form == Form::column && key.qualifier.empty() &&
                                           aliasPosition(select, scope, foldName(key.text)) != 0);
    });
}

struct SelectParts {
    std::string head;
    std::string from;
    std::string where;
    std::string order;
};

/// Translation::keysStatement. The engine keeps the order of a limited select that stands first in a cross join.
std::string readByKeys(const Source& source, const SelectParts& parts) {
    std::string keys;
    std::string same;
    for (const std::string& column : source.rowOrder) {
        const std::string stored = quotedName(source.alias) + "." + quotedName(column);
        keys += (keys.empty() ? "" : ", ") + stored + " AS " + quotedName(column);
        same += (same.empty() ? "" : " AND ") + stored + " = \"keys of the set\"." + quotedName(column);
    }
    if (keys.empty()) {
        return {};
    }
    const std::string table = parts.from.substr(joinText(Join::first).size());
    return parts.head + " FROM (SELECT " + keys + parts.from + " WHERE " + parts.where + parts.order +
           " LIMIT -1) AS \"keys of the set\" CROSS JOIN " + table + " ON (" + same + ")";
}

}  // namespace

std::string Emitter::fromClause(const std::vector<FromItem>& items, Scope& scope) {
    std::string sql;
    for (const FromItem& item : items) {
        sql += joinText(item.join);
        if (item.select) {
            EmittedSelect inner = select(*item.select, scope.outer, true);
            scope.sources.push_back({.alias = item.alias, .columns = std::move(inner.outputs)});
            sql += "(" + inner.sql + ")";
        } else {
            const auto table = catalog_.table(item.table);
            scope.sources.push_back(tableSource(*table, item.alias.empty() ? table->name : item.alias));
            sql += quotedTable(*table);
        }
        sql += " AS " + quotedName(scope.sources.back().alias);
        if (item.on) {
            sql += " ON " + condition(*item.on, scope);
        }
    }
    return sql;
}

std::vector<Output> Emitter::addItems(const Select& select, const Scope& scope, bool named,
                                      const std::vector<const TableColumn*>* targets, std::string& sql) {
    std::vector<Output> outputs;
    const auto add = [&](Emitted value, const std::string& name) {
        if (targets) {
            if (outputs.size() >= targets->size()) {
                throwSyntax("La lista de valores es más larga que la de columnas");
            }
            value = fitted(std::move(value), *(*targets)[outputs.size()]);
        }
        sql += (outputs.empty() ? " " : ", ") + (select.distinct ? collated(value) : value.sql);
        if (named) {
            if (name.empty()) {
                throwSyntax("Una columna de la subconsulta de FROM no tiene nombre");
            }
            sql += " AS " + quotedName(name);
        }
        outputs.push_back({name, value.type});
    };
    for (const Item& item : select.items) {
        if (item.value->form != Form::star) {
            // Chosen C-202: a calculated column without an alias has no name, as on the server.
            const bool unnamed = item.alias.empty() && item.value->form == Form::column;
            add(value(*item.value, scope), unnamed ? item.value->text : item.alias);
            continue;
        }
        const std::string owner = foldName(item.value->qualifier);
        bool found = false;
        for (const Source& source : scope.sources) {
            if (!owner.empty() && foldName(source.alias) != owner) {
                continue;
            }
            found = true;
            for (const Output& column : source.columns) {
                add(reference(source, column), column.name);
            }
        }
        if (!found) {
            refuseColumn(item.value->qualifier.empty() ? "*" : item.value->qualifier + ".*");
        }
    }
    return outputs;
}

std::string Emitter::orderBy(const Select& select, const Scope& scope, const std::vector<Output>& outputs) {
    std::string sql;
    for (const OrderItem& item : select.orderBy) {
        sql += sql.empty() ? " ORDER BY " : ", ";
        const Expression& key = *item.value;
        std::size_t position = 0;
        if (key.form == Form::whole) {
            position = static_cast<std::size_t>(wholeFromText(key.text).value_or(0));
            if (position == 0 || position > outputs.size()) {
                throwSyntax("ORDER BY " + key.text + " no es una columna de la lista");
            }
        } else if (key.form == Form::column && key.qualifier.empty()) {
            position = aliasPosition(select, scope, foldName(key.text));
        }
        if (position == 0) {
            sql += collated(value(key, scope));
        } else {
            sql += std::to_string(position);
            if (outputs[position - 1].type.kind == Kind::text) {
                sql += " COLLATE " + std::string(collationName);
            }
        }
        sql += item.descending ? " DESC" : "";
    }
    return sql;
}

std::optional<Origin> Emitter::origin(const Select& select) {
    const bool plain = select.from.size() == 1 && !select.from.front().select && !select.distinct &&
                       select.groupBy.empty() && !select.having;
    if (!plain) {
        return std::nullopt;
    }
    const auto table = catalog_.table(select.from.front().table);
    Origin result{.table = quotedTable(*table), .columns = {}};
    bool found = false;
    const auto add = [&](const TableColumn* column) {
        if (column != nullptr && column->key && !found) {
            found = true;
            result.key = result.columns.size();
        }
        result.columns.push_back(column != nullptr ? quotedName(column->name) : std::string());
    };
    for (const Item& item : select.items) {
        if (item.value->form != Form::star) {
            add(item.value->form == Form::column ? table->column(item.value->text) : nullptr);
            continue;
        }
        for (const TableColumn& column : table->columns) {
            add(&column);
        }
    }
    return found ? std::optional(std::move(result)) : std::nullopt;
}

std::string Emitter::whereOf(const Select& select, const Scope& scope, bool isWholeStatement) {
    const Parameters::Part part(parameters_, isWholeStatement ? Given::withoutBearing : Given::none);
    return condition(*select.where, scope);
}

EmittedSelect Emitter::select(const Select& select, const Scope* outer, bool named,
                              const std::vector<const TableColumn*>* targets) {
    const Parameters::Part part(parameters_, Given::none);
    Scope scope;
    scope.outer = outer;
    const std::string from = fromClause(select.from, scope);
    EmittedSelect result;
    result.sql = select.distinct ? "SELECT DISTINCT" : "SELECT";
    result.outputs = addItems(select, scope, named, targets, result.sql);
    result.sql += from;
    const std::string head = result.sql.substr(0, result.sql.size() - from.size());
    const std::string where = select.where ? whereOf(select, scope, !outer && !named && !targets) : std::string();
    if (select.where) {
        result.sql += " WHERE " + where;
    }
    for (std::size_t i = 0; i < select.groupBy.size(); ++i) {
        result.sql += (i == 0 ? " GROUP BY " : ", ") + collated(value(*select.groupBy[i], scope));
    }
    if (select.having) {
        result.sql += " HAVING " + condition(*select.having, scope);
    }
    result.orderAt = result.sql.size();
    // Chosen C-218: rows that a statement asks for in no order come by the key of the first table, then by those of the
    // others, whatever index the engine reads them through: a list must not change when an index is added. A table
    // without a key gives its rows as they were inserted. Inside another select only a TOP depends on an order.
    const bool orderMatters = (!outer && !named) || select.top;
    const bool byKeys = select.orderBy.empty() && orderMatters && givesRowsOfTables(select);
    const std::string order = byKeys ? orderByKeys(scope) : orderBy(select, scope, result.outputs);
    result.sql += order;
    const bool isOfOneTable = select.from.size() == 1 && !select.from.front().select && givesRowsOfTables(select);
    if (isOfOneTable && !outer && !named && !select.top && !where.empty() && !order.empty()) {
        result.walkSql = head + from + asAWhole(where) + order;
        result.keysSql =
            isOrderedByItems(select, scope)
                ? std::string()
                : readByKeys(scope.sources.front(), {.head = head, .from = from, .where = where, .order = order});
    }
    if (select.top) {
        result.sql += " LIMIT " + select.top->text;
        result.orderAt = std::string::npos;
    }
    return result;
}

}  // namespace velmora::sqlite
