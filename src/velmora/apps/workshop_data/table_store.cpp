#include "velmora/apps/workshop_data/table_store.h"

#include <algorithm>
#include <utility>

#include "velmora/apps/workshop_data/cell_text.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/session/row_writing.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::workshop_data {

namespace {

using session::Tipo;

/// A value as it stands in a statement.
std::string literalOf(const sql::Value& value) {
    return value.isText() ? "N'" + runtime::Replace(value.toText(), "'", "''") + "'"
                          : runtime::shortest(value.toDouble());
}

std::string equals(std::string_view column, const sql::Value& value) {
    return std::string(column) + (value.isNull() ? " IS NULL" : "=" + literalOf(value));
}

void addField(session::FieldList& fields, std::string_view column, const sql::Value& value) {
    if (value.isNull() || value.isText()) {
        fields.Add(column, Tipo::text, value);
    } else {
        fields.Add(column, Tipo::expression, literalOf(value));
    }
}

std::string listOf(const Table& table) {
    std::string list(table.ownNumber);
    for (const Column& column : table.columns) {
        list += (list.empty() ? "" : ",") + std::string(column.name);
    }
    return list;
}

std::string orderOf(const Table& table) {
    if (!table.ownNumber.empty()) {
        return std::string(table.ownNumber);
    }
    std::string order;
    for (const std::string_view column : table.key) {
        order += (order.empty() ? "" : ",") + std::string(column);
    }
    return order;
}

/// The condition that finds the current row of a set again, whose columns are those of `listOf`.
std::string conditionOf(const Table& table, const sql::Recordset& row) {
    if (!table.ownNumber.empty()) {
        return equals(table.ownNumber, row[0]);
    }
    std::string condition;
    for (const std::string_view column : table.key) {
        condition += (condition.empty() ? "" : " AND ") + equals(column, row[column]);
    }
    return condition;
}

bool isWritten(const Table& table, std::string_view column, std::span<const CellWrite> writes) {
    return std::ranges::any_of(writes,
                               [&](const CellWrite& write) { return table.columns[write.column].name == column; });
}

}  // namespace

std::string numbersUsedUp(const Table& table) {
    return "Ya no quedan números: el último que el programa admite es el " +
           runtime::CStr(std::int64_t{table.lastOwnNumber}) + ".";
}

std::vector<StoredRow> TableStore::read(const std::string& clause, const References& references) const {
    sql::Recordset set =
        session_.Connection().execute("SELECT " + listOf(table_) + " FROM " + std::string(table_.name) + clause);
    const std::size_t first = table_.ownNumber.empty() ? 0 : 1;
    std::vector<StoredRow> rows;
    for (; !set.eof(); set.moveNext()) {
        StoredRow row{.texts = {},
                      .where = conditionOf(table_, set),
                      .ownNumber = table_.ownNumber.empty() ? sql::Value() : set[0]};
        for (std::size_t i = 0; i < table_.columns.size(); ++i) {
            row.texts.push_back(shown(table_.columns[i], set[first + i], references));
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<StoredRow> TableStore::all(const References& references) const {
    return read(" ORDER BY " + orderOf(table_), references);
}

std::optional<StoredRow> TableStore::find(const std::string& where, const References& references) const {
    std::vector<StoredRow> rows = read(" WHERE " + where, references);
    return rows.empty() ? std::nullopt : std::optional(std::move(rows.front()));
}

std::int32_t TableStore::highestNumber() const {
    const sql::Recordset highest = session_.Connection().execute("SELECT max(" + std::string(table_.ownNumber) +
                                                                 ") FROM " + std::string(table_.name));
    return highest.eof() || highest[0].isNull() ? 0 : highest[0].toLong();
}

std::optional<std::int32_t> TableStore::roomLeft() const {
    return table_.lastOwnNumber == 0 ? std::nullopt : std::optional(table_.lastOwnNumber - highestNumber());
}

void TableStore::insert(std::span<const CellWrite> writes) const {
    session::insertRow(session_, table_.name, [&](session::FieldList& fields) {
        if (!table_.ownNumber.empty() && !table_.numberIsIdentity) {
            fields.Add(table_.ownNumber, Tipo::wholeNumber, highestNumber() + 1);
        }
        for (const CellWrite& write : writes) {
            addField(fields, table_.columns[write.column].name, write.value);
        }
    });
    if (const auto room = roomLeft(); room && *room < 0) {
        throw sql::DbError(sql::provider::failure, numbersUsedUp(table_));
    }
}

void TableStore::update(const StoredRow& row, std::span<const CellWrite> writes) const {
    session::updateRow(session_, table_.name, " WHERE " + row.where, [&](session::FieldList& fields) {
        for (const CellWrite& write : writes) {
            addField(fields, table_.columns[write.column].name, write.value);
        }
    });
}

void TableStore::remove(const StoredRow& row) const {
    session_.Connection().execute("DELETE FROM " + std::string(table_.name) + " WHERE " + row.where);
}

sql::Value TableStore::valueUsed(const StoredRow& row, const Use& use) const {
    if (use.column == table_.ownNumber) {
        return row.ownNumber;
    }
    const std::size_t position = positionOf(table_, use.column);
    const Column& column = table_.columns[position];
    const std::string& text = row.texts[position];
    if (text.empty()) {
        return {};
    }
    if (column.kind == Kind::text) {
        return text;
    }
    const auto number = numberOf(text);
    return number ? sql::Value(*number) : sql::Value();
}

std::string TableStore::words(const StoredRow& row, std::span<const Use> uses) const {
    std::vector<std::string> parts;
    for (const Use& use : uses) {
        const sql::Value value = valueUsed(row, use);
        if (value.isNull()) {
            continue;
        }
        const sql::Recordset count = session_.Connection().execute("SELECT count(*) FROM " + std::string(use.table) +
                                                                   " WHERE " + equals(use.byColumn, value));
        if (const std::int32_t used = count[0].toLong(); used > 0) {
            parts.push_back(std::string(use.words) + ": " + runtime::CStr(std::int64_t{used}));
        }
    }
    std::string joined;
    for (const std::string& part : parts) {
        joined += (joined.empty() ? "" : ", ") + part;
    }
    return joined;
}

std::string TableStore::usesOf(const StoredRow& row) const {
    return words(row, table_.uses);
}

std::string TableStore::usesOf(const StoredRow& row, std::span<const CellWrite> writes) const {
    if (writes.empty()) {
        return {};
    }
    std::vector<Use> touched;
    std::ranges::copy_if(table_.uses, std::back_inserter(touched),
                         [&](const Use& use) { return table_.fixedWhenUsed || isWritten(table_, use.column, writes); });
    return words(row, touched);
}

}  // namespace velmora::workshop_data
