#include "velmora/adapters/tsql/change_parser.h"

#include <string>
#include <utility>
#include <vector>

#include "velmora/adapters/tsql/expression_parser.h"
#include "velmora/adapters/tsql/select_parser.h"

namespace velmora::tsql {

namespace {

/// The rest of a list of names in parentheses.
std::vector<std::string> columnNames(TokenCursor& cursor) {
    std::vector<std::string> names;
    do {
        names.push_back(cursor.name("el nombre de una columna"));
    } while (cursor.acceptSymbol(","));
    cursor.expectSymbol(")");
    return names;
}

}  // namespace

Insert parseInsert(TokenCursor& cursor) {
    Insert result;
    cursor.accept("INTO");
    result.table = cursor.tableName();
    if (cursor.acceptSymbol("(")) {
        result.columns = columnNames(cursor);
    }
    if (cursor.word() == "SELECT") {
        result.select = parseSelect(cursor);
        return result;
    }
    if (cursor.word() == "DEFAULT") {
        throwUnknown("INSERT … DEFAULT VALUES");
    }
    cursor.expect("VALUES");
    do {
        cursor.expectSymbol("(");
        std::vector<ExpressionPtr> row;
        do {
            row.push_back(parseValue(cursor));
        } while (cursor.acceptSymbol(","));
        cursor.expectSymbol(")");
        result.rows.push_back(std::move(row));
    } while (cursor.acceptSymbol(","));
    return result;
}

Update parseUpdate(TokenCursor& cursor) {
    Update result;
    result.table = cursor.tableName();
    cursor.expect("SET");
    do {
        Assignment assignment;
        assignment.column = cursor.name("el nombre de una columna");
        if (cursor.acceptSymbol(".")) {
            assignment.column = cursor.name("el nombre de una columna");
        }
        cursor.expectSymbol("=");
        assignment.value = parseValue(cursor);
        result.assignments.push_back(std::move(assignment));
    } while (cursor.acceptSymbol(","));
    if (cursor.word() == "FROM") {
        throwUnknown("UPDATE … FROM");
    }
    if (cursor.accept("WHERE")) {
        result.where = parseCondition(cursor);
    }
    return result;
}

Delete parseDelete(TokenCursor& cursor) {
    Delete result;
    cursor.accept("FROM");
    result.table = cursor.tableName();
    if (cursor.word() == "FROM") {
        throwUnknown("DELETE … FROM … FROM");
    }
    if (cursor.accept("WHERE")) {
        result.where = parseCondition(cursor);
    }
    return result;
}

}  // namespace velmora::tsql
