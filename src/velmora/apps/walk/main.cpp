// velmora-walk WIDTHxHEIGHT PERCENT STEPS FOLDER: plays the steps of a walk (steps.h) on the demonstration workshop, on
// a screen of this size in pixels with this scale, and writes its pictures into the folder. Needs no display.

#include <QApplication>
#include <QTemporaryDir>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "velmora/adapters/qt/qt_screen.h"
#include "velmora/adapters/qt/qt_services.h"
#include "velmora/apps/backup/copies.h"
#include "velmora/apps/desktop/first_start_form.h"
#include "velmora/apps/desktop/paper_choices.h"
#include "velmora/apps/desktop/start_form.h"
#include "velmora/apps/desktop/start_keys.h"
#include "velmora/apps/desktop/title_note.h"
#include "velmora/apps/desktop/workshop.h"
#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/stand_ins/stand_ins.h"
#include "velmora/apps/walk/steps.h"
#include "velmora/apps/walk/walker.h"
#include "velmora/platform/screen/sketch.h"

namespace {

using namespace velmora;

constexpr int walkMistaken = 1;
constexpr int wrongUse = 2;

/// Stands still, so that two walks give the same pictures.
class WalkClock final : public system::Clock {
  public:
    runtime::Date now() const override { return now_; }

  private:
    runtime::Date now_ = runtime::Date::of(2026, 11, 20, 10, 32);
};

/// Documents are not opened but remembered.
class WalkServices final : public qt::QtServices {
  public:
    int openWithAssociatedProgram(std::string_view path) override {
        if (opened_.empty()) {
            opened_ = path;
        }
        return 33;
    }
    /// The first one since the last call.
    std::string takeOpened() { return std::exchange(opened_, {}); }

  private:
    std::string opened_;
};

struct Size {
    int width = 0;
    int height = 0;
};

int numberFrom(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || value <= 0) {
        throw std::invalid_argument("no number: " + std::string(text));
    }
    return value;
}

Size sizeFrom(std::string_view text) {
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos) {
        throw std::invalid_argument("no size: " + std::string(text));
    }
    return {.width = numberFrom(text.substr(0, cross)), .height = numberFrom(text.substr(cross + 1))};
}

/// Has to be done before the application is made.
void makeScreen(Size size, int percent, const QString& folder) {
    const QString file = folder + QStringLiteral("/screen.json");
    std::ofstream(file.toStdString()) << R"({"screens":[{"name":"walk","x":0,"y":0,"width":)" << size.width
                                      << R"(,"height":)" << size.height
                                      << R"(,"logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})";
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file).toUtf8());
    qputenv("QT_SCALE_FACTOR", QByteArray::number(percent / 100.0));
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The platform without a display warns of what it cannot do for a window manager that is not there.
void passErrorsOnly(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::cerr << message.toStdString() << '\n';
    }
}

/// The window of the first start. The walk has to take the demonstration.
void chooseDemonstration(qt::QtScreen& screen, system::Services& services) {
    const std::string shownFile = "/home/taller/.local/share/velmora/velmora.db";
    desktop::FirstStartForm form(desktop::reasonOfFirstStart({.file = shownFile}), shownFile, services);
    screen.showModal(form);
    if (!form.answer() || form.answer()->make != desktop::NewRows::demonstration) {
        throw std::runtime_error("the walk does not begin with the demonstration");
    }
}

int play(const std::string& stepsFile, const std::string& folder, const QString& workFolder) {
    qt::QtScreen screen;
    const WalkClock clock;
    WalkServices services;
    std::filesystem::create_directories(folder);
    walk::Walker walker(walk::stepsOf(contentOf(stepsFile)), folder, [&services] { return services.takeOpened(); });
    walker.start();
    chooseDemonstration(screen, services);

    const sql::Engines engines = engines::knownEngines(clock);
    const std::string database = workFolder.toStdString() + "/taller.db";
    const auto workshop = desktop::openWorkshop(engines, database, clock);
    const desktop::TitleNote note(QStringLiteral(" — DEMOSTRACIÓN"));
    components::ComponentFactory components;
    const desktop::DatabasePlace place{.file = database, .server = {}};
    stand_ins::registerStandIns(components, screen, services, clock, desktop::paperChoices(place, screen, services));
    platform::Desk desk{screen, components, services, clock};
    shell::VMORA vmora{desk};
    vmora.MyBd(&workshop->session());
    backup::Copies copies(database, clock);
    copies.makeDaily();

    desktop::StartForm form(desk, vmora, vmora.MyBd(), &copies, place);
    const desktop::StartKeys keys(screen, form);
    screen.showModal(form);
    for (const std::string& complaint : walker.complaints()) {
        std::cerr << "velmora-walk: " << complaint << '\n';
    }
    return walker.complaints().empty() ? 0 : walkMistaken;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "velmora-walk WIDTHxHEIGHT PERCENT STEPS FOLDER\n";
        return wrongUse;
    }
    try {
        const QTemporaryDir workFolder;
        // The settings of whoever builds this are neither shown nor changed.
        qputenv("XDG_CONFIG_HOME", workFolder.path().toUtf8());
        makeScreen(sizeFrom(argv[1]), numberFrom(argv[2]), workFolder.path());
        qInstallMessageHandler(passErrorsOnly);
        QApplication application(argc, argv);
        return play(argv[3], argv[4], workFolder.path());
    } catch (const std::exception& e) {
        std::cerr << "velmora-walk: " << e.what() << '\n';
        return walkMistaken;
    }
}
