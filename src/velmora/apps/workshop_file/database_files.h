#pragma once
// The files of one workshop: the database, its documents, and the settings of its company.

#include <array>
#include <filesystem>

namespace velmora::workshop_file {

/// "DOCtaller.db" for "taller.db".
std::filesystem::path documentsOf(const std::filesystem::path& database);

/// "taller.db.ajustes" for "taller.db"; it exists once somebody has entered settings.
std::filesystem::path settingsOf(const std::filesystem::path& database);

/// All of them, the database last: with it a workshop is complete.
std::array<std::filesystem::path, 3> filesOf(const std::filesystem::path& database);

/// Removes the engine's files beside a database or documents: what they hold would be applied to another file of that
/// name. Raises no error.
void removeSideFiles(const std::filesystem::path& file);

/// Removes all files of a workshop that exist. Raises no error.
void removeFilesOf(const std::filesystem::path& database);

}  // namespace velmora::workshop_file
