#include "velmora/adapters/sqlite/emitter.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "velmora/adapters/sqlite/collation.h"
#include "velmora/adapters/sqlite/conversions.h"
#include "velmora/adapters/sqlite/errors.h"
#include "velmora/adapters/sqlite/parser.h"
#include "velmora/adapters/sqlite/tokenizer.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::sqlite {

namespace {

std::string digitsOf(double value) {
    std::array<char, 32> buffer;
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    std::string text(buffer.data(), end);
    if (text.find_first_of(".e") == std::string::npos) {
        text += ".0";
    }
    return text;
}

std::string_view nameOf(Kind kind) {
    switch (kind) {
        case Kind::binary:
            return "varbinary";
        case Kind::text:
            return "nvarchar";
        case Kind::bit:
            return "bit";
        case Kind::whole:
            return "int";
        case Kind::decimal:
            return "numeric";
        case Kind::real:
            return "float";
        case Kind::date:
            return "datetime";
        case Kind::null:
            break;
    }
    return "NULL";
}

[[noreturn]] void refuseConversion(Kind from, Kind to) {
    throwSyntax("Construcción no admitida: conversión de " + std::string(nameOf(from)) + " en " +
                std::string(nameOf(to)));
}

[[noreturn]] void refuseLiteral(std::string_view literal, Kind to) {
    throwConversion("El texto '" + std::string(literal) + "' no se puede convertir en " + std::string(nameOf(to)));
}

Emitted call(std::string_view function, const Emitted& argument, Type type) {
    return {.sql = std::string(function) + "(" + argument.sql + ")", .type = std::move(type)};
}

Emitted literalToWhole(const std::string& literal, Type type) {
    const auto number = wholeFromText(literal);
    if (!number) {
        refuseLiteral(literal, Kind::whole);
    }
    std::string digits = std::to_string(*number);
    return {.sql = digits, .type = std::move(type), .literal = digits};
}

Emitted literalToNumber(const std::string& literal, Type type) {
    const auto number = numberFromText(literal);
    if (!number) {
        refuseLiteral(literal, type.kind);
    }
    std::string digits = digitsOf(*number);
    return {.sql = digits, .type = std::move(type), .literal = digits};
}

Emitted toWhole(Emitted value, const Type& type) {
    switch (value.type.kind) {
        case Kind::text:
            return value.literal ? literalToWhole(*value.literal, type) : call("vm_whole", value, type);
        case Kind::real:
        case Kind::decimal: {
            // int drops the decimals, numeric rounds them.
            const bool rounds = type.scale == 0;
            const std::string whole = rounds ? "vm_round(" + value.sql + ", 0)" : value.sql;
            return {.sql = "CAST(" + whole + " AS INTEGER)", .type = type};
        }
        case Kind::bit:
        case Kind::whole:
            value.type = type;
            return value;
        default:
            refuseConversion(value.type.kind, type.kind);
    }
}

Emitted toDecimal(Emitted value, const Type& type) {
    if (value.type.kind == Kind::text) {
        value = value.literal ? literalToNumber(*value.literal, type) : call("vm_number", value, type);
    } else if (!value.type.isNumber()) {
        refuseConversion(value.type.kind, type.kind);
    }
    const bool rounds = type.scale >= 0 && value.type.kind != Kind::whole && value.type.kind != Kind::bit;
    if (rounds) {
        value = {.sql = "vm_round(" + value.sql + ", " + std::to_string(type.scale) + ")", .type = type};
    }
    value.type = type;
    return value;
}

Emitted toReal(Emitted value, const Type& type) {
    switch (value.type.kind) {
        case Kind::text:
            return value.literal ? literalToNumber(*value.literal, type) : call("vm_number", value, type);
        case Kind::real:
            value.type = type;
            return value;
        case Kind::bit:
        case Kind::whole:
        case Kind::decimal:
            return value.literal ? literalToNumber(*value.literal, type)
                                 : Emitted{.sql = "CAST(" + value.sql + " AS REAL)", .type = type};
        default:
            refuseConversion(value.type.kind, type.kind);
    }
}

Emitted toText(Emitted value, const Type& type) {
    Type unbounded{.kind = Kind::text};
    switch (value.type.kind) {
        case Kind::text:
            if (value.type.length <= type.length) {
                return value;
            }
            return {.sql = "vm_left(" + value.sql + ", " + std::to_string(type.length) + ")", .type = type};
        case Kind::bit:
        case Kind::whole:
            value = {.sql = "CAST(" + value.sql + " AS TEXT)", .type = unbounded};
            break;
        case Kind::real:
            value = call("vm_text_of_real", value, unbounded);
            break;
        case Kind::decimal:
            if (value.type.scale < 0) {
                throwSyntax("Construcción no admitida: un numeric calculado como texto");
            }
            value = {.sql = "vm_text_of_decimal(" + value.sql + ", " + std::to_string(value.type.scale) + ")",
                     .type = unbounded};
            break;
        default:
            refuseConversion(value.type.kind, type.kind);
    }
    // The longest number has fewer places than this; a shorter target must not cut one.
    constexpr std::size_t longestNumber = 30;
    if (type.length < longestNumber) {
        value.sql = "vm_fit(" + value.sql + ", " + std::to_string(type.length) + ", 'nvarchar')";
    }
    value.type = type;
    return value;
}

Emitted toDate(Emitted value, const Type& type) {
    if (value.type.kind == Kind::date) {
        value.type = type;
        return value;
    }
    if (value.type.kind != Kind::text) {
        refuseConversion(value.type.kind, type.kind);
    }
    if (!value.literal) {
        return call("vm_date", value, type);
    }
    const auto date = dateFromText(*value.literal);
    if (!date) {
        refuseLiteral(*value.literal, Kind::date);
    }
    return {.sql = quotedText(storedDate(*date)), .type = type};
}

Emitted toBit(Emitted value, const Type& type) {
    if (value.type.kind == Kind::bit) {
        return value;
    }
    if (value.type.kind == Kind::text) {
        return call("vm_bit", value, type);
    }
    if (!value.type.isNumber()) {
        refuseConversion(value.type.kind, type.kind);
    }
    if (value.literal && (*value.literal == "0" || *value.literal == "1")) {
        value.type = type;
        return value;
    }
    return {.sql = "(" + value.sql + " <> 0)", .type = type};
}

bool isText(const Emitted& value) {
    return value.type.kind == Kind::text;
}

/// A numeric without decimals divides like any numeric; an int drops what is left over.
bool dividesWhole(const Type& type) {
    return (type.kind == Kind::whole || type.kind == Kind::bit) && type.scale != 0;
}

bool isNonZeroLiteral(const Emitted& value) {
    return value.literal && value.type.isNumber() && value.literal->find_first_of("123456789") != std::string::npos;
}

Source tableSource(const Table& table, std::string alias) {
    Source source{.alias = std::move(alias), .columns = {}, .stored = true};
    source.columns.reserve(table.columns.size());
    for (const TableColumn& column : table.columns) {
        source.columns.push_back({column.name, column.type});
    }
    return source;
}

std::string_view joinText(Join join) {
    switch (join) {
        case Join::first:
            return " FROM ";
        case Join::comma:
        case Join::cross:
            return " CROSS JOIN ";
        case Join::inner:
            return " JOIN ";
        case Join::left:
            return " LEFT JOIN ";
        case Join::right:
            return " RIGHT JOIN ";
        case Join::full:
            break;
    }
    return " FULL JOIN ";
}

const Output* outputNamed(const std::vector<Output>& outputs, std::string_view folded) {
    const auto found = std::find_if(outputs.begin(), outputs.end(),
                                    [&](const Output& output) { return foldName(output.name) == folded; });
    return found == outputs.end() ? nullptr : &*found;
}

[[noreturn]] void refuseColumn(std::string_view name) {
    throw sql::DbError(sql::provider::syntax, "La columna '" + std::string(name) + "' no existe.",
                       {.sqlState = "42S22"});
}

const TableColumn& targetColumn(const Table& table, const std::string& name) {
    const TableColumn* column = table.column(name);
    if (!column) {
        refuseColumn(name);
    }
    return *column;
}

/// The 1-based place of the item that an ORDER BY means by this name; 0 when no item is given it as its alias.
std::size_t aliasPosition(const Select& select, const Scope& scope, std::string_view folded) {
    std::size_t position = 0;
    for (const Item& item : select.items) {
        if (item.value->form != Form::star) {
            ++position;
            if (!item.alias.empty() && foldName(item.alias) == folded) {
                return position;
            }
            continue;
        }
        const std::string owner = foldName(item.value->qualifier);
        for (const Source& source : scope.sources) {
            position += owner.empty() || foldName(source.alias) == owner ? source.columns.size() : 0;
        }
    }
    return 0;
}

Emitted reference(const Source& source, const Output& column) {
    return {.sql = quotedName(source.alias) + "." + quotedName(column.name),
            .type = column.type,
            .storedColumn = source.stored};
}

}  // namespace

