#include "velmora/adapters/documents/proposal_printing.h"

#include "velmora/adapters/documents/files.h"
#include "velmora/adapters/documents/sheet_painter.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::documents {

namespace {

std::string pathOf(const std::string& fileName, const system::Services& services, const PaperChoices& choices) {
    const std::string folder = choices.folder ? choices.folder() : std::string();
    return folder.empty() ? temporaryPath(services, fileName)
                          : system::fileText(system::filePath(folder) / system::filePath(fileName));
}

}  // namespace

void writeAndShow(const std::vector<paper::Paper>& papers, system::Services& services, painting::Graphics& graphics,
                  const PaperChoices& choices) {
    graphics.require();
    std::vector<PrintedPaper> printed;
    std::vector<std::unique_ptr<NewFile>> files;
    for (const paper::Paper& document : papers) {
        printed.push_back({.sheet = document.sheet, .path = pathOf(document.fileName, services, choices)});
        files.push_back(
            draftFile(printed.back().path, [&](QIODevice& out) { return paintSheet(document.sheet, out); }));
    }
    for (const auto& file : files) {
        file->keep();
    }
    if (choices.view) {
        choices.view(printed);
        return;
    }
    for (const PrintedPaper& document : printed) {
        openDocument(services, document.path);
    }
}

// Chosen C-211: papers go into the temporary folder, or into that of the settings, under the proposal's number: what is
// printed is the stored proposal, which can be printed again at any time, and the last print is the one that counts.
void ProposalPrinting::jPrintPropuesta(std::int32_t nIdDpi, bool bOrden) {
    if (session_ == nullptr) {
        runtime::raise(runtime::objectNotSet);
    }
    const paper::Company company = choices_.company ? choices_.company() : paper::Company();
    writeAndShow(paper::papersOf(session_->Connection(), nIdDpi, bOrden, company), services_, *graphics_, choices_);
}

}  // namespace velmora::documents
