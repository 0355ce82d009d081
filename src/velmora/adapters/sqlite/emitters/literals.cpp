#include "velmora/adapters/sqlite/emitters/literals.h"

#include <array>
#include <charconv>
#include <utility>

#include "velmora/adapters/sqlite/emitters/casts.h"
#include "velmora/adapters/sqlite/emitters/quoting.h"
#include "velmora/adapters/tsql/conversions.h"

namespace velmora::sqlite {

using namespace tsql;

namespace {

constexpr std::string_view nullWord = "NULL";

}  // namespace

Emitted wholeLiteral(std::int64_t value, Type type) {
    std::string digits = std::to_string(value);
    return {.sql = digits, .type = std::move(type), .literal = digits};
}

Emitted numberLiteral(double value, Type type) {
    std::array<char, 32> buffer;
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    std::string digits(buffer.data(), end);
    if (digits.find_first_of(".e") == std::string::npos) {
        digits += ".0";
    }
    return {.sql = digits, .type = std::move(type), .literal = digits};
}

Emitted emittedLiteral(Form form, const std::string& text) {
    switch (form) {
        case Form::null:
            return {.sql = std::string(nullWord), .type = {}};
        case Form::text:
            return {.sql = quotedText(text), .type = {.kind = Kind::text}, .literal = text};
        case Form::whole:
            if (const auto number = wholeFromText(text)) {
                return wholeLiteral(*number, {.kind = Kind::whole});
            }
            return literalToNumber(text, {.kind = Kind::decimal, .scale = 0});
        case Form::decimal: {
            const auto places = text.size() - text.find('.') - 1;
            return literalToNumber(text, {.kind = Kind::decimal, .scale = static_cast<int>(places)});
        }
        default:
            return literalToNumber(text, {.kind = Kind::real});
    }
}

Emitted negated(Emitted literal) {
    std::string& digits = *literal.literal;
    digits = digits.front() == '-' ? digits.substr(1) : "-" + digits;
    literal.sql = digits;
    return literal;
}

std::optional<sql::Value> constantOf(const Emitted& emitted) {
    if (emitted.sql == nullWord) {
        return sql::Value();
    }
    if (!emitted.literal) {
        return std::nullopt;
    }
    if (!emitted.type.isNumber()) {
        return sql::Value(*emitted.literal);
    }
    if (const auto whole = wholeFromText(*emitted.literal)) {
        return sql::Value(*whole);
    }
    return sql::Value(numberFromText(*emitted.literal).value());
}

}  // namespace velmora::sqlite
