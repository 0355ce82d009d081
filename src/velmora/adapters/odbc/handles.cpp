#include "velmora/adapters/odbc/handles.h"

#include "velmora/platform/sql/db_error.h"

namespace velmora::odbc {

namespace {

EnvironmentHandle makeEnvironment() {
    EnvironmentHandle made(nullptr);
    SQLSetEnvAttr(made.get(), SQL_ATTR_ODBC_VERSION, asPointer(SQL_OV_ODBC3), 0);
    return made;
}

}  // namespace

void throwNoHandle() {
    throw sql::DbError(sql::provider::failure, "El gestor de controladores ODBC no responde.", {.sqlState = "HY001"});
}

SQLPOINTER asPointer(std::uintptr_t value) {
    // The interface passes whole numbers as pointers.
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return reinterpret_cast<SQLPOINTER>(value);
}

StatementHandle StatementStock::take() {
    if (idle_) {
        StatementHandle taken = std::move(*idle_);
        idle_.reset();
        return taken;
    }
    StatementHandle made(connection_);
    // A driver without it waits without end, as it would anyway.
    SQLSetStmtAttr(made.get(), SQL_ATTR_QUERY_TIMEOUT, asPointer(static_cast<std::uintptr_t>(patience_.count())), 0);
    return made;
}

void StatementStock::giveBack(StatementHandle statement) noexcept {
    if (!idle_ && SQL_SUCCEEDED(SQLFreeStmt(statement.get(), SQL_CLOSE))) {
        idle_.emplace(std::move(statement));
    }
}

SQLHANDLE environment() {
    static const EnvironmentHandle shared = makeEnvironment();
    return shared.get();
}

}  // namespace velmora::odbc
