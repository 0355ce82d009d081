#pragma once
// Where the company of a workshop is kept: beside its database, for all who work with it.

#include <filesystem>
#include <string>

#include "velmora/apps/settings/settings_file.h"
#include "velmora/paper/company.h"

namespace velmora::settings {

/// Beside the database: "taller.db.ajustes". No table is added to a database.
std::filesystem::path companyFileOf(const std::string& database);

/// For a server's database, in a folder of this user or one that users share: a file for each server and database that
/// a connection string names, whoever connects to it.
std::filesystem::path companyFileOfServer(const std::filesystem::path& folder, const std::string& connectionString);

/// What the file holds; an empty company when there is none.
paper::Company readCompany(const std::filesystem::path& file);

/// Errors: NotSaved; the file is as it was then.
void writeCompany(const std::filesystem::path& file, const paper::Company& company);

}  // namespace velmora::settings
