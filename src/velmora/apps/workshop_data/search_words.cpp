#include "velmora/apps/workshop_data/search_words.h"

#include <algorithm>

#include "velmora/platform/runtime/text.h"

namespace velmora::workshop_data {

namespace {

constexpr std::u32string_view accented = U"ÁÀÂÄÃÅÉÈÊËÍÌÎÏÓÒÔÖÕÚÙÛÜÝÇ";
constexpr std::u32string_view plain = U"AAAAAAEEEEIIIIOOOOOUUUUYC";
static_assert(accented.size() == plain.size());

}  // namespace

std::string foldedText(std::string_view text) {
    std::u32string letters = runtime::toCodePoints(runtime::UCase(text));
    for (char32_t& letter : letters) {
        if (const auto at = accented.find(letter); at != std::u32string_view::npos) {
            letter = plain[at];
        }
    }
    return runtime::toUtf8(letters);
}

std::vector<std::string> searchWords(std::string_view text) {
    std::vector<std::string> words;
    const std::string folded = foldedText(text);
    for (std::size_t start = 0; (start = folded.find_first_not_of(' ', start)) != std::string::npos;) {
        const std::size_t end = std::min(folded.find(' ', start), folded.size());
        words.push_back(folded.substr(start, end - start));
        start = end;
    }
    return words;
}

bool containsAll(const std::string& folded, const std::vector<std::string>& words) {
    return std::ranges::all_of(words, [&](const std::string& word) { return folded.find(word) != std::string::npos; });
}

}  // namespace velmora::workshop_data
