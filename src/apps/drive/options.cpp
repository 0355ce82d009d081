#include "options.h"

#include <CLI/CLI.hpp>

#include "velmora/adapters/script/ending.h"
#include "velmora/adapters/script/script_services.h"

namespace velmora::drive {

std::variant<Options, int> readOptions(int argc, char** argv) {
    Options options;
    std::string now;
    CLI::App app("Plays scripts on VELMORA's forms, without a screen.", "velmora-drive");
    auto* database =
        app.add_option("--db", options.database, "Embedded database, made when it does not exist")->type_name("FILE");
    app.add_option("--dsn", options.dsn, "Data source of a SQL Server")->type_name("TEXT")->excludes(database);
    app.add_option("--data", options.data, "Rows of a new database: demo (default), none, or a file of statements")
        ->type_name("demo|none|FILE.sql");
    app.add_option("--now", now, "Stops the clock, the database's too")->type_name("\"YYYY-MM-DD HH:MM:SS\"");
    app.add_flag("--trace-sql", options.traceSql, "Prints every statement of the program");
    app.add_option("SCRIPT", options.script, "Script; - or nothing: standard input");
    try {
        app.parse(argc, argv);
        if (!now.empty()) {
            options.now = script::momentFrom(now);
            if (!options.now) {
                throw CLI::ValidationError("--now", "no date and time: " + now);
            }
        }
    } catch (const CLI::ParseError& e) {
        return app.exit(e) == 0 ? 0 : static_cast<int>(script::Status::wrong);
    }
    return options;
}

}  // namespace velmora::drive
