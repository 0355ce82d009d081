#include "velmora/adapters/tsql/tokenizer.h"

#include <algorithm>

#include "velmora/adapters/tsql/refusals.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::tsql {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}

bool startsName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool continuesName(char c) {
    return startsName(c) || isDigit(c) || c == '$' || c == '#';
}

class Scanner {
  public:
    explicit Scanner(std::string_view text) : text_(text) {}

    Token next() {
        skipBlanksAndComments();
        return token();
    }

  private:
    char peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }

    Token since(std::size_t start, TokenKind kind, std::string value = {}) const {
        return Token{kind, text_.substr(start, at_ - start), std::move(value)};
    }

    void skipBlanksAndComments() {
        for (;;) {
            while (at_ < text_.size() && isBlank(text_[at_])) {
                ++at_;
            }
            if (peek() == '-' && peek(1) == '-') {
                at_ = std::min(text_.find('\n', at_), text_.size());
            } else if (peek() == '/' && peek(1) == '*') {
                const auto end = text_.find("*/", at_ + 2);
                if (end == std::string_view::npos) {
                    throwSyntax("Comentario sin cerrar");
                }
                at_ = end + 2;
            } else {
                return;
            }
        }
    }

    Token token() {
        const std::size_t start = at_;
        if (at_ == text_.size()) {
            return since(start, TokenKind::end);
        }
        const char c = peek();
        if ((c == 'N' || c == 'n') && peek(1) == '\'') {
            ++at_;
            return quoted(start, '\'', TokenKind::text);
        }
        switch (c) {
            case '\'':
                return quoted(start, '\'', TokenKind::text);
            case '"':
                return quoted(start, '"', TokenKind::quotedName);
            case '[':
                return quoted(start, ']', TokenKind::quotedName);
            default:
                break;
        }
        if (startsName(c)) {
            return word(start);
        }
        if (isDigit(c) || (c == '.' && isDigit(peek(1)))) {
            return number(start);
        }
        return symbol(start);
    }

    Token word(std::size_t start) {
        while (continuesName(peek())) {
            ++at_;
        }
        return since(start, TokenKind::word);
    }

    Token quoted(std::size_t start, char close, TokenKind kind) {
        std::string value;
        for (++at_; at_ < text_.size(); ++at_) {
            const char c = text_[at_];
            if (c == '\0') {
                throwSyntax("Carácter nulo dentro de un texto");
            }
            if (c == close) {
                ++at_;
                if (peek() != close) {
                    return since(start, kind, std::move(value));
                }
            }
            value += c;
        }
        throwSyntax(kind == TokenKind::text ? "Texto sin comilla de cierre"
                                            : "Nombre entre comillas o corchetes sin cerrar");
    }

    Token number(std::size_t start) {
        if (peek() == '0' && (peek(1) == 'x' || peek(1) == 'X')) {
            return binary(start);
        }
        TokenKind kind = TokenKind::whole;
        const auto digits = [&] {
            while (isDigit(peek())) {
                ++at_;
            }
        };
        digits();
        if (peek() == '.') {
            kind = TokenKind::decimal;
            ++at_;
            digits();
        }
        if (peek() == 'e' || peek() == 'E') {
            const std::size_t sign = peek(1) == '+' || peek(1) == '-' ? 1 : 0;
            if (isDigit(peek(1 + sign))) {
                kind = TokenKind::real;
                at_ += 1 + sign;
                digits();
            }
        }
        if (continuesName(peek()) || peek() == '.') {
            throwSyntax("Número mal escrito cerca de '" + std::string(text_.substr(start, at_ - start + 1)) + "'");
        }
        return since(start, kind);
    }

    Token binary(std::size_t start) {
        at_ += 2;
        const std::size_t first = at_;
        while (isHexDigit(peek())) {
            ++at_;
        }
        if (continuesName(peek())) {
            throwSyntax("Valor binario mal escrito");
        }
        std::string digits(text_.substr(first, at_ - first));
        if (digits.size() % 2 == 1) {
            digits.insert(digits.begin(), '0');
        }
        return since(start, TokenKind::binary, std::move(digits));
    }

    Token symbol(std::size_t start) {
        static constexpr std::string_view pairs[] = {"<=", ">=", "<>", "!="};
        static constexpr std::string_view singles = "=<>+-*/%(),.;";
        const std::string_view two = text_.substr(at_, 2);
        if (std::find(std::begin(pairs), std::end(pairs), two) != std::end(pairs)) {
            at_ += 2;
        } else if (peek() != '\0' && singles.find(peek()) != std::string_view::npos) {
            ++at_;
        } else if (peek() == '@' || peek() == '?') {
            throwSyntax("No se admiten variables ni parámetros ('" + std::string(1, peek()) + "')");
        } else {
            throwSyntax("Signo no admitido: '" + std::string(1, peek()) + "'");
        }
        return since(start, TokenKind::symbol);
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

char foldedAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

}  // namespace

std::vector<Token> tokenize(std::string_view statement) {
    std::vector<Token> tokens;
    tokens.reserve(statement.size() / 4 + 2);
    forEachToken(statement, [&](Token&& token) { tokens.push_back(std::move(token)); });
    return tokens;
}

void forEachToken(std::string_view statement, const std::function<void(Token&&)>& visit) {
    Scanner scanner(statement);
    for (bool more = true; more;) {
        Token token = scanner.next();
        more = token.kind != TokenKind::end;
        visit(std::move(token));
    }
}

std::string foldName(std::string_view name) {
    if (!std::ranges::all_of(name, isAscii)) {
        return runtime::UCase(name);
    }
    std::string folded(name);
    std::ranges::transform(folded, folded.begin(), foldedAscii);
    return folded;
}

bool isSameName(std::string_view one, std::string_view other) {
    // Up to the first letter beyond ASCII, names are compared without making their folded forms: a statement looks up
    // each of its names among all columns of its tables.
    std::size_t at = 0;
    const std::size_t shorter = std::min(one.size(), other.size());
    while (at < shorter && isAscii(one[at]) && isAscii(other[at])) {
        if (foldedAscii(one[at]) != foldedAscii(other[at])) {
            return false;
        }
        ++at;
    }
    return at == shorter ? one.size() == other.size() : foldName(one) == foldName(other);
}

}  // namespace velmora::tsql
