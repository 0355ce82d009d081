#pragma once
// LIKE, as the collation compares characters.

#include <string>
#include <string_view>
#include <vector>

namespace velmora::tsql {

/// True when the whole text matches: `%` any run, `_` one character, `[a-f]` one of a range, `[^a-f]` one outside it;
/// the character after `escape` stands for itself. Case is ignored, accents are not.
bool matchesPattern(std::string_view text, std::string_view pattern, std::string_view escape = {});

/// A pattern that many texts are compared with: the same, read once.
class Pattern {
  public:
    explicit Pattern(std::string_view pattern, std::string_view escape = {});
    bool matches(std::string_view text) const;

    struct Piece {
        enum class Kind { run, one, character, set } kind;
        char32_t character = 0;
        std::u32string set;  ///< pairs of first and last
        bool excluded = false;

        bool takes(char32_t c) const;
    };

  private:
    bool matches(std::u32string_view characters) const;

    std::vector<Piece> pieces_;
};

}  // namespace velmora::tsql
