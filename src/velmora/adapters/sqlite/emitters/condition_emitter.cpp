// Conditions: comparisons, ranges, lists, patterns.

#include <array>

#include "velmora/adapters/sqlite/emitters/casts.h"
#include "velmora/adapters/sqlite/emitters/emitter.h"
#include "velmora/adapters/tsql/refusals.h"

namespace velmora::sqlite {

using namespace tsql;

std::string Emitter::condition(const Expression& expression, const Scope& scope) {
    switch (expression.form) {
        case Form::comparison:
            return comparison(expression, scope);
        case Form::both:
        case Form::either: {
            std::string sql;
            for (const ExpressionPtr& operand : expression.operands) {
                sql += sql.empty() ? "(" : expression.form == Form::both ? " AND " : " OR ";
                sql += condition(*operand, scope);
            }
            return sql + ")";
        }
        case Form::no:
            return "(NOT " + condition(*expression.operands[0], scope) + ")";
        case Form::isNull:
            return "(" + value(*expression.operands[0], scope).sql +
                   (expression.negated ? " IS NOT NULL)" : " IS NULL)");
        case Form::between:
            return between(expression, scope);
        case Form::inList:
            return inList(expression, scope);
        case Form::inSelect:
            return inSelect(expression, scope);
        case Form::exists:
            return "(EXISTS (" + select(*expression.select, &scope).sql + "))";
        case Form::like:
            return like(expression, scope);
        default:
            throwSyntax("Se esperaba una condición y hay un valor");
    }
}

std::string Emitter::comparison(const Expression& expression, const Scope& scope) {
    std::array<Emitted, 2> sides = {value(*expression.operands[0], scope), value(*expression.operands[1], scope)};
    const Kind kind = common(sides[0].type.kind, sides[1].type.kind);
    for (std::size_t i = 0; i < sides.size(); ++i) {
        // A value of another kind might have both sides compared as that.
        const auto coerce = [kind, alike = sides[i].type.kind](Emitted given) {
            return given.type.kind == alike ? coerced(std::move(given), kind) : Emitted();
        };
        sides[i] = parameters_.inPlaceOf(*expression.operands[i], coerce(sides[i]), coerce);
    }
    return comparison(sides[0], expression.text, sides[1]);
}

std::string Emitter::comparison(const Emitted& left, std::string_view operation, const Emitted& right) const {
    const Kind kind = common(left.type.kind, right.type.kind);
    const Emitted a = coerced(left, kind);
    const Emitted b = coerced(right, kind);
    // The left side's collation decides, and a column on the right brings its own only when the left has none.
    const std::string first = b.storedColumn ? a.sql : collated(a);
    return "(" + first + " " + std::string(operation) + " " + b.sql + ")";
}

std::string Emitter::between(const Expression& expression, const Scope& scope) {
    std::array<Emitted, 3> parts;
    Kind kind = Kind::null;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        parts[i] = value(*expression.operands[i], scope);
        kind = common(kind, parts[i].type.kind);
    }
    for (Emitted& part : parts) {
        part = coerced(std::move(part), kind);
    }
    return "(" + collated(parts[0]) + (expression.negated ? " NOT" : "") + " BETWEEN " + parts[1].sql + " AND " +
           parts[2].sql + ")";
}

std::string Emitter::inList(const Expression& expression, const Scope& scope) {
    std::vector<Emitted> parts;
    Kind kind = Kind::null;
    for (const ExpressionPtr& operand : expression.operands) {
        parts.push_back(value(*operand, scope));
        kind = common(kind, parts.back().type.kind);
    }
    std::string sql;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Emitted part = coerced(std::move(parts[i]), kind);
        if (i == 0) {
            sql = "(" + collated(part) + (expression.negated ? " NOT IN (" : " IN (");
        } else {
            sql += (i == 1 ? "" : ", ") + part.sql;
        }
    }
    return sql + "))";
}

std::string Emitter::inSelect(const Expression& expression, const Scope& scope) {
    const Emitted left = value(*expression.operands[0], scope);
    const EmittedSelect inner = select(*expression.select, &scope);
    if (inner.outputs.size() != 1) {
        throwSyntax("La subconsulta de IN tiene una sola columna");
    }
    const Type& type = inner.outputs[0].type;
    const bool alike = left.type.kind == type.kind || (left.type.isNumber() && type.isNumber());
    if (!alike) {
        throwSyntax("Construcción no admitida: IN entre " + std::string(nameOf(left.type.kind)) + " y " +
                    std::string(nameOf(type.kind)));
    }
    return "(" + collated(left) + (expression.negated ? " NOT IN (" : " IN (") + inner.sql + "))";
}

std::string Emitter::like(const Expression& expression, const Scope& scope) {
    std::string sql = expression.negated ? "(NOT vm_like(" : "(vm_like(";
    for (std::size_t i = 0; i < expression.operands.size(); ++i) {
        sql += (i == 0 ? "" : ", ") + coerced(value(*expression.operands[i], scope), Kind::text).sql;
    }
    return sql + "))";
}

}  // namespace velmora::sqlite
