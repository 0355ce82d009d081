#include "velmora/apps/desktop/start_form.h"

#include <gmock/gmock.h>

#include "velmora/platform/components/components.h"
#include "velmora/platform/sql/db_error.h"

#include "support/proposal_workshop.h"

namespace velmora::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// Notes which proposals were printed.
class NotedPrinting final : public components::Printing {
  public:
    explicit NotedPrinting(std::vector<std::int32_t>& printed) : printed_(printed) {}
    void setMyBd(session::Session&) override {}
    void jPrintPropuesta(std::int32_t nIdDpi, bool bOrden) override {
        EXPECT_FALSE(bOrden);
        printed_.push_back(nIdDpi);
    }

  private:
    std::vector<std::int32_t>& printed_;
};

/// A workshop with two proposals of 38 teeth, 1 and 2.
class StartFormTest : public ::testing::Test {
  protected:
    StartFormTest() {
        workshop.saveNewProposal();
        workshop.openAnew();
        workshop.saveNewProposal();
        workshop.screen.messages.clear();
        vmora.MyBd(&workshop.session);
        workshop.components.add("VELMORAIMP.VMORAIMP", [this] { return std::make_unique<NotedPrinting>(printed); });
    }
    std::vector<std::string> numbers() {
        std::vector<std::string> listed;
        for (std::size_t row = 0; row < start().list().rowCount(); ++row) {
            listed.push_back(start().list().cellText(row, 0));
        }
        return listed;
    }
    StartForm& start() {
        if (!start_) {
            start_ = std::make_unique<StartForm>(workshop.desk, vmora, workshop.session, nullptr);
            start_->activate();
        }
        return *start_;
    }
    bool isEnabled(const char* name) { return start().find(name)->isEnabled(); }
    std::string result() { return dynamic_cast<screen::Label&>(*start().find("lblResultado")).caption(); }
    /// The main form is shown next; what stands in its number goes to `shown`.
    void expectMainForm() {
        workshop.screen.queueModal([this](screen::Form& form) {
            shown.push_back(std::to_string(dynamic_cast<proposal::frmBercialPiñones&>(form).fields().proposal.key()));
        });
    }

    support::ProposalWorkshop workshop;
    shell::VMORA vmora{workshop.desk};
    std::vector<std::int32_t> printed;
    std::vector<std::string> shown;

  private:
    std::unique_ptr<StartForm> start_;
};

TEST_F(StartFormTest, TheLastProposalsAreListedAndTheSearchBoxHasTheFocus) {
    EXPECT_THAT(numbers(), ElementsAre("000002", "000001"));
    EXPECT_EQ(start().activeControl(), &start().searchBox());
    EXPECT_EQ(result(), "2 propuestas.");
}

TEST_F(StartFormTest, TypingSearchesAndEscEmptiesTheBoxBeforeItLeaves) {
    start().searchBox().setText("1");
    EXPECT_THAT(numbers(), ElementsAre("000001"));
    start().searchBox().setText("nadie");
    EXPECT_THAT(numbers(), IsEmpty());
    EXPECT_FALSE(isEnabled("cmdAbrir"));
    EXPECT_FALSE(isEnabled("cmdDuplicar"));
    EXPECT_EQ(result(), "Ninguna propuesta encontrada.");
    start().keyDown(screen::Key::enter);
    start().keyDown(screen::Key::f6);
    start().keyDown(screen::Key::f8);
    EXPECT_THAT(printed, IsEmpty());
    start().keyDown(screen::Key::escape);
    EXPECT_THAT(numbers(), ElementsAre("000002", "000001"));
    EXPECT_FALSE(start().isUnloaded());
    start().keyDown(screen::Key::escape);
    EXPECT_TRUE(start().isUnloaded());
}

TEST_F(StartFormTest, EnterOpensTheCurrentOneAndItStaysCurrent) {
    start().list().moveToRow(1);
    expectMainForm();
    EXPECT_EQ(start().keyDown(screen::Key::enter), screen::Key::none);
    EXPECT_THAT(shown, ElementsAre("1"));
    EXPECT_EQ(start().list().recordset().position(), 1u);
    expectMainForm();
    start().list().onButtonClick(0);
    EXPECT_THAT(shown, ElementsAre("1", "1"));
    EXPECT_EQ(start().activeControl(), &start().searchBox());
}

TEST_F(StartFormTest, EnterOnAButtonIsTheButtons) {
    start().moveFocus(*start().find("cmdSalir"));
    EXPECT_EQ(start().keyDown(screen::Key::enter), screen::Key::enter);
    EXPECT_THAT(shown, IsEmpty());
}

TEST_F(StartFormTest, WhatWasStoredMeanwhileIsListedAfterwards) {
    workshop.screen.queueModal(
        [this](screen::Form&) { workshop.database->execute("DELETE FROM DPI WHERE DPI_Id = 2"); });
    dynamic_cast<screen::Button&>(*start().find("cmdNueva")).onClick();
    EXPECT_THAT(numbers(), ElementsAre("000001"));
    workshop.database->execute("DELETE FROM DPI");
    start().keyDown(screen::Key::f5);
    EXPECT_THAT(numbers(), IsEmpty());
    EXPECT_EQ(result(), "Todavía no hay ninguna propuesta.");
}

