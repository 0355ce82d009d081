#include <numeric>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/tracking/acceptance.h"

#include "acceptance_run.h"

namespace velmora::tracking {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Le;
using ::testing::SizeIs;
using ::testing::StartsWith;

TEST_F(AcceptanceTest, AProposalThatAnotherClientAcceptedGetsNoSecondOrder) {
    id = shop.addProposal();
    shop.choose(id);
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_IdDPI) VALUES (9,1)");
    shop.change("UPDATE DPI SET DPI_FAcepta = getdate(), DPI_Orden = 9");
    shop.accept();
    EXPECT_THAT(shop.errorTexts(), IsEmpty());
    EXPECT_THAT(shop.screen.texts(), ElementsAre(asked, "El presupuesto ya fue aceptado, orden de trabajo nº 9"));
    EXPECT_EQ(shop.screen.messages.back().icon, screen::Icon::none);
    EXPECT_EQ(shop.screen.messages.back().buttons, screen::Buttons::ok);
    EXPECT_EQ(shop.screen.messages.back().title, "");
    EXPECT_EQ(shop.count("ORDEN"), "1");
    EXPECT_FALSE(shop.connection.transactionOpen());
    EXPECT_EQ(shop.reloads, 1);
    EXPECT_EQ(shop.fields.txtCriterio(numberFrom).text(), "") << "the criteria stay as they are";
    EXPECT_EQ(shop.fields.cboFiltroHistorico.listIndex(), onlyPending);
    EXPECT_EQ(shop.connection.log().back(), "ROLLBACK");
}

TEST_F(AcceptanceTest, AProposalAcceptedWithoutAnOrderIsToldWithoutANumber) {
    id = shop.addProposal();
    shop.choose(id);
    shop.change("UPDATE DPI SET DPI_FAcepta = getdate()");
    shop.accept();
    EXPECT_THAT(shop.screen.texts().back(), "El presupuesto ya fue aceptado, orden de trabajo nº ");
}

TEST_F(AcceptanceTest, AProposalThatAnotherClientDeletedGetsNoOrder) {
    id = shop.addProposal();
    shop.choose(id);
    shop.change("delete from DPI");
    shop.accept();
    EXPECT_THAT(shop.errorTexts(), IsEmpty());
    EXPECT_THAT(shop.screen.texts(), ElementsAre(asked, "El presupuesto ya no existe, otro usuario lo ha eliminado"));
    EXPECT_EQ(shop.screen.messages.back().icon, screen::Icon::none);
    EXPECT_EQ(shop.count("ORDEN"), "0");
    EXPECT_FALSE(shop.connection.transactionOpen());
    EXPECT_EQ(shop.reloads, 1);
}

const std::string changed = "El presupuesto ha sido modificado por otro usuario, revíselo antes de aceptarlo";

TEST_F(AcceptanceTest, AProposalThatAnotherClientChangedGetsNoOrderUntilItWasSeen) {
    for (const char* change : {"DPI_ImpTP = 36", "DPI_Obser = N'otra'", "DPI_Z = NULL", "DPI_Fecha = '14/01/2026'"}) {
        SCOPED_TRACE(change);
        shop.change("delete from ORDEN");
        shop.screen.messages.clear();
        shop.reloads = 0;
        id = shop.addProposal({{"DPI_Obser", "N'una'"}});
        shop.choose(id);
        shop.change(std::string("UPDATE DPI SET ") + change + " where DPI_Id = " + std::to_string(id));
        shop.accept();
        EXPECT_THAT(shop.errorTexts(), IsEmpty());
        EXPECT_THAT(shop.screen.texts(), ElementsAre(asked, changed));
        EXPECT_EQ(shop.count("ORDEN"), "0");
        EXPECT_FALSE(shop.connection.transactionOpen());
        EXPECT_EQ(shop.reloads, 1);
        shop.chooseAndAccept(id);
        EXPECT_THAT(shop.screen.texts().back(), done);
    }
}

TEST_F(AcceptanceTest, AColumnThatTheListDoesNotKnowIsNoChange) {
    id = shop.addProposal();
    shop.choose(id);
    shop.change("ALTER TABLE DPI ADD DPI_Nueva int");
    shop.change("UPDATE DPI SET DPI_Nueva = 7");
    shop.accept();
    EXPECT_THAT(shop.screen.texts().back(), done);
}

