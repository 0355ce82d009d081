#include <QApplication>
#include <QIcon>
#include <QPixmap>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "velmora/adapters/qt/first_paint.h"
#include "velmora/adapters/qt/letters.h"
#include "velmora/adapters/qt/qt_screen.h"
#include "velmora/adapters/qt/qt_services.h"
#include "velmora/adapters/qt/window_memory.h"
#include "velmora/apps/backup/copies.h"
#include "velmora/apps/desktop/chosen_database.h"
#include "velmora/apps/desktop/daily_copy.h"
#include "velmora/apps/desktop/draft_watch.h"
#include "velmora/apps/desktop/file_watch.h"
#include "velmora/apps/desktop/first_start_form.h"
#include "velmora/apps/desktop/lock_note.h"
#include "velmora/apps/desktop/long_statement.h"
#include "velmora/apps/desktop/no_display.h"
#include "velmora/apps/desktop/options.h"
#include "velmora/apps/desktop/paper_choices.h"
#include "velmora/apps/desktop/reconnection.h"
#include "velmora/apps/desktop/start_form.h"
#include "velmora/apps/desktop/start_keys.h"
#include "velmora/apps/desktop/table_forms.h"
#include "velmora/apps/desktop/title_note.h"
#include "velmora/apps/desktop/window_pictures.h"
#include "velmora/apps/desktop/workshop.h"
#include "velmora/apps/engines/hidden_value.h"
#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/icon/icon_image.h"
#include "velmora/apps/settings/user_settings.h"
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

/// How the work with one database has ended.
struct End {
    std::optional<backup::Copy> restore = {};  ///< the copy that is to be put back
    bool wantsAnother = false;                 ///< the user wants to choose another database
};

