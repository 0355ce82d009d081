#pragma once
// Which database the desktop opens: that of the command line, the one chosen before, or that of the user's folder.

#include <filesystem>
#include <optional>
#include <string>

#include "velmora/apps/desktop/options.h"

namespace velmora::desktop {

/// One of the two.
struct ChosenDatabase {
    std::string file = {};    ///< an embedded one
    std::string server = {};  ///< a server's connection string, or the path of a file that holds one

    friend bool operator==(const ChosenDatabase&, const ChosenDatabase&) = default;
};

/// The file in the user's configuration folder that remembers it.
std::filesystem::path choiceFile();
/// None when there is no such file, or it cannot be understood.
std::optional<ChosenDatabase> rememberedChoice(const std::filesystem::path& file);
/// Replaces the file as a whole, readable by the user only. A connection string with a password is not written: it
/// would lie open on the disk. Returns whether the choice will be there at the next start; a failure is no error.
bool rememberChoice(const std::filesystem::path& file, const ChosenDatabase& choice);

/// The command line before the choice that is remembered, and that before the file in the user's data folder. Pictures
/// are made from a database in memory unless one is named, so that real data do not end up in a document by mistake.
ChosenDatabase databaseToOpen(const Options& options, const std::optional<ChosenDatabase>& remembered);

/// Whether there is nothing to open yet, so that the user has to say what is made. Errors: NoWorkshop for a file that
/// is something else.
bool isFirstStart(const ChosenDatabase& choice);

/// Where a new database is made: at the path of the choice when nothing is there, otherwise beside the default one,
/// with a number that is free.
std::string fileForNew(const ChosenDatabase& choice);

}  // namespace velmora::desktop
