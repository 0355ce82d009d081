#include "velmora/apps/script_stage/database.h"

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/script_stage/stopped_server_clock.h"
#include "velmora/data/indexes.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::script_stage {

namespace {

constexpr std::string_view demo = "demo";
constexpr std::string_view none = "none";

bool hasTables(sql::Connection& connection) {
    try {
        connection.execute("SELECT top 1 DPI_Id FROM DPI");
        return true;
    } catch (const sql::DbError& e) {
        if (e.number() != sql::provider::missingTable) {
            throw;
        }
        return false;
    }
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw NoDatabase("cannot read " + path);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

[[noreturn]] void refuse(const std::string& path, const std::string& statement, const sql::DbError& error) {
    throw NoDatabase(path + ": " + error.description() + "\n" + statement);
}

void runFile(sql::Connection& connection, const std::string& path) {
    for (const std::string& statement : data::statementsOfLines(contentOf(path))) {
        try {
            connection.execute(statement);
        } catch (const sql::DbError& e) {
            refuse(path, statement, e);
        }
    }
}

std::string sourceOf(const Options& options) {
    return options.dsn ? engines::serverSource(*options.dsn)
                       : engines::fileSource(options.database.value_or(":memory:"));
}

void fillRows(sql::Connection& connection, const std::string& rows, const system::Clock& clock) {
    if (rows == demo) {
        data::fillDemo(connection, clock.now());
    } else if (rows != none) {
        runFile(connection, rows);
    }
}

/// A server's database is the host's: it gets tables and rows only when it has no table at all and they are asked for,
/// and never an index. A script's own rows must not get into it either.
void fillServer(sql::Connection& connection, const Options& options, const system::Clock& clock) {
    if (!options.data) {
        return;
    }
    const bool isEmpty = !connection.execute("SELECT top 1 TABLE_NAME FROM INFORMATION_SCHEMA.TABLES").hasRows();
    if (isEmpty) {
        data::createDatabase(connection);
        fillRows(connection, *options.data, clock);
    } else if (*options.data != none) {
        throw NoDatabase("rows go into a server's database without tables only");
    }
}

void fill(sql::Connection& connection, const Options& options, const system::Clock& clock) {
    const bool isNew = !hasTables(connection);
    const std::string rows = options.data.value_or(std::string(isNew ? demo : none));
    // Chosen C-273: the demonstration rows have fixed keys and are not added to a database that already has rows.
    if (!isNew && rows == demo) {
        throw NoDatabase("the demonstration rows go into a new database only");
    }
    if (isNew) {
        data::createDatabase(connection);
    } else {
        data::addMissingIndexes(connection);
    }
    fillRows(connection, rows, clock);
}

}  // namespace

std::unique_ptr<sql::Connection> openDatabase(const Options& options, const system::Clock& clock) {
    try {
        auto connection = engines::knownEngines(clock).open(sourceOf(options));
        if (options.dsn && options.now) {
            connection = std::make_unique<StoppedServerClock>(std::move(connection), *options.now);
        }
        options.dsn ? fillServer(*connection, options, clock) : fill(*connection, options, clock);
        return connection;
    } catch (const sql::DbError& e) {
        throw NoDatabase((options.dsn ? "--dsn: " : "") + e.description() +
                         (e.details().statement.empty() ? "" : "\n" + e.details().statement));
    }
}

}  // namespace velmora::script_stage
