#include "velmora/proposal/customer_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using screen::Answer;
using support::ProposalWorkshop;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* question =
    "Desea Burcar por el nombre Fiscal ?.\r\nSi contesta NO, la busqueda será por Nombre Comercial";

class CustomerSearchTest : public ::testing::Test {
  protected:
    /// Types a code into the customer's field and leaves it.
    void enter(const std::string& code) {
        workshop.set("txtPesu(0)", code);
        workshop.connection.clear();
        workshop.leave();
    }
    std::string code() { return workshop.text("txtPesu(0)"); }
    std::string name() { return workshop.text("txtPesu(1)"); }
    std::string tag() { return workshop.control("txtPesu(0)").tag(); }

    ProposalWorkshop workshop;
};

TEST_F(CustomerSearchTest, AKnownCodeFillsTheNameWithoutAQuestion) {
    enter("1002");
    EXPECT_EQ(name(), "ÁRIDOS DEL SUR SA");
    EXPECT_EQ(tag(), "2");
    EXPECT_THAT(workshop.screen.messages, IsEmpty());
    EXPECT_THAT(workshop.connection.log(), ElementsAre("Select CLI_NOM,CLI_ID from cli where CLI_COD=1002"));
}

TEST_F(CustomerSearchTest, BlanksAroundACodeAreTrimmedBeforeTheLookUp) {
    enter("  1001 ");
    EXPECT_EQ(code(), "1001");
    EXPECT_EQ(name(), "TALLERES NORTE SL");
    EXPECT_THAT(workshop.connection.log(), ElementsAre("Select CLI_NOM,CLI_ID from cli where CLI_COD=1001"));
}

TEST_F(CustomerSearchTest, AnUnknownCodeOpensTheQuestion) {
    workshop.screen.queue(Answer::cancel);
    enter("9999");
    ASSERT_EQ(workshop.screen.messages.size(), 1u);
    EXPECT_EQ(workshop.screen.messages[0].text, question);
    EXPECT_EQ(workshop.screen.messages[0].icon, screen::Icon::information);
    EXPECT_EQ(workshop.screen.messages[0].buttons, screen::Buttons::yesNoCancel);
    EXPECT_EQ(workshop.form().tag(), "E");
}

TEST_F(CustomerSearchTest, CancelLeavesTheFieldAsTypedAndTheNameUntouched) {
    enter("1001");
    workshop.screen.queue(Answer::cancel);
    enter("9999");
    EXPECT_EQ(code(), "9999");
    EXPECT_EQ(name(), "TALLERES NORTE SL");
    EXPECT_EQ(tag(), "");
}

TEST_F(CustomerSearchTest, TextInTheCodeIsLeftAsItIsWithoutALookUpAndTheSaveRefusesIt) {
    enter("1001");
    enter("norte");
    EXPECT_EQ(code(), "norte");
    EXPECT_EQ(name(), "TALLERES NORTE SL");
    EXPECT_THAT(workshop.connection.log(), IsEmpty());
    EXPECT_THAT(workshop.screen.messages, IsEmpty());
    workshop.key(screen::Key::f5);
    EXPECT_THAT(workshop.screen.messageTexts(), ElementsAre("Error Falta Cliente"));
}

TEST_F(CustomerSearchTest, AnEmptyCodeLeavesTheNameAsItIs) {
    enter("1001");
    enter("");
    EXPECT_EQ(name(), "TALLERES NORTE SL");
    EXPECT_THAT(workshop.connection.log(), IsEmpty());
}

TEST_F(CustomerSearchTest, ACustomerWithoutFiscalNameDoesNotGetTheNameOfTheOneBefore) {
    enter("1001");
    enter("1003");
    EXPECT_EQ(name(), "");
    EXPECT_EQ(tag(), "3");
    EXPECT_THAT(workshop.screen.messages, IsEmpty());
}

