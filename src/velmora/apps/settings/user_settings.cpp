#include "velmora/apps/settings/user_settings.h"

#include <charconv>

namespace velmora::settings {

namespace {

constexpr const char* folderName = "carpeta_papeles";
constexpr const char* lettersName = "letra";
constexpr const char* companyFolderName = "carpeta_empresa";

}  // namespace

UserSettings readUserSettings(const std::filesystem::path& file) {
    Entries entries = readEntries(file);
    UserSettings settings{.papersFolder = entries[folderName], .companyFolder = entries[companyFolderName]};
    const std::string& letters = entries[lettersName];
    int size = 0;
    std::from_chars(letters.data(), letters.data() + letters.size(), size);
    if (size >= smallestLetters && size <= greatestLetters) {
        settings.letterSize = size;
    }
    return settings;
}

void writeUserSettings(const std::filesystem::path& file, const UserSettings& settings) {
    writeEntries(file, {{folderName, settings.papersFolder},
                        {lettersName, std::to_string(settings.letterSize)},
                        {companyFolderName, settings.companyFolder}});
}

}  // namespace velmora::settings
