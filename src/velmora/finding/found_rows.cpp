#include "velmora/finding/found_rows.h"

#include "velmora/platform/runtime/numbers.h"

namespace velmora::finding {

namespace {

template <typename T>
sql::Value valueOf(const std::optional<T>& value) {
    return value ? sql::Value(*value) : sql::Value();
}

std::string counted(std::size_t count) {
    return count == 1 ? "1 propuesta" : std::to_string(count) + " propuestas";
}

}  // namespace

sql::Recordset foundRows(const Found& found) {
    std::vector<sql::Row> rows;
    rows.reserve(found.proposals.size());
    for (const FoundProposal& proposal : found.proposals) {
        rows.push_back({proposal.number, valueOf(proposal.created), proposal.customer, proposal.reference,
                        proposal.piece, valueOf(proposal.units), valueOf(proposal.total), proposal.state});
    }
    return sql::Recordset(sql::rowsInMemory(
        {{"Numero"}, {"Fecha"}, {"Cliente"}, {"Referencia"}, {"Pieza"}, {"Unidades"}, {"Importe"}, {"Estado"}},
        std::move(rows)));
}

std::vector<screen::GridColumn> foundColumns() {
    return {
        {.field = 0, .caption = "Propuesta", .width = 1200, .mask = "000000", .button = true},
        {.field = 1, .caption = "Fecha", .width = 1200, .mask = "dd/mm/yyyy"},
        {.field = 2, .caption = "Cliente", .width = 4200},
        {.field = 3, .caption = "Referencia", .width = 2200},
        {.field = 4, .caption = "Pieza", .width = 3600},
        {.field = 5, .caption = "Unidades", .width = 1000, .right = true},
        {.field = 6, .caption = "Importe total", .width = 1400, .mask = "#,##0.00", .right = true},
        {.field = 7, .caption = "Estado", .width = 1400},
    };
}

std::string foundSentence(const Found& found, const Wanted& wanted) {
    std::string sentence;
    if (found.proposals.empty()) {
        sentence = wanted.isEmpty() ? "Todavía no hay ninguna propuesta." : "Ninguna propuesta encontrada.";
    } else if (found.isCut) {
        sentence = (wanted.isEmpty() ? "Las últimas " : "Las primeras ") + counted(found.proposals.size()) + ".";
    } else {
        sentence = counted(found.proposals.size()) + ".";
    }
    if (!found.reachedAll) {
        sentence += " El texto se ha buscado en las últimas " +
                    runtime::Format(static_cast<double>(recentProposals), "#,##0") + ".";
    }
    return sentence;
}

}  // namespace velmora::finding
