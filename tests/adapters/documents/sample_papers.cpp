// Prints the newest proposal of every product type into a folder, and with the greatest figures that a paper must
// bear, and with a company's head, to be looked at: sample_papers FOLDER

#include <filesystem>
#include <iostream>

#include "velmora/adapters/documents/proposal_printing.h"

#include "adapters/documents/paper_workshop.h"
#include "adapters/documents/sample_company.h"
#include "support/fake_services.h"
#include "support/temporary_folder.h"

namespace {

using namespace velmora;

constexpr int types = 15;

class Printer {
  public:
    explicit Printer(support::PaperWorkshop& workshop) : workshop_(workshop) {}

    void print(std::int32_t proposal, int type, const std::filesystem::path& folder) {
        std::filesystem::create_directories(folder);
        services_.folder = folder.string() + "/";
        services_.opened.clear();
        documents::ProposalPrinting printing(services_, graphics_, choices_);
        printing.setMyBd(workshop_.session);
        printing.jPrintPropuesta(proposal, false);
        for (const std::string& path : services_.opened) {
            std::cout << type << ' ' << path << '\n';
        }
    }

    void nameCompany() { choices_.company = support::sampleCompany; }

  private:
    documents::PaperChoices choices_;
    support::PaperWorkshop& workshop_;
    support::TemporaryFolder unused_;
    support::FakeServices services_{unused_};
    std::shared_ptr<painting::Graphics> graphics_ = std::make_shared<painting::Graphics>();
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "sample_papers FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    support::PaperWorkshop workshop;
    Printer printer(workshop);
    for (int type = 0; type < types; ++type) {
        printer.print(workshop.latestOfType(type), type, folder);
    }
    printer.nameCompany();
    for (int type = 0; type < types; ++type) {
        printer.print(workshop.latestOfType(type), type, folder / "company");
    }
    for (int type = 0; type < types; ++type) {
        printer.print(workshop.withGreatFigures(type), type, folder / "great");
    }
}