TEST_F(CustomerSearchTest, TheNameTypedForACustomerWithoutOneStaysWhenHisCodeIsPassedThrough) {
    enter("1003");
    workshop.set("txtPesu(1)", "CASA SIN NOMBRE");
    enter("1003");
    EXPECT_EQ(name(), "CASA SIN NOMBRE");
}

TEST_F(CustomerSearchTest, TheCommercialNameOfACustomerWithoutAFiscalOneStays) {
    enter("1001");
    workshop.screen.queue(Answer::no);
    workshop.screen.queuePick(2);
    workshop.set("txtPesu(0)", "10");
    workshop.key(screen::Key::f2);
    workshop.leave();
    EXPECT_EQ(code(), "1003");
    EXPECT_EQ(name(), "SIN NOMBRE FISCAL");
}

TEST_F(CustomerSearchTest, TheFiscalSearchIsGivenItsWords) {
    workshop.screen.queue(Answer::yes);
    workshop.screen.queuePick(1);
    workshop.form();
    workshop.connection.clear();
    workshop.key(screen::Key::f2);
    EXPECT_THAT(workshop.connection.log(), ElementsAre("Select CLI_ID,CLI_COD,CLI_NOM FROM CLI"));
    ASSERT_EQ(workshop.screen.searches.size(), 1u);
    const screen::SearchWindow& window = workshop.screen.searches[0].window;
    EXPECT_EQ(window.title, "Buscar clientes por nombre FISCAL");
    EXPECT_EQ(window.searchColumn, "CLI_NOM");
    EXPECT_EQ(window.firstCaption, "Codigo");
    EXPECT_EQ(window.secondCaption, "Nombre FISCAL del Cliente");
    EXPECT_EQ(window.firstWidth, 600);
    EXPECT_EQ(window.secondWidth, 6000);
    EXPECT_EQ(code(), "1002");
    EXPECT_EQ(name(), "ÁRIDOS DEL SUR SA");
}

TEST_F(CustomerSearchTest, TheCommercialSearchIsGivenItsWords) {
    workshop.screen.queue(Answer::no);
    workshop.screen.queuePick(2);
    workshop.form();
    workshop.connection.clear();
    workshop.key(screen::Key::f2);
    EXPECT_THAT(workshop.connection.log(), ElementsAre("Select CLI_ID,CLI_COD,CLI_COMER FROM CLI"));
    ASSERT_EQ(workshop.screen.searches.size(), 1u);
    const screen::SearchWindow& window = workshop.screen.searches[0].window;
    EXPECT_EQ(window.title, "Buscar clientes por nombre COMERCIAL");
    EXPECT_EQ(window.searchColumn, "CLI_COMER");
    EXPECT_EQ(window.secondCaption, "Nombre COMERCIAL del Cliente");
    EXPECT_EQ(code(), "1003");
    EXPECT_EQ(name(), "SIN NOMBRE FISCAL");
}

TEST_F(CustomerSearchTest, ASearchLeftWithoutAChoiceBlanksCodeAndName) {
    enter("1001");
    workshop.screen.queue(Answer::yes);
    workshop.screen.queuePick(std::nullopt);
    workshop.key(screen::Key::f2);
    EXPECT_EQ(code(), "");
    EXPECT_EQ(name(), "");
    EXPECT_EQ(tag(), "");
}

TEST_F(CustomerSearchTest, ACustomerWithoutTheNameSearchedForIsTakenWithAnEmptyName) {
    workshop.screen.queue(Answer::yes);
    workshop.screen.queuePick(2);
    workshop.key(screen::Key::f2);
    EXPECT_EQ(code(), "1003");
    EXPECT_EQ(name(), "");
}

TEST_F(CustomerSearchTest, TheTagHoldsTheCodeAfterASearchAndTheKeyAfterATypedCode) {
    enter("1002");
    EXPECT_EQ(tag(), "2");
    workshop.screen.queue(Answer::yes);
    workshop.screen.queuePick(1);
    workshop.key(screen::Key::f2);
    EXPECT_EQ(tag(), "1002") << "both ways choose the same customer";
}

