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

}  // namespace

// Chosen C-211: papers go into the temporary folder under the proposal's number: what is printed is the stored
// proposal, which can be printed again at any time, and the last print is the one that counts.
// Chosen C-212: an order asks for the shop's sheet alone; this program itself never asks for one.
void ProposalPrinting::jPrintPropuesta(std::int32_t nIdDpi, bool bOrden) {
    if (session_ == nullptr) {
        runtime::raise(runtime::objectNotSet);
    }
    const StoredProposal proposal = required(session_->Connection(), nIdDpi);
    const std::string path =
        temporaryPath(services_, (bOrden ? "HojaCorte_" : "Propuesta_") + numberOf(proposal) + ".pdf");
    graphics_->require();
    std::vector<Sheet> sheets;
    if (!bOrden) {
        sheets.push_back(customerSheet(proposal));
    }
    sheets.push_back(shopSheet(proposal));
    writeFile(path, [&](QIODevice& out) { return paintSheets(sheets, sheets.front().title, out); });
    openDocument(services_, path);
}

}  // namespace velmora::documents
