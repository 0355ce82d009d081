// The upgrade of an older database on a server whose connection is lost: before each request that it sends, and before
// the answer to it. A table has all of its newer columns or none of them, the user is told as by the upgrade itself,
// and the next start does what is left.

#include <memory>
#include <optional>
#include <string>

#include <gmock/gmock.h>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/database.h"
#include "velmora/data/schema.h"
#include "velmora/shell/schema_upgrade.h"

#include "cut_line.h"
#include "server_under_test.h"
#include "support/fake_screen.h"

namespace velmora::shell {
namespace {

using Moment = test::CutLine::Moment;
using odbc::ServerConnection;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

/// The requests of the upgrade of a database that lacks everything.
enum Request { probeMaterials, alterMaterials, probeProposals, alterProposals, probeGears, createGears, keyOfGears };
constexpr int requests = keyOfGears + 1;

constexpr const char* grave = "Error Grave. No fué posible actualizar la tabla ";

/// The words of the boxes when this request, or its answer, is lost. What the upgrade does not trap ends it.
std::vector<std::string> toldAt(int request) {
    const std::string table = request == alterMaterials ? "PARDPI" : request == alterProposals ? "DPI" : "ENG";
    // The probe of gears tells only whether the table is missing: a lost connection does not.
    return request == probeMaterials || request == probeProposals || request == probeGears
               ? std::vector<std::string>{}
               : std::vector<std::string>{grave + table};
}

bool endsWithAnError(int request) {
    // Behind a refused ALTER the next probe meets the loss too.
    return request <= alterMaterials || request == probeProposals;
}

class LostUpgrade : public ::testing::Test {
  protected:
    LostUpgrade() { makeOldDatabase(); }
    ~LostUpgrade() override { test::dropAllTables(server_); }

    void makeOldDatabase() {
        test::dropAllTables(server_);
        other_->execute("CREATE TABLE PARDPI (PARDPI_ID int IDENTITY (1, 1) NOT NULL, PARDPI_NOM nvarchar (60) NULL)");
        other_->execute("CREATE TABLE DPI (DPI_Id int IDENTITY (1, 1) NOT NULL, DPI_Tipo int NULL)");
        other_->execute("INSERT INTO PARDPI (PARDPI_NOM) VALUES (N'Disco')");
        other_->execute("INSERT INTO DPI (DPI_Tipo) VALUES (0)");
    }

    /// How many of the three tables have been upgraded whole; a table in between fails the test.
    int upgraded() {
        const auto newColumns = [&](const char* table) {
            const auto& columns = other_->execute(std::string("Select top 1 * from ") + table).columns();
            return columns.size() - 2;
        };
        const auto all = [](const char* table) {
            std::size_t count = 0;
            for (const data::ColumnDefinition& column : data::findTable(table)->columns) {
                count += column.addedAs.empty() ? 0U : 1U;
            }
            return count;
        };
        int tables = 0;
        for (const char* table : {"PARDPI", "DPI"}) {
            const std::size_t present = newColumns(table);
            EXPECT_TRUE(present == 0 || present == all(table)) << table << " has " << present;
            tables += present == all(table) ? 1 : 0;
        }
        return tables + (hasGears() ? 1 : 0);
    }
    bool hasGears() {
        try {
            other_->execute("Select top 1 * from ENG");
            return true;
        } catch (const sql::DbError& error) {
            EXPECT_EQ(error.number(), sql::provider::missingTable);
            return false;
        }
    }

    void loseAt(int request, Moment moment) {
        makeOldDatabase();
        line_.mend();
        const auto connection = odbc::openDatabase(throughTheLine());
        support::ScriptedScreen screen;
        line_.cutAt(static_cast<std::size_t>(request), moment);
        bool failed = false;
        try {
            FnActualizarBD(*connection, screen);
        } catch (const sql::DbError& error) {
            failed = true;
            EXPECT_EQ(error.number(), sql::provider::failure);
        }
        EXPECT_EQ(failed, endsWithAnError(request));
        EXPECT_THAT(screen.messageTexts(), ElementsAreArray(toldAt(request)));
        EXPECT_TRUE(connection->takeLoss());
        const int done = moment == Moment::beforeAnswer ? request + 1 : request;
        EXPECT_EQ(upgraded(), (done > alterMaterials) + (done > alterProposals) + (done > createGears));

        line_.mend();
        connection->reconnect();
        screen.messages.clear();
        EXPECT_TRUE(FnActualizarBD(*connection, screen));
        EXPECT_TRUE(screen.messages.empty());
        EXPECT_EQ(upgraded(), 3);
        EXPECT_EQ(other_->execute("select count(*) from DPI")[std::size_t{0}], sql::Value(1));
    }

    std::string throughTheLine() const {
        return odbc::withValue(odbc::withValue(server_, "SERVER", "127.0.0.1"), "PORT", std::to_string(line_.port()));
    }

    std::string server_ = odbc::readConnectionText(*test::testServer());
    test::CutLine line_{odbc::valueOf(server_, "SERVER"), odbc::valueOf(server_, "PORT")};
    std::unique_ptr<ServerConnection> other_ = odbc::openDatabase(server_);
};

TEST_F(LostUpgrade, LeavesEachTableWholeAndTheNextStartDoesTheRest) {
    {
        const auto connection = odbc::openDatabase(throughTheLine());
        support::ScriptedScreen screen;
        line_.count();
        ASSERT_TRUE(FnActualizarBD(*connection, screen));
        ASSERT_EQ(line_.requests().size(), static_cast<std::size_t>(requests));
    }
    for (int request = 0; request < requests; ++request) {
        for (const Moment moment : {Moment::beforeRequest, Moment::beforeAnswer}) {
            SCOPED_TRACE(std::to_string(request) + (moment == Moment::beforeAnswer ? ", before its answer" : ""));
            loseAt(request, moment);
        }
    }
}

}  // namespace
}  // namespace velmora::shell
