#include "velmora/apps/desktop/database_place.h"

#include <QStandardPaths>

#include "velmora/apps/settings/company_settings.h"
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
                                : settings::companyFileOfServer(configurationFolder(), place.server);
}

fs::path userSettingsFile() {
    return configurationFolder() / "usuario.ajustes";
}

}  // namespace velmora::desktop
