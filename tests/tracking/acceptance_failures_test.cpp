// What stands when an acceptance fails, wherever it fails: at each statement, begin, commit and rollback in turn, by a
// refusal and by a connection that is lost.

#include <iostream>
#include <map>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/tracking/acceptance.h"
#include "velmora/tracking/order_materials.h"
#include "velmora/tracking/order_row.h"
#include "velmora/tracking/order_sprocket.h"

#include "acceptance_steps.h"
#include "support/proposal_workshop.h"

namespace velmora::tracking {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

void print(const char* fault, int operation, const std::string& name, AcceptanceShop& shop) {
    std::string user = seen(shop);
    for (std::size_t at = 0; (at = user.find("\r\n", at)) != std::string::npos;) {
        user.replace(at, 2, " / ");
    }
    std::cout << fault << " " << operation << " [" << name.substr(0, 40) << "]: " << written(*shop.database)
              << (shop.connection.transactionOpen() ? ", transaction open" : "") << "; user: " << user << "\n";
}

/// Every operation by its number and name, as an undisturbed acceptance shows them.
std::vector<std::string> undisturbed() {
    Prepared shop;
    shop.accept();
    EXPECT_EQ(seen(shop), success);
    EXPECT_EQ(written(*shop.database), writtenBefore(operations));
    return shop.connection.log();
}

class AcceptanceFailuresTest : public ::testing::Test {
  protected:
    AcceptanceFailuresTest() : names(undisturbed()) {}
    const std::vector<std::string> names;
};

TEST_F(AcceptanceFailuresTest, TheOperationsAreTheseAndNoOthers) {
    ASSERT_EQ(names.size(), static_cast<std::size_t>(operations));
    const std::map<int, const char*> known{
        {debt, "SELECT (select"},
        {begin, "BEGIN"},
        {highestNumber, "Select max("},
        {lookAgain, "Select * FROM DPI"},
        {otherOrders, "Select max("},
        {charges, "Select CLI_Gtos"},
        {earlierArticle, "Select top 1"},
        {insertOrderRow, "INSERT INTO O"},
        {commit, "COMMIT"},
        {mark, "UPDATE DPI"},
        {insertSprocket, "INSERT INTO OrdPi"},
        {insertDisc, "INSERT INTO Mat"},
        {insertHub, "INSERT INTO Mat"},
        {beginFirstCut, "BEGIN"},
        {insertFirstCut, "INSERT INTO RUT"},
        {commitFirstCut, "COMMIT"},
        {insertSecondLabour, "INSERT INTO RUT"},
        {commitSecondLabour, "COMMIT"},
        {lastCommit, "COMMIT"},
    };
    for (const auto& [operation, start] : known) {
        EXPECT_THAT(names[static_cast<std::size_t>(operation)], StartsWith(start));
    }
}

TEST_F(AcceptanceFailuresTest, ARefusalAtEachOperationLeavesWhatTheTableTells) {
    for (int operation = 0; operation < operations; ++operation) {
        SCOPED_TRACE(names[static_cast<std::size_t>(operation)]);
        Prepared shop;
        shop.connection.refuse(operation);
        shop.accept();
        print("refused", operation, names[static_cast<std::size_t>(operation)], shop);
        EXPECT_FALSE(shop.connection.transactionOpen());
        if (operation < lookAgain) {
            EXPECT_EQ(seen(shop), errorOf(failure));
            EXPECT_EQ(written(*shop.database), writtenBefore(0));
        } else if (operation <= commit) {
            EXPECT_EQ(seen(shop),
                      wordsOfFailure + (operation == insertOrderRow ? "Error definido por la aplicación o el objeto"
                                                                    : "Fallo provocado"));
            EXPECT_EQ(written(*shop.database), writtenBefore(0));
        } else if (routePositionOf(operation) > 0) {
            std::string expected = writtenBefore(operations);
            expected.erase(expected.rfind(std::to_string(routePositionOf(operation))), 1);
            EXPECT_EQ(seen(shop), success) << "a refused row of the route stops nothing";
            EXPECT_EQ(written(*shop.database), expected);
        } else {
            EXPECT_EQ(seen(shop), errorOf(noTransaction)) << "the rollback's, in place of the words";
            EXPECT_EQ(written(*shop.database), writtenBefore(operation));
        }
        EXPECT_TRUE(shop.session.Campos().fields().empty());
    }
}

TEST_F(AcceptanceFailuresTest, AConnectionLostAtEachOperationLeavesWhatTheTableTells) {
    for (int operation = 0; operation < operations; ++operation) {
        SCOPED_TRACE(names[static_cast<std::size_t>(operation)]);
        Prepared shop;
        shop.connection.loseAt(operation);
        shop.accept();
        print("lost at", operation, names[static_cast<std::size_t>(operation)], shop);
        EXPECT_FALSE(shop.connection.transactionOpen()) << "the server undoes it";
        if (operation < lookAgain || operation > commit) {
            EXPECT_EQ(seen(shop), errorOf(failure));
        } else {
            EXPECT_EQ(seen(shop),
                      wordsOfFailure + (operation == insertOrderRow ? "Error definido por la aplicación o el objeto"
                                                                    : "Se perdió la conexión"));
        }
        EXPECT_EQ(written(*shop.database), writtenBefore(operation));
    }
}

TEST_F(AcceptanceFailuresTest, AConnectionLostAfterEachOperationLeavesWhatTheTableTells) {
    for (int operation = 0; operation < lastCommit; ++operation) {
        SCOPED_TRACE(names[static_cast<std::size_t>(operation)]);
        Prepared shop;
        shop.connection.loseAfter(operation);
        shop.accept();
        print("lost after", operation, names[static_cast<std::size_t>(operation)], shop);
        EXPECT_FALSE(shop.connection.transactionOpen());
        const int next = operation + 1;
        if (next < lookAgain || next > commit) {
            EXPECT_EQ(seen(shop), errorOf(failure));
        } else {
            EXPECT_EQ(seen(shop),
                      wordsOfFailure + (next == insertOrderRow ? "Error definido por la aplicación o el objeto"
                                                               : "Se perdió la conexión"));
        }
        EXPECT_EQ(written(*shop.database), writtenBefore(next));
    }
}

TEST_F(AcceptanceFailuresTest, TheTextsAreOnTheErrorAndNotInTheWords) {
    Prepared shop;
    shop.connection.refuse(mark);
    shop.connection.refuse(mark + 1);  // the rollback
    shop.accept();
    EXPECT_EQ(seen(shop), errorOf(failure));
    try {
        raise(connectionLost, "La conexión con la Base de Datos se perdió");
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), -9998);
        EXPECT_EQ(error.description(), "Error definido por la aplicación o el objeto");
        EXPECT_EQ(error.source(), "La conexión con la Base de Datos se perdió");
    }
}

