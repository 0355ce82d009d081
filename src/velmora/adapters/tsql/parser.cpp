#include "velmora/adapters/tsql/parser.h"

#include "velmora/adapters/tsql/change_parser.h"
#include "velmora/adapters/tsql/definition_parser.h"
#include "velmora/adapters/tsql/refusals.h"
#include "velmora/adapters/tsql/select_parser.h"
#include "velmora/adapters/tsql/token_cursor.h"

namespace velmora::tsql {

namespace {

StatementTree one(TokenCursor& cursor) {
    const std::string_view first = cursor.word();
    if (first == "SELECT") {
        return parseSelect(cursor);
    }
    if (cursor.accept("INSERT")) {
        return parseInsert(cursor);
    }
    if (cursor.accept("UPDATE")) {
        return parseUpdate(cursor);
    }
    if (cursor.accept("DELETE")) {
        return parseDelete(cursor);
    }
    if (cursor.accept("CREATE")) {
        return parseCreate(cursor);
    }
    if (cursor.accept("ALTER")) {
        return parseAlter(cursor);
    }
    if (cursor.accept("DROP")) {
        return parseDrop(cursor);
    }
    if (cursor.accept("SET")) {
        return parseSet(cursor);
    }
    if (cursor.current().kind == TokenKind::end) {
        throwSyntax("La instrucción está vacía");
    }
    if (cursor.current().kind == TokenKind::word) {
        throwUnknown(first);
    }
    cursor.unexpected();
}

}  // namespace

StatementTree parse(std::string_view text) {
    TokenCursor cursor(text);
    StatementTree statement = one(cursor);
    const bool closed = cursor.acceptSymbol(";");
    if (cursor.current().kind != TokenKind::end) {
        if (closed || cursor.atStatement()) {
            throwSyntax("Solo se admite una instrucción por llamada");
        }
        cursor.unexpected();
    }
    return statement;
}

}  // namespace velmora::tsql
