// Any text as a statement. It is run or refused with an error of the data provider; what the dialect lets through, the
// engine can read; and one statement is all that ever runs.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "velmora/adapters/sqlite/database.h"

#include "expect.h"

namespace {

using namespace velmora;
using velmora::fuzz::expect;

std::unique_ptr<sql::Connection> openWithOneRow() {
    auto connection = sqlite::openDatabase(
        ":memory:", {.clock = [] { return runtime::Date::of(2026, 1, 15, 10); }, .cachedStatements = 4});
    connection->execute(
        "CREATE TABLE T (Id int IDENTITY (1, 1), i int, f float, n numeric(18, 0), m numeric(10, 2), "
        "t nvarchar(5), l ntext, d datetime, b bit, x image)");
    connection->execute(
        "insert into T (i, f, n, m, t, l, d, b, x) values (1, 2.5, 3, 4.25, N'ñ', 'x', '15/01/2026', 1, 0x01)");
    connection->execute("CREATE TABLE Guard (a int)");
    connection->execute("insert into Guard values (1)");
    connection->execute("CREATE TABLE DOCVELMORA.dbo.dex (Dex_Id int IDENTITY (1, 1), Dex_Doc image)");
    return connection;
}

/// Whether the engine complains in these words. A statement may hold them as a name, which an error then repeats.
bool complains(std::string_view words, std::string_view statement, std::string_view phrase) {
    return words.find(phrase) != std::string_view::npos && statement.find(phrase) == std::string_view::npos;
}

void run(sql::Connection& connection, std::string_view statement) {
    try {
        sql::Recordset rows = connection.execute(statement);
        for (int i = 0; i < 50 && rows.isOpen() && !rows.eof(); ++i) {
            rows.moveNext();
        }
    } catch (const sql::DbError& error) {
        const std::string_view words = error.description();
        expect(!complains(words, statement, "syntax error"), "the engine reads what the dialect writes");
        expect(!complains(words, statement, "unrecognized token"), "the engine knows every word of the dialect");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::unique_ptr<sql::Connection> connection = openWithOneRow();
    connection->beginTrans();
    run(*connection, {reinterpret_cast<const char*>(data), size});
    connection->rollbackTrans();
    expect(connection->execute("select a from Guard").hasRows(), "what was there is there again");
    return 0;
}
