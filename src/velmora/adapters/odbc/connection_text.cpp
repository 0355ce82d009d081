#include "velmora/adapters/odbc/connection_text.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <vector>

#include "velmora/platform/runtime/text.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::odbc {

namespace {

constexpr std::string_view struckOut = "***";
constexpr std::array<std::string_view, 2> passwordKeywords{"PWD", "PASSWORD"};

/// One "KEYWORD=value" of the text; positions of the value as it is written, braces included.
struct Part {
    std::string keyword;  ///< in capitals
    std::size_t begin;
    std::size_t end;
};

/// Behind the closing brace of a value that begins with one; "}}" inside stands for "}".
std::size_t endOfBraces(std::string_view text, std::size_t begin) {
    std::size_t at = begin + 1;
    while (at < text.size()) {
        if (text[at] != '}') {
            ++at;
        } else if (at + 1 < text.size() && text[at + 1] == '}') {
            at += 2;
        } else {
            return at + 1;
        }
    }
    return text.size();
}

std::vector<Part> partsOf(std::string_view text) {
    std::vector<Part> parts;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t equals = text.find('=', at);
        if (equals == std::string_view::npos) {
            break;
        }
        const std::size_t begin = equals + 1;
        const std::size_t from = begin < text.size() && text[begin] == '{' ? endOfBraces(text, begin) : begin;
        const std::size_t end = std::min(text.find(';', from), text.size());
        parts.push_back({runtime::UCase(runtime::Trim(text.substr(at, equals - at))), begin, end});
        at = end + 1;
    }
    return parts;
}

std::string unbraced(std::string_view value) {
    if (value.size() < 2 || value.front() != '{' || value.back() != '}') {
        return std::string(value);
    }
    return runtime::Replace(value.substr(1, value.size() - 2), "}}", "}");
}

}  // namespace

std::string readConnectionText(const std::string& textOrFile) {
    if (textOrFile.find('=') != std::string::npos) {
        return textOrFile;
    }
    std::ifstream file(textOrFile);
    std::string line;
    if (!std::getline(file, line) || line.find('=') == std::string::npos) {
        throw sql::DbError(sql::provider::failure,
                           "Ni es una cadena de conexión ni un archivo que contenga una: " + textOrFile);
    }
    if (line.ends_with('\r')) {
        line.pop_back();
    }
    return line;
}

std::string valueOf(std::string_view connectionText, std::string_view keyword) {
    const std::string wanted = runtime::UCase(keyword);
    for (const Part& part : partsOf(connectionText)) {
        if (part.keyword == wanted) {
            return unbraced(connectionText.substr(part.begin, part.end - part.begin));
        }
    }
    return {};
}

std::string withValue(std::string_view connectionText, std::string_view keyword, std::string_view value) {
    const std::string wanted = runtime::UCase(keyword);
    std::string changed(connectionText);
    for (const Part& part : partsOf(connectionText)) {
        if (part.keyword == wanted) {
            changed.replace(part.begin, part.end - part.begin, value);
            break;
        }
    }
    return changed;
}

std::string withoutPasswordOf(std::string_view connectionText, std::string words) {
    for (const std::string_view keyword : passwordKeywords) {
        words = runtime::Replace(words, valueOf(connectionText, keyword), struckOut);
    }
    return words;
}

}  // namespace velmora::odbc