TEST_F(AcceptanceFailuresTest, TheReasonOfARefusedOrderIsNotWhatTheUserReads) {
    Prepared shop;
    shop.connection.refuse(insertOrderRow);
    shop.accept();
    EXPECT_EQ(seen(shop).find("Fallo provocado"), std::string::npos);
}

/// The source of the error that a step raises when its row is refused.
std::string sourceOf(AcceptanceShop& shop, const std::function<void()>& step) {
    shop.connection.refuse(static_cast<int>(shop.connection.log().size()));
    try {
        step();
    } catch (const runtime::RuntimeError& error) {
        return std::to_string(error.number()) + " " + error.source();
    }
    return "nothing";
}

TEST_F(AcceptanceFailuresTest, TheWordsOfARefusedSprocketTellOfMaterial) {
    Prepared shop;
    WorkOrder order;
    EXPECT_EQ(sourceOf(shop, [&] { addSprocketData(shop.session, *shop.fields.rsDpi, order); }),
              "-99997 Error en la grabacion del registro de material en la orden\r\nFallo provocado");
}

TEST_F(AcceptanceFailuresTest, TheWordsOfARefusedSprocketDoNotNameIt) {
    Prepared shop;
    WorkOrder order;
    const std::string words = sourceOf(shop, [&] { addSprocketData(shop.session, *shop.fields.rsDpi, order); });
    EXPECT_EQ(words.find("iñon"), std::string::npos);
}

