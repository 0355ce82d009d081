#include "server_under_test.h"

#include <array>
#include <cstdlib>
#include <functional>
#include <string_view>
#include <vector>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/database.h"

namespace velmora::test {

std::optional<std::string> testServer() {
    const char* text = std::getenv("VELMORA_TEST_DSN");
    return text && *text ? std::optional<std::string>(text) : std::nullopt;
}

namespace {

void dropTables(sql::Connection& connection, const std::function<bool(const std::string&)>& wanted) {
    std::vector<std::string> names;
    sql::Recordset tables =
        connection.execute("select TABLE_NAME from INFORMATION_SCHEMA.TABLES where TABLE_TYPE = 'BASE TABLE'");
    for (; !tables.eof(); tables.moveNext()) {
        if (const std::string name = tables[0].toText(); wanted(name)) {
            names.push_back(name);
        }
    }
    for (const std::string& name : names) {
        connection.execute("DROP TABLE [" + name + "]");
    }
}

/// The documents' tables that programs and suites make out of the other catalogue. A server need not list them to a
/// connection of the documents' own catalogue.
constexpr std::array<std::string_view, 2> documentsTables{"dex", "T_Dex"};

void dropDocumentsTables(sql::Connection& connection, const std::function<bool(const std::string&)>& wanted) {
    const std::string prefix = "DOC" + connection.currentCatalog() + ".dbo.";
    for (const std::string_view name : documentsTables) {
        const std::string table = prefix + std::string(name);
        const sql::Recordset id = connection.execute("select object_id('" + table + "')");
        if (wanted(std::string(name)) && !id[std::size_t{0}].isNull()) {
            connection.execute("DROP TABLE " + table);
        }
    }
}

void dropTables(const std::string& server, const std::function<bool(const std::string&)>& wanted) {
    const std::string text = odbc::readConnectionText(server);
    const std::string catalog = odbc::valueOf(text, "DATABASE");
    const auto connection = odbc::openDatabase(text);
    dropTables(*connection, wanted);
    dropTables(*odbc::openDatabase(odbc::withValue(text, "DATABASE", "DOC" + catalog)), wanted);
    dropDocumentsTables(*connection, wanted);
}

}  // namespace

void dropTestTables(const std::string& server) {
    dropTables(server, [](const std::string& name) { return name.starts_with("T_") || name.starts_with("t_"); });
}

void dropAllTables(const std::string& server) {
    dropTables(server, [](const std::string&) { return true; });
}

}  // namespace velmora::test
