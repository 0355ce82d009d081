#include "velmora/adapters/sqlite/types.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "velmora/adapters/sqlite/tokenizer.h"

namespace velmora::sqlite {

namespace {

enum class Arguments { none, length, precision };

struct NamedType {
    std::string_view name;
    std::string_view spelling;  ///< how the engine is told; its letters decide the engine's own affinity
    Kind kind;
    Arguments arguments = Arguments::none;
};

constexpr auto types = std::to_array<NamedType>({
    {"INT", "int", Kind::whole},
    {"INTEGER", "int", Kind::whole},
    {"SMALLINT", "smallint", Kind::whole},
    {"TINYINT", "tinyint", Kind::whole},
    {"BIGINT", "bigint", Kind::whole},
    {"BIT", "bit", Kind::bit},
    {"FLOAT", "float", Kind::real, Arguments::length},
    {"REAL", "real", Kind::real},
    {"NUMERIC", "numeric", Kind::whole, Arguments::precision},
    {"DECIMAL", "decimal", Kind::whole, Arguments::precision},
    {"MONEY", "money", Kind::decimal},
    {"SMALLMONEY", "smallmoney", Kind::decimal},
    {"NVARCHAR", "nvarchar", Kind::text, Arguments::length},
    {"VARCHAR", "varchar", Kind::text, Arguments::length},
    {"NCHAR", "nchar", Kind::text, Arguments::length},
    {"CHAR", "char", Kind::text, Arguments::length},
    {"NTEXT", "ntext", Kind::text},
    {"TEXT", "text", Kind::text},
    {"DATETIME", "datetime", Kind::date},
    {"SMALLDATETIME", "smalldatetime", Kind::date},
    {"VARBINARY", "varbinary", Kind::binary, Arguments::length},
    {"IMAGE", "image", Kind::binary},
});

struct Range {
    std::string_view spelling;
    std::string_view lowest, highest;
};

constexpr auto ranges = std::to_array<Range>({
    {"int", "-2147483648", "2147483647"},
    {"smallint", "-32768", "32767"},
    {"tinyint", "0", "255"},
});

Type textOfLength(const NamedType& named, std::optional<std::size_t> length) {
    Type type{.kind = named.kind, .length = length.value_or(1), .name = std::string(named.spelling)};
    type.name += type.length == unlimited ? "(max)" : "(" + std::to_string(type.length) + ")";
    return type;
}

Type numberOfScale(const NamedType& named, std::size_t precision, std::size_t scale) {
    return {.kind = scale == 0 ? Kind::whole : Kind::decimal,
            .scale = static_cast<int>(scale),
            .name = std::string(named.spelling) + "(" + std::to_string(precision) + ", " + std::to_string(scale) + ")"};
}

}  // namespace

std::optional<Type> typeNamed(std::string_view name, std::optional<std::size_t> first,
                              std::optional<std::size_t> second) {
    const std::string folded = foldName(name);
    const auto named =
        std::find_if(types.begin(), types.end(), [&](const NamedType& type) { return type.name == folded; });
    if (named == types.end() || (second && named->arguments != Arguments::precision) ||
        (first && named->arguments == Arguments::none)) {
        return std::nullopt;
    }
    if (named->arguments == Arguments::precision) {
        const std::size_t precision = first.value_or(18);
        const std::size_t scale = second.value_or(0);
        return precision >= 1 && precision <= 38 && scale <= precision
                   ? std::optional(numberOfScale(*named, precision, scale))
                   : std::nullopt;
    }
    if (named->arguments == Arguments::length && named->kind != Kind::real) {
        return first == std::size_t{0} ? std::nullopt : std::optional(textOfLength(*named, first));
    }
    Type type{.kind = named->kind, .name = std::string(named->spelling)};
    if (type.kind == Kind::decimal) {
        type.scale = 4;
    }
    return type;
}

Type declaredType(std::string_view declaration) {
    const auto open = declaration.find('(');
    std::string_view name = declaration.substr(0, open);
    std::array<std::optional<std::size_t>, 2> arguments;
    if (open != std::string_view::npos) {
        std::size_t at = open + 1;
        for (auto& argument : arguments) {
            while (at < declaration.size() && declaration[at] == ' ') {
                ++at;
            }
            std::size_t value = 0;
            const auto [end, error] =
                std::from_chars(declaration.data() + at, declaration.data() + declaration.size(), value);
            if (error != std::errc()) {
                argument = declaration.substr(at, 3) == "max" ? std::optional(unlimited) : std::nullopt;
                break;
            }
            argument = value;
            at = static_cast<std::size_t>(end - declaration.data()) + 1;
        }
    }
    return typeNamed(name, arguments[0], arguments[1]).value_or(Type{});
}

std::string storageCheck(const Type& type, std::string_view column) {
    const std::string name(column);
    const std::string storage = "typeof(" + name + ")";
    switch (type.kind) {
        case Kind::bit:
            return name + " IN (0, 1)";
        case Kind::whole: {
            std::string check = storage + " IN ('integer', 'null')";
            const auto range =
                std::find_if(ranges.begin(), ranges.end(), [&](const Range& r) { return r.spelling == type.name; });
            if (range != ranges.end()) {
                check +=
                    " AND " + name + " BETWEEN " + std::string(range->lowest) + " AND " + std::string(range->highest);
            }
            return check;
        }
        case Kind::decimal:
        case Kind::real:
            return storage + " IN ('real', 'integer', 'null')";
        case Kind::text:
            return storage + " IN ('text', 'null')";
        case Kind::date:
            return name + " GLOB '[0-9][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9] [0-2][0-9]:[0-5][0-9]:[0-5][0-9]'";
        case Kind::binary:
            return storage + " IN ('blob', 'null')";
        case Kind::null:
            break;
    }
    return {};
}

}  // namespace velmora::sqlite
