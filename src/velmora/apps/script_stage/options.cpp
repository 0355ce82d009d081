#include "velmora/apps/script_stage/options.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>

#include "velmora/adapters/script/ending.h"
#include "velmora/adapters/script/script_services.h"
#include "velmora/platform/version.h"

namespace velmora::script_stage {

namespace {

/// One line of options: the program's own, or the one at the start of a script.
class OptionLine {
  public:
    OptionLine() {
        auto* database = app.add_option("--db", options.database, "Embedded database, created when it does not exist")
                             ->type_name("FILE");
        app.add_option("--dsn", options.dsn, "Connection string of a SQL Server")
            ->type_name("TEXT")
            ->excludes(database);
        app.add_option("--data", options.data, "Rows of a new database: demo (default), none, or a file of statements")
            ->type_name("demo|none|FILE.sql");
        app.add_option("--now", now_, "Stops the clock, the database's too")->type_name("\"YYYY-MM-DD HH:MM:SS\"");
        app.add_option("--keep", options.keep, "Folder for papers and spreadsheets that the program writes; it is kept")
            ->type_name("DIR");
        app.add_flag("--trace-sql", options.traceSql, "Prints every statement of the program");
        app.footer("A script may begin with a line \"# options: …\"; options given here override it.");
    }

    /// Error CLI::ValidationError for an invalid date.
    void settle() {
        if (now_.empty()) {
            return;
        }
        options.now = script::momentFrom(now_);
        if (!options.now) {
            throw CLI::ValidationError("--now", "no date and time: " + now_);
        }
    }

    CLI::App app{"Runs scripts on VELMORA's forms, without a screen.", "velmora-drive"};
    Options options;

  private:
    std::string now_;
};

/// The options in the comments at the start of a script; empty when there are none.
std::string optionsOfScript(const std::string& path) {
    constexpr std::string_view mark = "# options:";
    std::ifstream script(path);
    for (std::string line; std::getline(script, line) && line.starts_with('#');) {
        if (line.starts_with(mark)) {
            return line.substr(mark.size());
        }
    }
    return {};
}

/// Resolves a path relative to the script's folder.
void seenFrom(const std::string& script, std::optional<std::string>& path) {
    if (path && *path != "demo" && *path != "none") {
        path = (std::filesystem::path(script).parent_path() / *path).string();
    }
}

template <typename T>
void takeIfNone(std::optional<T>& own, const std::optional<T>& other) {
    if (!own) {
        own = other;
    }
}

void addOptionsOfScript(Options& options) {
    const std::string text = options.script == "-" ? std::string() : optionsOfScript(options.script);
    if (text.empty()) {
        return;
    }
    OptionLine line;
    line.app.parse(text, false);
    line.settle();
    seenFrom(options.script, line.options.database);
    seenFrom(options.script, line.options.data);
    seenFrom(options.script, line.options.keep);
    if (!options.dsn) {
        takeIfNone(options.database, line.options.database);
    }
    if (!options.database) {
        takeIfNone(options.dsn, line.options.dsn);
    }
    takeIfNone(options.data, line.options.data);
    takeIfNone(options.now, line.options.now);
    takeIfNone(options.keep, line.options.keep);
    options.traceSql = options.traceSql || line.options.traceSql;
}

}  // namespace

std::variant<Options, int> readOptions(int argc, char** argv) {
    OptionLine line;
    line.app.set_version_flag("--version", "velmora-drive " + platform::version());
    line.app.add_option("SCRIPT", line.options.script, "Script; - or nothing: standard input");
    try {
        line.app.parse(argc, argv);
        line.settle();
        addOptionsOfScript(line.options);
    } catch (const CLI::ParseError& e) {
        return line.app.exit(e) == 0 ? 0 : static_cast<int>(script::Status::wrong);
    }
    return line.options;
}

}  // namespace velmora::script_stage