TEST_F(AcceptanceFailuresTest, TheReasonOfARefusedMarkIsTheServers) {
    Prepared shop;
    EXPECT_EQ(sourceOf(shop, [&] { markProposal(shop.session, shop.fields, *shop.fields.rsDpi, {}); }),
              "-9999 Fallo provocado");
}

TEST_F(AcceptanceFailuresTest, TheWordsOfARefusedMaterial) {
    Prepared shop;
    WorkOrder order;
    shop.connection.refuse(1);
    try {
        addMaterials(shop.session, shop.screen, shop.oUtil, *shop.fields.rsDpi, order);
        FAIL() << "the row was refused";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), -9996);
        EXPECT_EQ(error.source(), "Error Añadiendo Material del piñon:\r\nFallo provocado");
    }
}

TEST_F(AcceptanceFailuresTest, ALostConnectionIsRaisedBeforeOrderAndMarkAreTried) {
    Prepared shop;
    shop.connection.loseAfter(1);
    for (const auto& step : std::vector<std::function<void()>>{
             [&] { tracking::insertOrder(shop.session, shop.fields, *shop.fields.rsDpi, {}, shop.clock.now()); },
             [&] { markProposal(shop.session, shop.fields, *shop.fields.rsDpi, {}); }}) {
        const std::size_t before = shop.connection.log().size();
        try {
            step();
            FAIL() << "the connection was lost";
        } catch (const runtime::RuntimeError& error) {
            EXPECT_EQ(error.number(), -9998);
            EXPECT_EQ(error.source(), "La conexión con la Base de Datos se perdió");
        }
        EXPECT_EQ(shop.connection.log().size(), before == 0 ? 2u : before) << "the look-ups of the order alone";
    }
}

// --- What comes after ------------------------------------------------------------------------------------------------

TEST_F(AcceptanceFailuresTest, BeforeTheCommitTheNumberStaysFreeAndTheSecondTryIsGood) {
    for (int operation = lookAgain; operation <= commit; ++operation) {
        Prepared shop;
        shop.connection.refuse(operation);
        shop.accept();
        shop.connection.restore();
        shop.screen.messages.clear();
        shop.accept();
        EXPECT_EQ(seen(shop), success);
        EXPECT_EQ(written(*shop.database), writtenBefore(operations));
    }
}

TEST_F(AcceptanceFailuresTest, AnOrderThatTheProposalDoesNotKnowOfIsFollowedByASecond) {
    Prepared shop;
    shop.connection.refuse(mark);
    shop.accept();
    EXPECT_EQ(written(*shop.database), writtenBefore(mark));
    shop.connection.restore();
    shop.errors.clear();
    shop.screen.messages.clear();
    shop.accept();
    EXPECT_EQ(seen(shop), "Presupuesto Aceptado, Orden de trabajo nº 2 generada ");
    EXPECT_EQ(shop.query("select ORDEN_NUM,ORDEN_IdDPI from ORDEN order by ORDEN_NUM"), "1|1\n2|1");
    EXPECT_EQ(shop.query("select DPI_Orden from DPI"), "2");
}

TEST_F(AcceptanceFailuresTest, AnOrderIsNotUndoneForWhatFailsBehindIt) {
    Prepared shop;
    shop.connection.refuse(mark);
    shop.accept();
    EXPECT_EQ(shop.count("ORDEN"), "1");
}

TEST_F(AcceptanceFailuresTest, AfterTheMarkTheProposalCannotBeTriedAgain) {
    for (int operation = orderId; operation < operations; ++operation) {
        Prepared shop;
        shop.connection.refuse(operation);
        shop.accept();
        const std::string before = written(*shop.database);
        shop.connection.restore();
        shop.errors.clear();
        shop.screen.messages.clear();
        shop.chooseAndAccept(shop.proposal);
        EXPECT_EQ(seen(shop), "");
        EXPECT_EQ(written(*shop.database), before);
    }
}

