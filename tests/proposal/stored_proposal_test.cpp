// A save held against the row that it is about to write.

#include "velmora/proposal/stored_proposal.h"

#include <chrono>
#include <numeric>
#include <set>
#include <stdexcept>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using screen::Answer;
using screen::Key;
using support::ProposalWorkshop;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* success = "Datos Grabados satisfactoriamente";
constexpr const char* overwriteQuestion =
    "El presupuesto nº 1 ha sido modificado por otro usuario desde que se cargó.\r\n¿Desea grabar encima de sus "
    "cambios?";
constexpr const char* accepted =
    "Error en la actualizacion del registro\r\nEl presupuesto ya fue aceptado, orden de trabajo nº 24001";
constexpr const char* gone =
    "Error en la actualizacion del registro\r\nEl presupuesto ya no existe, otro usuario lo ha eliminado";
constexpr const char* toAccepted = "update DPI set DPI_FAcepta=getdate(), DPI_Orden=24001";

class StoredProposalTest : public ::testing::Test {
  protected:
    StoredProposalTest() { saveAndType(shop); }

    /// A stored proposal of three pieces, on which five are typed, and remarks.
    static void saveAndType(ProposalWorkshop& shop) {
        shop.saveNewProposal();
        type(shop);
    }
    static void type(ProposalWorkshop& shop) {
        shop.set("txtPesu(11)", "5");
        shop.set("txtObservaciones", "lo escrito");
        shop.leave();
        shop.screen.messages.clear();
        shop.connection.clear();
    }
    void meanwhile(const std::string& statement) { shop.database->execute(statement); }
    std::vector<std::string> save() {
        shop.screen.messages.clear();
        shop.key(Key::f5);
        return shop.screen.messageTexts();
    }
    /// Nothing is written, nothing typed is lost, and the form goes on.
    void expectRefused(const char* words) {
        const auto typed = shop.texts();
        shop.connection.clear();
        EXPECT_THAT(save(), ElementsAre(words));
        EXPECT_EQ(shop.texts(), typed);
        EXPECT_THAT(shop.connection.logged("UPDATE DPI"), IsEmpty());
        EXPECT_EQ(shop.form().tag(), "E");
        expectUsable();
    }
    void expectUsable() {
        EXPECT_THAT(shop.errors, IsEmpty());
        EXPECT_TRUE(shop.form().enabled());
        const auto& f = shop.fields();
        EXPECT_FALSE(f.bCargandoPropuesta || f.bCargandoDisco || f.bCargandoCubo);
        EXPECT_TRUE(shop.session.Campos().fields().empty());
        EXPECT_NO_THROW(shop.database->beginTrans()) << "no transaction was left behind";
        shop.database->rollbackTrans();
    }

    ProposalWorkshop shop;
};

TEST_F(StoredProposalTest, OneAcceptedMeanwhileIsNotSavedAndTheUserIsToldItsOrder) {
    meanwhile(toAccepted);
    expectRefused(accepted);
    expectRefused(accepted);
    EXPECT_EQ(shop.query("select DPI_Unidades from DPI"), "3");
    EXPECT_FALSE(shop.form().msGrabar(true)) << "a silent save is refused aloud";
    EXPECT_EQ(shop.screen.messages.size(), 2u);
}

TEST_F(StoredProposalTest, OneAcceptedWithoutAnOrderIsRefusedWithoutANumber) {
    meanwhile("update DPI set DPI_FAcepta=getdate()");
    expectRefused("Error en la actualizacion del registro\r\nEl presupuesto ya fue aceptado");
}

TEST_F(StoredProposalTest, OneThatIsGoneIsNotSaidToBeSaved) {
    meanwhile("delete from DPI");
    expectRefused(gone);
    EXPECT_EQ(shop.query("select count(*) from DPI"), "0");
    EXPECT_EQ(shop.text("txtPesu(3)"), "1");
}

TEST_F(StoredProposalTest, TheChangeOfAnotherUserIsWrittenOverOnYesAlone) {
    meanwhile("update DPI set DPI_RefCli=N'de otro'");
    const auto typed = shop.texts();
    shop.screen.queue(Answer::no);
    EXPECT_THAT(save(), ElementsAre(overwriteQuestion));
    EXPECT_EQ(shop.texts(), typed);
    EXPECT_EQ(shop.query("select DPI_RefCli from DPI"), "de otro");
    EXPECT_EQ(shop.query("select DPI_Unidades from DPI"), "3");
    expectUsable();

    shop.screen.queue(Answer::yes);
    EXPECT_THAT(save(), ElementsAre(overwriteQuestion, success));
    EXPECT_EQ(shop.query("select DPI_RefCli from DPI"), "");
    EXPECT_EQ(shop.query("select DPI_Unidades from DPI"), "5");

    EXPECT_THAT(save(), ElementsAre(success)) << "what stands there now is this user's own";
}

