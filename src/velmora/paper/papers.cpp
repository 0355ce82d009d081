#include "velmora/paper/papers.h"

#include <utility>

#include "velmora/paper/proposal_sheets.h"
#include "velmora/paper/stored_proposal.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::paper {

namespace {

StoredProposal requiredProposal(sql::Connection& connection, std::int32_t number) {
    if (auto found = readProposal(connection, number)) {
        return *std::move(found);
    }
    throw runtime::RuntimeError(runtime::invalidProcedureCall,
                                "No existe la propuesta " + runtime::Format(number, "000000"));
}

}  // namespace

// Differs D-267: the shop's sheet, with all costs, was the second page of the file named after the proposal. Each sheet
// has its own file now: the one for the customer contains nothing of the shop's. Chosen C-212: for an order only the
// shop's sheet is printed; this program itself never requests it.
std::vector<Paper> papersOf(sql::Connection& connection, std::int32_t number, bool order, const Company& company) {
    const StoredProposal proposal = requiredProposal(connection, number);
    std::vector<Paper> papers;
    if (!order) {
        papers.push_back({"Propuesta_" + numberOf(proposal) + ".pdf", customerSheet(proposal, company)});
    }
    papers.push_back({"HojaCorte_" + numberOf(proposal) + ".pdf", shopSheet(proposal)});
    return papers;
}

Paper customersPaper(sql::Connection& connection, std::int32_t number, const Company& company,
                     const LadderRequest& ladder) {
    const StoredProposal proposal = requiredProposal(connection, number);
    Paper paper{"Propuesta_" + numberOf(proposal) + ".pdf", customerSheet(proposal, company)};
    addLadder(paper.sheet, proposal, ladder);
    return paper;
}

}  // namespace velmora::paper
