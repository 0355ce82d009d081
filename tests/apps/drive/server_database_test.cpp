// A database on a server: made from the documents for its administrator, or by the program where it is empty; one that
// has tables is left as it is.

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <sys/wait.h>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/database.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"
#include "velmora/data/schema.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/shell/schema_upgrade.h"

#include "adapters/odbc/server_under_test.h"
#include "support/fake_screen.h"
#include "support/recording_connection.h"
#include "support/sql_batches.h"
#include "support/temporary_folder.h"

namespace velmora::drive {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const runtime::Date now = runtime::Date::of(2026, 1, 15, 10, 0, 0);

struct Outcome {
    int status = -1;
    std::string output;  ///< standard output and standard error
};

class ServerDatabase : public ::testing::Test {
  protected:
    ServerDatabase() {
        test::dropAllTables(text_);
        connection_ = odbc::openDatabase(text_);
    }
    ~ServerDatabase() override { test::dropAllTables(text_); }

    static std::string document(const std::string& name) {
        std::ifstream file(VELMORA_SOURCE_DIR "/docs/" + name);
        EXPECT_TRUE(file) << name;
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// What docs/schema.sql and docs/indexes.sql tell an administrator to do.
    void applyDocuments() {
        const std::string schema =
            runtime::Replace(document("schema.sql"), "DOCVELMORA", "DOC" + connection_->currentCatalog());
        for (const std::string& batch : support::batchesOf(schema)) {
            connection_->execute(batch);
        }
        for (const std::string& statement : data::statementsOfLines(document("indexes.sql"))) {
            connection_->execute(statement);
        }
    }

    /// The tables of the catalogue with their columns, a line for each.
    static std::vector<std::string> columnsOf(sql::Connection& connection) {
        sql::Recordset rows = connection.execute(
            "select TABLE_NAME, COLUMN_NAME, DATA_TYPE, IS_NULLABLE from INFORMATION_SCHEMA.COLUMNS "
            "where TABLE_NAME in (select TABLE_NAME from INFORMATION_SCHEMA.TABLES) "  // not the server's own views
            "order by TABLE_NAME, ORDINAL_POSITION");
        std::vector<std::string> lines;
        for (; !rows.eof(); rows.moveNext()) {
            lines.push_back(rows[0].toText() + " " + rows[1].toText() + " " + rows[2].toText() + " " +
                            rows[3].toText());
        }
        return lines;
    }

    /// How many rows each table of the schema has.
    static std::vector<std::string> rowCounts(sql::Connection& connection) {
        std::vector<std::string> counts;
        for (const data::TableDefinition& table : data::tables()) {
            const std::string name =
                data::catalogPrefix(table.catalog, connection.currentCatalog()) + std::string(table.name);
            counts.push_back(std::string(table.name) + " " +
                             connection.execute("select count(*) from " + name)[0].toText());
        }
        return counts;
    }

    /// Runs the program on the server with these other options and the script on its standard input.
    Outcome drive(const std::string& options, const std::string& script) {
        std::ofstream(folder_.file("in.drive"), std::ios::binary) << script;
        const std::string command = std::string(VELMORA_DRIVE) + " --dsn '" + *test::testServer() + "' " + options +
                                    " < '" + folder_.file("in.drive") + "' 2>&1";
        Outcome result;
        FILE* pipe = popen(command.c_str(), "r");
        char part[4096];
        while (const std::size_t got = fread(part, 1, sizeof part, pipe)) {
            result.output.append(part, got);
        }
        result.status = WEXITSTATUS(pclose(pipe));
        return result;
    }

    std::string text_ = odbc::readConnectionText(*test::testServer());
    std::unique_ptr<sql::Connection> connection_;
    support::TemporaryFolder folder_;
};

TEST_F(ServerDatabase, TheDocumentsMakeEveryTableWithItsColumns) {
    applyDocuments();
    for (const data::TableDefinition& table : data::tables()) {
        const sql::Recordset rows =
            connection_->execute("select * from " + data::catalogPrefix(table.catalog, connection_->currentCatalog()) +
                                 std::string(table.name));
        ASSERT_EQ(rows.columns().size(), table.columns.size()) << table.name;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            EXPECT_EQ(rows.columns()[i].name, table.columns[i].name) << table.name;
        }
    }
}

TEST_F(ServerDatabase, TheDocumentsMakeEveryKey) {
    applyDocuments();
    std::vector<std::string> expected;
    for (const data::TableDefinition& table : data::tables()) {
        if (!table.key.empty() && table.catalog == data::Catalog::session) {
            expected.push_back(runtime::UCase(table.name));
        }
    }
    std::vector<std::string> made;
    sql::Recordset keys = connection_->execute(
        "select TABLE_NAME from INFORMATION_SCHEMA.TABLE_CONSTRAINTS where CONSTRAINT_TYPE = 'PRIMARY KEY'");
    for (; !keys.eof(); keys.moveNext()) {
        made.push_back(runtime::UCase(keys[0].toText()));
    }
    EXPECT_THAT(made, ::testing::UnorderedElementsAreArray(expected));
}

TEST_F(ServerDatabase, WhatTheDocumentsMakeIsWhatTheProgramMakesWhereAskedTo) {
    applyDocuments();
    const std::vector<std::string> byHand = columnsOf(*connection_);
    EXPECT_THAT(byHand, Contains(StartsWith("DPI")));
    test::dropAllTables(text_);
    EXPECT_EQ(drive("--data none", "").status, 0);
    EXPECT_EQ(columnsOf(*connection_), byHand);
}

TEST_F(ServerDatabase, AnUpgradeOfTheWholeSchemaOnlyLooks) {
    applyDocuments();
    support::RecordingConnection watched(*connection_);
    support::ScriptedScreen screen;
    EXPECT_TRUE(shell::FnActualizarBD(watched, screen));
    EXPECT_THAT(watched.log(),
                ElementsAre("Select top 1 * from PARDPI", "Select top 1 * from dpi", "Select top 1 * from ENG"));
}

TEST_F(ServerDatabase, OpeningTheFormsChangesNothingInTheWholeSchema) {
    applyDocuments();
    const std::vector<std::string> columns = columnsOf(*connection_);
    const Outcome opened = drive("--trace-sql", "open propuestas\nopen seguimiento\n");
    EXPECT_EQ(opened.status, 0) << opened.output;
    constexpr std::string_view traced = "sql> ";
    std::size_t statements = 0;
    std::istringstream lines(opened.output);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(traced)) {
            EXPECT_THAT(runtime::UCase(line.substr(traced.size())), StartsWith("SELECT ")) << line;
            ++statements;
        }
    }
    EXPECT_GT(statements, 5u) << opened.output;
    EXPECT_EQ(columnsOf(*connection_), columns);
    EXPECT_THAT(rowCounts(*connection_), ::testing::Each(::testing::EndsWith(" 0")));
}

