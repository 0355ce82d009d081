#include "velmora/apps/desktop/settings_tools.h"

#include <QApplication>
#include <QFileDialog>
#include <utility>

#include "velmora/adapters/documents/logo.h"
#include "velmora/adapters/qt/letters.h"

namespace velmora::desktop {

namespace {

std::optional<std::string> askForFolder() {
    const QString folder =
        QFileDialog::getExistingDirectory(QApplication::activeWindow(), QStringLiteral("Elegir una carpeta"));
    return folder.isEmpty() ? std::nullopt : std::optional(folder.toStdString());
}

}  // namespace

SettingsTools settingsTools(const DatabasePlace& place) {
    std::function<std::filesystem::path(const std::string&)> companyFileOfFolder;
    if (!place.server.empty()) {
        companyFileOfFolder = [place](const std::string& folder) { return companyFileIn(folder, place); };
    }
    return {.companyFile = companyFileOf(place),
            .companyFileIn = std::move(companyFileOfFolder),
            .userFile = userSettingsFile(),
            .chooseFolder = askForFolder,
            .isPicture = [](const std::string& bytes) { return !documents::Logo(bytes).size().isEmpty(); },
            .setLetterSize = qt::setLetterSize};
}

void showSettings(platform::Desk& desk, const DatabasePlace& place) {
    const SettingsTools tools = settingsTools(place);
    SettingsForm form(desk, tools);
    desk.screen.showModal(form);
}

}  // namespace velmora::desktop
