#include <QApplication>
#include <QIcon>
#include <QPixmap>
#include <exception>
#include <iostream>
#include <optional>
#include <utility>
#include <vector>

#include "velmora/adapters/qt/qt_screen.h"
#include "velmora/adapters/qt/qt_services.h"
#include "velmora/apps/backup/copies.h"
#include "velmora/apps/desktop/daily_copy.h"
#include "velmora/apps/desktop/draft_watch.h"
#include "velmora/apps/desktop/long_statement.h"
#include "velmora/apps/desktop/no_display.h"
#include "velmora/apps/desktop/options.h"
#include "velmora/apps/desktop/reconnection.h"
#include "velmora/apps/desktop/start_form.h"
#include "velmora/apps/desktop/start_keys.h"
#include "velmora/apps/desktop/table_forms.h"
#include "velmora/apps/desktop/window_pictures.h"
#include "velmora/apps/desktop/workshop.h"
#include "velmora/apps/engines/hidden_value.h"
#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/icon/icon_image.h"
#include "velmora/apps/stand_ins/stand_ins.h"

namespace {

using namespace velmora;

/// Runs without a user, so errors go to the standard error output instead of a message box.
void makePictures(qt::QtScreen& screen, session::Session& session, platform::Desk& desk, const std::string& folder) {
    std::vector<desktop::WindowPicture> pictures = desktop::windowPictures(session, desk);
    for (desktop::WindowPicture& table : desktop::tablePictures(session, desk)) {
        pictures.push_back(std::move(table));
    }
    for (const std::string& path : desktop::writePictures(screen, pictures, folder)) {
        std::cout << path << '\n';
    }
}

/// The copy of the database that is to be put back before the program goes on; none when it ends.
std::optional<backup::Copy> perform(const desktop::Options& options, shell::VMORA& vmora, qt::QtScreen& screen,
                                    platform::Desk& desk, backup::Copies* copies) {
    switch (options.opening) {
        case desktop::Opening::start: {
            desktop::StartForm form(desk, vmora, vmora.MyBd(), copies);
            const desktop::StartKeys keys(screen, form);
            screen.showModal(form);
            return form.wanted();
        }
        case desktop::Opening::proposals:
            vmora.jShow();
            break;
        case desktop::Opening::tracking:
            vmora.jShowSeguimiento();
            break;
        case desktop::Opening::parameters:
            vmora.jShowParametros();
            break;
        case desktop::Opening::proposal: {
            std::int32_t nIdDpi = options.proposal;
            vmora.jShowPropuesta(nIdDpi);
            break;
        }
    }
    return std::nullopt;
}

/// Pictures are made from the demonstration workshop unless a database is given, so that real data do not end up in a
/// document by mistake.
std::string databaseOf(const desktop::Options& options) {
    if (!options.database.empty()) {
        return options.database;
    }
    return options.pictures.empty() ? desktop::defaultDatabase() : ":memory:";
}

void tell(qt::QtScreen& screen, const std::string& text, screen::Icon icon) {
    screen.show({.text = text, .icon = icon, .title = "VELMORA"});
}

/// Opens the database and performs what the options ask for. The copy that is to be put back, if the user wants one.
std::optional<backup::Copy> open(const desktop::Options& options, qt::QtScreen& screen, const system::Clock& clock) {
    const sql::Engines engines =
        engines::knownEngines(clock, [] { return std::make_unique<desktop::LongStatement>(); });
    const std::string database = databaseOf(options);
    const auto workshop = options.server.empty() ? desktop::openWorkshop(engines, database, clock)
                                                 : desktop::openServer(engines, options.server);
    if (auto* server = dynamic_cast<odbc::ServerConnection*>(&workshop->connection())) {
        // Forms, whose actions these are, live within this function, as the connection does.
        screen.onActionEnded([server, &screen] { desktop::offerToReconnect(*server, screen); });
    }
    qt::QtServices services;
    components::ComponentFactory components;
    stand_ins::registerStandIns(components, screen, services, clock);
    platform::Desk desk{screen, components, services, clock};
    shell::VMORA vmora{desk};
    vmora.MyBd(&workshop->session());
    if (!options.pictures.empty()) {
        makePictures(screen, workshop->session(), desk, options.pictures);
        return std::nullopt;
    }
    if (!workshop->notice().empty()) {
        tell(screen, workshop->notice(), screen::Icon::exclamation);
    }
    if (!options.server.empty() || database == ":memory:") {
        return perform(options, vmora, screen, desk, nullptr);
    }
    backup::Copies copies(database, clock);
    desktop::DailyCopy daily(database, clock.now());
    desktop::Drafts drafts(database);
    desktop::DraftWatch watch(screen, drafts);
    screen.onActionEnded([&watch] { watch.actionEnded(); });
    watch.offerLeft(workshop->session(), desk);
    auto wanted = perform(options, vmora, screen, desk, &copies);
    screen.onActionEnded({});
    if (const std::string failure = daily.failure(); !failure.empty()) {
        tell(screen, failure, screen::Icon::exclamation);
    }
    return wanted;
}

int run(const desktop::Options& options, qt::QtScreen& screen) {
    const system::SystemClock clock;
    while (const auto copy = open(options, screen, clock)) {
        try {
            backup::Copies(databaseOf(options), clock).restore(*copy);
            tell(screen, "La copia está restaurada.", screen::Icon::information);
        } catch (const backup::Failed& e) {
            tell(screen, e.what(), screen::Icon::critical);
        }
    }
    return 0;
}

/// In the windows' title bars and the list of tasks; the desktop finds the installed one by the name of the entry.
void showIcon() {
    QIcon icon;
    for (const int size : icon::imageSizes) {
        icon.addPixmap(QPixmap::fromImage(icon::iconImage(size)));
    }
    QApplication::setWindowIcon(icon);
    QApplication::setDesktopFileName(QStringLiteral("velmora"));
}

}  // namespace

int main(int argc, char** argv) {
    const auto read = desktop::readOptions(argc, argv);
    engines::hideValue("--dsn", argc, argv);
    if (const int* status = std::get_if<int>(&read)) {
        return *status;
    }
    const auto& options = std::get<desktop::Options>(read);
    const bool onScreen = options.pictures.empty();
    if (!onScreen) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    std::optional<desktop::DisplayNeeded> displayNeeded(std::in_place);
    QApplication application(argc, argv);
    displayNeeded.reset();
    QApplication::setApplicationName(QStringLiteral("velmora"));
    showIcon();
    qt::QtScreen screen;
    try {
        return run(options, screen);
    } catch (const desktop::NoWorkshop& e) {
        if (onScreen) {
            screen.show({.text = e.what(), .icon = screen::Icon::critical, .title = "VELMORA"});
        }
        std::cerr << "velmora: " << e.what() << '\n';
    } catch (const std::exception& e) {
        if (onScreen) {
            screen.showError(std::current_exception());
        }
        std::cerr << "velmora: " << e.what() << '\n';
    }
    return 1;
}
