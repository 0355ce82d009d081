#include "velmora/apps/settings/company_settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "velmora/adapters/sqlite/file_content.h"
#include "velmora/apps/workshop_file/database_files.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::settings {

namespace fs = std::filesystem;
using paper::Company;

namespace {

constexpr const char* ending = ".ajustes";
constexpr const char* logoName = "logotipo";
constexpr const char* validityName = "validez";

constexpr std::array texts{
    std::pair{"nombre", &Company::name},       std::pair{"nif", &Company::taxNumber},
    std::pair{"direccion", &Company::address}, std::pair{"telefono", &Company::telephone},
    std::pair{"correo", &Company::email},      std::pair{"condiciones", &Company::terms},
};

/// What distinguishes a database from others, not who connects to it and how.
constexpr std::array<std::string_view, 8> keysOfPlace{"SERVER",   "SERVERNAME", "ADDRESS",         "PORT",
                                                      "DATABASE", "DSN",        "INITIAL CATALOG", "DATA SOURCE"};

std::string placeOf(const std::string& connectionString) {
    std::string place;
    for (std::size_t begin = 0; begin < connectionString.size();) {
        const std::size_t end = std::min(connectionString.find(';', begin), connectionString.size());
        const std::string part = runtime::LCase(std::string_view(connectionString).substr(begin, end - begin));
        const std::string key = runtime::UCase(runtime::Trim(part.substr(0, part.find('='))));
        if (std::ranges::find(keysOfPlace, key) != keysOfPlace.end()) {
            place += part + ";";
        }
        begin = end + 1;
    }
    return place;
}

/// Letters and digits stay, so that the file can be told from others.
std::string asFileName(std::string place) {
    for (char& c : place) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        c = isPlain ? c : '_';
    }
    return place;
}

}  // namespace

fs::path companyFileOf(const std::string& database) {
    return workshop_file::settingsOf(fs::absolute(system::filePath(sqlite::realFile(database))));
}

fs::path companyFileOfServer(const fs::path& folder, const std::string& connectionString) {
    return folder / system::filePath("servidor " + asFileName(placeOf(connectionString)) + ending);
}

Company readCompany(const fs::path& file) {
    Entries entries = readEntries(file);
    Company company;
    for (const auto& [name, member] : texts) {
        company.*member = entries[name];
    }
    company.logo = textBytes(entries[logoName]);
    const std::string& days = entries[validityName];
    std::from_chars(days.data(), days.data() + days.size(), company.validityDays);
    return company;
}

void writeCompany(const fs::path& file, const Company& company) {
    Entries entries;
    for (const auto& [name, member] : texts) {
        entries[name] = company.*member;
    }
    entries[logoName] = bytesText(company.logo);
    entries[validityName] = std::to_string(company.validityDays);
    writeEntries(file, entries);
}

}  // namespace velmora::settings
