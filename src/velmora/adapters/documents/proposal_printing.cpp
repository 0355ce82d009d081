#include "velmora/adapters/documents/proposal_printing.h"

#include "velmora/adapters/documents/files.h"
#include "velmora/adapters/documents/sheet_painter.h"
#include "velmora/paper/papers.h"
#include "velmora/platform/session/session.h"

namespace velmora::documents {

// Chosen C-211: papers go into the temporary folder under the proposal's number: what is printed is the stored
// proposal, which can be printed again at any time, and the last print is the one that counts.
void ProposalPrinting::jPrintPropuesta(std::int32_t nIdDpi, bool bOrden) {
    if (session_ == nullptr) {
        runtime::raise(runtime::objectNotSet);
    }
    const std::vector<paper::Paper> papers = paper::papersOf(session_->Connection(), nIdDpi, bOrden);
    graphics_->require();
    std::vector<std::string> paths;
    std::vector<std::unique_ptr<NewFile>> files;
    for (const paper::Paper& document : papers) {
        paths.push_back(temporaryPath(services_, document.fileName));
        files.push_back(draftFile(paths.back(), [&](QIODevice& out) { return paintSheet(document.sheet, out); }));
    }
    for (const auto& file : files) {
        file->keep();
    }
    for (const std::string& path : paths) {
        openDocument(services_, path);
    }
}

}  // namespace velmora::documents