TEST_F(AcceptanceTest, ARefusalKeepsWhatWasTypedInThePanel) {
    for (const char* meanwhile : {"delete from DPI where DPI_Id = ", "UPDATE DPI SET DPI_ImpTP = 36 where DPI_Id = ",
                                  "UPDATE DPI SET DPI_FAcepta = getdate() where DPI_Id = "}) {
        SCOPED_TRACE(meanwhile);
        for (const Detail field : {customerReference, customerOrder, orderDate, deliveryDate, pieces}) {
            shop.screen.messages.clear();
            shop.reloads = 0;
            shop.addProposal();
            id = shop.addProposal();
            shop.choose(id);
            panel(field).setText("7");
            shop.change(meanwhile + std::to_string(id));
            shop.accept();
            EXPECT_THAT(shop.screen.texts(), ElementsAre(asked, StartsWith("El presupuesto ")));
            EXPECT_EQ(panel(field).text(), "7");
            EXPECT_EQ(panel(customerName).text(), "TALLERES NORTE SL");
            EXPECT_EQ(shop.reloads, 0) << "the list would show another row";
        }
    }
    EXPECT_EQ(shop.count("ORDEN"), "0");
}

TEST_F(AcceptanceTest, WhoHasTypedIsToldHowToSeeAChangedProposal) {
    id = shop.addProposal();
    shop.choose(id);
    panel(customerOrder).setText("NUEVO");
    shop.change("UPDATE DPI SET DPI_ImpTP = 36");
    shop.accept();
    EXPECT_EQ(shop.screen.texts().back(),
              changed + "\r\nEjecute el filtro para verlo como está ahora, hasta entonces se conserva lo escrito");
}

TEST_F(AcceptanceTest, ARowThatThePanelCannotShowIsNotAccepted) {
    shop.addProposal({{"DPI_RefCli", "N'LA DE ANTES'"}});
    id = shop.addProposal({{"DPI_ImpTS", "NULL"}});
    shop.list(" Order by DPI_Id");
    try {
        shop.fields.rsDpi->moveNext();
        FAIL() << "the panel cannot show a null";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), runtime::invalidUseOfNull);
    }
    ASSERT_EQ(panel(totalAmount).text(), "106,65") << "of the row before";
    shop.accept();
    EXPECT_THAT(shop.screen.texts(), ElementsAre("El panel no muestra el presupuesto entero, no se puede aceptar"));
    EXPECT_THAT(shop.connection.log(), IsEmpty());
    shop.fields.rsDpi->moveFirst();
    shop.accept();
    EXPECT_EQ(query("select ORDEN_IdDPI,ORDEN_REF from ORDEN"), "1|LA DE ANTES");
}

TEST_F(AcceptanceTest, AnAcceptedRowThatThePanelCannotShowDoesNothingAndSaysNothing) {
    id = shop.addProposal({{"DPI_ImpTS", "NULL"}, {"DPI_FAcepta", "getdate()"}});
    EXPECT_THROW(shop.choose(id), runtime::RuntimeError);
    shop.accept();
    EXPECT_THAT(shop.screen.messages, IsEmpty());
    EXPECT_THAT(shop.connection.log(), IsEmpty());
}

TEST_F(AcceptanceTest, WhatIsAcceptedIsTheRowThatWasShown) {
    shop.addProposal({{"DPI_RefCli", "N'A'"}});
    shop.addProposal({{"DPI_RefCli", "N'B'"}});
    shop.list(" Order by DPI_Id");
    // A set whose current row changed without a notification.
    const std::function<void()> hears = std::exchange(shop.fields.rsDpi.onMoveComplete, nullptr);
    shop.fields.rsDpi->moveNext();
    shop.fields.rsDpi.onMoveComplete = hears;
    shop.accept();
    EXPECT_EQ(query("select ORDEN_IdDPI,ORDEN_REF from ORDEN"), "1|A");
    EXPECT_EQ(query("select DPI_Id from DPI where not DPI_FAcepta is null"), "1");
}

/// Adds an order of this proposal with which the proposal is not marked.
void addUnmarked(AcceptanceShop& shop, std::int32_t proposal, int number) {
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_IdDPI) VALUES (" + std::to_string(number) + "," +
                std::to_string(proposal) + ")");
}

void markWith(AcceptanceShop& shop, int number) {
    shop.change("UPDATE DPI SET DPI_FAcepta = getdate(), DPI_Orden = " + std::to_string(number));
}

constexpr std::size_t pausesInVain = 32;  ///< until an order is treated as the leftover of a failure

TEST_F(AcceptanceTest, AnOrderWithoutItsMarkIsGivenAMoment) {
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    shop.clock.onPause = [&] {
        EXPECT_FALSE(shop.connection.transactionOpen()) << "the other client must be able to write";
        if (shop.clock.pauses.size() == 3) {
            markWith(shop, 9);
        }
    };
    shop.accept();
    EXPECT_THAT(shop.screen.texts().back(), "El presupuesto ya fue aceptado, orden de trabajo nº 9");
    EXPECT_EQ(shop.count("ORDEN"), "1");
    EXPECT_THAT(shop.clock.pauses, SizeIs(3));
}

