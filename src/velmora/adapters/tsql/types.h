#pragma once
// Types of T-SQL columns and expressions.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::tsql {

/// In order of rising precedence: where two meet, the lower is converted to the higher.
enum class Kind {
    null,     ///< the literal NULL, which fits everywhere
    binary,   ///< a blob
    text,     ///< UTF-8
    bit,      ///< 0 or 1
    whole,    ///< int, bigint, smallint, tinyint, and numeric without decimals
    decimal,  ///< numeric with decimals, money
    real,     ///< float
    date,     ///< datetime
};

inline constexpr std::size_t unlimited = static_cast<std::size_t>(-1);

struct Type {
    Kind kind = Kind::null;
    std::size_t length = unlimited;  ///< text: UTF-16 units
    int scale = -1;                  ///< decimal: places after the point, -1 when not known
    std::string name{};              ///< the T-SQL name of a column's type, "nvarchar(15)"; empty for expressions

    bool isNumber() const { return kind >= Kind::bit && kind <= Kind::real; }
};

/// A type by its T-SQL name in any case and its arguments; empty when the dialect does not know it.
/// `max` as the length is `unlimited`.
std::optional<Type> typeNamed(std::string_view name, std::optional<std::size_t> first = {},
                              std::optional<std::size_t> second = {});

}  // namespace velmora::tsql
