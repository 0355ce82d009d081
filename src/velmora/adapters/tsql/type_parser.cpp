#include "velmora/adapters/tsql/type_parser.h"

#include <optional>
#include <string>

namespace velmora::tsql {

Type parseType(TokenCursor& cursor) {
    if (!cursor.atName()) {
        cursor.unexpected("un tipo");
    }
    const std::string written = cursor.name();
    std::optional<std::size_t> first, second;
    if (cursor.acceptSymbol("(")) {
        if (cursor.accept("MAX")) {
            first = unlimited;
        } else {
            first = cursor.wholeNumber();
            if (cursor.acceptSymbol(",")) {
                second = cursor.wholeNumber();
            }
        }
        cursor.expectSymbol(")");
    }
    auto known = typeNamed(written, first, second);
    if (!known) {
        throwUnknown("el tipo " + written);
    }
    return *known;
}

Type parseCastType(TokenCursor& cursor) {
    Type result = parseType(cursor);
    if (result.length != unlimited && cursor.previous().kind == TokenKind::word) {
        result.length = 30;
    }
    return result;
}

void parseCollation(TokenCursor& cursor) {
    const std::string collation = cursor.name("una intercalación");
    if (foldName(collation) != "MODERN_SPANISH_CI_AS" && foldName(collation) != "DATABASE_DEFAULT") {
        throwUnknown("la intercalación " + collation);
    }
}

}  // namespace velmora::tsql
