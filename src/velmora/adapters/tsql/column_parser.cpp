#include "velmora/adapters/tsql/column_parser.h"

#include <string>

#include "velmora/adapters/tsql/operand_parser.h"
#include "velmora/adapters/tsql/refusals.h"
#include "velmora/adapters/tsql/type_parser.h"

namespace velmora::tsql {

namespace {

void refuseOtherConstraints(const TokenCursor& cursor) {
    if (cursor.word() == "FOREIGN" || cursor.word() == "REFERENCES") {
        throwUnknown("FOREIGN KEY");
    }
    if (cursor.word() == "CHECK") {
        throwUnknown("CHECK");
    }
}

void parseIdentity(TokenCursor& cursor, ColumnDefinition& column) {
    column.identity = true;
    column.notNull = true;
    if (column.type.kind != Kind::whole) {
        throwSyntax("La columna de identidad '" + column.name + "' no es de un tipo entero");
    }
    if (cursor.acceptSymbol("(")) {
        column.seed = cursor.wholeNumber();
        cursor.expectSymbol(",");
        if (cursor.wholeNumber() != 1) {
            throwUnknown("IDENTITY con un incremento distinto de 1");
        }
        cursor.expectSymbol(")");
    }
}

}  // namespace

ColumnDefinition parseColumn(TokenCursor& cursor) {
    refuseOtherConstraints(cursor);
    ColumnDefinition column;
    column.name = cursor.name("el nombre de una columna");
    column.type = parseType(cursor);
    for (;;) {
        if (cursor.accept("COLLATE")) {
            parseCollation(cursor);
        } else if (cursor.accept("IDENTITY")) {
            parseIdentity(cursor, column);
        } else if (cursor.accept("NOT")) {
            cursor.expect("NULL");
            column.notNull = true;
        } else if (cursor.accept("NULL")) {
            column.notNull = false;
        } else if (cursor.accept("CONSTRAINT")) {
            cursor.name("el nombre de la restricción");
        } else if (cursor.accept("DEFAULT")) {
            column.defaultValue = parseOperand(cursor);
        } else if (cursor.accept("WITH")) {
            cursor.expect("VALUES");
            column.withValues = true;
        } else if (cursor.accept("PRIMARY")) {
            cursor.expect("KEY");
            skipClustering(cursor);
            column.primaryKey = column.notNull = true;
        } else if (cursor.accept("UNIQUE")) {
            skipClustering(cursor);
            column.unique = true;
        } else {
            refuseOtherConstraints(cursor);
            return column;
        }
    }
}

bool atKey(const TokenCursor& cursor) {
    return cursor.word() == "CONSTRAINT" || cursor.word() == "PRIMARY" || cursor.word() == "UNIQUE";
}

KeyDefinition parseKey(TokenCursor& cursor) {
    KeyDefinition result;
    if (cursor.accept("CONSTRAINT")) {
        result.name = cursor.name("el nombre de la restricción");
    }
    if (cursor.accept("PRIMARY")) {
        cursor.expect("KEY");
        result.primary = true;
    } else if (!cursor.accept("UNIQUE")) {
        refuseOtherConstraints(cursor);
        throwUnknown("la restricción " + std::string(cursor.current().written));
    }
    skipClustering(cursor);
    cursor.expectSymbol("(");
    do {
        result.columns.push_back(cursor.name("el nombre de una columna"));
        if (!cursor.accept("ASC") && cursor.accept("DESC")) {
            throwUnknown("una clave descendente");
        }
    } while (cursor.acceptSymbol(","));
    cursor.expectSymbol(")");
    skipFileGroups(cursor);
    return result;
}

void skipClustering(TokenCursor& cursor) {
    if (!cursor.accept("CLUSTERED")) {
        cursor.accept("NONCLUSTERED");
    }
}

void skipFileGroups(TokenCursor& cursor) {
    while (cursor.word() == "ON" || cursor.word() == "TEXTIMAGE_ON") {
        cursor.advance();
        const bool primary =
            (cursor.current().kind == TokenKind::quotedName && foldName(cursor.current().value) == "PRIMARY") ||
            cursor.word() == "PRIMARY";
        if (!primary) {
            throwUnknown("un grupo de ficheros distinto de PRIMARY");
        }
        cursor.advance();
    }
}

}  // namespace velmora::tsql
