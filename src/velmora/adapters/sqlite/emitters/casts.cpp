#include "velmora/adapters/sqlite/emitters/casts.h"

#include <cmath>
#include <optional>
#include <utility>

#include "velmora/adapters/sqlite/emitters/literals.h"
#include "velmora/adapters/sqlite/emitters/quoting.h"
#include "velmora/adapters/sqlite/emitters/storage.h"
#include "velmora/adapters/tsql/conversions.h"
#include "velmora/adapters/tsql/refusals.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::sqlite {

using namespace tsql;

namespace {

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

/// The number of a literal of a number.
std::optional<double> numberIn(const Emitted& value) {
    return value.literal && value.type.isNumber() ? numberFromText(*value.literal) : std::nullopt;
}

Emitted literalToWhole(const std::string& literal, Type type) {
    const auto number = wholeFromText(literal);
    if (!number) {
        refuseLiteral(literal, Kind::whole);
    }
    return wholeLiteral(*number, std::move(type));
}

/// Beyond this the engine gives the nearest whole number that it can hold.
constexpr double largestCastWhole = 9e18;

Emitted toWhole(Emitted value, const Type& type) {
    switch (value.type.kind) {
        case Kind::text:
            return value.literal ? literalToWhole(*value.literal, type) : call("vm_whole", value, type);
        case Kind::real:
        case Kind::decimal: {
            // Kept K-201: decimals are truncated on conversion to an int and rounded on conversion to a numeric, as the
            // server does.
            const bool rounds = type.scale == 0;
            if (const auto number = numberIn(value); number && std::abs(*number) < largestCastWhole) {
                return wholeLiteral(static_cast<std::int64_t>(rounds ? roundedTo(*number, 0) : *number), type);
            }
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
        const auto number = numberIn(value);
        value = number
                    ? numberLiteral(roundedTo(*number, type.scale), type)
                    : Emitted{.sql = "vm_round(" + value.sql + ", " + std::to_string(type.scale) + ")", .type = type};
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

/// The text that a cast makes of a literal of a number.
std::optional<std::string> textOfNumber(const Emitted& literal) {
    const auto number = numberIn(literal);
    if (!number) {
        return std::nullopt;
    }
    switch (literal.type.kind) {
        case Kind::real:
            return textFromReal(*number);
        case Kind::decimal:
            return literal.type.scale < 0 ? std::nullopt : std::optional(textFromDecimal(*number, literal.type.scale));
        default:
            const auto whole = wholeFromText(*literal.literal);
            return whole ? std::optional(std::to_string(*whole)) : std::nullopt;
    }
}

Emitted toText(Emitted value, const Type& type) {
    if (const auto text = textOfNumber(value); text && runtime::Len(*text) <= type.length) {
        return {.sql = quotedText(*text), .type = type, .literal = *text};
    }
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
    std::string text = isoText(*date);
    return {.sql = quotedText(text), .type = type, .literal = text};
}

Emitted toBit(Emitted value, const Type& type) {
    if (value.type.kind == Kind::bit) {
        return value;
    }
    if (value.type.kind == Kind::text) {
        const auto bit = value.literal ? bitFromText(*value.literal) : std::nullopt;
        return bit ? wholeLiteral(*bit ? 1 : 0, type) : call("vm_bit", value, type);
    }
    if (!value.type.isNumber()) {
        refuseConversion(value.type.kind, type.kind);
    }
    if (const auto number = numberIn(value)) {
        return wholeLiteral(*number != 0 ? 1 : 0, type);
    }
    return {.sql = "(" + value.sql + " <> 0)", .type = type};
}

bool isText(const Emitted& value) {
    return value.type.kind == Kind::text;
}

}  // namespace

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

Emitted literalToNumber(const std::string& literal, Type type) {
    const auto number = numberFromText(literal);
    if (!number) {
        refuseLiteral(literal, type.kind);
    }
    return numberLiteral(*number, std::move(type));
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

}  // namespace velmora::sqlite