TEST_F(AcceptanceFailuresTest, AFailingNumberIsRolledBackBeforeItGoesUp) {
    support::TemporaryFolder folder;
    const std::string path = folder.file("taller.db");
    Prepared shop(makeShopDatabase(path));
    shop.connection.refuse(highestNumber);
    shop.accept();
    EXPECT_EQ(shop.connection.log().back(), "ROLLBACK");
    EXPECT_EQ(shop.count("ORDEN"), "0");
    EXPECT_NO_THROW(openShopDatabase(path, std::chrono::milliseconds(20))->beginTrans()) << "nobody else is held";
    shop.connection.restore();
    shop.errors.clear();
    shop.screen.messages.clear();
    shop.accept();
    EXPECT_EQ(seen(shop), success) << "and neither is this client";
}

TEST_F(AcceptanceFailuresTest, AFailingNumberGoesUpAsTheErrorThatItIs) {
    Prepared shop;
    shop.connection.refuse(highestNumber, sql::provider::timeout);
    shop.accept();
    EXPECT_EQ(seen(shop), errorOf(sql::provider::timeout));
}

TEST_F(AcceptanceFailuresTest, AFailingNumberIsNotToldInTheWordsOfAnAcceptance) {
    Prepared shop;
    shop.connection.refuse(highestNumber);
    shop.accept();
    EXPECT_EQ(seen(shop).find(wordsOfFailure), std::string::npos);
}

TEST_F(AcceptanceFailuresTest, ANumberBeyondThirtyTwoBitsLeavesNoTransaction) {
    Prepared shop;
    shop.change("INSERT INTO ORDEN (ORDEN_NUM) VALUES (2147483647)");
    shop.accept();
    EXPECT_EQ(seen(shop), errorOf(runtime::overflow));
    EXPECT_FALSE(shop.connection.transactionOpen());
}

TEST_F(AcceptanceFailuresTest, ARollbackThatIsRefusedDoesNotHideTheNumbersError) {
    Prepared shop;
    shop.connection.refuse(highestNumber, sql::provider::timeout);
    shop.connection.refuse(highestNumber + 1);
    shop.accept();
    EXPECT_EQ(seen(shop), errorOf(sql::provider::timeout));
}

TEST_F(AcceptanceFailuresTest, WhatIsNoErrorOfTheLanguageIsRolledBackToo) {
    for (int operation = begin; operation <= commit; ++operation) {
        SCOPED_TRACE(names[static_cast<std::size_t>(operation)]);
        Prepared shop;
        shop.connection.breakAt(operation);
        EXPECT_THROW(shop.accept(), std::runtime_error);
        EXPECT_FALSE(shop.connection.transactionOpen());
        EXPECT_EQ(written(*shop.database), writtenBefore(0));
        EXPECT_TRUE(shop.session.Campos().fields().empty());
        shop.connection.restore();
        shop.screen.messages.clear();
        shop.accept();
        EXPECT_EQ(seen(shop), success);
    }
}

// --- An order whose mark failed
// -----------------------------------------------------------------------------------------

TEST_F(AcceptanceFailuresTest, WhoseOwnMarkFailedDoesNotWaitForHisOwnOrder) {
    Prepared shop;
    for (int tries = 0; tries < 2; ++tries) {
        shop.connection.restore();
        shop.connection.refuse(mark);
        shop.accept();
        ASSERT_EQ(shop.errors.size(), 1u);
        shop.errors.clear();
    }
    shop.connection.restore();
    shop.accept();
    EXPECT_EQ(shop.query("select ORDEN_NUM from ORDEN where ORDEN_IdDPI = 1 order by ORDEN_NUM"), "1\n2\n3");
    EXPECT_EQ(shop.query("select DPI_Orden from DPI"), "3");
    EXPECT_THAT(shop.clock.pauses, IsEmpty());
    EXPECT_EQ(shop.screen.hourglasses, 0);
}

TEST_F(AcceptanceFailuresTest, AnotherClientsOrderIsWaitedForAlsoByOneWithAnOrderOfHisOwn) {
    Prepared shop;
    shop.connection.refuse(mark);
    shop.accept();
    shop.connection.restore();
    shop.errors.clear();
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_IdDPI) VALUES (2,1)");
    shop.clock.onPause = [&] { shop.change("UPDATE DPI SET DPI_FAcepta = getdate(), DPI_Orden = 2"); };
    shop.accept();
    EXPECT_EQ(shop.screen.texts().back(), "El presupuesto ya fue aceptado, orden de trabajo nº 2");
    EXPECT_EQ(shop.count("ORDEN"), "2");
    EXPECT_THAT(shop.clock.pauses, SizeIs(1));
}

