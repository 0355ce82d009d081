// Statements that change tables and indexes.

#include <algorithm>

#include "velmora/adapters/sqlite/emitters/casts.h"
#include "velmora/adapters/sqlite/emitters/emitter.h"
#include "velmora/adapters/sqlite/emitters/quoting.h"
#include "velmora/adapters/sqlite/emitters/storage.h"
#include "velmora/adapters/tsql/refusals.h"
#include "velmora/adapters/tsql/tokenizer.h"

namespace velmora::sqlite {

using namespace tsql;

namespace {

std::string indexName(const Table& table, std::string_view name) {
    return quotedName(table.schema) + "." + quotedName(engineIndexName(table.name, name));
}

std::string columnList(const Table& table, const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) {
        const TableColumn* column = table.column(name);
        if (!column) {
            throwSyntax("La columna '" + name + "' no existe");
        }
        list += (list.empty() ? "" : ", ") + quotedName(column->name);
    }
    return list;
}

std::string checks(const ColumnDefinition& definition) {
    const std::string column = quotedName(definition.name);
    std::string sql;
    if (const std::string check = storageCheck(definition.type, column); !check.empty()) {
        sql += " CONSTRAINT " + quotedName("conversion:" + definition.name) + " CHECK (" + check + ")";
    }
    if (definition.type.kind == Kind::text && definition.type.length != unlimited) {
        sql += " CONSTRAINT " + quotedName("longitud:" + definition.name) + " CHECK (length(" + column +
               ") <= " + std::to_string(definition.type.length) + ")";
    }
    return sql;
}

Translation schemaChange(std::string step) {
    Translation result{.answer = Answer::schema};
    result.steps.push_back(std::move(step));
    return result;
}

bool isKeyOf(const KeyDefinition& key, const ColumnDefinition& column) {
    return key.columns.size() == 1 && isSameName(key.columns.front(), column.name);
}

}  // namespace

std::string Emitter::columnDefinition(const ColumnDefinition& definition, bool key) {
    const std::string column = quotedName(definition.name);
    if (definition.identity) {
        // With AUTOINCREMENT the engine never assigns the key of a committed row a second time; a rollback frees those
        // that it assigned.
        return column + " INTEGER PRIMARY KEY AUTOINCREMENT";
    }
    std::string sql = column + " " + definition.type.name;
    if (definition.type.kind == Kind::text) {
        sql += " COLLATE " + std::string(collationName);
    }
    if (definition.notNull || key) {
        sql += " NOT NULL";
    }
    if (definition.defaultValue) {
        const TableColumn target{definition.name, definition.type};
        const Emitted given = fitted(value(*definition.defaultValue, Scope{}), target);
        sql +=
            given.literal || given.type.kind == Kind::null ? " DEFAULT " + given.sql : " DEFAULT (" + given.sql + ")";
    }
    return sql + checks(definition);
}

