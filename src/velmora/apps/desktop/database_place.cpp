#include "velmora/apps/desktop/database_place.h"

#include <QStandardPaths>
#include <algorithm>

#include "velmora/apps/settings/company_settings.h"
#include "velmora/apps/settings/user_settings.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::desktop {

namespace fs = std::filesystem;

namespace {

fs::path configurationFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return system::filePath(folder.toStdString()) / "velmora";
}

}  // namespace

bool DatabasePlace::isInMemory() const {
    return server.empty() && (file.empty() || file == ":memory:");
}

fs::path companyFileOf(const DatabasePlace& place) {
    if (place.isInMemory()) {
        return {};
    }
    return place.server.empty() ? settings::companyFileOf(place.file)
                                : companyFileIn(settings::readUserSettings(userSettingsFile()).companyFolder, place);
}

fs::path companyFileIn(const std::string& folder, const DatabasePlace& place) {
    return settings::companyFileOfServer(folder.empty() ? configurationFolder() : system::filePath(folder),
                                         place.server);
}

std::string withoutPassword(const std::string& connectionString) {
    std::string shown;
    for (std::size_t begin = 0; begin < connectionString.size();) {
        const std::size_t end = std::min(connectionString.find(';', begin), connectionString.size());
        const std::string part = connectionString.substr(begin, end - begin);
        const std::string key = runtime::UCase(runtime::Trim(part.substr(0, part.find('='))));
        const bool isSecret = key == "PWD" || key == "PASSWORD";
        shown += (shown.empty() ? "" : ";") + (isSecret ? part.substr(0, part.find('=')) + "=…" : part);
        // A value in braces may hold semicolons: with a password, nothing after it is shown.
        if (isSecret && part.find('{') != std::string::npos) {
            return shown;
        }
        begin = end + 1;
    }
    return shown;
}

fs::path userSettingsFile() {
    return configurationFolder() / "usuario.ajustes";
}

}  // namespace velmora::desktop
