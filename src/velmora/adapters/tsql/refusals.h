#pragma once
// Statements and values that are refused before any engine sees them, with the data provider's number and a Spanish
// description. Whoever runs the statement adds its text.

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora::tsql {

/// A statement that is not known or not well formed: provider::syntax. The full stop is added to the description.
[[noreturn]] void throwSyntax(std::string description);
[[noreturn]] void throwMissingTable(std::string_view table);
/// provider::conversion. The full stop is added to the description.
[[noreturn]] void throwConversion(std::string description);
/// The limit in characters, as the column declares it.
[[noreturn]] void throwTruncation(std::string_view column, std::size_t limit);
/// provider::constraint. The full stop is added to the description.
[[noreturn]] void throwConstraint(std::string description);

}  // namespace velmora::tsql