Translation Emitter::createTable(const CreateTable& create) {
    const Table table = definedTable(catalog_.schemaOf(create.table), create);
    const auto identity = std::find_if(create.columns.begin(), create.columns.end(),
                                       [](const ColumnDefinition& column) { return column.identity; });
    const bool hasIdentity = identity != create.columns.end();
    if (hasIdentity &&
        std::any_of(identity + 1, create.columns.end(), [](const auto& column) { return column.identity; })) {
        throwSyntax("Una tabla tiene una sola columna de identidad");
    }
    std::vector<KeyDefinition> keys;
    for (const KeyDefinition& key : create.keys) {
        keys.push_back(key);
    }
    for (const ColumnDefinition& column : create.columns) {
        if (column.primaryKey || column.unique) {
            keys.push_back({.name = {}, .primary = column.primaryKey, .columns = {column.name}});
        }
    }
    if (std::count_if(keys.begin(), keys.end(), [](const KeyDefinition& key) { return key.primary; }) > 1) {
        throwSyntax("Una tabla tiene una sola clave primaria");
    }
    std::string sql = "CREATE TABLE " + quotedTable(table) + " (";
    for (const ColumnDefinition& column : create.columns) {
        const bool inKey = std::any_of(keys.begin(), keys.end(), [&](const KeyDefinition& key) {
            return key.primary && std::any_of(key.columns.begin(), key.columns.end(),
                                              [&](const std::string& name) { return isSameName(name, column.name); });
        });
        sql += (&column == create.columns.data() ? "" : ", ") + columnDefinition(column, inKey);
    }
    for (const KeyDefinition& key : keys) {
        const std::string columns = columnList(table, key.columns);
        if (hasIdentity && isKeyOf(key, *identity)) {
            continue;
        }
        sql += key.name.empty() ? "," : ", CONSTRAINT " + quotedName(key.name);
        sql += (key.primary && !hasIdentity ? " PRIMARY KEY (" : " UNIQUE (") + columns + ")";
    }
    Translation result = schemaChange(sql + ")");
    if (hasIdentity && identity->seed > 1) {
        result.steps.push_back("INSERT INTO " + quotedName(table.schema) + ".sqlite_sequence (name, seq) VALUES (" +
                               quotedText(table.name) + ", " + std::to_string(identity->seed - 1) + ")");
    }
    return result;
}

Translation Emitter::addColumns(const AddColumns& add) {
    const auto table = catalog_.table(add.table);
    Translation result{.answer = Answer::schema};
    for (const ColumnDefinition& column : add.columns) {
        if (column.identity || column.primaryKey || column.unique) {
            throwSyntax("Construcción no admitida: ALTER TABLE … ADD de una columna con clave o identidad");
        }
        if (table->column(column.name)) {
            throwSyntax("La columna '" + column.name + "' ya existe");
        }
        result.steps.push_back("ALTER TABLE " + quotedTable(*table) + " ADD COLUMN " + columnDefinition(column, false));
        if (column.defaultValue && !column.notNull && !column.withValues) {
            result.steps.push_back("UPDATE " + quotedTable(*table) + " SET " + quotedName(column.name) + " = NULL");
        }
    }
    return result;
}

Translation Emitter::addKey(const AddKey& add) {
    // Chosen C-203: the engine cannot give a table a primary key later: a unique index by the key's name does its work.
    const auto table = catalog_.table(add.table);
    if (add.key.name.empty()) {
        throwSyntax("Construcción no admitida: ALTER TABLE … ADD de una clave sin nombre");
    }
    return schemaChange("CREATE UNIQUE INDEX " + indexName(*table, add.key.name) + " ON " + quotedName(table->name) +
                        " (" + columnList(*table, add.key.columns) + ")");
}

Translation Emitter::dropColumn(const DropColumn& drop) {
    const auto table = catalog_.table(drop.table);
    return schemaChange("ALTER TABLE " + quotedTable(*table) + " DROP COLUMN " + columnList(*table, {drop.column}));
}

Translation Emitter::dropTable(const DropTable& drop) {
    return schemaChange("DROP TABLE " + quotedTable(*catalog_.table(drop.table)));
}

Translation Emitter::createIndex(const CreateIndex& create) {
    const auto table = catalog_.table(create.table);
    std::string columns;
    for (const OrderItem& column : create.columns) {
        columns += (columns.empty() ? "" : ", ") + columnList(*table, {column.value->text}) +
                   (column.descending ? " DESC" : "");
    }
    return schemaChange(std::string(create.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                        indexName(*table, create.name) + " ON " + quotedName(table->name) + " (" + columns + ")");
}

Translation Emitter::dropIndex(const DropIndex& drop) {
    return schemaChange("DROP INDEX " + indexName(*catalog_.table(drop.table), drop.name));
}

Translation Emitter::allowGivenKeys(const AllowGivenKeys& allow) {
    // Chosen C-204: a key that an INSERT gives is taken at any time, where the server wants this statement before; rows
    // of another database come in by the same text either way.
    catalog_.table(allow.table);
    return Translation{.answer = Answer::changes};
}

}  // namespace velmora::sqlite
