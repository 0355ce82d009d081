#include "velmora/apps/desktop/paper_choices.h"

#include <QPointer>
#include <string>

#include "velmora/adapters/documents/files.h"
#include "velmora/apps/desktop/paper_window.h"
#include "velmora/apps/settings/company_settings.h"
#include "velmora/apps/settings/user_settings.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::desktop {

namespace {

/// Settings are read at each print: another user may have changed them.
paper::Company companyAt(const DatabasePlace& place) {
    return place.isInMemory() ? paper::Company() : settings::readCompany(companyFileOf(place));
}

void preview(const std::vector<documents::PrintedPaper>& papers, qt::QtScreen& screen, system::Services& services) {
    const auto tell = [&screen](const std::string& text) {
        screen.show({.text = text, .icon = screen::Icon::exclamation, .title = "Papeles"});
    };
    PaperTools tools = systemPaperTools();
    tools.tell = tell;
    tools.open = [&](const std::string& path) {
        try {
            documents::openDocument(services, path);
        } catch (const runtime::RuntimeError& e) {
            tell(e.description());
        }
    };
    const QPointer<QWidget> below = screen.topWidget();
    PaperWindow(papers, tools, below).exec();
    if (below != nullptr) {
        below->activateWindow();
    }
}

}  // namespace

// Chosen C-532: on the desktop printing a proposal shows its papers in a preview of its own, where pages are chosen and
// printed; their files are written before, as everywhere, and can be opened with their program.
documents::PaperChoices paperChoices(const DatabasePlace& place, qt::QtScreen& screen, system::Services& services) {
    return {.company = [place] { return companyAt(place); },
            .folder = [] { return settings::readUserSettings(userSettingsFile()).papersFolder; },
            .view = [&screen, &services](const auto& papers) { preview(papers, screen, services); }};
}

}  // namespace velmora::desktop
