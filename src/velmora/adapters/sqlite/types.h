#pragma once
// Types of T-SQL columns and expressions, and how the engine stores them.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::sqlite {

/// In order of rising precedence: where two meet, the lower is converted to the higher.
enum class Kind {
    null,     ///< the literal NULL, which fits everywhere
    binary,   ///< a blob
    text,     ///< UTF-8
    bit,      ///< 0 or 1
    whole,    ///< int and its sisters, and numeric without decimals
    decimal,  ///< numeric with decimals, money: stored as a double
    real,     ///< float
    date,     ///< datetime: stored as text, YYYY-MM-DD HH:MM:SS. Chosen C-207: to the second, thousandths are dropped
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

/// The type from the text with which a column was declared to the engine: `name` of a Type, or INTEGER for a key.
Type declaredType(std::string_view declaration);

/// The condition that a stored value of the column meets, in the engine's SQL, `column` quoted already; empty when
/// every value does.
std::string storageCheck(const Type& type, std::string_view column);

}  // namespace velmora::sqlite
