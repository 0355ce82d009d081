#pragma once
// One acceptance step by step: what reaches the connection, what is written after each, and what the user sees.

#include <memory>
#include <string>
#include <utility>

#include "velmora/platform/sql/db_error.h"

#include "acceptance_shop.h"

namespace velmora::tracking {

inline constexpr long noTransaction = sql::provider::noTransaction;
inline constexpr long failure = sql::provider::failure;

/// What reaches the connection in one acceptance with two cuts and two labour lines, in its order.
enum Operation : int {
    debt,
    begin,
    highestNumber,
    lookAgain,
    otherOrders,
    charges,
    earlierArticle,
    insertOrderRow,
    commit,
    mark,
    orderId,
    insertSprocket,
    sprocketId,
    discArticle,
    insertDisc,
    hubArticle,
    insertHub,
    beginFirstCut,
    firstPlace,
    insertFirstCut,
    commitFirstCut,
    beginSecondCut,
    secondPlace,
    insertSecondCut,
    commitSecondCut,
    labourLines,
    beginFirstLabour,
    thirdPlace,
    insertFirstLabour,
    commitFirstLabour,
    beginSecondLabour,
    fourthPlace,
    insertSecondLabour,
    commitSecondLabour,
    lastCommit,
    rollbackOfFailure,
};
inline constexpr int operations = lastCommit + 1;

/// The position in the route of the row that this operation inserts or commits, whose refusal stops nothing; 0: none.
int routePositionOf(int operation);

/// What an acceptance has written when it ends just before an operation.
std::string writtenBefore(int operation);
/// The same as the database has it.
std::string written(sql::Connection& database);

/// What the user sees besides the questions: the number of an error that nothing traps, or the words of a box.
std::string seen(const AcceptanceShop& shop);
std::string errorOf(long number);
inline const std::string wordsOfFailure = "Error marcando presupuesto:\r\n";
inline const std::string success = "Presupuesto Aceptado, Orden de trabajo nº 1 generada ";

/// One proposal with two labour lines, chosen in the list.
struct Prepared : AcceptanceShop {
    explicit Prepared(std::unique_ptr<sql::Connection> opened = makeShopDatabase())
        : AcceptanceShop(std::move(opened)), proposal(addProposal()) {
        addLabour(proposal, 10, "0.25");
        addLabour(proposal, 12, "0.5");
        choose(proposal);
    }
    std::int32_t proposal;
};

}  // namespace velmora::tracking
