#pragma once
// Searching by words in any order, without accents and capitals.

#include <string>
#include <string_view>
#include <vector>

namespace velmora::workshop_data {

/// A text in capitals without accents; Ñ stays a letter of its own.
std::string foldedText(std::string_view text);

/// The words of a search box, folded.
std::vector<std::string> searchWords(std::string_view text);

/// Whether a folded text contains every word.
bool containsAll(const std::string& folded, const std::vector<std::string>& words);

}  // namespace velmora::workshop_data
