#include "velmora/platform/sql/connection.h"

#include <exception>

namespace velmora::sql {

Transaction::~Transaction() {
    if (!open_) {
        return;
    }
    try {
        connection_.rollbackTrans();
    } catch (const std::exception&) {
        // The engine rolls an open transaction back itself when the connection closes; a destructor cannot report a
        // failure.
    }
}

void Transaction::commit() {
    open_ = false;
    connection_.commitTrans();
}

void Transaction::rollback() {
    open_ = false;
    connection_.rollbackTrans();
}

}  // namespace velmora::sql
