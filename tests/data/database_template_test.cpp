// A copy of a template must be what the statements would have made, or the tests that stand on copies show nothing.

#include "support/database_template.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "velmora/data/new_database.h"

#include "support/temporary_folder.h"

namespace velmora::support {
namespace {

const runtime::Date now = runtime::Date::of(2026, 1, 15, 10);
const sqlite::Options options{.clock = [] { return now; }, .catalog = "TALLER"};

void fill(sql::Connection& database) {
    data::createDatabase(database);
    data::fillDemo(database, now);
}

const DatabaseTemplate& demo() {
    static const DatabaseTemplate made(fill, options);
    return made;
}

using Row = std::vector<std::string>;

/// The rows of a query on a file, without the adapter; texts and numbers as SQLite writes them.
std::vector<Row> rowsIn(const std::string& file, const std::string& query) {
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, &sqlite3_close);
    std::vector<Row> rows;
    const auto add = [](void* all, int count, char** values, char**) {
        Row row;
        for (int i = 0; i < count; ++i) {
            row.emplace_back(values[i] == nullptr ? "NULL" : values[i]);
        }
        static_cast<std::vector<Row>*>(all)->push_back(std::move(row));
        return 0;
    };
    if (code != SQLITE_OK || sqlite3_exec(opened, query.c_str(), add, &rows, nullptr) != SQLITE_OK) {
        throw std::runtime_error(file + ": " + sqlite3_errmsg(opened));
    }
    return rows;
}

/// Tables and indexes as they were declared, by their names.
std::vector<Row> schemaOf(const std::string& file) {
    return rowsIn(file, "SELECT name, type, tbl_name, sql FROM sqlite_schema ORDER BY name");
}

void expectSameContent(const std::string& file, const std::string& expected) {
    const std::vector<Row> schema = schemaOf(expected);
    EXPECT_FALSE(schema.empty());
    EXPECT_EQ(schemaOf(file), schema);
    for (const Row& object : schema) {
        if (object[1] == "table") {
            const std::string all = "SELECT * FROM \"" + object[0] + "\"";
            EXPECT_EQ(rowsIn(file, all), rowsIn(expected, all)) << object[0];
        }
    }
    EXPECT_EQ(rowsIn(file, "PRAGMA journal_mode"), rowsIn(expected, "PRAGMA journal_mode"));
}

std::string first(sql::Connection& database, const std::string& query) {
    return database.execute(query)[std::size_t{0}].toText();
}

TEST(DatabaseTemplate, ACopiedFileHoldsWhatTheStatementsMake) {
    const TemporaryFolder folder;
    const auto made = sqlite::openDatabase(folder.file("made.db"), options);
    fill(*made);
    const auto copied = demo().copy(folder.file("copied.db"), options);
    expectSameContent(folder.file("copied.db"), folder.file("made.db"));
    expectSameContent(folder.file("DOCcopied.db"), folder.file("DOCmade.db"));
}

TEST(DatabaseTemplate, ACopyInMemoryAnswersAsTheStatementsMakeIt) {
    const auto made = sqlite::openDatabase(":memory:", options);
    fill(*made);
    const auto copied = demo().copy(":memory:", options);
    for (const std::string query :
         {"select count(*) from DPI", "select max(DPI_Id) from DPI", "select sum(DPI_Importe) from DPI",
          "select count(*) from CLI", "select count(*) from DOCTALLER.dbo.dex", "select getdate()"}) {
        EXPECT_EQ(first(*copied, query), first(*made, query)) << query;
    }
    for (sql::Connection* each : {made.get(), copied.get()}) {
        each->execute("insert into DPI (DPI_Tipo) values (3)");
    }
    EXPECT_EQ(first(*copied, "select max(DPI_Id) from DPI"), first(*made, "select max(DPI_Id) from DPI"));
}

TEST(DatabaseTemplate, NoCopyShowsWhatIsWrittenIntoAnother) {
    const auto one = demo().copy();
    const std::string before = first(*one, "select count(*) from CLI");
    one->execute("delete from CLI");
    one->execute("insert into DOCVELMORA.dbo.dex (Dex_Fic) values ('plano.pdf')");
    const auto other = demo().copy();
    EXPECT_EQ(first(*other, "select count(*) from CLI"), before);
    EXPECT_EQ(first(*other, "select count(*) from DOCVELMORA.dbo.dex where Dex_Fic = 'plano.pdf'"), "0");
}

TEST(DatabaseTemplate, NoFileIsOverwritten) {
    const TemporaryFolder folder;
    const std::string path = folder.file("taller.db");
    demo().copy(path);
    EXPECT_THROW(demo().copy(path), std::runtime_error);
}

}  // namespace
}  // namespace velmora::support
