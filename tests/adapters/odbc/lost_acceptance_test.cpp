// An acceptance on a server whose connection is lost: before each operation of it, and before the answer to each that
// writes.

#include <memory>
#include <string>

#include <gmock/gmock.h>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/database.h"

#include "cut_line.h"
#include "server_under_test.h"
#include "tracking/acceptance_steps.h"

namespace velmora::tracking {
namespace {

using odbc::ServerConnection;
using Moment = test::CutLine::Moment;

bool writes(const std::string& operation) {
    return operation == "COMMIT" || operation.starts_with("INSERT") || operation.starts_with("UPDATE");
}

/// As the table of failures has it. The server's own rollback stands behind the loss: no transaction is left to undo.
std::string toldAt(int operation) {
    if (operation < lookAgain) {
        return errorOf(failure);
    }
    if (operation < commit) {
        return wordsOfFailure + (operation == insertOrderRow ? "Error definido por la aplicación o el objeto"
                                                             : "La conexión con la base de datos se perdió.");
    }
    if (operation == commit) {
        return wordsOfFailure +
               "La conexión con la base de datos se perdió al confirmar los cambios: puede que se hayan grabado. "
               "Compruébelo antes de repetir.";
    }
    // A refused row of the route stops nothing, and the list is read anew behind the last one.
    return operation >= insertSecondLabour ? success + errorOf(failure) : errorOf(noTransaction);
}

class LostAcceptance : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        const std::string server = odbc::readConnectionText(*test::testServer());
        test::dropAllTables(server);
        fillShop(*odbc::openDatabase(server));
    }
    static void TearDownTestSuite() { test::dropAllTables(odbc::readConnectionText(*test::testServer())); }

    Prepared prepared() {
        for (const char* table : {"DPI", "MoDpi", "ORDEN", "OrdPiñones", "Mat", "RUT"}) {
            other_->execute(std::string("delete from ") + table);
        }
        return Prepared(std::make_unique<sql::ForwardingConnection>(*connection_));
    }
    void loseAt(int operation, Moment moment) {
        Prepared shop = prepared();
        shop.connection.beforeOperation(operation, [&] {
            if (moment == Moment::beforeAnswer) {
                line_.cutAt(0, moment);
            } else {
                line_.cut();
            }
        });
        shop.accept();
        const int next = moment == Moment::beforeAnswer ? operation + 1 : operation;
        EXPECT_EQ(seen(shop), toldAt(operation));
        EXPECT_EQ(written(*other_), writtenBefore(next));
        EXPECT_TRUE(connection_->takeLoss());

        line_.mend();
        connection_->reconnect();
        shop.errors.clear();
        shop.screen.messages.clear();
        shop.chooseAndAccept(shop.proposal);
        if (next > mark) {
            EXPECT_EQ(seen(shop), "") << "it is accepted";
            EXPECT_EQ(written(*other_), writtenBefore(next));
        } else if (next > commit) {
            EXPECT_EQ(seen(shop), "Presupuesto Aceptado, Orden de trabajo nº 2 generada ");
            EXPECT_EQ(rowsOf(*other_, "select DPI_Orden from DPI"), "2");
        } else {
            EXPECT_EQ(seen(shop), success);
            EXPECT_EQ(written(*other_), writtenBefore(operations));
        }
    }

    std::string server_ = odbc::readConnectionText(*test::testServer());
    test::CutLine line_{odbc::valueOf(server_, "SERVER"), odbc::valueOf(server_, "PORT")};
    std::unique_ptr<ServerConnection> connection_ = odbc::openDatabase(
        odbc::withValue(odbc::withValue(server_, "SERVER", "127.0.0.1"), "PORT", std::to_string(line_.port())));
    std::unique_ptr<ServerConnection> other_ = odbc::openDatabase(server_);
};

TEST_F(LostAcceptance, LeavesWhatTheTableTellsAtEachOperation) {
    Prepared undisturbed = prepared();
    undisturbed.accept();
    EXPECT_EQ(seen(undisturbed), success);
    EXPECT_EQ(written(*other_), writtenBefore(operations));
    const std::vector<std::string> names = undisturbed.connection.log();
    ASSERT_EQ(names.size(), static_cast<std::size_t>(operations));
    for (int operation = 0; operation < operations; ++operation) {
        const std::string& name = names[static_cast<std::size_t>(operation)];
        SCOPED_TRACE(std::to_string(operation) + " " + name);
        loseAt(operation, Moment::beforeRequest);
        if (operation != lastCommit && writes(name)) {
            SCOPED_TRACE("before its answer");
            loseAt(operation, Moment::beforeAnswer);
        }
    }
}

}  // namespace
}  // namespace velmora::tracking
