#pragma once
// One value of a table as text, on the form and in files alike: shown, and read back strictly.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "velmora/apps/workshop_data/tables.h"
#include "velmora/platform/sql/value.h"

namespace velmora::workshop_data {

class References;

inline constexpr std::string_view yesText = "Sí";
inline constexpr std::string_view noText = "No";

/// The text of a stored value. Null is empty, except for a `presence`, whose null is "No". A choice that is not in its
/// list and a reference to a row that does not exist show their number.
std::string shown(const Column& column, const sql::Value& value, const References& references);

/// What a text means in a column: a value to be stored, or why it cannot be stored, Spanish.
struct Refusal {
    std::string reason;
    friend bool operator==(const Refusal&, const Refusal&) = default;
};
using ReadText = std::variant<sql::Value, Refusal>;

/// Reads a text that a person typed or a file contains. Blanks around it are ignored. An empty one is null, refused
/// where the column is required. Numbers have a decimal comma and no thousands separator: a point is refused, because
/// "1.234" may mean either.
ReadText read(const Table& table, const Column& column, std::string_view text, const References& references);

/// A count as text.
std::string countText(std::size_t count);

/// A number with a decimal comma; nullopt for any other text.
std::optional<double> numberOf(std::string_view text);

}  // namespace velmora::workshop_data