TEST_F(AcceptanceTest, WhoeverWaitsSeesAWindowThatPaints) {
    using std::chrono::milliseconds;
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    shop.screen.onYield = [&] {
        EXPECT_FALSE(shop.connection.transactionOpen()) << "painting reads rows";
        EXPECT_FALSE(shop.form.enabled()) << "a second press must not come between";
        EXPECT_EQ(shop.screen.hourglasses, 1) << "one for the whole time";
        EXPECT_EQ(shop.clock.pauses.size(), static_cast<std::size_t>(shop.screen.yields));
    };
    shop.accept();
    EXPECT_EQ(shop.screen.yields, static_cast<int>(pausesInVain));
    EXPECT_THAT(shop.clock.pauses, Each(Le(milliseconds(100))));
    EXPECT_EQ(std::accumulate(shop.clock.pauses.begin(), shop.clock.pauses.end(), milliseconds(0)), milliseconds(3075));
    EXPECT_TRUE(shop.form.enabled());
}

TEST_F(AcceptanceTest, AnOrderThatStaysUnmarkedDoesNotHinderASecondOne) {
    id = shop.addProposal();
    addUnmarked(shop, id, 9);
    shop.chooseAndAccept(id);
    EXPECT_EQ(query("select ORDEN_NUM from ORDEN where ORDEN_IdDPI = 1"), "9\n10");
    EXPECT_EQ(query("select DPI_Orden from DPI"), "10");
    EXPECT_THAT(shop.clock.pauses, SizeIs(pausesInVain));
}

TEST_F(AcceptanceTest, TheWaitBeginsAnewForAnotherOrderThanBefore) {
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    // The other client waits for the same leftover and its waiting time ends first. Its mark comes late.
    shop.clock.onPause = [&] {
        if (shop.clock.pauses.size() == pausesInVain) {
            addUnmarked(shop, id, 10);
        } else if (shop.clock.pauses.size() == 2 * pausesInVain) {
            markWith(shop, 10);
        }
    };
    shop.accept();
    EXPECT_THAT(shop.screen.texts().back(), "El presupuesto ya fue aceptado, orden de trabajo nº 10");
    EXPECT_EQ(query("select ORDEN_NUM from ORDEN where ORDEN_IdDPI = 1"), "9\n10");
    EXPECT_EQ(shop.clock.pauses.back(), shop.clock.pauses[pausesInVain - 1]);
    EXPECT_EQ(shop.clock.pauses[pausesInVain], shop.clock.pauses[0]) << "it begins with the short ones";
}

TEST_F(AcceptanceTest, ASecondLeftoverIsWaitedForOnceToo) {
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    shop.clock.onPause = [&] {
        if (shop.clock.pauses.size() == 5) {
            addUnmarked(shop, id, 10);
        }
    };
    shop.accept();
    EXPECT_EQ(query("select DPI_Orden from DPI"), "11");
    EXPECT_THAT(shop.clock.pauses, SizeIs(5 + pausesInVain));
}

TEST_F(AcceptanceTest, AnOldOrderWithoutItsMarkIsNotWaitedFor) {
    id = shop.addProposal();
    addUnmarked(shop, id, 9);
    addUnmarked(shop, 77, 109);
    shop.chooseAndAccept(id);
    EXPECT_EQ(query("select DPI_Orden from DPI"), "110");
    EXPECT_THAT(shop.clock.pauses, IsEmpty());
}

TEST_F(AcceptanceTest, TheMarkIsReadBeforeTheOrders) {
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    markWith(shop, 9);
    shop.accept();
    EXPECT_THAT(logged("ORDEN_IdDPI = "), IsEmpty()) << "an accepted proposal's orders are not asked for";
}

TEST_F(AcceptanceTest, AnErrorWhileWaitingIsToldAndTheFormComesBack) {
    id = shop.addProposal();
    shop.choose(id);
    addUnmarked(shop, id, 9);
    shop.clock.onPause = [&] {
        if (shop.clock.pauses.size() == 2) {
            shop.connection.refuse(static_cast<int>(shop.connection.log().size()) + 2);  // the look at the proposal
        }
    };
    shop.screen.whileOpen = [&](const screen::MessageBox& box) {
        EXPECT_TRUE(box.text == asked || shop.screen.hourglasses == 1);
        EXPECT_TRUE(shop.form.enabled()) << "the words come up when the wait is over";
    };
    shop.accept();
    EXPECT_THAT(shop.screen.texts().back(), "Error marcando presupuesto:\r\nFallo provocado");
    EXPECT_FALSE(shop.connection.transactionOpen());
    EXPECT_EQ(shop.count("ORDEN"), "1");
    EXPECT_TRUE(shop.form.enabled());
}

}  // namespace
}  // namespace velmora::tracking
