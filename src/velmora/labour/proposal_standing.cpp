#include "velmora/labour/proposal_standing.h"

namespace velmora::labour {

std::string ProposalStanding::words() const {
    switch (state) {
        case accepted:
            return "El presupuesto ya fue aceptado" + (order.empty() ? "" : ", orden de trabajo nº " + order);
        case gone:
            return "El presupuesto ya no existe, otro usuario lo ha eliminado";
        case pending:
            break;
    }
    return {};
}

ProposalStanding standingIn(const sql::Recordset& row) {
    if (row.eof()) {
        return {.state = ProposalStanding::gone, .order = {}};
    }
    const sql::Value& order = row["DPI_Orden"];
    return {.state = row["DPI_FAcepta"].isNull() ? ProposalStanding::pending : ProposalStanding::accepted,
            .order = order.isNull() ? std::string() : order.toText()};
}

}  // namespace velmora::labour
