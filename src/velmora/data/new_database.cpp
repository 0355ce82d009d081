#include "velmora/data/new_database.h"

#include <charconv>
#include <cstdint>
#include <span>

#include "velmora/data/demo_rows.h"
#include "velmora/data/indexes.h"
#include "velmora/data/schema.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::data {
namespace {

std::string typeOf(const ColumnDefinition& column) {
    switch (column.type) {
        case ColumnType::integer:
            return "[int]";
        case ColumnType::number:
            return "[float]";
        case ColumnType::bit:
            return "[bit]";
        case ColumnType::text:
            return "[nvarchar] (" + runtime::CStr(std::int64_t{column.width}) + ") COLLATE Modern_Spanish_CI_AS";
        case ColumnType::date:
            return "[datetime]";
        case ColumnType::binary:
            return "[image]";
        case ColumnType::longKey:
            return "[numeric](18, 0)";
    }
    return {};
}

std::string definitionOf(const ColumnDefinition& column) {
    std::string definition = "[" + std::string(column.name) + "] " + typeOf(column);
    if (column.identity) {
        definition += " IDENTITY (1, 1)";
    }
    definition += column.null == Null::no ? " NOT NULL" : " NULL";
    if (!column.byDefault.empty()) {
        definition += " DEFAULT " + std::string(column.byDefault);
    }
    return definition;
}

std::string qualified(const TableDefinition& table, std::string_view sessionCatalog) {
    return table.catalog == Catalog::session ? "[dbo].[" + std::string(table.name) + "]"
                                             : catalogPrefix(table.catalog, sessionCatalog) + std::string(table.name);
}

void addStatementsOf(const TableDefinition& table, std::string_view sessionCatalog,
                     std::vector<std::string>& statements) {
    if (table.name == "ENG") {
        statements.emplace_back(createEng);
        statements.emplace_back(addKeyOfEng);
        return;
    }
    const std::string name = qualified(table, sessionCatalog);
    std::string create = "CREATE TABLE " + name + " (";
    for (const ColumnDefinition& column : table.columns) {
        create += (&column == &table.columns.front() ? "" : ", ") + definitionOf(column);
    }
    statements.push_back(create + ")");
    if (!table.key.empty()) {
        statements.push_back("ALTER TABLE " + name + " WITH NOCHECK ADD CONSTRAINT [PK_" + std::string(table.name) +
                             "] PRIMARY KEY CLUSTERED ( [" + std::string(table.key) + "] )");
    }
}

void runAll(sql::Connection& connection, const std::vector<std::string>& statements) {
    sql::Transaction transaction(connection);
    for (const std::string& statement : statements) {
        connection.execute(statement);
    }
    transaction.commit();
}

}  // namespace

std::vector<std::string> tableStatements(std::string_view sessionCatalog) {
    std::vector<std::string> statements;
    for (const TableDefinition& table : tables()) {
        addStatementsOf(table, sessionCatalog, statements);
    }
    return statements;
}

std::vector<std::string> newDatabaseStatements(std::string_view sessionCatalog) {
    std::vector<std::string> statements = tableStatements(sessionCatalog);
    const std::vector<std::string> indexed = indexStatements();
    statements.insert(statements.end(), indexed.begin(), indexed.end());
    return statements;
}

std::vector<std::string> statementsOfLines(std::string_view text) {
    std::vector<std::string> statements;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        std::string statement = runtime::Trim(line);
        if (!statement.empty() && !statement.starts_with("--")) {
            statements.push_back(std::move(statement));
        }
    }
    return statements;
}

std::string withDays(std::string_view statement, runtime::Date now) {
    constexpr std::string_view opening = "{today";
    std::string result;
    while (true) {
        const std::size_t start = statement.find(opening);
        const std::size_t end = start == std::string_view::npos ? start : statement.find('}', start);
        if (end == std::string_view::npos) {
            return result + std::string(statement);
        }
        std::string_view offset = statement.substr(start + opening.size(), end - start - opening.size());
        if (offset.starts_with('+')) {
            offset.remove_prefix(1);
        }
        int days = 0;
        std::from_chars(offset.data(), offset.data() + offset.size(), days);
        result += statement.substr(0, start);
        result += runtime::Format(runtime::Date{now.at + std::chrono::days{days}}, "dd/mm/yyyy");
        statement.remove_prefix(end + 1);
    }
}

std::vector<std::string> demoStatements(runtime::Date now) {
    std::vector<std::string> statements;
    for (const std::string_view file : demoFiles()) {
        for (const std::string& statement : statementsOfLines(file)) {
            statements.push_back(withDays(statement, now));
        }
    }
    return statements;
}

namespace {

// A new database numbers its proposals from 1 again, so documents of an older one would be attributed to them.
void refuseForeignDocuments(sql::Connection& connection) {
    const std::string catalog = "DOC" + connection.currentCatalog();
    bool found = false;
    try {
        found = connection.execute("Select top 1 * from " + catalog + ".dbo.dex").isOpen();
    } catch (const sql::DbError&) {
        // No such table or catalogue, as expected.
    }
    if (found) {
        throw sql::DbError(sql::provider::failure, "El catálogo de documentos " + catalog +
                                                       " ya existe y pertenece a otra base de datos. Guárdelo en otro "
                                                       "sitio antes de crear una nueva.");
    }
}

}  // namespace

void createDatabase(sql::Connection& connection) {
    refuseForeignDocuments(connection);
    runAll(connection, newDatabaseStatements(connection.currentCatalog()));
}

void fillDemo(sql::Connection& connection, runtime::Date now) {
    runAll(connection, demoStatements(now));
}

// Chosen C-441: an empty workshop has the dimension constants: without them the hub that is proposed is as large as the
// pitch circle. Prices, articles, customers, staff, chains and gears are the shop's own.
void fillEmpty(sql::Connection& connection) {
    runAll(connection, statementsOfLines(demoFiles().front()));
}

}  // namespace velmora::data
