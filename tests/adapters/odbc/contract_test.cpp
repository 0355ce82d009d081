#include "velmora/adapters/odbc/database.h"

#include "connection_contract.h"
#include "server_under_test.h"

namespace velmora::test {

namespace {

class OnTheServer final : public DatabaseUnderTest {
  public:
    OnTheServer() { dropTestTables(*testServer()); }
    std::unique_ptr<sql::Connection> connect() override { return odbc::openDatabase(*testServer()); }
};

const EngineUnderTest serverUnderTest{.name = "Server", .make = [] { return std::make_unique<OnTheServer>(); }};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Odbc, ConnectionContract, testing::Values(serverUnderTest), nameOf);
INSTANTIATE_TEST_SUITE_P(Odbc, SharedDatabaseContract, testing::Values(serverUnderTest), nameOf);

}  // namespace velmora::test
