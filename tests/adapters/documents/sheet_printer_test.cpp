#include "velmora/adapters/documents/sheet_printer.h"

#include <gmock/gmock.h>

#include "velmora/paper/sheet_printing.h"
#include "velmora/platform/runtime/errors.h"

#include "adapters/documents/paper_workshop.h"
#include "support/command_output.h"
#include "support/fake_services.h"
#include "support/temporary_folder.h"

namespace velmora::documents {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class SheetPrinterTest : public ::testing::Test {
  protected:
    SheetPrinterTest() { printer.setMyBd(workshop.session); }
    static std::string textIn(const std::string& path) {
        return support::outputOf("pdftotext -layout '" + path + "' -");
    }

    support::PaperWorkshop workshop;
    support::TemporaryFolder folder;
    support::FakeServices services{folder};
    PaperChoices choices{.company = [] { return paper::Company{.name = "TALLERES DEL CIERZO SL"}; }};
    SheetPrinter printer{services, std::make_shared<painting::Graphics>(), choices};
};

TEST_F(SheetPrinterTest, TheCustomersSheetBearsTheLadderOfTheStoredProposalAndTheCompany) {
    workshop.execute(
        "UPDATE DPI SET DPI_ImpMat=5, DPI_ImpMO=3, DPI_ImpTS=0, DPI_ImpVA=0, DPI_FijoSierra=10, DPI_ImpTP=18, "
        "DPI_Unidades=3, DPI_Importe=54 WHERE DPI_Id=7");
    printer.printCustomersSheet(7, {.saw = estimate::SawCharge::spread, .pieces = {1, 250}});
    const std::string path = services.folder + "Propuesta_000007.pdf";
    EXPECT_THAT(services.opened, ElementsAre(path)) << "the shop's sheet is not asked for";
    const std::string text = textIn(path);
    EXPECT_THAT(text, HasSubstr("TALLERES DEL CIERZO SL"));
    EXPECT_THAT(text, HasSubstr("Precios según la cantidad"));
    EXPECT_THAT(text, ::testing::ContainsRegex("250 +8,04 +2\\.010,00"));
}

TEST_F(SheetPrinterTest, APaperIsWrittenAndOpenedUnderItsName) {
    const std::vector<estimate::LadderStep> steps{{.pieces = 2, .piece = 1.5, .lot = 3}};
    printer.print({.fileName = "Escala_nueva.pdf", .sheet = paper::ladderSheet("Disco, propuesta nueva", steps)});
    EXPECT_THAT(services.opened, ElementsAre(services.folder + "Escala_nueva.pdf"));
    EXPECT_THAT(textIn(services.opened.front()), HasSubstr("Disco, propuesta nueva"));
}

TEST_F(SheetPrinterTest, AProposalThatIsNotThereIsAnError) {
    try {
        printer.printCustomersSheet(9999, {});
        ADD_FAILURE() << "printed";
    } catch (const runtime::RuntimeError& e) {
        EXPECT_EQ(e.number(), runtime::invalidProcedureCall);
    }
}

}  // namespace
}  // namespace velmora::documents
