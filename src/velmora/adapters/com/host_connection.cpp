#include "velmora/adapters/com/host_connection.h"

#include <utility>

#include "velmora/adapters/com/host_engine.h"

namespace velmora::com {

HostConnection::HostConnection(const LateObject& connection) : engine_(std::make_shared<HostEngine>(connection)) {}

HostConnection::~HostConnection() = default;

void HostConnection::follow(const LateObject& connection) {
    engine_->follow(connection);
}

const LateObject& HostConnection::object() const {
    return engine_->object();
}

sql::Recordset HostConnection::execute(std::string_view statement) {
    std::unique_ptr<sql::RowSource> rows = engine_->openRows(std::string(statement));
    return rows ? sql::Recordset(std::move(rows)) : sql::Recordset();
}

void HostConnection::beginTrans() {
    engine_->begin();
}

void HostConnection::commitTrans() {
    engine_->commit();
}

void HostConnection::rollbackTrans() {
    engine_->rollback();
}

std::string HostConnection::currentCatalog() const {
    return engine_->catalog();
}

bool HostConnection::isAlive() {
    return engine_->isAlive();
}

}  // namespace velmora::com
