#include "velmora/adapters/documents/cell_format.h"

namespace velmora::documents {

namespace {

constexpr std::string_view placeholders = "0#,.";

/// A quoted literal; a quote inside it would end it and is left out.
std::string quoted(std::string_view literal) {
    std::string inside;
    for (const char c : literal) {
        if (c != '"') {
            inside += c;
        }
    }
    return inside.empty() ? std::string() : '"' + inside + '"';
}

/// The grid ignores a comma without a digit before it; in a spreadsheet one at the end divides by a thousand.
std::string withoutScaling(std::string_view digits) {
    std::string result(digits);
    const std::size_t point = result.find('.');
    std::size_t end = point == std::string::npos ? result.size() : point;
    while (end > 0 && result[end - 1] == ',') {
        result.erase(--end, 1);
    }
    return result;
}

std::string numeric(std::string_view mask) {
    const std::size_t first = mask.find_first_of(placeholders);
    const std::size_t end = mask.find_first_not_of(placeholders, first);
    const std::string_view behind = end == std::string_view::npos ? std::string_view() : mask.substr(end);
    return quoted(mask.substr(0, first)) + withoutScaling(mask.substr(first, end - first)) + quoted(behind);
}

char small(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Minutes are n in the mask and m in the spreadsheet, after hours or before seconds.
std::string date(std::string_view mask) {
    std::string result;
    for (const char c : mask) {
        const char letter = small(c);
        result += letter == 'n' ? 'm' : letter;
    }
    return result;
}

}  // namespace

MaskKind kindOf(std::string_view mask) {
    if (mask.empty()) {
        return MaskKind::none;
    }
    if (mask == "Yes/No") {
        return MaskKind::yesNo;
    }
    return mask.find_first_of("0#") == std::string_view::npos ? MaskKind::date : MaskKind::number;
}

std::string numberFormat(std::string_view mask) {
    switch (kindOf(mask)) {
        case MaskKind::none:
            return {};
        case MaskKind::number:
            return numeric(mask);
        case MaskKind::date:
            return date(mask);
        case MaskKind::yesNo:
            return R"("Sí";"Sí";"No")";
    }
    return {};
}

}  // namespace velmora::documents
