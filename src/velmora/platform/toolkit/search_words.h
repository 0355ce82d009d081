#pragma once
// What is typed in the filter box of a search window, compared with the rows' texts.

#include <string>
#include <string_view>
#include <vector>

namespace velmora::toolkit {

/// The text in lower case without accents, as searches compare it: "Ñandú" and "NANDU" are equal. Accents as characters
/// of their own are dropped, too.
std::u32string plainLetters(std::string_view text);

/// The words of a filter box. A text matches when it contains each of them, in any order; every text matches none.
class SearchWords {
  public:
    explicit SearchWords(std::string_view filter);
    bool operator()(std::string_view text) const;

  private:
    std::vector<std::u32string> words_;
};

}  // namespace velmora::toolkit