TEST_F(StartFormTest, ANewProposalIsTheCurrentOneAfterwards) {
    start().list().moveToRow(1);
    const auto saveOne = [this](screen::Form& form) {
        auto& shownForm = dynamic_cast<proposal::frmBercialPiñones&>(form);
        workshop.database->execute("INSERT INTO DPI (DPI_RefCli) VALUES (N'nueva')");
        EXPECT_TRUE(shownForm.fields().proposal.isNew());
    };
    workshop.screen.queueModal(saveOne);
    dynamic_cast<screen::Button&>(*start().find("cmdNueva")).onClick();
    EXPECT_THAT(numbers(), ElementsAre("000003", "000002", "000001"));
    EXPECT_EQ(start().list().recordset().position(), 0u);

    start().searchBox().setText("1");
    EXPECT_THAT(numbers(), ElementsAre("000001"));
    workshop.screen.queueModal(saveOne);
    dynamic_cast<screen::Button&>(*start().find("cmdNueva")).onClick();
    EXPECT_EQ(start().searchBox().text(), "") << "the search does not find it";
    EXPECT_EQ(start().list().recordset().position(), 0u);

    start().list().moveToRow(2);
    workshop.screen.queueModal([](screen::Form&) {});
    dynamic_cast<screen::Button&>(*start().find("cmdNueva")).onClick();
    EXPECT_EQ(start().list().recordset().position(), 2u) << "nothing was stored";
}

TEST_F(StartFormTest, TheOneWorkedOnLastInTheMainFormIsTheCurrentOneAfterwards) {
    start().list().moveToRow(1);
    workshop.screen.queueModal(
        [](screen::Form& form) { dynamic_cast<proposal::frmBercialPiñones&>(form).msCargarPresupuesto(2, false); });
    start().keyDown(screen::Key::enter);
    EXPECT_EQ(start().list().recordset().position(), 0u);
}

TEST_F(StartFormTest, TheCurrentOneIsPrinted) {
    start().list().moveToRow(1);
    start().keyDown(screen::Key::f8);
    EXPECT_THAT(printed, ElementsAre(1));
}

TEST_F(StartFormTest, ACopyIsMadeAfterAYesAndShown) {
    start().searchBox().setText("1");
    workshop.screen.queue(screen::Answer::no);
    start().keyDown(screen::Key::f6);
    EXPECT_THAT(numbers(), ElementsAre("000001"));
    workshop.screen.queue(screen::Answer::yes);
    expectMainForm();
    start().keyDown(screen::Key::f6);
    EXPECT_THAT(shown, ElementsAre("3"));
    EXPECT_THAT(numbers(), ElementsAre("000003", "000002", "000001"));
    EXPECT_EQ(start().list().recordset().position(), 0u);
    EXPECT_EQ(workshop.query("SELECT DPI_Z FROM DPI WHERE DPI_Id = 3"), "38");
}

TEST_F(StartFormTest, AnAcceptedOneCanBeCopied) {
    workshop.database->execute("UPDATE DPI SET DPI_FAcepta = '2026-01-10', DPI_Orden = 57 WHERE DPI_Id = 2");
    workshop.screen.queue(screen::Answer::yes);
    expectMainForm();
    start().keyDown(screen::Key::f6);
    EXPECT_THAT(shown, ElementsAre("3"));
    EXPECT_EQ(workshop.query("SELECT DPI_Orden FROM DPI WHERE DPI_Id = 3"), "NULL");
}

TEST_F(StartFormTest, OneThatIsGoneMeanwhileIsNotOpened) {
    start();
    workshop.database->execute("DELETE FROM DPI WHERE DPI_Id = 2");
    start().keyDown(screen::Key::enter);
    EXPECT_THAT(workshop.screen.messageTexts(), ElementsAre(StartsWith("La propuesta 2 ya no existe")));
    EXPECT_THAT(numbers(), ElementsAre("000001"));
}

TEST_F(StartFormTest, OlderOnesAreOfferedWhenATextWasNotLookedForInAll) {
    workshop.database->execute("SET IDENTITY_INSERT DPI ON");
    workshop.database->execute("INSERT INTO DPI (DPI_Id, DPI_RefCli) VALUES (90000, N'nueva')");
    EXPECT_FALSE(isEnabled("cmdTodas"));
    workshop.database->execute("UPDATE DPI SET DPI_RefCli = N'vieja' WHERE DPI_Id = 1");
    start().searchBox().setText("vieja");
    EXPECT_THAT(numbers(), IsEmpty());
    ASSERT_TRUE(isEnabled("cmdTodas"));
    dynamic_cast<screen::Button&>(*start().find("cmdTodas")).onClick();
    EXPECT_THAT(numbers(), ElementsAre("000001"));
    EXPECT_FALSE(isEnabled("cmdTodas"));
    EXPECT_EQ(start().activeControl(), &start().searchBox());
}

}  // namespace
}  // namespace velmora::desktop
