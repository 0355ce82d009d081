#include "velmora/adapters/odbc/handles.h"

#include <cstdint>

#include "velmora/platform/sql/db_error.h"

namespace velmora::odbc {

namespace {

EnvironmentHandle makeEnvironment() {
    EnvironmentHandle made(nullptr);
    // The interface passes whole numbers as pointers.
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    const auto version = reinterpret_cast<SQLPOINTER>(static_cast<std::uintptr_t>(SQL_OV_ODBC3));
    SQLSetEnvAttr(made.get(), SQL_ATTR_ODBC_VERSION, version, 0);
    return made;
}

}  // namespace

void throwNoHandle() {
    throw sql::DbError(sql::provider::failure, "El gestor de controladores ODBC no responde.", {.sqlState = "HY001"});
}

SQLHANDLE environment() {
    static const EnvironmentHandle shared = makeEnvironment();
    return shared.get();
}

}  // namespace velmora::odbc