End perform(const desktop::Options& options, shell::VMORA& vmora, qt::QtScreen& screen, platform::Desk& desk,
            backup::Copies* copies, const desktop::DatabasePlace& place) {
    switch (options.opening) {
        case desktop::Opening::start: {
            desktop::StartForm form(desk, vmora, vmora.MyBd(), copies, place);
            const desktop::StartKeys keys(screen, form);
            screen.showModal(form);
            return {.restore = form.wanted(), .wantsAnother = form.wantsAnother()};
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
    return {};
}

void tell(qt::QtScreen& screen, const std::string& text, screen::Icon icon) {
    screen.show({.text = text, .icon = icon, .title = "VELMORA"});
}

/// Works with a file beside which copies and drafts are kept.
End workWithFile(const desktop::Options& options, const std::string& file, qt::QtScreen& screen, shell::VMORA& vmora,
                 platform::Desk& desk) {
    backup::Copies copies(file, desk.clock);
    desktop::DailyCopy daily(file, desk.clock.now());
    desktop::Drafts drafts(file);
    desktop::DraftWatch watch(screen, drafts);
    desktop::FileWatch place(file);
    screen.onActionEnded([&] {
        watch.actionEnded();
        if (const auto news = place.news()) {
            tell(screen, *news, screen::Icon::exclamation);
        }
    });
    watch.offerLeft(vmora.MyBd(), desk);
    End end = perform(options, vmora, screen, desk, &copies, {.file = file, .server = {}});
    screen.onActionEnded({});
    if (const std::string failure = daily.failure(); !failure.empty()) {
        tell(screen, failure, screen::Icon::exclamation);
    }
    return end;
}

End work(const desktop::Options& options, const std::string& file, desktop::Workshop& workshop, qt::QtScreen& screen,
         const system::Clock& clock) {
    if (auto* server = dynamic_cast<odbc::ServerConnection*>(&workshop.connection())) {
        // Forms, whose actions these are, live within this function, as the connection does.
        screen.onActionEnded([server, &screen] { desktop::offerToReconnect(*server, screen); });
    }
    qt::QtServices services;
    components::ComponentFactory components;
    const desktop::DatabasePlace place{.file = file, .server = file.empty() ? options.server : std::string()};
    stand_ins::registerStandIns(components, screen, services, clock, desktop::paperChoices(place, screen, services));
    platform::Desk desk{screen, components, services, clock};
    shell::VMORA vmora{desk};
    vmora.MyBd(&workshop.session());
    if (!options.pictures.empty()) {
        makePictures(screen, workshop.session(), desk, options.pictures);
        return {};
    }
    std::optional<desktop::TitleNote> note;
    if (workshop.isDemonstration()) {
        note.emplace(QStringLiteral(" — DEMOSTRACIÓN"));
    }
    if (!workshop.notice().empty()) {
        tell(screen, workshop.notice(), screen::Icon::exclamation);
    }
    if (file.empty() || file == ":memory:") {
        return perform(options, vmora, screen, desk, nullptr, place);
    }
    return workWithFile(options, file, screen, vmora, desk);
}

void restore(const backup::Copy& copy, const std::string& file, qt::QtScreen& screen, const system::Clock& clock) {
    try {
        backup::Copies(file, clock).restore(copy);
        tell(screen, "La copia está restaurada.", screen::Icon::information);
    } catch (const backup::Failed& e) {
        tell(screen, e.what(), screen::Icon::critical);
    }
}

/// One database after the other, until the user leaves.
class Run {
  public:
    Run(const desktop::Options& options, qt::QtScreen& screen) : options_(options), screen_(screen) {}

    /// The program's exit status.
    int all() {
        bool goesOn = true;
        while (goesOn) {
            try {
                goesOn = isChosen() && workWithOne();
            } catch (const desktop::NoWorkshop& e) {
                giveUp(e);
            }
        }
        return failed_ ? 1 : 0;
    }

  private:
    /// Asks where it must, but not for pictures, which are made without a user. False when the user leaves instead of
    /// choosing.
    bool isChosen() {
        asked_ = false;
        if (reason_.empty() && options_.pictures.empty() && !start_.make && desktop::isFirstStart(start_.database)) {
            reason_ = desktop::reasonOfFirstStart(start_.database);
        }
        if (reason_.empty()) {
            return true;
        }
        qt::QtServices services;
        desktop::FirstStartForm form(reason_, desktop::fileForNew(start_.database), services);
        screen_.showModal(form);
        if (form.answer()) {
            asked_ = true;
            reason_.clear();
            start_ = *form.answer();
        }
        return asked_;
    }

    /// False when the user has left.
    bool workWithOne() {
        const End end = openAndWork();
        if (end.restore) {
            restore(*end.restore, start_.database.file, screen_, clock_);
        }
        if (end.wantsAnother) {
            reason_ = "Elija con qué taller quiere trabajar.";
        }
        return end.restore || end.wantsAnother;
    }

    /// The database is closed afterwards.
    End openAndWork() {
        screen_.setPointer(screen::Pointer::hourglass);
        const auto workshop = opened();
        screen_.setPointer(screen::Pointer::normal);
        failed_ = false;
        if (asked_) {
            remember();
        }
        return work(options_, start_.database.file, *workshop, screen_, clock_);
    }

    std::unique_ptr<desktop::Workshop> opened() const {
        const desktop::ChosenDatabase& chosen = start_.database;
        return chosen.file.empty() ? desktop::openServer(engines_, chosen.server)
                                   : desktop::openWorkshop(engines_, chosen.file, clock_,
                                                           start_.make.value_or(desktop::NewRows::demonstration));
    }

    void remember() {
        if (!desktop::rememberChoice(desktop::choiceFile(), start_.database)) {
            tell(screen_,
                 "El próximo inicio no recordará esta base de datos. Una cadena de conexión con contraseña no se "
                 "guarda: escríbala en un fichero que solo usted pueda leer e indique ese fichero.",
                 screen::Icon::information);
        }
    }

    /// Offers another one; without a user the program ends.
    void giveUp(const desktop::NoWorkshop& failure) {
        screen_.setPointer(screen::Pointer::normal);
        if (!options_.pictures.empty()) {
            throw failure;
        }
        std::cerr << "velmora: " << failure.what() << '\n';
        tell(screen_, failure.what(), screen::Icon::critical);
        reason_ = "No se ha podido abrir la base de datos. Elija otra.";
        failed_ = true;
    }

    const desktop::Options& options_;
    qt::QtScreen& screen_;
    const system::SystemClock clock_;
    desktop::LockNote lockNote_{screen_};
    const sql::Engines engines_ = engines::knownEngines(
        clock_, [] { return std::make_unique<desktop::LongStatement>(); },
        [this](bool waits) { lockNote_.tell(waits); });
    desktop::FirstStart start_{
        .database = desktop::databaseToOpen(options_, desktop::rememberedChoice(desktop::choiceFile())),
        .make = options_.data};
    std::string reason_;  ///< why the user has to choose; empty: what is to be opened is known
    bool asked_ = false;  ///< the user has just chosen it
    bool failed_ = false;
};

/// In the windows' title bars and the list of tasks, which show no larger ones.
void showIcon() {
    constexpr int largest = 128;
    QIcon icon;
    for (const int size : icon::imageSizes) {
        if (size <= largest) {
            icon.addPixmap(QPixmap::fromImage(icon::iconImage(size)));
        }
    }
    QApplication::setWindowIcon(icon);
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
    // The desktop finds the installed icon by the name of the entry.
    QApplication::setDesktopFileName(QStringLiteral("velmora"));
    const qt::FirstPaint windowStands(showIcon);
    qt::QtScreen screen;
    if (onScreen) {
        qt::setLetterSize(settings::readUserSettings(desktop::userSettingsFile()).letterSize);
        screen.remember(std::make_unique<qt::WindowMemory>(desktop::windowsFile()));
    }
    try {
        return Run(options, screen).all();
    } catch (const std::exception& e) {
        if (onScreen) {
            screen.showError(std::current_exception());
        }
        std::cerr << "velmora: " << e.what() << '\n';
    }
    return 1;
}
