#pragma once
// The command line of the desktop program.

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "velmora/apps/desktop/workshop.h"

namespace velmora::desktop {

enum class Opening { start, proposals, tracking, parameters, proposal };

struct Options {
    /// Of --db, or of a line that names an existing file. Empty: the one in the user's data folder; for pictures, one
    /// in memory.
    std::string database = {};
    std::string server = {};           ///< connection string; empty: an embedded database
    std::optional<NewRows> data = {};  ///< of a new database; none: the user is asked
    Opening opening = Opening::start;
    std::int32_t proposal = 0;  ///< for Opening::proposal
    std::string pictures = {};  ///< folder for pictures of the windows; empty: no pictures
};

/// The options, or the exit status when the program ends at once (help, a wrong option).
std::variant<Options, int> readOptions(int argc, const char* const* argv);

}  // namespace velmora::desktop
