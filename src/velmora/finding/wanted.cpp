#include "velmora/finding/wanted.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>

namespace velmora::finding {

namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isBlank(char character) {
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

/// Reads a line from its beginning, over any blanks.
class Reader {
  public:
    explicit Reader(std::string_view text) : rest_(text) {}

    void skipBlanks() {
        while (!rest_.empty() && isBlank(rest_.front())) {
            rest_.remove_prefix(1);
        }
    }
    /// One of these texts, if the line goes on with it.
    bool accept(std::initializer_list<std::string_view> texts) {
        skipBlanks();
        for (const std::string_view text : texts) {
            if (rest_.starts_with(text)) {
                rest_.remove_prefix(text.size());
                return true;
            }
        }
        return false;
    }
    std::string_view digits() {
        skipBlanks();
        const auto end = std::ranges::find_if_not(rest_, isDigit);
        const std::string_view found = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
        rest_.remove_prefix(found.size());
        return found;
    }
    bool atEnd() {
        skipBlanks();
        return rest_.empty();
    }
    bool continuesWith(char character) const { return rest_.starts_with(character); }
    void skip() { rest_.remove_prefix(1); }

  private:
    std::string_view rest_;
};

std::optional<std::int32_t> positive(std::string_view digits) {
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const bool whole = error == std::errc{} && end == digits.data() + digits.size();
    return whole && value > 0 ? std::optional(value) : std::nullopt;
}

std::optional<std::int32_t> readNumber(std::string_view text) {
    Reader reader(text);
    const std::string_view digits = reader.digits();
    return reader.atEnd() ? positive(digits) : std::nullopt;
}

/// "12,7", "12.7" or "12"; a comma without decimals behind it is still being typed.
std::optional<double> readSize(Reader& reader) {
    const std::string_view whole = reader.digits();
    if (whole.empty()) {
        return std::nullopt;
    }
    std::string number(whole);
    if (reader.continuesWith(',') || reader.continuesWith('.')) {
        reader.skip();
        number += '.';
        number += reader.digits();
    }
    double value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    return read.ec == std::errc{} ? std::optional(value) : std::nullopt;
}

std::optional<WantedToothing> readToothing(std::string_view text) {
    Reader reader(text);
    const std::optional<std::int32_t> teeth = positive(reader.digits());
    if (!teeth || !reader.accept({"x", "X", "×", "*"})) {
        return std::nullopt;
    }
    WantedToothing toothing{.teeth = *teeth, .isModule = reader.accept({"m", "M"})};
    toothing.size = readSize(reader);
    return reader.atEnd() ? std::optional(toothing) : std::nullopt;
}

std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words;
    while (words.size() < mostWords) {
        const auto begin = std::ranges::find_if_not(text, isBlank);
        text.remove_prefix(static_cast<std::size_t>(begin - text.begin()));
        if (text.empty()) {
            break;
        }
        const auto end = std::ranges::find_if(text, isBlank);
        const auto length = static_cast<std::size_t>(end - text.begin());
        words.emplace_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return words;
}

}  // namespace

Wanted readWanted(std::string_view text) {
    return {.number = readNumber(text), .toothing = readToothing(text), .words = wordsOf(text)};
}

}  // namespace velmora::finding