TEST_F(CustomerSearchTest, TheSearchKeyDoesNothingWhileTheCodeIsDisabled) {
    workshop.control("txtPesu(0)").setEnabled(false);
    workshop.key(screen::Key::f2);
    EXPECT_THAT(workshop.screen.messages, IsEmpty());
}

TEST_F(CustomerSearchTest, ACodeWithDecimalsIsOneThatNoCustomerHas) {
    workshop.screen.queue(Answer::cancel);
    enter("12,5");
    EXPECT_THAT(workshop.connection.log(), ElementsAre("Select CLI_NOM,CLI_ID from cli where CLI_COD=12.5"));
    EXPECT_THAT(workshop.screen.messageTexts(), ElementsAre(question));
    EXPECT_EQ(code(), "12,5");
}

TEST_F(CustomerSearchTest, ACodeIsLookedUpByTheNumberThatIsStored) {
    // What was looked up before: the text, with a point for the comma.
    workshop.database->execute(
        "INSERT INTO CLI (CLI_ID,CLI_COD,CLI_NOM,CLI_COMER,CLI_GtosFinan,CLI_Riesgo,CLI_ImpMaxRiesgo) VALUES "
        "(7,1,N'EL PRIMERO',N'',0,0,0)");
    workshop.database->execute(
        "INSERT INTO CLI (CLI_ID,CLI_COD,CLI_NOM,CLI_COMER,CLI_GtosFinan,CLI_Riesgo,CLI_ImpMaxRiesgo) VALUES "
        "(8,1000,N'EL MILLAR',N'',0,0,0)");
    struct Case {
        const char* typed;
        const char* number;
        const char* name;
    };
    const std::vector<Case> cases{{"1.000", "1000", "EL MILLAR"},          {"1000 €", "1000", "EL MILLAR"},
                                  {" 1.000,00 ", "1000", "EL MILLAR"},     {"1e3", "1000", "EL MILLAR"},
                                  {"&H3E8", "1000", "EL MILLAR"},          {"+1000", "1000", "EL MILLAR"},
                                  {"1000,004", "1000", "EL MILLAR"},       {"0001", "1", "EL PRIMERO"},
                                  {"1.001", "1001", "TALLERES NORTE SL"},  {"1,000", "1", "EL PRIMERO"},
                                  {"1002,00", "1002", "ÁRIDOS DEL SUR SA"}};
    for (const Case& each : cases) {
        workshop.openAnew();
        workshop.set("txtPesu(11)", "3");
        enter(each.typed);
        EXPECT_THAT(workshop.connection.log(),
                    ElementsAre(std::string("Select CLI_NOM,CLI_ID from cli where CLI_COD=") + each.number))
            << each.typed;
        EXPECT_EQ(name(), each.name) << each.typed;
        workshop.key(screen::Key::f5);
        EXPECT_THAT(workshop.screen.messageTexts(), ElementsAre("Datos Grabados satisfactoriamente")) << each.typed;
        EXPECT_EQ(workshop.query("select DPI_CodCliente from DPI"), each.number) << each.typed;
        workshop.database->execute("delete from DPI");
        workshop.screen.messages.clear();
    }
}

TEST_F(CustomerSearchTest, ANegativeCodeIsLookedUpAsItIsStored) {
    workshop.screen.cancelsQuestions = true;
    enter("(5)");
    enter("5-");
    enter("-0,001");
    EXPECT_THAT(workshop.connection.log(), ElementsAre("Select CLI_NOM,CLI_ID from cli where CLI_COD=0"));
}

TEST_F(CustomerSearchTest, ThereIsNoSearchOfArticles) {
    workshop.form();
    workshop.connection.clear();
    workshop.form().msBuscarArticulo();
    EXPECT_THAT(workshop.connection.log(), IsEmpty());
    EXPECT_THAT(workshop.screen.messages, IsEmpty());
}

}  // namespace
}  // namespace velmora::proposal