std::string quotedName(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        quoted += c;
        if (c == '"') {
            quoted += c;
        }
    }
    return quoted += '"';
}

std::string quotedText(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c;
        if (c == '\'') {
            quoted += c;
        }
    }
    return quoted += '\'';
}

std::string quotedTable(const Table& table) {
    return quotedName(table.schema) + "." + quotedName(table.name);
}

Kind common(Kind a, Kind b) {
    if (a > b) {
        std::swap(a, b);
    }
    const bool clash = (b == Kind::date && a != Kind::text && a != Kind::null && a != Kind::date) ||
                       (a == Kind::binary && b != Kind::binary);
    if (clash) {
        throwSyntax("Construcción no admitida: " + std::string(nameOf(a)) + " junto a " + std::string(nameOf(b)));
    }
    return b;
}

std::string collated(const Emitted& value) {
    return isText(value) && !value.storedColumn ? value.sql + " COLLATE " + std::string(collationName) : value.sql;
}

Emitted castTo(Emitted value, const Type& type) {
    if (value.type.kind == Kind::null) {
        value.type = type;
        return value;
    }
    switch (type.kind) {
        case Kind::whole:
            return toWhole(std::move(value), type);
        case Kind::decimal:
            return toDecimal(std::move(value), type);
        case Kind::real:
            return toReal(std::move(value), type);
        case Kind::text:
            return toText(std::move(value), type);
        case Kind::date:
            return toDate(std::move(value), type);
        case Kind::bit:
            return toBit(std::move(value), type);
        case Kind::binary:
            if (value.type.kind == Kind::binary) {
                return value;
            }
            refuseConversion(value.type.kind, type.kind);
        case Kind::null:
            break;
    }
    return value;
}

