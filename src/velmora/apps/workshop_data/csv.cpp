#include "velmora/apps/workshop_data/csv.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "velmora/platform/runtime/text.h"

namespace velmora::workshop_data {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr char separator = ';';
constexpr char quote = '"';
constexpr char32_t unknownByte = 0;

/// The characters of the bytes 0x80 to 0x9F in Windows-1252; all others are those of Unicode.
constexpr std::array<char32_t, 32> windowsCharacters{U'€', 0,    U'‚', U'ƒ', U'„', U'…', U'†', U'‡', U'ˆ', U'‰', U'Š',
                                                     U'‹', U'Œ', 0,    U'Ž', 0,    0,    U'‘', U'’', U'“', U'”', U'•',
                                                     U'–', U'—', U'˜', U'™', U'š', U'›', U'œ', 0,    U'ž', U'Ÿ'};
constexpr unsigned char firstWindowsCharacter = 0x80;
constexpr unsigned char behindWindowsCharacters = 0xA0;

unsigned char byteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

/// How many bytes follow the first one of a character; nullopt for a byte that begins none.
std::optional<std::size_t> followersOf(unsigned char first) {
    if (first < 0x80) {
        return 0;
    }
    if (first >= 0xC2 && first < 0xE0) {
        return 1;
    }
    if (first >= 0xE0 && first < 0xF0) {
        return 2;
    }
    return first >= 0xF0 && first < 0xF5 ? std::optional<std::size_t>(3) : std::nullopt;
}

/// Overlong forms, surrogates and what is above the last character are excluded by the second byte.
bool isSecondByte(unsigned char first, unsigned char second) {
    switch (first) {
        case 0xE0:
            return second >= 0xA0;
        case 0xED:
            return second < 0xA0;
        case 0xF0:
            return second >= 0x90;
        case 0xF4:
            return second < 0x90;
        default:
            return true;
    }
}

bool isUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const unsigned char first = byteAt(bytes, at);
        const auto followers = followersOf(first);
        if (!followers || *followers >= bytes.size() - at) {
            return false;
        }
        for (std::size_t i = 1; i <= *followers; ++i) {
            const unsigned char next = byteAt(bytes, at + i);
            if ((next & 0xC0) != 0x80 || (i == 1 && !isSecondByte(first, next))) {
                return false;
            }
        }
        at += *followers + 1;
    }
    return true;
}

char32_t windowsCharacter(unsigned char byte) {
    const bool own = byte >= firstWindowsCharacter && byte < behindWindowsCharacters;
    return own ? windowsCharacters[byte - firstWindowsCharacter] : char32_t{byte};
}

std::optional<std::string> fromWindows(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const char32_t character = windowsCharacter(static_cast<unsigned char>(byte));
        if (character == unknownByte) {
            return std::nullopt;
        }
        text += runtime::toUtf8(character);
    }
    return text;
}

bool isLineEnd(char character) {
    return character == '\n' || character == '\r';
}

/// Reads one text from its start to its end or its first fault.
class CsvReader {
  public:
    explicit CsvReader(std::string_view text) : text_(text) {}

    CsvContent read() {
        while (!atEnd() && !content_.fault) {
            readRecord();
        }
        return std::move(content_);
    }

  private:
    bool atEnd() const { return at_ >= text_.size(); }
    char here() const { return text_[at_]; }

    void readRecord() {
        CsvRecord record{.line = line_, .values = {}};
        bool more = true;
        while (more && !content_.fault) {
            record.values.push_back(!atEnd() && here() == quote ? quotedValue() : plainValue());
            more = !atEnd() && here() == separator;
            at_ += more ? 1 : 0;
        }
        passLineEnd();
        const bool empty = std::ranges::all_of(record.values, &std::string::empty);
        if (!content_.fault && !empty) {
            content_.records.push_back(std::move(record));
        }
    }

    std::string plainValue() {
        const std::size_t start = at_;
        at_ = std::min(text_.find_first_of(";\r\n", start), text_.size());
        return std::string(text_.substr(start, at_ - start));
    }

    std::string quotedValue() {
        const std::size_t openedIn = line_;
        std::string value;
        ++at_;
        while (!atEnd()) {
            const std::size_t end = std::min(text_.find(quote, at_), text_.size());
            takeQuoted(end, value);
            if (end + 1 < text_.size() && text_[end + 1] == quote) {
                value += quote;
                at_ += 2;
            } else if (!atEnd()) {
                ++at_;
                checkBehindQuote();
                return value;
            }
        }
        content_.fault = {.line = openedIn, .reason = "Unas comillas se abren y no se cierran."};
        return value;
    }

    void takeQuoted(std::size_t end, std::string& value) {
        const std::string_view part = text_.substr(at_, end - at_);
        for (std::size_t i = 0; i < part.size(); ++i) {
            const bool isPair = part[i] == '\r' && i + 1 < part.size() && part[i + 1] == '\n';
            line_ += std::size_t{isLineEnd(part[i]) && !isPair};
        }
        value += part;
        at_ = end;
    }

    void checkBehindQuote() {
        if (!atEnd() && here() != separator && !isLineEnd(here())) {
            content_.fault = {.line = line_, .reason = "Detrás de unas comillas que se cierran hay más texto."};
        }
    }

    void passLineEnd() {
        if (atEnd() || !isLineEnd(here())) {
            return;
        }
        const bool two = here() == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n';
        at_ += two ? 2 : 1;
        ++line_;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
    CsvContent content_;
};

/// Blanks at the ends would be lost in some spreadsheets.
bool needsQuotes(const std::string& value) {
    return value.find_first_of(";\"\r\n") != std::string::npos || value.starts_with(' ') || value.ends_with(' ');
}

}  // namespace

std::optional<std::string> textOfBytes(std::string_view bytes) {
    if (bytes.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    if (bytes.starts_with(utf8Mark)) {
        bytes.remove_prefix(utf8Mark.size());
    }
    return isUtf8(bytes) ? std::optional(std::string(bytes)) : fromWindows(bytes);
}

CsvContent parseCsv(std::string_view text) {
    return CsvReader(text).read();
}

std::string csvOf(const std::vector<std::vector<std::string>>& rows) {
    std::string file(utf8Mark);
    for (const auto& row : rows) {
        for (const std::string& value : row) {
            file += &value == &row.front() ? "" : ";";
            file += needsQuotes(value) ? "\"" + runtime::Replace(value, "\"", "\"\"") + "\"" : value;
        }
        file += "\r\n";
    }
    return file;
}

}  // namespace velmora::workshop_data
