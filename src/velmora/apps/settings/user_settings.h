#pragma once
// What belongs to this user on this machine.

#include <filesystem>
#include <string>

#include "velmora/apps/settings/settings_file.h"

namespace velmora::settings {

inline constexpr int smallestLetters = 80;   ///< percent
inline constexpr int ordinaryLetters = 100;  ///< as the desktop has them
inline constexpr int greatestLetters = 200;

struct UserSettings {
    std::string papersFolder = {};     ///< empty: the program's temporary folder
    int letterSize = ordinaryLetters;  ///< percent of the desktop's
    /// Where the company's settings of a server's database are, shared with other users; empty: this user's own folder.
    std::string companyFolder = {};

    bool operator==(const UserSettings&) const = default;
};

/// What the file holds; a size outside the limits is the ordinary one.
UserSettings readUserSettings(const std::filesystem::path& file);

/// Errors: NotSaved; the file is as it was then.
void writeUserSettings(const std::filesystem::path& file, const UserSettings& settings);

}  // namespace velmora::settings
