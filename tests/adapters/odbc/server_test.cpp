// What the adapter promises of a server beyond the contract of every engine.

#include <chrono>
#include <future>
#include <string>
#include <thread>

#include <gmock/gmock.h>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/database.h"
#include "velmora/platform/sql/db_error.h"
#include "velmora/platform/sql/long_run.h"

#include "server_under_test.h"

namespace velmora::odbc {
namespace {

using sql::Value;
using ::testing::HasSubstr;
using ::testing::Not;

class OdbcServer : public ::testing::Test {
  protected:
    OdbcServer() {
        test::dropTestTables(text_);
        connection_ = openDatabase(text_);
    }

    sql::Recordset execute(std::string_view statement) { return connection_->execute(statement); }
    Value scalar(std::string_view statement) { return execute(statement)[std::size_t{0}]; }

    std::string text_ = readConnectionText(*test::testServer());
    std::unique_ptr<sql::Connection> connection_;
};

TEST_F(OdbcServer, ALongTextComesWhole) {
    execute("CREATE TABLE T_A (t ntext, v nvarchar(4000))");
    std::string text;
    while (text.size() < 300'000) {
        text += "Piñón nº " + std::to_string(text.size()) + " a 5 €; ";
    }
    execute("insert into T_A (t, v) values (N'" + text + "', N'ñ€')");
    const sql::Recordset row = execute("select * from T_A");
    EXPECT_TRUE(row["t"] == Value(text));
    EXPECT_EQ(row["v"], Value("ñ€"));
}

// The server behind a driver may end a cancelled query later, or not at all: nobody waits for that.
TEST_F(OdbcServer, ACancelledQueryLetsTheProgramGoOnAtOnce) {
    struct Refusal final : sql::LongRun {
        bool mayGoOn() override { return false; }
    };
    connection_ = openDatabase(
        text_, {.longRun = [] { return std::make_unique<Refusal>(); }, .longRunAfter = std::chrono::milliseconds(100)});
    execute("CREATE TABLE T_A (i int)");
    execute("insert into T_A (i) values (1)");
    for (int i = 0; i < 8; ++i) {
        execute("insert into T_A (i) select i + 1 from T_A");
    }
    const auto begun = std::chrono::steady_clock::now();
    try {
        execute("select a.i from T_A a cross join T_A b cross join T_A c where a.i * b.i * c.i < 0 order by a.i");
        ADD_FAILURE() << "it came to its end";
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::cancelled);
    }
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(256));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(5));
}

TEST_F(OdbcServer, ALoginOfAnotherLanguageReadsDatesDayFirst) {
    connection_ = openDatabase(text_, {.loginStatement = "SET DATEFORMAT mdy"});
    execute("CREATE TABLE T_A (d datetime)");
    execute("insert into T_A (d) values ('10/01/2026')");
    EXPECT_EQ(scalar("select d from T_A"), Value(runtime::Date::of(2026, 1, 10)));
    EXPECT_EQ(scalar("select count(*) from T_A where d BETWEEN '10/01/2026 00:00:00' and '10/01/2026 23:59:59'"),
              Value(1));
    // A set that is being read ahead has a connection of its own; so have the statements behind it.
    for (int i = 0; i < 12; ++i) {
        execute("insert into T_A (d) select d from T_A");
    }
    const sql::Recordset first = execute("select d from T_A");
    const sql::Recordset second = execute("select d from T_A");
    EXPECT_EQ(scalar("select count(*) from T_A where d = '10/01/2026'"), Value(4096));
}

TEST_F(OdbcServer, AnUnknownUserIsToldWithoutThePassword) {
    try {
        openDatabase(withValue(withValue(text_, "PWD", "geheim"), "UID", "nadie"));
        FAIL();
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::failure);
        EXPECT_THAT(error.description(), HasSubstr("usuario"));
        EXPECT_THAT(error.description(), Not(HasSubstr("geheim")));
    }
}

