// What the embedded engine does with files: other processes, locks, broken files, the documents' file.

#include "velmora/adapters/sqlite/database.h"

#include <filesystem>
#include <fstream>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/errors.h"

#include "sample_database.h"
#include "support/temporary_folder.h"

namespace velmora::test {

namespace {

using sql::Value;
using testing::HasSubstr;
namespace provider = sql::provider;
namespace fs = std::filesystem;

class DatabaseFile : public testing::Test {
  protected:
    std::string path(const std::string& name = "taller.db") const { return folder_.file(name); }

    std::unique_ptr<sql::Connection> open(std::chrono::milliseconds wait = std::chrono::milliseconds(50)) const {
        return sqlite::openDatabase(path(), {.busyTimeout = wait});
    }

    template <typename Action>
    static sql::DbError errorOf(Action action) {
        try {
            action();
        } catch (const sql::DbError& error) {
            return error;
        }
        ADD_FAILURE() << "no error";
        return {0, ""};
    }

    support::TemporaryFolder folder_;
};

}  // namespace

TEST_F(DatabaseFile, WhatIsCommittedIsThereAfterwards) {
    {
        const auto connection = open();
        connection->execute("CREATE TABLE T (a int, t nvarchar(10), d datetime)");
        connection->execute("insert into T values (1, N'ñ', '15/01/2026')");
    }
    EXPECT_EQ(shown(open()->execute("select * from T where t = 'Ñ'")), "1|ñ|2026-01-15 00:00:00");
}

TEST_F(DatabaseFile, AnUnfinishedTransactionIsUndoneOnClosing) {
    {
        const auto connection = open();
        connection->execute("CREATE TABLE T (a int)");
        connection->beginTrans();
        connection->execute("insert into T values (1)");
    }
    EXPECT_EQ(shown(open()->execute("select count(*) from T")), "0");
}

TEST_F(DatabaseFile, ReadersAreNotHinderedByAWriter) {
    const auto writer = open();
    const auto reader = open();
    writer->execute("CREATE TABLE T (a int)");
    writer->beginTrans();
    writer->execute("insert into T values (1)");
    EXPECT_EQ(shown(reader->execute("select count(*) from T")), "0");
    writer->commitTrans();
    EXPECT_EQ(shown(reader->execute("select count(*) from T")), "1");
}

TEST_F(DatabaseFile, ASecondWriterIsToldThatTheDatabaseIsBusy) {
    const auto first = open();
    const auto second = open();
    first->execute("CREATE TABLE T (a int)");
    first->beginTrans();
    const sql::DbError onBegin = errorOf([&] { second->beginTrans(); });
    EXPECT_EQ(onBegin.number(), provider::timeout);
    EXPECT_THAT(onBegin.description(), HasSubstr("ocupada"));
    EXPECT_EQ(errorOf([&] { second->execute("insert into T values (1)"); }).number(), provider::timeout);
    EXPECT_EQ(errorOf([&] { second->commitTrans(); }).number(), provider::noTransaction);
    first->rollbackTrans();
    second->beginTrans();
    second->commitTrans();
}

TEST_F(DatabaseFile, ATransactionInsideATransactionHasItsNumber) {
    const auto connection = open();
    connection->beginTrans();
    EXPECT_EQ(errorOf([&] { connection->beginTrans(); }).number(), provider::transactionOpen);
    connection->commitTrans();
}

TEST_F(DatabaseFile, TwoClientsNeverTakeTheSameNumber) {
    open()->execute("CREATE TABLE ORDEN (ORDEN_NUM int)");
    constexpr int each = 25;
    const auto client = [&] {
        const auto connection = open(std::chrono::seconds(30));
        for (int i = 0; i < each; ++i) {
            sql::Transaction transaction(*connection);
            const sql::Value highest = connection->execute("Select max(orden_NUM) FROM ORDEN")[std::size_t{0}];
            const int next = highest.isNull() ? 1 : highest.toLong() + 1;
            connection->execute("insert into ORDEN (ORDEN_NUM) values (" + std::to_string(next) + ")");
            transaction.commit();
        }
    };
    std::thread other(client);
    client();
    other.join();
    const auto connection = open();
    EXPECT_EQ(shown(connection->execute("select count(*), max(ORDEN_NUM) from ORDEN")), "50|50");
}

TEST_F(DatabaseFile, AnOpenListDoesNotHoldAnOldPictureOfTheTables) {
    const auto reader = open();
    const auto writer = open();
    writer->execute("CREATE TABLE T (a int IDENTITY (1, 1), b int)");
    writer->execute("insert into T (b) values (0)");
    for (int i = 0; i < 11; ++i) {
        writer->execute("insert into T (b) select b from T");
    }
    sql::Recordset list = reader->execute("select a from T order by a");
    ASSERT_TRUE(list.hasRows());
    writer->execute("insert into T (b) values (77)");
    EXPECT_EQ(shown(reader->execute("select max(a) from T")), "2049");
    reader->beginTrans();
    reader->execute("insert into T (b) values (78)");
    reader->commitTrans();
    list.moveTo(2000);
    EXPECT_EQ(list["a"], Value(2001));
}

TEST_F(DatabaseFile, TablesChangedBySomebodyElseAreSeen) {
    const auto first = open();
    const auto second = open();
    EXPECT_THROW(first->execute("select * from T"), sql::DbError);
    second->execute("CREATE TABLE T (a int)");
    EXPECT_EQ(first->execute("select * from T").columns().size(), 1u);
    second->execute("ALTER TABLE T ADD b int NOT NULL DEFAULT 5 WITH VALUES ");
    EXPECT_EQ(first->execute("select * from T").columns().size(), 2u);
    first->execute("insert into T (a, b) values (1, 2)");
    second->execute("ALTER TABLE T ADD c int NOT NULL DEFAULT 7 WITH VALUES ");
    EXPECT_EQ(shown(first->execute("select c from T")), "7");
    EXPECT_EQ(shown(first->execute("select * from T")), "1|2|7");
    second->execute("DROP TABLE T");
    EXPECT_EQ(errorOf([&] { first->execute("select * from T"); }).number(), provider::missingTable);
}

TEST_F(DatabaseFile, TablesChangedBySomebodyElseAreSeenBesideAnOpenList) {
    const auto first = open();
    const auto second = open();
    second->execute("CREATE TABLE T (a int)");
    second->execute("insert into T values (1)");
    for (int i = 0; i < 10; ++i) {
        second->execute("insert into T select a from T");
    }
    const std::string one = "select top 1 * from T";
    EXPECT_EQ(first->execute(one).columns().size(), 1u);
    // Each list takes along the connection on which the statement was prepared.
    sql::Recordset list = first->execute("select a from T");
    second->execute("ALTER TABLE T ADD b int NOT NULL DEFAULT 5 WITH VALUES ");
    EXPECT_EQ(shown(first->execute(one)), "1|5");
    sql::Recordset another = first->execute("select a from T");
    second->execute("ALTER TABLE T ADD c int NOT NULL DEFAULT 7 WITH VALUES ");
    EXPECT_EQ(shown(first->execute(one)), "1|5|7");
    list = {};
    another = {};
    second->execute("DROP TABLE T");
    EXPECT_EQ(errorOf([&] { first->execute(one); }).number(), provider::missingTable);
}

TEST_F(DatabaseFile, RolledBackTablesAreForgotten) {
    const auto connection = open();
    connection->beginTrans();
    connection->execute("CREATE TABLE T (a int)");
    EXPECT_TRUE(connection->execute("select * from T").isOpen());
    connection->rollbackTrans();
    EXPECT_EQ(errorOf([&] { connection->execute("select * from T"); }).number(), provider::missingTable);
}

TEST_F(DatabaseFile, DocumentsLieInAFileBeside) {
    {
        const auto connection = open();
        EXPECT_FALSE(fs::exists(path("DOCtaller.db")));
        connection->beginTrans();
        connection->execute("CREATE TABLE DOCVELMORA.dbo.dex (Dex_Id int IDENTITY (1, 1), Dex_Doc image)");
        connection->execute("insert into DOCVELMORA..dex (Dex_Doc) values (0x0102)");
        connection->commitTrans();
    }
    EXPECT_TRUE(fs::exists(path("DOCtaller.db")));
    EXPECT_EQ(shown(open()->execute("select * from DOCVELMORA.dbo.dex")), "1|0x0102");
}

TEST_F(DatabaseFile, ALargeDocumentComesBackWhole) {
    const auto connection = open();
    connection->execute("CREATE TABLE D (x image)");
    connection->execute("insert into D values (Null)");
    std::string hex = "0x";
    sql::Bytes bytes;
    for (int i = 0; i < 1'000'000; ++i) {
        bytes.push_back(static_cast<std::byte>(i % 251));
        hex += "0123456789ABCDEF"[(i % 251) / 16];
        hex += "0123456789ABCDEF"[(i % 251) % 16];
    }
    connection->execute("update D set x = " + hex);
    EXPECT_EQ(connection->execute("select x from D")[std::size_t{0}], Value(bytes));
}

TEST_F(DatabaseFile, AReadOnlyDatabaseIsReadAndNotWritten) {
    open()->execute("CREATE TABLE T (a int)");
    const auto connection = sqlite::openDatabase(path(), {.readOnly = true});
    EXPECT_EQ(shown(connection->execute("select count(*) from T")), "0");
    const sql::DbError error = errorOf([&] { connection->execute("insert into T values (1)"); });
    EXPECT_EQ(error.number(), provider::failure);
    EXPECT_THAT(error.description(), HasSubstr("solo lectura"));
    EXPECT_EQ(errorOf([&] { connection->execute("select * from DOCVELMORA.dbo.dex"); }).number(),
              provider::missingTable);
}

TEST_F(DatabaseFile, AFileThatIsNoDatabaseIsTold) {
    std::ofstream(path()) << std::string(5000, 'x');
    const sql::DbError error = errorOf([&] { open(); });
    EXPECT_EQ(error.number(), provider::failure);
    EXPECT_THAT(error.description(), HasSubstr("no es una base de datos"));
}

TEST_F(DatabaseFile, AFolderThatIsNotThereIsTold) {
    const sql::DbError error = errorOf([&] { sqlite::openDatabase(path("no/hay/taller.db")); });
    EXPECT_EQ(error.number(), provider::failure);
    EXPECT_THAT(error.description(), HasSubstr("o su carpeta no existe"));
}

TEST_F(DatabaseFile, NothingIsWrittenIntoOneThatWasMovedReplacedOrRemoved) {
    for (const char* deed : {"moved", "replaced", "removed", "documents moved"}) {
        SCOPED_TRACE(deed);
        const support::TemporaryFolder folder;
        const auto connection = sqlite::openDatabase(folder.file("taller.db"));
        connection->execute("CREATE TABLE T (a int)");
        connection->execute("CREATE TABLE DOCVELMORA.dbo.dex (a int)");
        const auto expectRefusal = [&](const auto& write) {
            const sql::DbError error = errorOf(write);
            EXPECT_EQ(error.number(), provider::failure);
            EXPECT_THAT(error.description(), HasSubstr("se ha movido, borrado o sustituido"));
        };
        connection->beginTrans();
        connection->execute("insert into T values (1)");
        const std::string file =
            folder.file(std::string_view(deed).starts_with("documents") ? "DOCtaller.db" : "taller.db");
        if (std::string_view(deed) == "removed") {
            std::filesystem::remove(file);
        } else {
            std::filesystem::rename(file, file + ".otro");
        }
        if (std::string_view(deed) == "replaced") {
            std::filesystem::copy_file(file + ".otro", file);
        }
        expectRefusal([&] { connection->commitTrans(); });
        expectRefusal([&] { connection->beginTrans(); });
        expectRefusal([&] { connection->execute("insert into T values (2)"); });
        expectRefusal([&] { connection->execute("CREATE TABLE U (a int)"); });
        EXPECT_EQ(connection->execute("select count(*) from T")[0], Value(0)) << "it can still be read";
        if (std::filesystem::exists(file + ".otro")) {
            std::filesystem::rename(file + ".otro", file);
            connection->execute("insert into T values (3)");
        }
    }
}

TEST_F(DatabaseFile, ResultSetsOutliveTheirConnection) {
    auto connection = open();
    connection->execute("CREATE TABLE T (a int)");
    connection->execute("insert into T values (1)");
    for (int i = 0; i < 11; ++i) {
        connection->execute("insert into T select a from T");
    }
    sql::Recordset rows = connection->execute("select a from T");
    connection.reset();
    rows.moveLast();
    EXPECT_EQ(rows.position(), 2047u);
    EXPECT_EQ(rows["a"], Value(1));
}

TEST(EngineErrors, HaveNumberAndSpanishWords) {
    struct Case {
        int code;
        long number;
        const char* words;
    };
    constexpr Case cases[] = {{13, provider::failure, "espacio en el disco"},
                              {5, provider::timeout, "ocupada"},
                              {8, provider::failure, "solo lectura"},
                              {26, provider::failure, "no es una base de datos"},
                              {11, provider::failure, "dañado"},
                              {10, provider::failure, "lectura o escritura"}};
    for (const Case& known : cases) {
        try {
            sqlite::throwEngineError(nullptr, known.code);
            FAIL();
        } catch (const sql::DbError& error) {
            EXPECT_EQ(error.number(), known.number);
            EXPECT_THAT(error.description(), HasSubstr(known.words));
            EXPECT_EQ(error.details().nativeCode, known.code);
        }
    }
}

TEST(Database, FixedClockAnswersGetdateAndDefaults) {
    runtime::Date now = runtime::Date::of(2026, 1, 15, 10);
    const auto connection = sqlite::openDatabase(":memory:", {.clock = [&] { return now; }});
    connection->execute("CREATE TABLE T (a int, d datetime NOT NULL DEFAULT getdate())");
    connection->execute("insert into T (a) values (1)");
    now = runtime::Date::of(2026, 1, 16);
    connection->execute("insert into T (a) values (1)");
    EXPECT_EQ(shown(connection->execute("select d, datediff(day, d, getdate()) from T")),
              "2026-01-15 10:00:00|1/2026-01-16 00:00:00|0");
}

TEST(Database, CatalogueHasTheNameItWasGiven) {
    const auto connection = sqlite::openDatabase(":memory:", {.catalog = "TALLER"});
    EXPECT_EQ(connection->currentCatalog(), "TALLER");
    connection->execute("CREATE TABLE DOCTALLER.dbo.dex (a int)");
    EXPECT_TRUE(connection->execute("select * from doctaller.dbo.dex").isOpen());
    connection->execute("CREATE TABLE T (a int)");
    EXPECT_TRUE(connection->execute("select * from TALLER.dbo.T").isOpen());
    EXPECT_THROW(connection->execute("select * from OTRA.dbo.T"), sql::DbError);
}

TEST_F(DatabaseFile, IsOpenedByTheEnginesName) {
    sql::Engines engines;
    sqlite::registerIn(engines, {.catalog = "TALLER"});
    engines.open("sqlite:" + path())->execute("CREATE TABLE T (a int)");
    EXPECT_NO_THROW(sqlite::openDatabase(path())->execute("select a from T"));
    EXPECT_EQ(engines.open("sqlite::memory:")->currentCatalog(), "TALLER");
    EXPECT_EQ(errorOf([&] { engines.open("sqlite:" + path("no/hay/taller.db")); }).number(), sql::provider::failure);
}

}  // namespace velmora::test
