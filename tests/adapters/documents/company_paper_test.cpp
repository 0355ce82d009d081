// The company on a customer's paper, where papers go, and who shows them.

#include <gmock/gmock.h>

#include "velmora/adapters/documents/proposal_printing.h"
#include "velmora/adapters/documents/sheet_pages.h"
#include "velmora/platform/runtime/errors.h"

#include "adapters/documents/paper_workshop.h"
#include "adapters/documents/sample_company.h"
#include "support/command_output.h"
#include "support/fake_services.h"
#include "support/temporary_folder.h"

namespace velmora::documents {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class CompanyPaperTest : public ::testing::Test {
  protected:
    void print(PaperChoices choices, std::int32_t number = 7) {
        ProposalPrinting printing(services, std::make_shared<painting::Graphics>(), std::move(choices));
        printing.setMyBd(workshop.session);
        printing.jPrintPropuesta(number, false);
    }
    static std::string textOf(const std::string& path) {
        return support::outputOf("pdftotext -layout '" + path + "' -");
    }
    std::string customers() const { return services.folder + "Propuesta_000007.pdf"; }

    support::PaperWorkshop workshop;
    support::TemporaryFolder folder;
    support::FakeServices services{folder};
};

TEST_F(CompanyPaperTest, HeadAndTermsAreOnTheCustomersPaperAlone) {
    workshop.execute("UPDATE DPI SET DPI_Fecha='10/01/2026', DPI_FAcepta=null WHERE DPI_Id=7");
    print({.company = support::sampleCompany});
    const std::string text = textOf(customers());
    for (const char* words : {"Talleres Ejemplo, S.L.", "NIF B00000000", "Calle del Torno, 3", "50001 Zaragoza",
                              "Tel. 976 000 000 · taller@ejemplo.invalid", "Portes debidos", "09/02/2026"}) {
        EXPECT_THAT(text, HasSubstr(words));
    }
    EXPECT_THAT(textOf(services.folder + "HojaCorte_000007.pdf"), Not(HasSubstr("Talleres Ejemplo")));
}

TEST_F(CompanyPaperTest, ALogoThatIsNoPictureLeavesTheWords) {
    print({.company = [] { return paper::Company{.name = "Talleres Ejemplo", .logo = "no picture"}; }});
    EXPECT_THAT(textOf(customers()), HasSubstr("Talleres Ejemplo"));
}

TEST_F(CompanyPaperTest, AnOrdinaryProposalWithACompanyIsStillOnePage) {
    for (const int type : {0, 3, 5, 8, 10, 13}) {
        const std::int32_t number = workshop.latestOfType(type);
        print({.company = support::sampleCompany}, number);
        EXPECT_THAT(support::outputOf("LC_ALL=C pdfinfo '" + services.opened.at(services.opened.size() - 2) + "'"),
                    HasSubstr("Pages:           1"))
            << type;
    }
}

TEST_F(CompanyPaperTest, TermsOfSeveralPagesLoseNoWord) {
    paper::Company company = support::sampleCompany();
    company.terms.clear();
    for (int i = 0; i < 200; ++i) {
        company.terms += "condición" + std::to_string(i) + "\n";
    }
    print({.company = [&] { return company; }});
    const std::string text = textOf(customers());
    EXPECT_THAT(text, HasSubstr("condición0\n"));
    EXPECT_THAT(text, HasSubstr("condición199\n"));
}

TEST_F(CompanyPaperTest, PapersGoToTheFolderOfTheSettings) {
    const support::TemporaryFolder chosen;
    print({.folder = [&] { return chosen.path().string(); }});
    EXPECT_THAT(chosen.files(), ::testing::UnorderedElementsAre("Propuesta_000007.pdf", "HojaCorte_000007.pdf"));
    EXPECT_THAT(folder.files(), IsEmpty());
    EXPECT_THAT(services.opened, ElementsAre((chosen.path() / "Propuesta_000007.pdf").string(),
                                             (chosen.path() / "HojaCorte_000007.pdf").string()));
}

TEST_F(CompanyPaperTest, AFolderThatIsGoneIsTold) {
    try {
        print({.folder = [] { return std::string("/no such folder"); }});
        FAIL() << "was written";
    } catch (const runtime::RuntimeError& e) {
        EXPECT_THAT(e.description(), HasSubstr("La carpeta no existe."));
    }
}

TEST_F(CompanyPaperTest, AViewerGetsWrittenPapersInPlaceOfTheirProgram) {
    std::vector<std::string> seen;
    print({.view = [&](const std::vector<PrintedPaper>& papers) {
        for (const PrintedPaper& paper : papers) {
            seen.push_back(paper.sheet.title);
            EXPECT_THAT(textOf(paper.path), HasSubstr(paper.sheet.title));
            EXPECT_GE(SheetPages(paper.sheet).count(), 1u);
        }
    }});
    EXPECT_THAT(seen, ElementsAre("Propuesta 000007", "Hoja de corte 000007"));
    EXPECT_THAT(services.opened, IsEmpty());
}

}  // namespace
}  // namespace velmora::documents