TEST_F(OdbcServer, ADeadlocksVictimIsToldAndMayTryAgain) {
    execute("CREATE TABLE T_A (i int NOT NULL, n int, CONSTRAINT PK_T_A PRIMARY KEY (i))");
    execute("insert into T_A (i, n) values (1, 0)");
    execute("insert into T_A (i, n) values (2, 0)");
    // Another program, which does not take VELMORA's lock.
    const auto rival = openDatabase(text_);
    rival->execute("SET DEADLOCK_PRIORITY HIGH");
    rival->execute("BEGIN TRANSACTION");
    rival->execute("update T_A set n = n + 1 where i = 2");
    connection_->beginTrans();
    execute("update T_A set n = n + 10 where i = 1");
    auto rivalsSecond = std::async(std::launch::async, [&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        rival->execute("update T_A set n = n + 1 where i = 1");
    });
    try {
        execute("update T_A set n = n + 10 where i = 2");
        ADD_FAILURE() << "no deadlock";
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::timeout);
        EXPECT_THAT(error.description(), HasSubstr("Vuelva a intentarlo"));
    }
    EXPECT_THROW(execute("insert into T_A (i, n) values (3, 0)"), sql::DbError) << "not outside of a transaction";
    connection_->rollbackTrans();
    rivalsSecond.get();
    rival->execute("COMMIT TRANSACTION");

    connection_->beginTrans();
    execute("update T_A set n = n + 10");
    connection_->commitTrans();
    EXPECT_EQ(scalar("select min(n) from T_A"), Value(11));
    EXPECT_EQ(scalar("select count(*) from T_A"), Value(2));
}

/// A login that may do nothing; it goes with the test.
class LoginWithoutRights {
  public:
    explicit LoginWithoutRights(sql::Connection& server) : server_(server) {
        // One that an ended run has left.
        isDone("DROP USER T_Lector");
        isDone("DROP LOGIN T_Lector");
        server_.execute("CREATE LOGIN T_Lector WITH PASSWORD = 'Lector-2026'");
    }
    ~LoginWithoutRights() {
        EXPECT_TRUE(isDone("DROP USER T_Lector"));
        // A server takes a moment to notice that the login's connections have ended.
        bool dropped = false;
        for (int attempt = 0; attempt < 100 && !dropped; ++attempt) {
            dropped = isDone("DROP LOGIN T_Lector");
            std::this_thread::sleep_for(std::chrono::milliseconds(dropped ? 0 : 100));
        }
        EXPECT_TRUE(dropped);
    }
    LoginWithoutRights(const LoginWithoutRights&) = delete;
    LoginWithoutRights& operator=(const LoginWithoutRights&) = delete;

    /// It may open the current database from now on.
    void admit() { server_.execute("CREATE USER T_Lector FOR LOGIN T_Lector"); }
    static std::string in(const std::string& text) {
        return withValue(withValue(text, "UID", "T_Lector"), "PWD", "Lector-2026");
    }

  private:
    bool isDone(const char* statement) {
        try {
            server_.execute(statement);
            return true;
        } catch (const sql::DbError&) {
            return false;
        }
    }

    sql::Connection& server_;
};

TEST_F(OdbcServer, AUserWithoutRightsIsToldSo) {
    execute("CREATE TABLE T_A (i int)");
    LoginWithoutRights login(*connection_);
    try {
        openDatabase(LoginWithoutRights::in(text_));
        ADD_FAILURE() << "the database is closed to the login";
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::failure);
        EXPECT_THAT(error.description(), HasSubstr("permiso"));
    }
    login.admit();
    const auto reader = openDatabase(LoginWithoutRights::in(text_));
    for (const char* statement : {"select * from T_A", "CREATE TABLE T_B (i int)"}) {
        try {
            reader->execute(statement);
            ADD_FAILURE() << statement;
        } catch (const sql::DbError& error) {
            EXPECT_THAT(error.description(), HasSubstr("permi")) << statement;
        }
    }
}

TEST_F(OdbcServer, AMissingDatabaseIsTold) {
    try {
        openDatabase(withValue(text_, "DATABASE", "NO_HAY_TAL"));
        FAIL();
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::failure);
        EXPECT_THAT(error.description(), HasSubstr("La base de datos no existe"));
    }
}

}  // namespace
}  // namespace velmora::odbc
