#include "velmora/apps/script_stage/database.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/script_stage/stopped_server_clock.h"
#include "velmora/apps/workshop_file/workshop_file.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::script_stage {

namespace {

constexpr std::string_view demo = "demo";
constexpr std::string_view none = "none";

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

std::unique_ptr<sql::Connection> openServer(const Options& options, const system::Clock& clock) {
    auto connection = engines::knownEngines(clock).open(engines::serverSource(*options.dsn));
    if (options.now) {
        connection = std::make_unique<StoppedServerClock>(std::move(connection), *options.now);
    }
    fillServer(*connection, options, clock);
    return connection;
}

std::unique_ptr<sql::Connection> openFile(const Options& options, const system::Clock& clock) {
    const std::string rows = options.data.value_or(std::string(demo));
    auto opened = workshop_file::open(
        engines::knownEngines(clock), options.database.value_or(":memory:"),
        [&](sql::Connection& connection) { fillRows(connection, rows, clock); },
        rows == demo ? workshop_file::Purpose::demonstration : workshop_file::Purpose::work);
    if (!opened.notice.empty()) {
        std::cerr << "velmora-drive: " << opened.notice << '\n';
    }
    if (!opened.isNew && options.data) {
        // Chosen C-273: the demonstration rows have fixed keys and are not added to a database that already has rows.
        if (*options.data == demo) {
            throw NoDatabase("the demonstration rows go into a new database only");
        }
        fillRows(*opened.connection, *options.data, clock);
    }
    return std::move(opened.connection);
}

}  // namespace

std::unique_ptr<sql::Connection> openDatabase(const Options& options, const system::Clock& clock) {
    try {
        return options.dsn ? openServer(options, clock) : openFile(options, clock);
    } catch (const workshop_file::Refused& e) {
        throw NoDatabase(e.what());
    } catch (const sql::DbError& e) {
        throw NoDatabase((options.dsn ? "--dsn: " : "") + e.description() +
                         (e.details().statement.empty() ? "" : "\n" + e.details().statement));
    }
}

}  // namespace velmora::script_stage