TEST_F(ServerDatabase, TheDemonstrationRowsGoIntoAnEmptyDatabase) {
    const Outcome filled = drive("--data demo", "query \"select count(*) n from CLI where CLI_ID > 0\"");
    EXPECT_EQ(filled.status, 0) << filled.output;
    const auto embedded = sqlite::openDatabase(":memory:", {.catalog = connection_->currentCatalog()});
    data::createDatabase(*embedded);
    data::fillDemo(*embedded, now);
    EXPECT_EQ(rowCounts(*connection_), rowCounts(*embedded));
}

TEST_F(ServerDatabase, OneThatHasTablesGetsNoRows) {
    applyDocuments();
    std::ofstream(folder_.file("rows.sql")) << "INSERT INTO CLI (CLI_ID) VALUES (1)\n";
    for (const std::string& rows : {std::string("demo"), folder_.file("rows.sql")}) {
        const Outcome refused = drive("--data " + rows, "echo here");
        EXPECT_EQ(refused.status, 2);
        EXPECT_EQ(refused.output, "velmora-drive: rows go into a server's database without tables only\n");
    }
    EXPECT_THAT(rowCounts(*connection_), ::testing::Each(::testing::EndsWith(" 0")));
}

TEST_F(ServerDatabase, OneWithATableOfSomebodyElseGetsNoneOfOurs) {
    connection_->execute("CREATE TABLE Ajena (a int)");
    EXPECT_EQ(drive("--data demo", "").status, 2);
    EXPECT_EQ(drive("--data none", "").status, 0);
    EXPECT_THAT(columnsOf(*connection_), ElementsAre("Ajena a int YES"));
}

TEST_F(ServerDatabase, NothingIsMadeInAnEmptyOneUnlessAskedFor) {
    EXPECT_EQ(drive("", "query \"select 1 as uno\"").output, "uno\n1\n");
    EXPECT_THAT(columnsOf(*connection_), IsEmpty());
}

TEST_F(ServerDatabase, WithoutTheDocumentsCatalogueNothingIsLeftBehind) {
    const std::string alone = odbc::withValue(text_, "DATABASE", "DOC" + connection_->currentCatalog());
    EXPECT_THROW(data::createDatabase(*odbc::openDatabase(alone)), sql::DbError);
    EXPECT_THAT(columnsOf(*odbc::openDatabase(alone)), IsEmpty());
}

}  // namespace
}  // namespace velmora::drive

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    if (!velmora::test::testServer()) {
        std::cout << "VELMORA_TEST_DSN names no server\n";
        return 77;  // counted as skipped
    }
    return RUN_ALL_TESTS();
}
