#include "velmora/adapters/tsql/one_statement.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "velmora/adapters/tsql/tokenizer.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::tsql {

void refuseSecondStatement(const std::string& statement) {
    if (statement.find(';') == std::string::npos) {
        return;
    }
    std::vector<Token> tokens;
    try {
        tokens = tokenize(statement);
    } catch (const sql::DbError&) {
        return;
    }
    const auto end = std::ranges::find_if(tokens, [](const Token& token) { return token.written == ";"; });
    if (end != tokens.end() && std::next(end)->kind != TokenKind::end) {
        throw sql::DbError(sql::provider::syntax, "Solo se puede ejecutar una instrucción cada vez.",
                           {.sqlState = "42000", .statement = statement});
    }
}

}  // namespace velmora::tsql