Emitted coerced(Emitted value, Kind kind) {
    if (value.type.kind == kind || value.type.kind == Kind::null || kind == Kind::null) {
        return value;
    }
    if (value.type.isNumber() && kind >= Kind::bit && kind <= Kind::real) {
        // The engine compares and adds numbers of all kinds as they are.
        value.type = Type{.kind = kind};
        return value;
    }
    return castTo(std::move(value), Type{.kind = kind});
}

Emitted fitted(Emitted value, const TableColumn& column) {
    if (value.type.kind == Kind::text && column.type.kind == Kind::text) {
        if (column.type.length == unlimited || value.type.length <= column.type.length) {
            return value;
        }
        if (!value.literal) {
            value.sql = "vm_fit(" + value.sql + ", " + std::to_string(column.type.length) + ", " +
                        quotedText(column.name) + ")";
            value.storedColumn = false;
        } else if (runtime::Len(*value.literal) > column.type.length) {
            throwTruncation(column.name, column.type.length);
        }
        return value;
    }
    if (value.literal && value.type.kind == Kind::text && column.type.kind != Kind::date) {
        try {
            return castTo(std::move(value), column.type);
        } catch (const sql::DbError& error) {
            throwConversion(error.description() + " Columna '" + column.name + "'");
        }
    }
    return castTo(std::move(value), column.type);
}

// Values.

