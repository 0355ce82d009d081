#include "velmora/finding/proposal_finder.h"

#include <algorithm>

#include "velmora/data/product_types.h"
#include "velmora/finding/proposal_statements.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::finding {

namespace {

std::string textOf(const sql::Value& value) {
    return value.isNull() ? std::string() : value.toText();
}

std::optional<double> numberOf(const sql::Value& value) {
    return value.isNull() ? std::nullopt : std::optional(value.toDouble());
}

double numberOrZero(const sql::Value& value) {
    return numberOf(value).value_or(0);
}

/// "M2" of what has a module, otherwise the pitch; empty without one.
std::string sizeOf(const sql::Recordset& row, data::Toothing kind) {
    const double pitch = numberOrZero(row["DPI_Pas"]);
    const double module = numberOrZero(row["Dpi_Modulo"]);
    if (module > 0 && (kind == data::Toothing::gear || kind == data::Toothing::rack)) {
        return "M" + runtime::CStr(module);
    }
    return pitch > 0 ? runtime::CStr(pitch) : std::string();
}

/// "38 x 12,7", as it can be searched for; empty where a piece has none.
std::string toothingOf(const sql::Recordset& row, data::Toothing kind) {
    if (kind == data::Toothing::smooth) {
        return {};
    }
    std::string size = sizeOf(row, kind);
    const double teeth = numberOrZero(row["DPI_Z"]);
    if (teeth <= 0) {
        return size;
    }
    return runtime::CStr(teeth) + (size.empty() ? " dientes" : " x " + size);
}

std::string pieceOf(const sql::Recordset& row) {
    const data::ProductType& type = data::productType(row["DPI_Tipo"].isNull() ? -1 : row["DPI_Tipo"].toLong());
    const std::string toothing = toothingOf(row, type.toothing);
    const std::string name(type.name);
    return name + (name.empty() || toothing.empty() ? "" : " ") + toothing;
}

std::string stateOf(const sql::Recordset& row) {
    if (numberOrZero(row["DPI_Orden"]) > 0) {
        return "Orden " + row["DPI_Orden"].toText();
    }
    return row["DPI_FAcepta"].isNull() ? "Pendiente" : "Aceptada";
}

FoundProposal readRow(const sql::Recordset& row) {
    const sql::Value& created = row["DPI_Fecha"];
    return {.number = row["DPI_Id"].toLong(),
            .created = created.isNull() ? std::nullopt : std::optional(created.toDate()),
            .customer = textOf(row["DPI_NomCliente"]),
            .reference = textOf(row["DPI_RefCli"]),
            .piece = pieceOf(row),
            .units = numberOf(row["DPI_Unidades"]),
            .total = numberOf(row["DPI_Importe"]),
            .state = stateOf(row)};
}

/// Collects the rows of several statements.
class Search {
  public:
    explicit Search(sql::Connection& connection) : connection_(connection) {}

    void add(const std::string& statement) {
        int rows = 0;
        for (sql::Recordset row = connection_.execute(statement); !row.eof(); row.moveNext()) {
            found_.proposals.push_back(readRow(row));
            ++rows;
        }
        found_.isCut = found_.isCut || rows == mostRows;
    }

    void addOfCustomersNamed(const std::vector<std::string>& words) {
        std::vector<std::int32_t> codes;
        for (sql::Recordset row = connection_.execute(customersStatement(words)); !row.eof(); row.moveNext()) {
            codes.push_back(row["CLI_COD"].toLong());
        }
        found_.isCut = found_.isCut || codes.size() == mostCustomers;
        for (const std::int32_t code : codes) {
            add(customerStatement(code));
        }
    }

    void addWithText(const std::vector<std::string>& words, Reach reach) {
        const sql::Recordset last = connection_.execute("SELECT MAX(DPI_Id) AS nUltima FROM DPI");
        const auto highest = static_cast<std::int64_t>(numberOrZero(last[0]));
        const std::int64_t after = reach == Reach::all ? 0 : std::max<std::int64_t>(highest - recentProposals, 0);
        found_.reachedAll = after == 0;
        add(textStatement(words, after));
    }

    /// Each proposal once, in order.
    Found result(std::optional<std::int32_t> first) {
        auto& proposals = found_.proposals;
        const auto before = [&](const FoundProposal& a, const FoundProposal& b) {
            const bool wantedA = first && a.number == *first;
            const bool wantedB = first && b.number == *first;
            return wantedA != wantedB ? wantedA : a.number > b.number;
        };
        std::ranges::sort(proposals, before);
        const auto isSame = [](const FoundProposal& a, const FoundProposal& b) { return a.number == b.number; };
        proposals.erase(std::unique(proposals.begin(), proposals.end(), isSame), proposals.end());
        if (proposals.size() > mostRows) {
            proposals.resize(mostRows);
            found_.isCut = true;
        }
        return std::move(found_);
    }

  private:
    sql::Connection& connection_;
    Found found_;
};

}  // namespace

Found findProposals(sql::Connection& connection, const Wanted& wanted, Reach reach) {
    Search search(connection);
    if (wanted.isEmpty()) {
        search.add(latestStatement());
        return search.result(std::nullopt);
    }
    if (wanted.number) {
        search.add(numberStatement(*wanted.number));
        search.add(customerStatement(*wanted.number));
    }
    if (wanted.toothing) {
        search.add(toothingStatement(*wanted.toothing));
    }
    search.addOfCustomersNamed(wanted.words);
    search.addWithText(wanted.words, reach);
    return search.result(wanted.number);
}

}  // namespace velmora::finding
