#include "velmora/adapters/tsql/token_cursor.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>
#include <utility>

#include "velmora/adapters/tsql/refusals.h"

namespace velmora::tsql {

namespace {

constexpr auto statementWords =
    std::to_array<std::string_view>({"ALTER",    "BEGIN",  "COMMIT", "CREATE",   "DECLARE", "DELETE", "DROP",  "EXEC",
                                     "EXECUTE",  "GO",     "GRANT",  "IF",       "INSERT",  "MERGE",  "PRINT", "REVOKE",
                                     "ROLLBACK", "SELECT", "SET",    "TRUNCATE", "UPDATE",  "USE",    "WHILE", "WITH"});

/// Words that end an expression or an item of a list, so that they are no name unless in brackets.
constexpr auto reservedWords = std::to_array<std::string_view>(
    {"ADD",    "ALL",      "AND",    "ANY",        "AS",         "ASC",     "BETWEEN", "BY",       "CASE",
     "CHECK",  "COLLATE",  "COLUMN", "CONSTRAINT", "CROSS",      "DEFAULT", "DESC",    "DISTINCT", "ELSE",
     "END",    "ESCAPE",   "EXCEPT", "EXISTS",     "FOR",        "FOREIGN", "FROM",    "FULL",     "GROUP",
     "HAVING", "IDENTITY", "IN",     "INNER",      "INTERSECT",  "INTO",    "IS",      "JOIN",     "KEY",
     "LEFT",   "LIKE",     "NOT",    "NULL",       "ON",         "OPTION",  "OR",      "ORDER",    "OUTER",
     "OVER",   "PERCENT",  "PIVOT",  "PRIMARY",    "REFERENCES", "RIGHT",   "TABLE",   "THEN",     "TO",
     "TOP",    "UNION",    "UNIQUE", "VALUES",     "WHEN",       "WHERE"});

template <typename Words>
bool contains(const Words& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

}  // namespace

void throwTooDeep() {
    throwSyntax("Expresión demasiado larga o anidada");
}

void throwUnknown(std::string_view construct) {
    throwSyntax("Construcción no admitida: " + std::string(construct));
}

std::string nameIn(const Token& token) {
    return token.kind == TokenKind::quotedName ? token.value : std::string(token.written);
}

TokenCursor::TokenCursor(std::string_view text) : text_(text), tokens_(tokenize(text)) {
    folded_.reserve(tokens_.size());
    for (const Token& token : tokens_) {
        folded_.push_back(token.kind == TokenKind::word ? foldName(token.written) : std::string());
    }
}

const Token& TokenCursor::current(std::size_t ahead) const {
    return at_ + ahead < tokens_.size() ? tokens_[at_ + ahead] : tokens_.back();
}

std::string_view TokenCursor::word(std::size_t ahead) const {
    return at_ + ahead < folded_.size() ? std::string_view(folded_[at_ + ahead]) : std::string_view();
}

bool TokenCursor::isSymbol(std::string_view symbol, std::size_t ahead) const {
    return at_ + ahead < tokens_.size() && tokens_[at_ + ahead].kind == TokenKind::symbol &&
           tokens_[at_ + ahead].written == symbol;
}

bool TokenCursor::atName() const {
    if (current().kind == TokenKind::quotedName) {
        return true;
    }
    return current().kind == TokenKind::word && !contains(reservedWords, word()) && !contains(statementWords, word());
}

bool TokenCursor::atStatement() const {
    return contains(statementWords, word());
}

bool TokenCursor::accept(std::string_view keyword) {
    if (word() != keyword) {
        return false;
    }
    ++at_;
    return true;
}

bool TokenCursor::acceptSymbol(std::string_view symbol) {
    if (!isSymbol(symbol)) {
        return false;
    }
    ++at_;
    return true;
}

void TokenCursor::expect(std::string_view keyword) {
    if (!accept(keyword)) {
        unexpected(keyword);
    }
}

void TokenCursor::expectSymbol(std::string_view symbol) {
    if (!acceptSymbol(symbol)) {
        unexpected(symbol);
    }
}

std::string TokenCursor::name(std::string_view what) {
    if (!atName()) {
        unexpected(what);
    }
    return nameIn(take());
}

std::size_t TokenCursor::wholeNumber() {
    std::size_t value = 0;
    const std::string_view digits = current().written;
    if (current().kind != TokenKind::whole ||
        std::from_chars(digits.data(), digits.data() + digits.size(), value).ec != std::errc()) {
        unexpected("un número entero");
    }
    ++at_;
    return value;
}

TableName TokenCursor::tableName() {
    TableName table;
    table.name = name("el nombre de una tabla");
    for (int part = 0; acceptSymbol("."); ++part) {
        if (part == 2) {
            throwUnknown("un nombre de tabla con servidor");
        }
        table.catalog = std::move(table.schema);
        table.schema = std::move(table.name);
        if (isSymbol(".")) {
            table.name = "dbo";
        } else {
            table.name = name("el nombre de una tabla");
        }
    }
    return table;
}

void TokenCursor::unexpected(std::string_view wanted) const {
    std::string description = current().kind == TokenKind::end
                                  ? "La instrucción está incompleta"
                                  : "Sintaxis no admitida cerca de '" + std::string(current().written) + "'";
    if (!wanted.empty()) {
        description += ": falta '" + std::string(wanted) + "'";
    }
    throwSyntax(std::move(description));
}

}  // namespace velmora::tsql
