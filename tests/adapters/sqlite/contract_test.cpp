#include "velmora/adapters/sqlite/database.h"

#include "connection_contract.h"

namespace velmora::test {

namespace {

std::unique_ptr<sql::Connection> openInMemory() {
    return sqlite::openDatabase(":memory:");
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Sqlite, ConnectionContract, testing::Values(EngineUnderTest{"Sqlite", openInMemory}));

}  // namespace velmora::test
