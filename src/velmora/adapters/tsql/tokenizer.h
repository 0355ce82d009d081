#pragma once
// Words of a T-SQL statement.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::tsql {

enum class TokenKind {
    word,        ///< a name or a keyword, as written
    quotedName,  ///< [name] or "name"; `value` is the name
    text,        ///< '…' or N'…'; `value` is the text
    whole,       ///< digits
    decimal,     ///< digits with a point
    real,        ///< digits with an exponent
    binary,      ///< 0x…; `value` is its hexadecimal digits, an even number of them
    symbol,      ///< an operator or a sign
    end,
};

struct Token {
    TokenKind kind = TokenKind::end;
    std::string_view written;  ///< as it stands in the statement
    std::string value;         ///< names and texts: without quotes
};

/// All tokens, an `end` last; blanks and comments are gone. Errors: DbError (provider::syntax) that names what is
/// not known.
std::vector<Token> tokenize(std::string_view statement);

/// The same tokens, one after the other.
void forEachToken(std::string_view statement, const std::function<void(Token&&)>& visit);

/// The name in capitals by which two spellings of it are one; letters of Latin-1 beyond ASCII included.
std::string foldName(std::string_view name);

/// True for two spellings of one name: their folded forms are the same.
bool isSameName(std::string_view one, std::string_view other);

}  // namespace velmora::tsql
