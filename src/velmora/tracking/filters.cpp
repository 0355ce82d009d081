#include "velmora/tracking/filters.h"

#include <array>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::tracking {

namespace {

constexpr const char* latestFirst = " Order by DPI_Fecha DESC";
constexpr const char* impossible = " (DPI_id = -1) ";

/// A pair of fields, from and to. When only one is filled, its text is used for both.
struct Pair {
    std::string from;
    std::string to;
    bool isEmpty = false;
    bool isRange = false;  ///< both fields are filled
};

Pair pairOf(const TrackingFields& f, Criterion from, Criterion to) {
    const std::string& first = f.txtCriterio(from).text();
    const std::string& last = f.txtCriterio(to).text();
    return {.from = first.empty() ? last : first,
            .to = last.empty() ? first : last,
            .isEmpty = first.empty() && last.empty(),
            .isRange = !first.empty() && !last.empty()};
}

std::string betweenOrEqual(const Pair& pair, const std::string& column) {
    if (pair.isEmpty) {
        return {};
    }
    return pair.isRange ? " (" + column + " BETWEEN " + pair.from + " and " + pair.to + ") "
                        : " (" + column + " = " + pair.from + " ) ";
}

std::string customers(const TrackingFields& f) {
    return betweenOrEqual(pairOf(f, customerFrom, customerTo), "DPI_CodCliente");
}

// Kept K-120: a day ends at 23:59:00, so proposals of its last minute are left out. Required as it is; it determines
// the rows of lists by date.
std::string days(const TrackingFields& f) {
    const Pair pair = pairOf(f, dateFrom, dateTo);
    return pair.isEmpty ? std::string()
                        : " (DPI_Fecha BETWEEN '" + pair.from + " 00:00:00' and '" + pair.to + " 23:59:00') ";
}

std::string numbers(const TrackingFields& f) {
    return betweenOrEqual(pairOf(f, numberFrom, numberTo), "DPI_id");
}

std::string couplings(const TrackingFields& f) {
    return f.chkAcopla.checked() ? " (DPI_acopla = 1 ) " : "";
}

std::string criteria(const TrackingFields& f) {
    std::string all;
    for (const auto clause : {customers, days, numbers, couplings}) {
        const std::string text = clause(f);
        all += (all.empty() || text.empty() ? "" : " AND ") + text;
    }
    return all;
}

/// The stored number of the selected type; negative for all types.
int chosenType(const TrackingFields& f) {
    return f.cboTipoPre.listIndex() - 1;
}

std::string ofType(const TrackingFields& f) {
    return "dpi_tipo=" + runtime::CStr(std::int64_t{chosenType(f)});
}

/// The condition for the index of cboFiltroHistorico; nullptr for all states.
const char* stateClause(int state) {
    switch (state) {
        case onlyAccepted:
            return " ( not DPI_FAcepta is null ) ";
        case onlyPending:
            return " ( DPI_FAcepta is null ) ";
        default:
            return "";
    }
}

/// A field of the search by measures and the start of its clause.
struct Measure {
    int field;
    const char* clause;
};

constexpr std::array measureClauses{
    Measure{.field = 1, .clause = " DPI_Z = "},      Measure{.field = 0, .clause = " DPI_Pas = "},
    Measure{.field = 8, .clause = " DPI_ac = "},     Measure{.field = 2, .clause = " DPI_Rodillo = "},
    Measure{.field = 3, .clause = " DPI_Modulo = "}, Measure{.field = 7, .clause = " DPI_Eje = "},
};

}  // namespace

std::string filterCondition(const TrackingFields& f, Listing listing) {
    const std::string criterion = listing == Listing::empty ? impossible : criteria(f);
    // Kept K-121: with the first number filled, the filters of type and state are ignored; the second number alone does
    // not have this effect. Required as it is; it determines the rows listed.
    if (!f.txtCriterio(numberFrom).text().empty()) {
        return " Where " + criterion + latestFirst;
    }
    const std::string type = chosenType(f) >= 0 ? " AND " + ofType(f) + " " : "";
    const std::string state = stateClause(f.cboFiltroHistorico.listIndex());
    if (!state.empty()) {
        return " Where " + (criterion.empty() ? "" : criterion + " AND ") + state + type + latestFirst + " ";
    }
    if (!criterion.empty()) {
        return " Where " + criterion + type + latestFirst;
    }
    return "where " + (type.empty() ? "dpi_id <> 0" : ofType(f)) + latestFirst + " ";
}

std::string measuresCondition(const TrackingFields& f) {
    constexpr const char* join = "AND ";
    // Kept K-122: the list index is used unchanged, which is one above the stored type: "Todos los tipos" searches type
    // 0, "Piñon Especial" type 1. Required as it is; the statement is compared to the letter.
    std::string text = " WHERE Dpi_Tipo = " + runtime::CStr(std::int64_t{f.cboTipoPre.listIndex()}) + " " + join;
    for (const Measure& measure : measureClauses) {
        const std::string& value = f.Text1(measure.field).text();
        if (runtime::IsNumeric(value) && runtime::CDbl(value) != 0) {
            text += measure.clause + runtime::Replace(value, ",", ".") + " " + join;
        }
    }
    // Kept K-123: this search ignores the coupling and has no order. Required as it is; the statement is compared to
    // the letter.
    const std::string state = stateClause(f.cboFiltroHistorico.listIndex());
    text += state.empty() ? "" : state + join;
    return text.substr(0, text.size() - std::string_view(join).size());
}

std::string listStatement(const std::string& condition) {
    return "select (case when dpi_tipo= 0 then 'Piñon Especial' "
           " when dpi_tipo=1 then 'Disco' when dpi_tipo=2 then 'Piñon 2 Cubos' when dpi_tipo=3 then 'Poleas Lisas' "
           " when dpi_tipo=4 then 'Piñon Doble' when dpi_tipo=5 then 'Piñon de Dos Cadenas' "
           " when dpi_tipo=6 then 'Disco Doble' when dpi_tipo=7 then 'Disco de Dos Cadenas' "
           " when dpi_tipo=8 then 'Engranaje Recto' when dpi_tipo=9 then 'Disco Engranaje Recto' "
           " when dpi_tipo=10 then 'Piñon 2 Cubos Variable' when dpi_tipo=11 then 'Poleas Lisas 2 Cubos Variable' "
           " when dpi_tipo=12 then 'Piñon Triple' when dpi_tipo=13 then 'Cremallera' when dpi_tipo=14 then 'Disco "
           "Triple' else '' end) as Tipo, "
           " DPI_Id, DPI_Fecha,DPI_FAcepta,DPI_Orden,DPI_Unidades,DPI_ImpTP,DPI_CodCliente,"
           "DPI_NomCliente,dpi.* from DPI " +
           condition;
}

}  // namespace velmora::tracking
