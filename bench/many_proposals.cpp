#include "many_proposals.h"

#include <charconv>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <vector>

#include <sqlite3.h>

#include "velmora/adapters/sqlite/collation.h"
#include "velmora/data/schema.h"

namespace velmora::bench {

namespace {

/// A database past the program.
class BareDatabase {
  public:
    explicit BareDatabase(const std::string& file) {
        sqlite3* opened = nullptr;
        const int code = sqlite3_open(file.c_str(), &opened);
        handle_.reset(opened);
        if (code != SQLITE_OK) {
            throw std::runtime_error("cannot open " + file);
        }
        sqlite::registerCollation(handle_.get());
    }

    void run(const std::string& sql) { ask(sql); }

    /// The first column of all rows.
    std::vector<std::string> ask(const std::string& sql) {
        std::vector<std::string> answers;
        const auto add = [](void* to, int, char** values, char**) {
            static_cast<std::vector<std::string>*>(to)->emplace_back(*values != nullptr ? *values : "");
            return 0;
        };
        if (sqlite3_exec(handle_.get(), sql.c_str(), add, &answers, nullptr) != SQLITE_OK) {
            throw std::runtime_error(sql + ": " + sqlite3_errmsg(handle_.get()));
        }
        return answers;
    }

  private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    std::unique_ptr<sqlite3, Close> handle_;
};

struct Columns {
    std::string names;
    std::string values;
};

/// Every column but the key that the engine gives; `valueOf` tells what goes into it.
template <typename ValueOf>
Columns columnsOf(std::string_view table, std::string_view key, const ValueOf& valueOf) {
    Columns all;
    for (const data::ColumnDefinition& column : data::findTable(table)->columns) {
        if (column.name != key) {
            const char* const comma = all.names.empty() ? "" : ", ";
            all.names += comma + std::string(column.name);
            all.values += comma + valueOf(column.name);
        }
    }
    return all;
}

/// `i` counts the added rows of the statement, from 0 on; `demo` is the row that is copied.
std::string proposalValue(std::string_view column, const std::string& number, std::int64_t proposals) {
    const std::string secondsOfTwentyYears = "631152000";
    const std::string moment =
        "datetime('2006-01-01', (i * " + secondsOfTwentyYears + " / " + std::to_string(proposals) + ") || ' seconds')";
    if (column == "DPI_Fecha") {
        return moment;
    }
    if (column == "DPI_FAcepta") {
        return "CASE WHEN demo.DPI_FAcepta IS NOT NULL THEN " + moment + " END";
    }
    if (column == "DPI_CodCliente") {
        return std::to_string(firstCustomer) + " + i * 7919 % " + std::to_string(customers);
    }
    if (column == "DPI_Z") {
        return "demo.DPI_Z + 200.0 * (i / (64 * " + number + "))";
    }
    return "demo." + std::string(column);
}

std::string counting(std::int64_t rows) {
    return "WITH RECURSIVE counted(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM counted WHERE i + 1 < " +
           std::to_string(rows) + ") ";
}

void addCustomers(BareDatabase& database) {
    const Columns columns = columnsOf("CLI", "", [](std::string_view column) {
        return column == "CLI_ID"    ? std::string("1000000 + i")
               : column == "CLI_COD" ? std::to_string(firstCustomer) + " + i"
               : column == "CLI_NOM" ? std::string("'TALLERES NUMERO ' || i")
                                     : "demo." + std::string(column);
    });
    database.run(counting(customers) + "INSERT INTO CLI (" + columns.names + ") SELECT " + columns.values +
                 " FROM counted CROSS JOIN (SELECT * FROM CLI LIMIT 1) AS demo WHERE " + std::to_string(firstCustomer) +
                 " + i NOT IN (SELECT CLI_COD FROM CLI WHERE CLI_COD IS NOT NULL)");
}

void addProposals(BareDatabase& database, std::int64_t proposals) {
    database.run("CREATE TEMP TABLE demo AS SELECT * FROM DPI ORDER BY DPI_Id");
    const std::string number = database.ask("SELECT count(*) FROM demo").front();
    const std::int64_t added = proposals - std::stoll(number);
    const Columns columns =
        columnsOf("DPI", "DPI_Id", [&](std::string_view column) { return proposalValue(column, number, proposals); });
    if (added > 0) {
        database.run(counting(added) + "INSERT INTO DPI (" + columns.names + ") SELECT " + columns.values +
                     " FROM counted CROSS JOIN demo ON demo.rowid = 1 + i % " + number);
    }
}

}  // namespace

std::int64_t numberFrom(const char* variable, std::int64_t unlessTold) {
    std::int64_t number = unlessTold;
    if (const char* text = std::getenv(variable)) {
        const std::string_view digits(text);
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
    }
    return number;
}

std::int64_t wantedProposals() {
    return numberFrom("VELMORA_BENCH_PROPOSALS", 1'000'000);
}

std::int64_t wantedSaves() {
    return numberFrom("VELMORA_BENCH_SAVES", 10'000);
}

void fillProposals(const std::string& databaseFile, std::int64_t proposals) {
    BareDatabase database(databaseFile);
    for (const char* setting : {"journal_mode = DELETE", "journal_mode = OFF", "synchronous = OFF",
                                "cache_size = -262144", "temp_store = FILE"}) {
        database.run("PRAGMA " + std::string(setting));
    }
    const std::string ofProposals = "FROM sqlite_schema WHERE type = 'index' AND tbl_name = 'DPI' AND sql IS NOT NULL";
    const std::vector<std::string> indexes = database.ask("SELECT sql " + ofProposals);
    for (const std::string& drop : database.ask("SELECT 'DROP INDEX \"' || name || '\"' " + ofProposals)) {
        database.run(drop);
    }
    database.run("BEGIN");
    addCustomers(database);
    addProposals(database, proposals);
    for (const std::string& index : indexes) {
        database.run(index);
    }
    database.run("COMMIT");
    database.run("PRAGMA journal_mode = WAL");
}

}  // namespace velmora::bench
