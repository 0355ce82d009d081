// Statements that change rows.

#include <algorithm>
#include <utility>

#include "velmora/adapters/sqlite/emitters/casts.h"
#include "velmora/adapters/sqlite/emitters/emitter.h"
#include "velmora/adapters/sqlite/emitters/quoting.h"
#include "velmora/adapters/tsql/refusals.h"

namespace velmora::sqlite {

using namespace tsql;

namespace {

const TableColumn& targetColumn(const Table& table, const std::string& name) {
    const TableColumn* column = table.column(name);
    if (!column) {
        refuseColumn(name);
    }
    return *column;
}

}  // namespace

std::string Emitter::stored(const Expression& expression, const Emitted& given, const TableColumn& column) {
    const auto fit = [column](Emitted value) {
        if (column.identity && value.type.kind == Kind::null) {
            throwConstraint("La columna '" + column.name + "' no admite NULL");
        }
        return fitted(std::move(value), column);
    };
    return parameters_.inPlaceOf(expression, fit(given), fit).sql;
}

Translation Emitter::insert(const Insert& insert) {
    const auto table = catalog_.table(insert.table);
    std::vector<const TableColumn*> targets;
    if (insert.columns.empty()) {
        for (const TableColumn& column : table->columns) {
            if (!column.identity) {
                targets.push_back(&column);
            }
        }
    }
    for (const std::string& name : insert.columns) {
        targets.push_back(&targetColumn(*table, name));
        if (std::count(targets.begin(), targets.end(), targets.back()) > 1) {
            throwSyntax("La columna '" + name + "' está dos veces en INSERT");
        }
    }
    std::string sql = "INSERT INTO " + quotedTable(*table) + " (";
    for (std::size_t i = 0; i < targets.size(); ++i) {
        sql += (i == 0 ? "" : ", ") + quotedName(targets[i]->name);
    }
    sql += ") ";
    const auto checkCount = [&](std::size_t count) {
        if (count != targets.size()) {
            throwSyntax("INSERT tiene " + std::to_string(targets.size()) + " columnas y " + std::to_string(count) +
                        " valores");
        }
    };
    if (insert.select) {
        EmittedSelect rows = select(*insert.select, nullptr, false, &targets);
        checkCount(rows.outputs.size());
        sql += rows.sql;
    }
    const Scope nothing;
    for (std::size_t row = 0; row < insert.rows.size(); ++row) {
        checkCount(insert.rows[row].size());
        sql += row == 0 ? "VALUES (" : ", (";
        for (std::size_t i = 0; i < targets.size(); ++i) {
            const Emitted given = value(*insert.rows[row][i], nothing);
            sql += (i == 0 ? "" : ", ") + stored(*insert.rows[row][i], given, *targets[i]);
        }
        sql += ")";
    }
    Translation result{.answer = Answer::changes};
    result.steps.push_back(std::move(sql));
    result.parameters = parameters_.take();
    return result;
}

Translation Emitter::update(const Update& update) {
    const auto table = catalog_.table(update.table);
    Scope scope;
    scope.sources.push_back(tableSource(*table, table->name));
    std::string sql = "UPDATE " + quotedTable(*table) + " SET ";
    bool first = true;
    for (const Assignment& assignment : update.assignments) {
        const TableColumn& column = targetColumn(*table, assignment.column);
        if (column.identity) {
            throwSyntax("La columna de identidad '" + column.name + "' no se puede modificar");
        }
        sql += (first ? "" : ", ") + quotedName(column.name) + " = " +
               stored(*assignment.value, value(*assignment.value, scope), column);
        first = false;
    }
    if (update.where) {
        sql += " WHERE " + condition(*update.where, scope);
    }
    Translation result{.answer = Answer::changes};
    result.steps.push_back(std::move(sql));
    result.parameters = parameters_.take();
    return result;
}

Translation Emitter::remove(const Delete& remove) {
    const auto table = catalog_.table(remove.table);
    Scope scope;
    scope.sources.push_back(tableSource(*table, table->name));
    std::string sql = "DELETE FROM " + quotedTable(*table);
    if (remove.where) {
        sql += " WHERE " + condition(*remove.where, scope);
    }
    Translation result{.answer = Answer::changes};
    result.steps.push_back(std::move(sql));
    result.parameters = parameters_.take();
    return result;
}

}  // namespace velmora::sqlite
