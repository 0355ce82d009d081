#pragma once
// The command line of velmora-drive.

#include <optional>
#include <string>
#include <variant>

#include "velmora/platform/runtime/date.h"

namespace velmora::script_stage {

struct Options {
    std::optional<std::string> database;  ///< path of an embedded database; nullopt: one in memory
    std::optional<std::string> dsn;       ///< connection string of a server
    /// demo, none or the path of a file of statements; nullopt: demo for a new database
    std::optional<std::string> data;
    std::optional<runtime::Date> now;  ///< time at which the clock is stopped; nullopt: it runs
    std::optional<std::string> keep;   ///< folder for the files that the program writes; nullopt: a temporary one
    bool traceSql = false;
    std::string script = "-";  ///< "-" is the standard input
};

/// The options of the command line, completed by those of a line "# options: …" among the comments at the start of the
/// script (paths relative to the script's folder); or the exit status with which the program ends at once: help was
/// asked for, or the line is wrong (reported on the standard error output).
std::variant<Options, int> readOptions(int argc, char** argv);

}  // namespace velmora::script_stage