TEST_F(AcceptanceFailuresTest, AFormOpenedLaterWaitsForTheOrderOfTheOneBefore) {
    support::TemporaryFolder folder;
    const std::string path = folder.file("taller.db");
    {
        Prepared shop(makeShopDatabase(path));
        shop.connection.refuse(mark);
        shop.accept();
    }
    AcceptanceShop later(openShopDatabase(path));
    later.chooseAndAccept(1);
    EXPECT_THAT(later.clock.pauses, SizeIs(32));
    EXPECT_EQ(later.query("select DPI_Orden from DPI"), "2");
}

// --- The rollback itself
// -----------------------------------------------------------------------------------------------

TEST_F(AcceptanceFailuresTest, ARollbackThatIsRefusedGoesUpInPlaceOfTheWords) {
    for (int operation = lookAgain; operation <= commit; ++operation) {
        SCOPED_TRACE(operation);
        support::TemporaryFolder folder;
        const std::string path = folder.file("taller.db");
        {
            Prepared shop(makeShopDatabase(path));
            shop.connection.refuse(operation);
            shop.connection.refuse(operation + 1);
            shop.accept();
            EXPECT_EQ(shop.connection.log().back(), "ROLLBACK");
            EXPECT_EQ(seen(shop), errorOf(failure));
            EXPECT_TRUE(shop.connection.transactionOpen());
        }
        AcceptanceShop later(openShopDatabase(path));
        EXPECT_EQ(written(*later.database), writtenBefore(0)) << "nothing of it is stored";
    }
}

TEST_F(AcceptanceFailuresTest, ARollbackThatFindsNothingOpenDoesNotHideTheWords) {
    Prepared shop;
    shop.connection.refuse(commit);
    shop.connection.refuse(commit + 1, noTransaction);
    shop.accept();
    EXPECT_EQ(seen(shop), wordsOfFailure + "Fallo provocado");
}

TEST_F(AcceptanceFailuresTest, AfterTheCommitARefusedRollbackGoesUpAsItIs) {
    for (const int operation : {mark, insertSprocket, insertDisc, insertHub, labourLines, lastCommit}) {
        Prepared shop;
        shop.connection.refuse(operation);
        shop.connection.refuse(operation + 1, sql::provider::timeout);
        shop.accept();
        EXPECT_EQ(seen(shop), errorOf(sql::provider::timeout));
        EXPECT_EQ(written(*shop.database), writtenBefore(operation));
    }
}

TEST_F(AcceptanceFailuresTest, AfterTheCommitARollbackThatGoesThroughLetsTheWordsBeRead) {
    Prepared shop;
    // Somebody else's transaction on the same connection.
    shop.connection.before(names[mark], [&] { shop.connection.beginTrans(); });
    shop.connection.refuse(orderId + 1);
    shop.accept();
    EXPECT_EQ(seen(shop), wordsOfFailure + "Fallo provocado");
    EXPECT_FALSE(shop.connection.transactionOpen());
}

TEST_F(AcceptanceFailuresTest, TheNumberOfNoTransactionMeansSuccessOnlyAfterTheCommit) {
    for (int operation = lookAgain; operation <= commit; ++operation) {
        SCOPED_TRACE(operation);
        Prepared shop;
        shop.connection.refuse(operation, noTransaction);
        shop.accept();
        EXPECT_THAT(seen(shop), StartsWith(wordsOfFailure));
        EXPECT_EQ(written(*shop.database), writtenBefore(0));
        EXPECT_FALSE(shop.connection.transactionOpen());
    }
}

// --- Failures of the engine itself
// -----------------------------------------------------------------------------------------