Emitted Emitter::value(const Expression& expression, const Scope& scope) {
    switch (expression.form) {
        case Form::null:
            return {.sql = "NULL", .type = {}};
        case Form::whole:
            if (const auto number = wholeFromText(expression.text)) {
                std::string digits = std::to_string(*number);
                return {.sql = digits, .type = {.kind = Kind::whole}, .literal = digits};
            }
            return literalToNumber(expression.text, {.kind = Kind::decimal, .scale = 0});
        case Form::decimal: {
            const auto point = expression.text.find('.');
            return literalToNumber(expression.text, {.kind = Kind::decimal,
                                                     .scale = static_cast<int>(expression.text.size() - point - 1)});
        }
        case Form::real:
            return literalToNumber(expression.text, {.kind = Kind::real});
        case Form::text:
            return {.sql = quotedText(expression.text), .type = {.kind = Kind::text}, .literal = expression.text};
        case Form::binary:
            return {.sql = "X'" + expression.text + "'", .type = {.kind = Kind::binary}};
        case Form::column:
            return column(expression, scope);
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

Emitted Emitter::column(const Expression& expression, const Scope& scope) const {
    const std::string folded = foldName(expression.text);
    const std::string owner = foldName(expression.qualifier);
    for (const Scope* level = &scope; level; level = level->outer) {
        std::optional<Emitted> found;
        for (const Source& source : level->sources) {
            if (!owner.empty() && foldName(source.alias) != owner) {
                continue;
            }
            if (const Output* column = outputNamed(source.columns, folded)) {
                if (found) {
                    throwSyntax("La columna '" + expression.text + "' es ambigua");
                }
                found = reference(source, *column);
            }
        }
        if (found) {
            return *found;
        }
    }
    refuseColumn(expression.qualifier.empty() ? expression.text : expression.qualifier + "." + expression.text);
}

Emitted Emitter::negation(const Expression& expression, const Scope& scope) {
    Emitted operand = value(*expression.operands[0], scope);
    if (operand.type.kind != Kind::null && !operand.type.isNumber()) {
        throwSyntax("Construcción no admitida: signo menos delante de " + std::string(nameOf(operand.type.kind)));
    }
    if (operand.literal) {
        std::string& digits = *operand.literal;
        digits = digits.front() == '-' ? digits.substr(1) : "-" + digits;
        operand.sql = digits;
        return operand;
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

// Conditions.

std::string Emitter::condition(const Expression& expression, const Scope& scope) {
    switch (expression.form) {
        case Form::comparison:
            return comparison(value(*expression.operands[0], scope), expression.text,
                              value(*expression.operands[1], scope));
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

// Selects.

std::string Emitter::fromClause(const std::vector<FromItem>& items, Scope& scope) {
    std::string sql;
    for (const FromItem& item : items) {
        sql += joinText(item.join);
        if (item.select) {
            EmittedSelect inner = select(*item.select, scope.outer, true);
            scope.sources.push_back({.alias = item.alias, .columns = std::move(inner.outputs)});
            sql += "(" + inner.sql + ")";
        } else {
            const auto table = catalog_.table(item.table);
            scope.sources.push_back(tableSource(*table, item.alias.empty() ? table->name : item.alias));
            sql += quotedTable(*table);
        }
        sql += " AS " + quotedName(scope.sources.back().alias);
        if (item.on) {
            sql += " ON " + condition(*item.on, scope);
        }
    }
    return sql;
}

std::vector<Output> Emitter::addItems(const Select& select, const Scope& scope, bool named,
                                      const std::vector<const TableColumn*>* targets, std::string& sql) {
    std::vector<Output> outputs;
    const auto add = [&](Emitted value, const std::string& name) {
        if (targets) {
            if (outputs.size() >= targets->size()) {
                throwSyntax("La lista de valores es más larga que la de columnas");
            }
            value = fitted(std::move(value), *(*targets)[outputs.size()]);
        }
        sql += (outputs.empty() ? " " : ", ") + (select.distinct ? collated(value) : value.sql);
        if (named) {
            if (name.empty()) {
                throwSyntax("Una columna de la subconsulta de FROM no tiene nombre");
            }
            sql += " AS " + quotedName(name);
        }
        outputs.push_back({name, value.type});
    };
    for (const Item& item : select.items) {
        if (item.value->form != Form::star) {
            const bool unnamed = item.alias.empty() && item.value->form == Form::column;
            add(value(*item.value, scope), unnamed ? item.value->text : item.alias);
            continue;
        }
        const std::string owner = foldName(item.value->qualifier);
        bool found = false;
        for (const Source& source : scope.sources) {
            if (!owner.empty() && foldName(source.alias) != owner) {
                continue;
            }
            found = true;
            for (const Output& column : source.columns) {
                add(reference(source, column), column.name);
            }
        }
        if (!found) {
            refuseColumn(item.value->qualifier.empty() ? "*" : item.value->qualifier + ".*");
        }
    }
    return outputs;
}

std::string Emitter::orderBy(const Select& select, const Scope& scope, const std::vector<Output>& outputs) {
    std::string sql;
    for (const OrderItem& item : select.orderBy) {
        sql += sql.empty() ? " ORDER BY " : ", ";
        const Expression& key = *item.value;
        std::size_t position = 0;
        if (key.form == Form::whole) {
            position = static_cast<std::size_t>(wholeFromText(key.text).value_or(0));
            if (position == 0 || position > outputs.size()) {
                throwSyntax("ORDER BY " + key.text + " no es una columna de la lista");
            }
        } else if (key.form == Form::column && key.qualifier.empty()) {
            position = aliasPosition(select, scope, foldName(key.text));
        }
        if (position == 0) {
            sql += collated(value(key, scope));
        } else {
            sql += std::to_string(position);
            if (outputs[position - 1].type.kind == Kind::text) {
                sql += " COLLATE " + std::string(collationName);
            }
        }
        sql += item.descending ? " DESC" : "";
    }
    return sql;
}

EmittedSelect Emitter::select(const Select& select, const Scope* outer, bool named,
                              const std::vector<const TableColumn*>* targets) {
    Scope scope;
    scope.outer = outer;
    const std::string from = fromClause(select.from, scope);
    EmittedSelect result;
    result.sql = select.distinct ? "SELECT DISTINCT" : "SELECT";
    result.outputs = addItems(select, scope, named, targets, result.sql);
    result.sql += from;
    if (select.where) {
        result.sql += " WHERE " + condition(*select.where, scope);
    }
    for (std::size_t i = 0; i < select.groupBy.size(); ++i) {
        result.sql += (i == 0 ? " GROUP BY " : ", ") + collated(value(*select.groupBy[i], scope));
    }
    if (select.having) {
        result.sql += " HAVING " + condition(*select.having, scope);
    }
    result.orderAt = result.sql.size();
    result.sql += orderBy(select, scope, result.outputs);
    if (select.top) {
        result.sql += " LIMIT " + select.top->text;
        result.orderAt = std::string::npos;
    }
    return result;
}

// Statements.

Translation Emitter::insert(const Insert& insert) {
    const auto table = catalog_.table(insert.table);
    std::vector<const TableColumn*> targets;
    if (insert.columns.empty()) {
        for (const TableColumn& column : table->columns) {
            if (!column.identity) {
                targets.push_back(&column);
            }
        }
    }
    for (const std::string& name : insert.columns) {
        targets.push_back(&targetColumn(*table, name));
        if (std::count(targets.begin(), targets.end(), targets.back()) > 1) {
            throwSyntax("La columna '" + name + "' está dos veces en INSERT");
        }
    }
    std::string sql = "INSERT INTO " + quotedTable(*table) + " (";
    for (std::size_t i = 0; i < targets.size(); ++i) {
        sql += (i == 0 ? "" : ", ") + quotedName(targets[i]->name);
    }
    sql += ") ";
    const auto checkCount = [&](std::size_t count) {
        if (count != targets.size()) {
            throwSyntax("INSERT tiene " + std::to_string(targets.size()) + " columnas y " + std::to_string(count) +
                        " valores");
        }
    };
    if (insert.select) {
        EmittedSelect rows = select(*insert.select, nullptr, false, &targets);
        checkCount(rows.outputs.size());
        sql += rows.sql;
    }
    const Scope nothing;
    for (std::size_t row = 0; row < insert.rows.size(); ++row) {
        checkCount(insert.rows[row].size());
        sql += row == 0 ? "VALUES (" : ", (";
        for (std::size_t i = 0; i < targets.size(); ++i) {
            const Emitted given = value(*insert.rows[row][i], nothing);
            if (targets[i]->identity && given.type.kind == Kind::null) {
                throwConstraint("La columna '" + targets[i]->name + "' no admite NULL");
            }
            sql += (i == 0 ? "" : ", ") + fitted(given, *targets[i]).sql;
        }
        sql += ")";
    }
    Translation result{.answer = Answer::changes};
    result.steps.push_back(std::move(sql));
    return result;
}

Translation Emitter::update(const Update& update) {
    const auto table = catalog_.table(update.table);
    Scope scope;
    scope.sources.push_back(tableSource(*table, table->name));
    std::string sql = "UPDATE " + quotedTable(*table) + " SET ";
    bool first = true;
    for (const Assignment& assignment : update.assignments) {
        const TableColumn& column = targetColumn(*table, assignment.column);
        if (column.identity) {
            throwSyntax("La columna de identidad '" + column.name + "' no se puede modificar");
        }
        sql +=
            (first ? "" : ", ") + quotedName(column.name) + " = " + fitted(value(*assignment.value, scope), column).sql;
        first = false;
    }
    if (update.where) {
        sql += " WHERE " + condition(*update.where, scope);
    }
    Translation result{.answer = Answer::changes};
    result.steps.push_back(std::move(sql));
    return result;
}

Translation Emitter::remove(const Delete& remove) {
    const auto table = catalog_.table(remove.table);
    Scope scope;
    scope.sources.push_back(tableSource(*table, table->name));
    std::string sql = "DELETE FROM " + quotedTable(*table);
    if (remove.where) {
        sql += " WHERE " + condition(*remove.where, scope);
    }
    Translation result{.answer = Answer::changes};
    result.steps.push_back(std::move(sql));
    return result;
}

Translation Emitter::statement(const StatementTree& tree) {
    struct Visitor {
        Emitter& emitter;
        Translation operator()(const std::unique_ptr<Select>& parsed) const {
            EmittedSelect rows = emitter.select(*parsed, nullptr);
            Translation result;
            result.countStatement = "SELECT count(*) FROM (" + rows.sql.substr(0, rows.orderAt) + ")";
            for (Output& output : rows.outputs) {
                result.columns.push_back({std::move(output.name)});
                result.types.push_back(std::move(output.type));
            }
            result.steps.push_back(std::move(rows.sql));
            return result;
        }
        Translation operator()(const Insert& parsed) const { return emitter.insert(parsed); }
        Translation operator()(const Update& parsed) const { return emitter.update(parsed); }
        Translation operator()(const Delete& parsed) const { return emitter.remove(parsed); }
        Translation operator()(const CreateTable& parsed) const { return emitter.createTable(parsed); }
        Translation operator()(const AddColumns& parsed) const { return emitter.addColumns(parsed); }
        Translation operator()(const AddKey& parsed) const { return emitter.addKey(parsed); }
        Translation operator()(const DropColumn& parsed) const { return emitter.dropColumn(parsed); }
        Translation operator()(const DropTable& parsed) const { return emitter.dropTable(parsed); }
        Translation operator()(const CreateIndex& parsed) const { return emitter.createIndex(parsed); }
        Translation operator()(const DropIndex& parsed) const { return emitter.dropIndex(parsed); }
        Translation operator()(const AllowGivenKeys& parsed) const { return emitter.allowGivenKeys(parsed); }
    };
    return std::visit(Visitor{*this}, tree);
}

Translation translate(std::string_view statement, Catalog& catalog) {
    const StatementTree tree = parse(statement);
    return Emitter(catalog).statement(tree);
}

}  // namespace velmora::sqlite
