#include "velmora/adapters/tsql/types.h"

#include <algorithm>
#include <array>

#include "velmora/adapters/tsql/tokenizer.h"

namespace velmora::tsql {

namespace {

enum class Arguments { none, length, precision };

struct NamedType {
    std::string_view name;
    std::string_view spelling;  ///< with which Type::name begins
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

}  // namespace velmora::tsql