TEST_F(StoredProposalTest, TheLookComesFirstInTheTransactionAndTheQuestionHoldsNobody) {
    support::TemporaryFolder folder;
    ProposalWorkshop other(support::makeWorkshopDatabase(folder.file("taller.db")));
    saveAndType(other);
    const auto second = support::openWorkshopDatabase(folder.file("taller.db"));
    second->execute("update DPI set DPI_RefCli=N'de otro'");
    other.screen.whileOpen = [&](const screen::MessageBox& box) {
        if (box.text == overwriteQuestion) {
            EXPECT_NO_THROW(second->execute("update DPI set DPI_ProTex=N'mientras lee'"));
        }
    };
    other.screen.queue(Answer::yes);
    other.key(Key::f5);
    EXPECT_THAT(other.screen.messageTexts(), ElementsAre(overwriteQuestion, success))
        << "asked once, whatever comes then";
    const auto& log = other.connection.log();
    ASSERT_GT(log.size(), 8u);
    EXPECT_THAT(std::vector(log.begin(), log.begin() + 6),
                ElementsAre("BEGIN", "Select * from DPI where DPI_Id = 1", "Select max(orden_NUM) FROM ORDEN",
                            "ROLLBACK", "BEGIN", "Select * from DPI where DPI_Id = 1"));
}

TEST_F(StoredProposalTest, OneThatIsAcceptedOrGoneWhileTheUserReadsIsStillRefused) {
    struct Case {
        const char* deed;
        const char* words;
    };
    for (const Case& each : {Case{toAccepted, accepted}, Case{"delete from DPI", gone}}) {
        meanwhile("update DPI set DPI_RefCli=N'de otro'");
        shop.screen.whileOpen = [&](const screen::MessageBox& box) {
            if (box.text == overwriteQuestion) {
                meanwhile(each.deed);
            }
        };
        shop.screen.queue(Answer::yes);
        EXPECT_THAT(save(), ElementsAre(overwriteQuestion, each.words));
        shop.screen.whileOpen = {};
        meanwhile("update DPI set DPI_FAcepta=null, DPI_Orden=null");
    }
}

/// The columns of the UPDATE that a save runs.
std::vector<std::string> columnsOf(const std::string& update) {
    std::vector<std::string> columns;
    for (std::size_t at = update.find("DPI_"); at < update.find(" Where "); at = update.find(",DPI_", at)) {
        at += update[at] == ',' ? 1U : 0U;
        columns.push_back(update.substr(at, update.find('=', at) - at));
    }
    return columns;
}

TEST_F(StoredProposalTest, EachColumnThatTheSaveWritesCounts) {
    const std::set<std::string> texts{"DPI_Obser",      "DPI_Extra",       "DPI_ProTex",   "DPI_RefCli",
                                      "DPI_NomCliente", "DPI_HERRAMIENTA", "DPI_PDM_Texto"};
    save();
    const auto updates = shop.connection.logged("UPDATE DPI");
    ASSERT_EQ(updates.size(), 1u);
    const auto columns = columnsOf(updates[0]);
    EXPECT_EQ(columns.size(), 55u);
    for (const std::string& column : columns) {
        const bool isText = texts.contains(column);
        meanwhile("update DPI set " + column + "=" + (isText ? "N'otro'" : "isnull(" + column + ",0)+1"));
        shop.screen.queue(Answer::yes);
        EXPECT_THAT(save(), ElementsAre(overwriteQuestion, success)) << column;
    }
}

TEST_F(StoredProposalTest, WhatTheSaveDoesNotWriteIsNoChange) {
    meanwhile(
        "update DPI set DPI_PedCliente=N'PC-7', DPI_FPedCliente='12/01/2026', DPI_FechaEntrega='30/01/2026', "
        "DPI_Fecha='01/12/2025'");
    EXPECT_THAT(save(), ElementsAre(success));
    EXPECT_EQ(shop.query("select DPI_PedCliente from DPI"), "PC-7");
}

TEST_F(StoredProposalTest, ARowWrittenWithTheSameValuesIsNoChange) {
    meanwhile("update DPI set DPI_Pas=DPI_Pas, DPI_RefCli=DPI_RefCli, DPI_PDM_x=DPI_PDM_x");
    EXPECT_THAT(save(), ElementsAre(success));
}

TEST_F(StoredProposalTest, FiguresThatNoTextHoldsExactlyAreNoChange) {
    meanwhile("update DPI set DPI_Pas=0.1+0.2, DPI_DmPri=100.0/3, DPI_Alt=9.525, DPI_Unidades=3.0000000001");
    ASSERT_TRUE(shop.form().msCargarPresupuesto(1, true));
    EXPECT_THAT(save(), ElementsAre(success));
}

TEST_F(StoredProposalTest, AnotherUsersSaveOfTheSameProposalIsAChangeOnlyForTheOther) {
    support::TemporaryFolder folder;
    ProposalWorkshop first(support::makeWorkshopDatabase(folder.file("taller.db")));
    first.saveNewProposal();
    ProposalWorkshop second(support::openWorkshopDatabase(folder.file("taller.db")));
    ASSERT_TRUE(second.form().msCargarPresupuesto(1, true));
    second.key(Key::f5);
    first.screen.messages.clear();
    first.key(Key::f5);
    EXPECT_THAT(first.screen.messageTexts(), ElementsAre(success)) << "saved unchanged there";
    type(second);
    second.key(Key::f5);
    EXPECT_THAT(second.screen.messageTexts(), ElementsAre(success));
    first.screen.messages.clear();
    first.screen.queue(Answer::no);
    first.key(Key::f5);
    EXPECT_THAT(first.screen.messageTexts(), ElementsAre(overwriteQuestion));
    second.screen.messages.clear();
    second.key(Key::f5);
    EXPECT_THAT(second.screen.messageTexts(), ElementsAre(success));
}

