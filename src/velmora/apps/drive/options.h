#pragma once
// The command line of velmora-drive.

#include <optional>
#include <string>
#include <variant>

#include "velmora/platform/runtime/date.h"

namespace velmora::drive {

struct Options {
    std::optional<std::string> database;  ///< path of an embedded database; none: one in memory
    std::optional<std::string> dsn;       ///< data source of a server
    std::optional<std::string> data;  ///< demo, none or the path of a file of statements; none: demo for a new database
    std::optional<runtime::Date> now;  ///< where the clock stands; none: it runs
    std::optional<std::string> keep;   ///< folder for the files that the program writes; none: one that is removed
    bool traceSql = false;
    std::string script = "-";  ///< "-" is the standard input
};

/// The options of the command line, completed by those of a line "# options: …" among the comments that the script
/// begins with (paths as seen from the script's folder); or the exit status with which the program ends now: help was
/// asked for, or the line is wrong (told on the standard error).
std::variant<Options, int> readOptions(int argc, char** argv);

}  // namespace velmora::drive
