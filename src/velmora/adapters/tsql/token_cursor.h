#pragma once
// The tokens of a statement, read one after the other by the parsers.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/tsql/syntax_tree.h"
#include "velmora/adapters/tsql/tokenizer.h"

namespace velmora::tsql {

/// Expressions nested deeper are refused, before the engine's limits or the stack are reached.
inline constexpr std::size_t deepestNesting = 200;

[[noreturn]] void throwTooDeep();
[[noreturn]] void throwUnknown(std::string_view construct);

/// The name that a token stands for, without brackets or quotes.
std::string nameIn(const Token& token);

class TokenCursor {
  public:
    explicit TokenCursor(std::string_view text);

    /// The token so many places ahead; the `end` when there are not that many.
    const Token& current(std::size_t ahead = 0) const;
    /// Behind the first token.
    const Token& previous() const { return tokens_[at_ - 1]; }
    /// Where a token begins in the statement.
    std::size_t placeOf(const Token& token) const {
        return static_cast<std::size_t>(token.written.data() - text_.data());
    }
    /// The keyword or name in capitals so many places ahead; empty for any other token.
    std::string_view word(std::size_t ahead = 0) const;
    bool isSymbol(std::string_view symbol, std::size_t ahead = 0) const;
    /// A name that is no keyword, or one in brackets.
    bool atName() const;
    /// A word that begins a statement.
    bool atStatement() const;

    void advance(std::size_t count = 1) { at_ += count; }
    const Token& take() { return tokens_[at_++]; }
    bool accept(std::string_view keyword);
    bool acceptSymbol(std::string_view symbol);
    void expect(std::string_view keyword);
    void expectSymbol(std::string_view symbol);
    std::string name(std::string_view what = "un nombre");
    std::size_t wholeNumber();
    TableName tableName();

    [[noreturn]] void unexpected(std::string_view wanted = {}) const;

  private:
    friend class Nesting;

    std::string_view text_;
    std::vector<Token> tokens_;
    std::vector<std::string> folded_;
    std::size_t at_ = 0;
    std::size_t nesting_ = 0;
};

/// Guards the stack against parentheses within parentheses.
class Nesting {
  public:
    explicit Nesting(TokenCursor& cursor) : cursor_(cursor) {
        if (++cursor_.nesting_ > deepestNesting) {
            throwTooDeep();
        }
    }
    ~Nesting() { --cursor_.nesting_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

  private:
    TokenCursor& cursor_;
};

}  // namespace velmora::tsql
