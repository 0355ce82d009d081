#include "velmora/platform/sql/in_transaction.h"

namespace velmora::sql {

namespace {

// A commit that failed may have left the transaction open, or may not; then there is nothing to undo.
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
