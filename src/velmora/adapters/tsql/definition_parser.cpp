#include "velmora/adapters/tsql/definition_parser.h"

#include <string>
#include <utility>

#include "velmora/adapters/tsql/column_parser.h"
#include "velmora/adapters/tsql/expression_builder.h"
#include "velmora/adapters/tsql/refusals.h"

namespace velmora::tsql {

namespace {

CreateTable createTable(TokenCursor& cursor) {
    CreateTable result;
    result.table = cursor.tableName();
    cursor.expectSymbol("(");
    do {
        if (atKey(cursor)) {
            result.keys.push_back(parseKey(cursor));
        } else {
            result.columns.push_back(parseColumn(cursor));
        }
    } while (cursor.acceptSymbol(","));
    cursor.expectSymbol(")");
    skipFileGroups(cursor);
    return result;
}

CreateIndex createIndex(TokenCursor& cursor, bool unique) {
    CreateIndex result;
    result.unique = unique;
    result.name = cursor.name("el nombre del índice");
    cursor.expect("ON");
    result.table = cursor.tableName();
    cursor.expectSymbol("(");
    do {
        OrderItem column;
        column.value = makeExpression(Form::column);
        column.value->text = cursor.name("el nombre de una columna");
        column.descending = cursor.accept("DESC");
        if (!column.descending) {
            cursor.accept("ASC");
        }
        result.columns.push_back(std::move(column));
    } while (cursor.acceptSymbol(","));
    cursor.expectSymbol(")");
    skipFileGroups(cursor);
    return result;
}

}  // namespace

StatementTree parseCreate(TokenCursor& cursor) {
    if (cursor.accept("TABLE")) {
        return createTable(cursor);
    }
    const bool unique = cursor.accept("UNIQUE");
    skipClustering(cursor);
    if (cursor.accept("INDEX")) {
        return createIndex(cursor, unique);
    }
    throwUnknown("CREATE " + std::string(cursor.current().written));
}

StatementTree parseAlter(TokenCursor& cursor) {
    if (!cursor.accept("TABLE")) {
        throwUnknown("ALTER " + std::string(cursor.current().written));
    }
    TableName table = cursor.tableName();
    if (cursor.accept("WITH") && !cursor.accept("NOCHECK")) {
        cursor.expect("CHECK");
    }
    if (cursor.accept("DROP")) {
        cursor.expect("COLUMN");
        return DropColumn{std::move(table), cursor.name("el nombre de una columna")};
    }
    if (!cursor.accept("ADD")) {
        throwUnknown("ALTER TABLE … " + std::string(cursor.current().written));
    }
    if (atKey(cursor)) {
        return AddKey{std::move(table), parseKey(cursor)};
    }
    AddColumns result;
    result.table = std::move(table);
    do {
        result.columns.push_back(parseColumn(cursor));
    } while (cursor.acceptSymbol(","));
    return result;
}

StatementTree parseDrop(TokenCursor& cursor) {
    if (cursor.accept("TABLE")) {
        return DropTable{cursor.tableName()};
    }
    if (cursor.accept("INDEX")) {
        DropIndex result;
        TableName first = cursor.tableName();
        if (cursor.accept("ON")) {
            result.name = std::move(first.name);
            result.table = cursor.tableName();
        } else if (first.schema.empty()) {
            throwSyntax("Falta la tabla del índice '" + first.name + "'");
        } else {
            result.name = std::move(first.name);
            result.table.name = std::move(first.schema);
        }
        return result;
    }
    throwUnknown("DROP " + std::string(cursor.current().written));
}

StatementTree parseSet(TokenCursor& cursor) {
    if (!cursor.accept("IDENTITY_INSERT")) {
        throwUnknown("SET " + std::string(cursor.current().written));
    }
    AllowGivenKeys result{cursor.tableName()};
    if (!cursor.accept("ON")) {
        if (cursor.word() != "OFF") {
            cursor.unexpected("ON");
        }
        cursor.advance();
    }
    return result;
}

}  // namespace velmora::tsql
