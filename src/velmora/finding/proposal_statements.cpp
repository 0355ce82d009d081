#include "velmora/finding/proposal_statements.h"

#include <algorithm>
#include <array>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::finding {

namespace {

using runtime::CStr;
using runtime::shortest;

/// Half of the second decimal, and a little more for the binary form of what is stored.
constexpr double storedDecimals = 0.0051;

/// A letter with its accents; the database tells them apart, but not the cases.
constexpr std::array<std::u32string_view, 7> letters{U"aáàâäã", U"eéèêë", U"iíìîï", U"oóòôöõ", U"uúùûü", U"nñ", U"cç"};

std::string select(const std::string& where, const char* order) {
    return "SELECT TOP " + std::to_string(mostRows) +
           " DPI_Id, DPI_Fecha, DPI_FAcepta, DPI_Orden, DPI_NomCliente, DPI_RefCli, DPI_Tipo, DPI_Z, DPI_Pas, "
           "Dpi_Modulo, DPI_Unidades, DPI_Importe FROM DPI" +
           where + " ORDER BY " + order + " DESC";
}

std::string between(const char* column, double size) {
    return std::string(column) + " BETWEEN " + shortest(size - storedDecimals) + " AND " +
           shortest(size + storedDecimals);
}

std::string like(const std::vector<std::string_view>& columns, const std::string& pattern) {
    std::string condition;
    for (const std::string_view column : columns) {
        condition += (condition.empty() ? "" : " OR ") + std::string(column) + " LIKE " + pattern;
    }
    return "(" + condition + ")";
}

std::string allWords(const std::vector<std::string>& words, const std::vector<std::string_view>& columns) {
    std::string condition;
    for (const std::string& word : words) {
        condition += (condition.empty() ? "" : " AND ") + like(columns, containing(word));
    }
    return condition;
}

/// The character of a pattern that takes the letter with any accent, or the sign itself.
std::u32string taking(char32_t character) {
    const auto* const alike = std::ranges::find_if(letters, [&](std::u32string_view letter) {
        return letter.find(runtime::toCodePoints(runtime::LCase(runtime::toUtf8(character))).front()) !=
               std::u32string_view::npos;
    });
    if (alike != letters.end()) {
        return U"[" + std::u32string(*alike) + U"]";
    }
    switch (character) {
        case U'%':
        case U'_':
        case U'[':
            return U"[" + std::u32string(1, character) + U"]";
        case U'\'':
            return U"''";
        default:
            return std::u32string(1, character);
    }
}

}  // namespace

std::string containing(std::string_view word) {
    std::u32string pattern;
    for (const char32_t character : runtime::toCodePoints(word)) {
        pattern += taking(character);
    }
    return "N'%" + runtime::toUtf8(pattern) + "%'";
}

std::string latestStatement() {
    return select("", "DPI_Id");
}

std::string numberStatement(std::int32_t number) {
    return select(" WHERE DPI_Id = " + CStr(std::int64_t{number}), "DPI_Id");
}

std::string toothingStatement(const WantedToothing& toothing) {
    std::string where = " WHERE DPI_Z = " + CStr(std::int64_t{toothing.teeth});
    if (toothing.size) {
        const std::string module = between("Dpi_Modulo", *toothing.size);
        where += toothing.isModule ? " AND " + module
                                   : " AND (" + between("DPI_Pas", *toothing.size) + " OR " + module + ")";
    }
    return select(where, "DPI_Id");
}

std::string customerStatement(std::int32_t code) {
    return select(" WHERE DPI_CodCliente = " + CStr(std::int64_t{code}), "DPI_Fecha");
}

std::string customersStatement(const std::vector<std::string>& words) {
    return "SELECT TOP " + std::to_string(mostCustomers) + " CLI_COD FROM CLI WHERE NOT CLI_COD IS NULL AND " +
           allWords(words, {"CLI_NOM", "CLI_COMER"}) + " ORDER BY CLI_COD";
}

std::string textStatement(const std::vector<std::string>& words, std::int64_t after) {
    return select(" WHERE DPI_Id > " + CStr(after) + " AND " +
                      allWords(words, {"DPI_NomCliente", "DPI_RefCli", "DPI_PedCliente"}),
                  "DPI_Id");
}

}  // namespace velmora::finding
