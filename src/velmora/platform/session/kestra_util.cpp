#include "velmora/platform/session/kestra_util.h"

#include <optional>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::session {
namespace {

constexpr char columnSeparator = '\x01';
constexpr std::string_view dateMask = "dd/mm/yyyy";
constexpr char32_t firstPrintable = 32;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// ddmmyy and ddmmyyyy with the missing slashes inserted; any other text unchanged.
std::string withSlashes(const std::string& text) {
    if (!isDigits(text) || (text.size() != 6 && text.size() != 8)) {
        return text;
    }
    return text.substr(0, 2) + "/" + text.substr(2, 2) + "/" + text.substr(4);
}

/// Removes one part of a date from the front: up to two digits and a slash.
std::optional<unsigned> takePart(std::string_view& text) {
    unsigned part = 0;
    std::size_t used = 0;
    while (used < text.size() && isDigit(text[used])) {
        part = part * 10 + static_cast<unsigned>(text[used] - '0');
        ++used;
    }
    if (used == 0 || used > 2 || used == text.size() || text[used] != '/') {
        return std::nullopt;
    }
    text.remove_prefix(used + 1);
    return part;
}

// Chosen C-286: a date field accepts day, month, year and no other order. An invalid date such as "31/02/26" stays on
// the screen unchanged; CDate would turn it into the 26th of February of 1931.
std::optional<runtime::Date> dayFirst(const std::string& text) {
    std::string_view rest = text;
    const std::optional<unsigned> day = takePart(rest);
    const std::optional<unsigned> month = day ? takePart(rest) : std::nullopt;
    if (!month || !isDigits(rest) || !runtime::IsDate(text)) {
        return std::nullopt;
    }
    const runtime::Date date = runtime::CDate(text);
    const std::chrono::year_month_day read{std::chrono::floor<std::chrono::days>(date.at)};
    const bool asWritten = static_cast<unsigned>(read.day()) == *day && static_cast<unsigned>(read.month()) == *month;
    return asWritten ? std::optional(date) : std::nullopt;
}

std::string asDate(const std::string& text) {
    const std::optional<runtime::Date> date = dayFirst(withSlashes(runtime::Trim(text)));
    return date ? runtime::Format(*date, dateMask) : text;
}

}  // namespace

void KestraUtil::EntrarCampo(screen::TextBox& campo, std::string_view) {
    campo.setBackColor(colorFoco_);
    campo.selectAll();
}

void KestraUtil::SalirCampo(screen::TextBox& campo, std::string_view texto) {
    campo.setBackColor(colorNormal_);
    if (texto.empty()) {
        return;
    }
    const std::string text = campo.text();
    campo.setText(texto == dateMask ? asDate(text) : runtime::Format(text, texto));
}

void KestraUtil::TeclaCampo(screen::TextBox& campo, screen::KeyPress& key, bool soloEnteros) {
    // A selection is replaced by the key, so the field counts as empty.
    const std::string text = campo.allSelected() ? "" : campo.text();
    const char32_t typed = key.character == U'.' ? U',' : key.character;
    const bool digit = typed >= U'0' && typed <= U'9';
    // Chosen C-287: the position of the caret is not known here, so a minus is accepted only in an empty or wholly
    // selected field, where it is certain to lead.
    const bool leadingMinus = typed == U'-' && text.empty();
    const bool decimalComma = typed == U',' && !soloEnteros && text.find(',') == std::string::npos;
    const bool editing = typed < firstPrintable;
    key.character = digit || leadingMinus || decimalComma || editing ? typed : U'\0';
}

std::string joinedRow(const sql::Row& row) {
    std::string joined;
    for (const sql::Value& value : row) {
        if (&value != &row.front()) {
            joined += columnSeparator;
        }
        joined += value.isNull() ? std::string() : value.toText();
    }
    return joined;
}

std::vector<std::string> columnsOf(std::string_view joinedRow) {
    std::vector<std::string> columns;
    for (;;) {
        const std::size_t end = joinedRow.find(columnSeparator);
        columns.emplace_back(joinedRow.substr(0, end));
        if (end == std::string_view::npos) {
            return columns;
        }
        joinedRow.remove_prefix(end + 1);
    }
}

std::string KestraUtil::Buscar(std::string_view statement, std::string_view campo, std::string_view cabecera1,
                               std::string_view cabecera2, std::string_view titulo, int ancho1, int ancho2, bool) {
    screen::SearchWindow window{.title = std::string(titulo),
                                .searchColumn = std::string(campo),
                                .firstCaption = std::string(cabecera1),
                                .secondCaption = std::string(cabecera2),
                                .firstWidth = ancho1,
                                .secondWidth = ancho2,
                                .rows = connection_->execute(statement)};
    const std::optional<std::size_t> chosen = screen_.search(window);
    const sql::Row* row = chosen ? window.rows.peek(*chosen) : nullptr;
    return row == nullptr ? std::string() : joinedRow(*row);
}

double KestraUtil::Redondear(double valor, int decimales) const {
    return runtime::Redondear(valor, decimales);
}

}  // namespace velmora::session
