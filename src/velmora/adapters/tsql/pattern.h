#pragma once
// LIKE, as the collation compares characters.

#include <string_view>

namespace velmora::tsql {

/// True when the whole text matches: `%` any run, `_` one character, `[a-f]` one of a range, `[^a-f]` one outside it;
/// the character after `escape` stands for itself. Case is ignored, accents are not.
bool matchesPattern(std::string_view text, std::string_view pattern, std::string_view escape = {});

}  // namespace velmora::tsql
