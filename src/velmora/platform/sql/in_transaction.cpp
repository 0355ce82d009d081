#include "velmora/platform/sql/in_transaction.h"

namespace velmora::sql {

namespace {

// A failed commit may or may not have left the transaction open; in the latter case there is nothing to roll back.
void undo(Connection& connection) {
    runtime::ErrorTrap trap;
    trap([&] { connection.rollbackTrans(); });
}

}  // namespace

bool inTransaction(Connection& connection, const std::function<bool()>& work) {
    connection.beginTrans();
    try {
        if (work()) {
            connection.commitTrans();
            return true;
        }
    } catch (...) {
        undo(connection);
        throw;
    }
    undo(connection);
    return false;
}

}  // namespace velmora::sql
