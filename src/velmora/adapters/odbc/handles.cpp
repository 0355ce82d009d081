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

StatementHandle newStatement(SQLHANDLE connection, std::chrono::seconds patience) {
    StatementHandle made(connection);
    // A driver without it waits without end, as it would anyway.
    SQLSetStmtAttr(made.get(), SQL_ATTR_QUERY_TIMEOUT, asPointer(static_cast<std::uintptr_t>(patience.count())), 0);
    return made;
}

SQLHANDLE environment() {
    static const EnvironmentHandle shared = makeEnvironment();
    return shared.get();
}

}  // namespace velmora::odbc