TEST_F(StoredProposalTest, AnOwnSaveThatCouldNotBeReadBackIsNoChangeAndAnothersAfterItIs) {
    shop.connection.refuse("select * from DPI where DPI_ID=1");
    EXPECT_THAT(save(), ElementsAre(success));
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(sql::provider::failure));
    shop.errors.clear();
    EXPECT_EQ(shop.text("txtPesu(11)"), "5,00");
    EXPECT_THAT(save(), ElementsAre(success));

    meanwhile("update DPI set DPI_IdParCubo=99");
    shop.screen.queue(Answer::yes);
    meanwhile("delete from PARDPI where PARDPI_ID=2");
    const char* missing = "Error, no se encuentra el ndice del material para el cubo";
    EXPECT_THAT(save(), ElementsAre(overwriteQuestion, success, missing));
    EXPECT_THAT(save(), ElementsAre(success, missing)) << "nobody else has written since";
    meanwhile("update DPI set DPI_RefCli=N'de otro'");
    shop.screen.queue(Answer::no);
    EXPECT_THAT(save(), ElementsAre(overwriteQuestion));
}

TEST_F(StoredProposalTest, ALookThatFailsEndsAsARefusedUpdate) {
    for (const char* statement : {"Select * from DPI", "Select max(orden_NUM)"}) {
        const auto typed = shop.texts();
        shop.connection.refuse(statement, sql::provider::failure, "Sin red");
        EXPECT_THAT(save(), ElementsAre("Error en la actualizacion del registro\r\nSin red"));
        EXPECT_EQ(shop.texts(), typed);
        expectUsable();
    }
}

TEST_F(StoredProposalTest, AnAcceptanceAtWorkIsWaitedForUntilItHasMarkedTheProposal) {
    meanwhile("insert into ORDEN (ORDEN_NUM,ORDEN_IdDPI) values (24001,1)");
    const auto typed = shop.texts();
    shop.screen.onEvents = [this] { meanwhile(toAccepted); };
    EXPECT_THAT(save(), ElementsAre(accepted));
    EXPECT_EQ(shop.texts(), typed);
    EXPECT_EQ(shop.query("select DPI_Unidades from DPI"), "3");
    expectUsable();
}

TEST_F(StoredProposalTest, OrdersOfOthersAndOldOnesOfItsOwnAreNotWaitedFor) {
    meanwhile("insert into ORDEN (ORDEN_NUM,ORDEN_IdDPI) values (24001,1)");
    meanwhile("insert into ORDEN (ORDEN_NUM,ORDEN_IdDPI) values (24102,2)");
    shop.screen.pointers.clear();
    EXPECT_THAT(save(), ElementsAre(success));
    using enum screen::Pointer;
    EXPECT_THAT(std::vector(shop.screen.pointers.begin(), shop.screen.pointers.begin() + 2),
                ElementsAre(hourglass, hourglass))
        << "of the save and of the history; a wait would show its own before";
}

TEST_F(StoredProposalTest, AnOrderThatStaysUnmarkedHindersOneSaveForThreeSecondsAndNoOther) {
    using std::chrono::milliseconds;
    meanwhile("insert into ORDEN (ORDEN_NUM,ORDEN_IdDPI) values (24001,1)");
    EXPECT_THAT(save(), ElementsAre(success));
    const std::vector<milliseconds> waited = std::exchange(shop.clock.pauses, {});
    EXPECT_EQ(std::accumulate(waited.begin(), waited.end(), milliseconds(0)), std::chrono::seconds(3));
    EXPECT_THAT(save(), ElementsAre(success));
    EXPECT_THAT(shop.clock.pauses, IsEmpty());
}

TEST(SaveBrokenTest, WhatIsNoRunTimeErrorIsRolledBackToo) {
    for (const char* broken : {"Select * from DPI", "UPDATE DPI"}) {
        ProposalWorkshop shop;
        shop.saveNewProposal();
        shop.faults.breakOn(broken);
        const auto typed = shop.texts();
        EXPECT_THROW(shop.key(Key::f5), std::runtime_error);
        EXPECT_EQ(shop.texts(), typed);
        EXPECT_TRUE(shop.form().enabled());
        const auto& f = shop.fields();
        EXPECT_FALSE(f.bCargandoPropuesta || f.bCargandoDisco || f.bCargandoCubo);
        EXPECT_TRUE(shop.session.Campos().fields().empty());
        EXPECT_NO_THROW(shop.database->beginTrans()) << "no transaction was left behind";
    }
}

}  // namespace
}  // namespace velmora::proposal