TEST_F(AcceptanceFailuresTest, AMissingTableIsToldWhereItIsMissed) {
    struct Row {
        const char* table;
        int operation;  ///< the first that misses it
        std::string seen;
    };
    for (const Row& row :
         {Row{"CLI", debt, errorOf(sql::provider::missingTable)},
          Row{"ORDEN", highestNumber, errorOf(sql::provider::missingTable)},
          Row{"OrdPiñones", insertSprocket, errorOf(noTransaction)}, Row{"ART", discArticle, errorOf(noTransaction)},
          Row{"Mat", insertDisc, errorOf(noTransaction)}, Row{"RUT", firstPlace, errorOf(noTransaction)},
          Row{"MoDpi", labourLines, errorOf(noTransaction)}}) {
        SCOPED_TRACE(row.table);
        Prepared shop;
        if (std::string_view(row.table) == "ART") {
            shop.fields.txtPesu(customerReference).setText("");
        }
        shop.change(std::string("DROP TABLE ") + row.table);
        shop.accept();
        EXPECT_EQ(seen(shop), row.seen);
    }
}

TEST_F(AcceptanceFailuresTest, AValueThatDoesNotFitTheOrderUndoesIt) {
    for (const Detail field : {pieces, piecePrice}) {
        Prepared shop;
        shop.fields.txtPesu(field).setText("tres");
        shop.accept();
        EXPECT_EQ(seen(shop), wordsOfFailure + "Error definido por la aplicación o el objeto");
        EXPECT_EQ(written(*shop.database), writtenBefore(0));
    }
}

TEST_F(AcceptanceFailuresTest, WhateverStandsInThePanelAnOrderIsWholeOrTold) {
    const std::string texts[] = {"",   "tres", "1e400",       "--1", "'",  "1,2,3", "(3)",
                                 "3€", "&HFF", "99999999999", "0",   "-1", "\r\n",  std::string(5000, 'x')};
    for (int field = customerCode; field <= totalAmount; ++field) {
        for (const std::string& text : texts) {
            SCOPED_TRACE("txtPesu(" + std::to_string(field) + ") " + text.substr(0, 20));
            Prepared shop;
            shop.fields.txtPesu(field).setText(text);
            shop.accept();
            const std::string told = seen(shop);
            EXPECT_FALSE(shop.connection.transactionOpen());
            EXPECT_NE(told, "");
            const bool accepted = !shop.query("select DPI_Id from DPI where not DPI_FAcepta is null").empty();
            EXPECT_EQ(shop.count("ORDEN"), accepted ? "1" : "0");
            EXPECT_EQ(told == success, accepted && shop.errors.empty());
            EXPECT_EQ(shop.count("Mat"), accepted ? "2" : "0") << "only the route can fail behind the order";
        }
    }
}

TEST_F(AcceptanceFailuresTest, AMeasureThatIsNullEndsTheMaterials) {
    Prepared shop;
    shop.change("UPDATE DPI SET DPI_CubCortAN = NULL");
    shop.choose(shop.proposal);
    shop.accept();
    EXPECT_EQ(seen(shop), errorOf(noTransaction));
    EXPECT_EQ(written(*shop.database), writtenBefore(insertHub));
    EXPECT_TRUE(shop.session.Campos().fields().empty()) << "the columns begun are not left to the next write";
}

TEST_F(AcceptanceFailuresTest, AnArticleThatIsGoneEndsTheMaterials) {
    Prepared shop;
    shop.change("delete from ART where ART_ID = 11");
    shop.accept();
    EXPECT_EQ(seen(shop), errorOf(noTransaction));
    EXPECT_EQ(written(*shop.database), writtenBefore(insertDisc));
}

TEST_F(AcceptanceFailuresTest, ADatabaseThatAnotherWriterHoldsIsToldAtOnceAndFreeAfterwards) {
    support::TemporaryFolder folder;
    const std::string path = folder.file("taller.db");
    { const auto made = makeShopDatabase(path); }
    Prepared shop(openShopDatabase(path, std::chrono::milliseconds(20)));
    const auto other = openShopDatabase(path);
    other->beginTrans();
    shop.accept();
    EXPECT_EQ(seen(shop), errorOf(sql::provider::timeout));
    other->rollbackTrans();
    shop.errors.clear();
    shop.screen.messages.clear();
    shop.accept();
    EXPECT_EQ(seen(shop), success);
}

}  // namespace
}  // namespace velmora::tracking
