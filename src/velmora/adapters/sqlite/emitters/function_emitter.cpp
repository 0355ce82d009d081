// The functions of the language, as the engine spells them.

#include <algorithm>
#include <array>

#include "velmora/adapters/sqlite/emitters/casts.h"
#include "velmora/adapters/sqlite/emitters/emitter.h"
#include "velmora/adapters/sqlite/emitters/quoting.h"
#include "velmora/adapters/tsql/refusals.h"
#include "velmora/adapters/tsql/tokenizer.h"

namespace velmora::sqlite {

using namespace tsql;

namespace {

using Arguments = std::vector<Emitted>;

const Type wholeType{.kind = Kind::whole};
const Type textType{.kind = Kind::text};
const Type dateType{.kind = Kind::date};

std::string text(const Emitted& argument) {
    return coerced(argument, Kind::text).sql;
}
std::string whole(const Emitted& argument) {
    return castTo(argument, wholeType).sql;
}
std::string date(const Emitted& argument) {
    return coerced(argument, Kind::date).sql;
}

[[noreturn]] void refuseArgument(std::string_view function) {
    throwSyntax("Construcción no admitida: " + std::string(function) + " con un argumento de ese tipo");
}

void requireNumber(std::string_view function, const Emitted& argument) {
    if (!argument.type.isNumber() && argument.type.kind != Kind::null) {
        refuseArgument(function);
    }
}

Emitted isnull(const Arguments& a) {
    if (a[0].type.kind == Kind::null) {
        return a[1];
    }
    Type type = a[0].type;
    type.name.clear();
    const Emitted second = type.isNumber() && a[1].type.isNumber() ? coerced(a[1], type.kind) : castTo(a[1], type);
    return {.sql = "ifnull(" + a[0].sql + ", " + second.sql + ")", .type = type};
}

Emitted coalesce(const Arguments& a) {
    Type type;
    for (const Emitted& argument : a) {
        type.kind = common(type.kind, argument.type.kind);
    }
    std::string sql = "coalesce(";
    for (const Emitted& argument : a) {
        sql += (&argument == a.data() ? "" : ", ") + coerced(argument, type.kind).sql;
    }
    return {.sql = sql + ")", .type = type};
}

Emitted getdate(const Arguments&) {
    return {.sql = "getdate()", .type = dateType};
}

Emitted round(const Arguments& a) {
    requireNumber("ROUND", a[0]);
    Type type = a[0].type;
    type.name.clear();
    const std::string rounded = "vm_round(" + a[0].sql + ", " + whole(a[1]) + ")";
    const bool stays = type.kind == Kind::whole || type.kind == Kind::bit;
    return {.sql = stays ? "CAST(" + rounded + " AS INTEGER)" : rounded, .type = stays ? wholeType : type};
}

Emitted absolute(const Arguments& a) {
    requireNumber("ABS", a[0]);
    return {.sql = "abs(" + a[0].sql + ")", .type = a[0].type};
}

Emitted len(const Arguments& a) {
    return {.sql = "vm_len(" + text(a[0]) + ")", .type = wholeType};
}
Emitted left(const Arguments& a) {
    return {.sql = "vm_left(" + text(a[0]) + ", " + whole(a[1]) + ")", .type = textType};
}
Emitted right(const Arguments& a) {
    return {.sql = "vm_right(" + text(a[0]) + ", " + whole(a[1]) + ")", .type = textType};
}
Emitted substring(const Arguments& a) {
    return {.sql = "vm_substring(" + text(a[0]) + ", " + whole(a[1]) + ", " + whole(a[2]) + ")", .type = textType};
}
Emitted upper(const Arguments& a) {
    return {.sql = "vm_upper(" + text(a[0]) + ")", .type = textType};
}
Emitted lower(const Arguments& a) {
    return {.sql = "vm_lower(" + text(a[0]) + ")", .type = textType};
}
Emitted ltrim(const Arguments& a) {
    return {.sql = "ltrim(" + text(a[0]) + ", ' ')", .type = textType};
}
Emitted rtrim(const Arguments& a) {
    return {.sql = "rtrim(" + text(a[0]) + ", ' ')", .type = textType};
}

Emitted datePart(const Emitted& argument, std::string_view start, std::string_view length) {
    return {.sql = "CAST(substr(" + date(argument) + ", " + std::string(start) + ", " + std::string(length) +
                   ") AS INTEGER)",
            .type = wholeType};
}
Emitted year(const Arguments& a) {
    return datePart(a[0], "1", "4");
}
Emitted month(const Arguments& a) {
    return datePart(a[0], "6", "2");
}
Emitted day(const Arguments& a) {
    return datePart(a[0], "9", "2");
}

Emitted smallest(const Arguments& a) {
    return {.sql = "min(" + collated(a[0]) + ")", .type = a[0].type};
}
Emitted greatest(const Arguments& a) {
    return {.sql = "max(" + collated(a[0]) + ")", .type = a[0].type};
}

Emitted sum(const Arguments& a) {
    requireNumber("SUM", a[0]);
    Type type = a[0].type;
    type.name.clear();
    std::string sql = "sum(" + a[0].sql + ")";
    if (type.kind == Kind::decimal && type.scale >= 0) {
        // The server adds decimals exactly; here a sum of doubles is rounded to the type's decimals.
        sql = "vm_round(" + sql + ", " + std::to_string(type.scale) + ")";
    }
    type.kind = std::max(type.kind, Kind::whole);
    return {.sql = sql, .type = type};
}

Emitted average(const Arguments& a) {
    requireNumber("AVG", a[0]);
    if (a[0].type.kind == Kind::real || a[0].type.kind == Kind::decimal || a[0].type.scale == 0) {
        return {.sql = "avg(" + a[0].sql + ")", .type = {.kind = std::max(a[0].type.kind, Kind::decimal)}};
    }
    return {.sql = "(sum(" + a[0].sql + ") / count(" + a[0].sql + "))", .type = wholeType};
}

struct Function {
    std::string_view name;
    std::size_t least, most;
    Emitted (*emit)(const Arguments&);
};

constexpr std::size_t any = static_cast<std::size_t>(-1);

constexpr auto functions = std::to_array<Function>({
    {"ABS", 1, 1, absolute},        {"AVG", 1, 1, average},   {"COALESCE", 2, any, coalesce}, {"DAY", 1, 1, day},
    {"GETDATE", 0, 0, getdate},     {"ISNULL", 2, 2, isnull}, {"LEFT", 2, 2, left},           {"LEN", 1, 1, len},
    {"LOWER", 1, 1, lower},         {"LTRIM", 1, 1, ltrim},   {"MAX", 1, 1, greatest},        {"MIN", 1, 1, smallest},
    {"MONTH", 1, 1, month},         {"RIGHT", 2, 2, right},   {"ROUND", 2, 2, round},         {"RTRIM", 1, 1, rtrim},
    {"SUBSTRING", 3, 3, substring}, {"SUM", 1, 1, sum},       {"UPPER", 1, 1, upper},         {"YEAR", 1, 1, year},
});

struct DatePart {
    std::string_view word;
    std::string_view name;
};

constexpr auto dateParts = std::to_array<DatePart>({
    {"DAY", "day"},
    {"DD", "day"},
    {"D", "day"},
    {"MONTH", "month"},
    {"MM", "month"},
    {"M", "month"},
    {"YEAR", "year"},
    {"YYYY", "year"},
    {"YY", "year"},
    {"HOUR", "hour"},
    {"HH", "hour"},
    {"MINUTE", "minute"},
    {"MI", "minute"},
    {"N", "minute"},
    {"SECOND", "second"},
    {"SS", "second"},
    {"S", "second"},
});

std::string_view datePartNamed(const Expression& expression) {
    const std::string folded =
        expression.form == Form::column && expression.qualifier.empty() ? foldName(expression.text) : "";
    const auto part =
        std::find_if(dateParts.begin(), dateParts.end(), [&](const DatePart& known) { return known.word == folded; });
    if (part == dateParts.end()) {
        throwSyntax("Construcción no admitida: parte de fecha " + expression.text);
    }
    return part->name;
}

void requireCount(const Expression& expression, std::size_t least, std::size_t most) {
    const std::size_t count = expression.operands.size();
    if (count < least || count > most) {
        throwSyntax("La función " + expression.text + " no admite " + std::to_string(count) + " argumentos");
    }
}

}  // namespace

Emitted Emitter::function(const Expression& expression, const Scope& scope) {
    const std::string& name = expression.text;
    if (name == "DATEDIFF" || name == "DATEADD") {
        requireCount(expression, 3, 3);
        const std::string part = quotedText(datePartNamed(*expression.operands[0]));
        const Emitted second = value(*expression.operands[1], scope);
        const std::string third = date(value(*expression.operands[2], scope));
        if (name == "DATEADD") {
            return {.sql = "vm_dateadd(" + part + ", " + whole(second) + ", " + third + ")", .type = dateType};
        }
        return {.sql = "vm_datediff(" + part + ", " + date(second) + ", " + third + ")", .type = wholeType};
    }
    if (name == "COUNT") {
        requireCount(expression, 1, 1);
        const Expression& counted = *expression.operands[0];
        if (counted.form == Form::star) {
            return {.sql = "count(*)", .type = wholeType};
        }
        return {.sql = std::string(expression.distinct ? "count(DISTINCT " : "count(") +
                       collated(value(counted, scope)) + ")",
                .type = wholeType};
    }
    const auto known = std::find_if(functions.begin(), functions.end(),
                                    [&](const Function& function) { return function.name == name; });
    if (known == functions.end()) {
        throwSyntax("Construcción no admitida: la función " + name);
    }
    if (expression.distinct) {
        throwSyntax("Construcción no admitida: DISTINCT en la función " + name);
    }
    requireCount(expression, known->least, known->most);
    Arguments arguments;
    for (const ExpressionPtr& operand : expression.operands) {
        arguments.push_back(value(*operand, scope));
    }
    return known->emit(arguments);
}

}  // namespace velmora::sqlite
