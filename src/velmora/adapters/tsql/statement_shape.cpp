#include "velmora/adapters/tsql/statement_shape.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "velmora/adapters/tsql/tokenizer.h"

namespace velmora::tsql {

namespace {

std::optional<Form> literalForm(const Token& token) {
    switch (token.kind) {
        case TokenKind::text:
            return Form::text;
        case TokenKind::whole:
            return Form::whole;
        case TokenKind::decimal:
            return Form::decimal;
        case TokenKind::real:
            return Form::real;
        case TokenKind::word:
            return isSameName(token.written, "NULL") ? std::optional(Form::null) : std::nullopt;
        default:
            return std::nullopt;
    }
}

std::string contentOf(Form form, Token& token) {
    switch (form) {
        case Form::null:
            return {};
        case Form::text:
            return std::move(token.value);
        default:
            return std::string(token.written);
    }
}

constexpr auto changingWords = std::to_array<std::string_view>({"INSERT", "UPDATE", "DELETE"});

}  // namespace

bool changesRows(std::string_view statement) {
    const std::size_t first = std::min(statement.find_first_not_of(" \t\r\n"), statement.size());
    const std::size_t end = std::min(statement.find_first_of(" \t\r\n", first), statement.size());
    const std::string_view word = statement.substr(first, end - first);
    return std::ranges::any_of(changingWords, [&](std::string_view changing) { return isSameName(word, changing); });
}

Shape shapeOf(std::string_view statement) {
    Shape shape;
    shape.text.reserve(statement.size());
    std::size_t copied = 0;
    forEachToken(statement, [&](Token&& token) {
        const auto form = literalForm(token);
        if (!form) {
            return;
        }
        const auto place = static_cast<std::size_t>(token.written.data() - statement.data());
        shape.text.append(statement.substr(copied, place - copied)) += '?';
        copied = place + token.written.size();
        shape.literals.push_back({.form = *form, .text = contentOf(*form, token), .place = place});
    });
    shape.text.append(statement.substr(copied));
    return shape;
}

}  // namespace velmora::tsql
