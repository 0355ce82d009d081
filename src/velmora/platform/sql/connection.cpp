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
        // The engine undoes an open transaction itself when its connection is gone; a destructor has nobody to tell.
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
