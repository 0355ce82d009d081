#include <filesystem>

#include "velmora/adapters/sqlite/database.h"

#include "connection_contract.h"
#include "support/temporary_folder.h"

namespace velmora::test {

namespace {

class InMemory final : public DatabaseUnderTest {
  public:
    std::unique_ptr<sql::Connection> connect() override { return sqlite::openDatabase(":memory:"); }
};

class InAFile final : public DatabaseUnderTest {
  public:
    std::unique_ptr<sql::Connection> connect() override { return sqlite::openDatabase(folder_.file("taller.db")); }

  private:
    support::TemporaryFolder folder_;
};

/// Where no memory can be shared between clients, there is no write-ahead logging.
class WithoutWriteAheadLog final : public DatabaseUnderTest {
  public:
    std::unique_ptr<sql::Connection> connect() override {
        return sqlite::openDatabase("file:" + folder_.file("taller.db") + "?vfs=unix-dotfile");
    }

  private:
    support::TemporaryFolder folder_;
};

template <typename Database>
EngineUnderTest engine(const char* name) {
    return {.name = name, .make = [] { return std::make_unique<Database>(); }};
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Sqlite, ConnectionContract,
                         testing::Values(engine<InMemory>("InMemory"), engine<InAFile>("InAFile")), nameOf);
INSTANTIATE_TEST_SUITE_P(Sqlite, SharedDatabaseContract,
                         testing::Values(engine<InAFile>("InAFile"),
                                         engine<WithoutWriteAheadLog>("WithoutWriteAheadLog")),
                         nameOf);

}  // namespace velmora::test
