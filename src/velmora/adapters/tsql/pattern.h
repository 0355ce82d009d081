#pragma once
// LIKE, as the collation compares characters.

#include <string_view>

namespace velmora::tsql {

/// True when the text is of the pattern: `%` any run, `_` one character, `[a-f]` one of them, `[^a-f]` one of no
/// such; the character behind `escape` stands for itself. Case makes no difference, accents do.
bool matchesPattern(std::string_view text, std::string_view pattern, std::string_view escape = {});

}  // namespace velmora::tsql
