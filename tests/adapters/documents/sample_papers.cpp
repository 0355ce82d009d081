// Prints the newest proposal of every product type into a folder, to be looked at: sample_papers FOLDER

#include <iostream>

#include "velmora/adapters/documents/proposal_printing.h"

#include "adapters/documents/paper_workshop.h"

int main(int argc, char** argv) {
    using namespace velmora;
    if (argc != 2) {
        std::cerr << "sample_papers FOLDER\n";
        return 2;
    }
    support::PaperWorkshop workshop;
    const support::Folder unused;
    support::FolderServices services(unused);
    services.folder = std::string(argv[1]) + "/";
    documents::ProposalPrinting printing(services, std::make_shared<qt::Graphics>());
    printing.setMyBd(workshop.session);
    for (int type = 0; type < 15; ++type) {
        printing.jPrintPropuesta(workshop.latestOfType(type), false);
        std::cout << type << ' ' << services.opened.back() << '\n';
    }
}
