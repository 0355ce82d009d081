#pragma once
// Which database the desktop works with, and where its settings are.

#include <filesystem>
#include <string>

namespace velmora::desktop {

struct DatabasePlace {
    std::string file = {};    ///< of an embedded database; ":memory:" for one without a file
    std::string server = {};  ///< connection string; empty for an embedded database

    bool isInMemory() const;
};

/// The file with the company of this database; empty for a database in memory.
std::filesystem::path companyFileOf(const DatabasePlace& place);

/// The same for a server's database, in this folder; in the one of this user when it is empty.
std::filesystem::path companyFileIn(const std::string& folder, const DatabasePlace& place);

/// A connection string with dots in place of its password's value.
std::string withoutPassword(const std::string& connectionString);

/// The file with the settings of this user.
std::filesystem::path userSettingsFile();

}  // namespace velmora::desktop
