// Values: literals, columns, arithmetic, CASE, conversions.

#include <algorithm>
#include <optional>

#include "velmora/adapters/sqlite/emitters/casts.h"
#include "velmora/adapters/sqlite/emitters/emitter.h"
#include "velmora/adapters/sqlite/emitters/literals.h"
#include "velmora/adapters/tsql/refusals.h"

namespace velmora::sqlite {

using namespace tsql;

namespace {

/// True for int types and bit, whose division truncates; a numeric without decimals divides like any numeric.
bool dividesWhole(const Type& type) {
    return (type.kind == Kind::whole || type.kind == Kind::bit) && type.scale != 0;
}

bool isNonZeroLiteral(const Emitted& value) {
    return value.literal && value.type.isNumber() && value.literal->find_first_of("123456789") != std::string::npos;
}

}  // namespace

Emitted Emitter::value(const Expression& expression, const Scope& scope) {
    const Parameters::Part part(parameters_, Given::none);
    switch (expression.form) {
        case Form::null:
        case Form::whole:
        case Form::decimal:
        case Form::real:
        case Form::text:
            return emittedLiteral(expression.form, expression.text);
        case Form::binary:
            return {.sql = "X'" + expression.text + "'", .type = {.kind = Kind::binary}};
        case Form::column:
            return columnMeant(expression, scope);
        case Form::negate:
            return negation(expression, scope);
        case Form::arithmetic:
            return arithmetic(expression, scope);
        case Form::choice:
            return choice(expression, scope);
        case Form::function:
            return function(expression, scope);
        case Form::cast:
        case Form::convert:
            return conversion(expression, scope);
        case Form::scalar:
            return scalar(expression, scope);
        case Form::star:
            throwSyntax("Sintaxis no admitida cerca de '*'");
        default:
            throwSyntax("Se esperaba un valor y hay una condición");
    }
}

Emitted Emitter::negation(const Expression& expression, const Scope& scope) {
    Emitted operand = value(*expression.operands[0], scope);
    if (operand.type.kind != Kind::null && !operand.type.isNumber()) {
        throwSyntax("Construcción no admitida: signo menos delante de " + std::string(nameOf(operand.type.kind)));
    }
    if (operand.literal) {
        return negated(std::move(operand));
    }
    return {.sql = "(-" + operand.sql + ")", .type = operand.type};
}

Emitted Emitter::arithmetic(const Expression& expression, const Scope& scope) {
    Emitted left = value(*expression.operands[0], scope);
    Emitted right = value(*expression.operands[1], scope);
    const char operation = expression.text.front();
    const Kind kind = common(left.type.kind, right.type.kind);
    if (kind == Kind::null) {
        return {.sql = "NULL", .type = {.kind = Kind::whole}};
    }
    if (operation == '+' && kind == Kind::text) {
        return {.sql = "(" + left.sql + " || " + right.sql + ")", .type = {.kind = Kind::text}};
    }
    Type type{.kind = std::max(kind, Kind::whole)};
    if (!type.isNumber() || kind < Kind::bit) {
        throwSyntax("Construcción no admitida: operador '" + expression.text + "' con " + std::string(nameOf(kind)));
    }
    left = coerced(std::move(left), kind);
    right = coerced(std::move(right), kind);
    if (operation == '/' || operation == '%') {
        const bool whole = dividesWhole(left.type) && dividesWhole(right.type);
        if (operation == '%' && type.kind != Kind::whole) {
            throwSyntax("Construcción no admitida: operador '%' con decimales");
        }
        if (operation == '/' && !whole) {
            left.sql = "CAST(" + left.sql + " AS REAL)";
            type.kind = std::max(type.kind, Kind::decimal);
        }
        if (!isNonZeroLiteral(right)) {
            right.sql = "vm_divisor(" + right.sql + ")";
        }
    }
    return {.sql = "(" + left.sql + " " + expression.text + " " + right.sql + ")", .type = type};
}

Emitted Emitter::choice(const Expression& expression, const Scope& scope) {
    std::size_t at = 0;
    std::optional<Emitted> compared;
    if (expression.simple) {
        compared = value(*expression.operands[at++], scope);
    }
    const std::size_t pairs = (expression.operands.size() - at - (expression.hasElse ? 1 : 0)) / 2;
    std::vector<std::string> conditions;
    std::vector<Emitted> results;
    for (std::size_t i = 0; i < pairs; ++i, at += 2) {
        const Expression& when = *expression.operands[at];
        conditions.push_back(compared ? comparison(*compared, "=", value(when, scope)) : condition(when, scope));
        results.push_back(value(*expression.operands[at + 1], scope));
    }
    if (expression.hasElse) {
        results.push_back(value(*expression.operands[at], scope));
    }
    Type type;
    for (const Emitted& result : results) {
        type.kind = common(type.kind, result.type.kind);
    }
    std::string sql = "CASE";
    for (std::size_t i = 0; i < results.size(); ++i) {
        sql += i < pairs ? " WHEN " + conditions[i] + " THEN " : std::string(" ELSE ");
        sql += coerced(std::move(results[i]), type.kind).sql;
    }
    return {.sql = "(" + sql + " END)", .type = type};
}

Emitted Emitter::conversion(const Expression& expression, const Scope& scope) {
    Emitted operand = value(*expression.operands[0], scope);
    if (expression.operands.size() < 2) {
        return castTo(std::move(operand), expression.type);
    }
    const Emitted style = value(*expression.operands[1], scope);
    if (style.type.kind != Kind::whole || !style.literal) {
        throwSyntax("Construcción no admitida: CONVERT con un estilo que no es un número entero");
    }
    const std::string& number = *style.literal;
    if (number != "103" && number != "112" && number != "120") {
        throwSyntax("Construcción no admitida: CONVERT con el estilo " + number);
    }
    if (expression.type.kind == Kind::text && operand.type.kind == Kind::date) {
        return {.sql = "vm_text_of_date(" + operand.sql + ", " + number + ")", .type = {.kind = Kind::text}};
    }
    if (expression.type.kind != Kind::date) {
        throwSyntax("Construcción no admitida: CONVERT con estilo entre estos tipos");
    }
    return castTo(std::move(operand), expression.type);
}

Emitted Emitter::scalar(const Expression& expression, const Scope& scope) {
    EmittedSelect inner = select(*expression.select, &scope);
    if (inner.outputs.size() != 1) {
        throwSyntax("Una subconsulta usada como valor tiene una sola columna");
    }
    return {.sql = "(" + inner.sql + ")", .type = inner.outputs[0].type};
}

}  // namespace velmora::sqlite
