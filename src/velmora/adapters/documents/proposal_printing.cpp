#include "velmora/adapters/documents/proposal_printing.h"

#include "velmora/adapters/documents/files.h"
#include "velmora/adapters/documents/proposal_sheets.h"
#include "velmora/adapters/documents/sheet_painter.h"
#include "velmora/adapters/documents/stored_proposal.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/session/session.h"

namespace velmora::documents {

namespace {

StoredProposal required(sql::Connection& connection, std::int32_t number) {
    if (auto found = readProposal(connection, number)) {
        return *std::move(found);
    }
    throw runtime::RuntimeError(runtime::invalidProcedureCall,
                                "No existe la propuesta " + runtime::Format(number, "000000"));
}

struct Paper {
    std::string name;
    Sheet sheet;
};

/// What is handed to the customer names nothing but the proposal, and holds nothing of the shop's.
// Differs D-267: the shop's sheet, with all costs, was the second page of the file that bears the proposal's name.
std::vector<Paper> papersOf(const StoredProposal& proposal, bool order) {
    std::vector<Paper> papers;
    if (!order) {
        papers.push_back({"Propuesta_" + numberOf(proposal) + ".pdf", customerSheet(proposal)});
    }
    papers.push_back({"HojaCorte_" + numberOf(proposal) + ".pdf", shopSheet(proposal)});
    return papers;
}

}  // namespace

// Chosen C-211: papers go into the temporary folder under the proposal's number: what is printed is the stored
// proposal, which can be printed again at any time, and the last print is the one that counts.
// Chosen C-212: an order asks for the shop's sheet alone; this program itself never asks for one.
void ProposalPrinting::jPrintPropuesta(std::int32_t nIdDpi, bool bOrden) {
    if (session_ == nullptr) {
        runtime::raise(runtime::objectNotSet);
    }
    const StoredProposal proposal = required(session_->Connection(), nIdDpi);
    graphics_->require();
    std::vector<std::string> paths;
    std::vector<std::unique_ptr<NewFile>> files;
    for (const Paper& paper : papersOf(proposal, bOrden)) {
        paths.push_back(temporaryPath(services_, paper.name));
        files.push_back(draftFile(paths.back(), [&](QIODevice& out) { return paintSheet(paper.sheet, out); }));
    }
    for (const auto& file : files) {
        file->keep();
    }
    for (const std::string& path : paths) {
        openDocument(services_, path);
    }
}

}  // namespace velmora::documents
