// Starts without a database: the question, what is made, and what a start that is killed leaves.

#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "velmora/apps/backup/copies.h"
#include "velmora/apps/desktop/chosen_database.h"
#include "velmora/apps/desktop/file_watch.h"
#include "velmora/apps/desktop/first_start_form.h"
#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/workshop_file/workshop_file.h"
#include "velmora/proposal/frm_bercial_pinones.h"

#include "support/fake_screen.h"
#include "support/no_services.h"
#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Optional;

/// Answers every dialog for a file with this one.
class PickingServices final : public system::Services {
  public:
    explicit PickingServices(std::optional<std::string> file = std::nullopt) : file_(std::move(file)) {}
    std::string temporaryFolder() const override { return {}; }
    std::optional<std::string> openFileDialog(const system::OpenFileRequest&) override { return file_; }
    int openWithAssociatedProgram(std::string_view) override { return 0; }

  private:
    std::optional<std::string> file_;
};

class FirstStartTest : public ::testing::Test {
  protected:
    std::unique_ptr<Workshop> open(NewRows rows) { return openWorkshop(engines, file, clock, rows); }
    static std::int32_t count(Workshop& workshop, const std::string& table) {
        return workshop.connection().execute("select count(*) from " + table)[0].toLong();
    }
    /// What a child process tells by its exit status. A user without special rights runs it: to the administrator no
    /// file is read-only.
    int asPlainUser(const std::function<int()>& action) const {
        const pid_t child = ::fork();
        if (child == 0) {
            constexpr uid_t nobody = 65534;
            if (::geteuid() == 0 && ::setuid(nobody) != 0) {
                ::_exit(99);
            }
            ::_exit(action());
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    support::TemporaryFolder folder;
    std::string file = folder.file("taller.db");
    system::SystemClock clock;
    const sql::Engines engines = engines::knownEngines(clock);
};

// ---- What is made -------------------------------------------------------------------------------------------------

TEST_F(FirstStartTest, AnEmptyWorkshopHasEveryTableAndOnlyTheConstants) {
    const auto workshop = open(NewRows::empty);
    EXPECT_FALSE(workshop->isDemonstration());
    EXPECT_EQ(count(*workshop, "Calculos"), 14);
    for (const char* table :
         {"DPI", "PARDPI", "PDM", "ENG", "MoDpi", "materiales", "ART", "CLI",   "RSEC",       "MAQ", "OPE",
          "OBM", "PRO",    "CAC", "LAC", "REC",   "Cav",        "Lav", "ORDEN", "OrdPiñones", "Mat", "RUT"}) {
        EXPECT_EQ(count(*workshop, table), 0) << table;
    }
}

TEST_F(FirstStartTest, AnEmptyWorkshopOpensItsFormAndComputesAHub) {
    const auto workshop = open(NewRows::empty);
    support::ScriptedScreen screen;
    support::NoServices services;
    components::ComponentFactory components;
    platform::Desk desk{screen, components, services, clock};
    proposal::frmBercialPiñones form(workshop->session(), desk);
    form.activate();
    auto& f = form.fields();
    f.cboTipoPre.choose(0);
    for (const auto& [field, text] : {std::pair{1, "38"}, {0, "12,7"}, {8, "7,75"}, {2, "8,51"}}) {
        form.moveFocus(f.Text1(field));
        f.Text1(field).setText(text);
    }
    form.moveFocus(f.txtObservaciones);
    EXPECT_EQ(f.lblFormulaDM.caption(), "DP x 0,6");
}

TEST_F(FirstStartTest, ADemonstrationStaysOneAndSoDoItsCopies) {
    open(NewRows::demonstration);
    EXPECT_TRUE(open(NewRows::empty)->isDemonstration()) << "a file that is there is opened as it is";
    const backup::Copy copy = backup::Copies(file, clock).make();
    EXPECT_TRUE(openWorkshop(engines, copy.file.string(), clock, NewRows::empty)->isDemonstration());
    EXPECT_TRUE(openWorkshop(engines, ":memory:", clock)->isDemonstration());
}

// ---- The question -------------------------------------------------------------------------------------------------

TEST_F(FirstStartTest, ItIsAskedWhereNothingIsThere) {
    EXPECT_TRUE(isFirstStart({.file = file}));
    std::ofstream(file).flush();
    EXPECT_TRUE(isFirstStart({.file = file})) << "an empty file";
    open(NewRows::empty);
    EXPECT_FALSE(isFirstStart({.file = file}));
    EXPECT_FALSE(isFirstStart({.file = ":memory:"}));
    EXPECT_FALSE(isFirstStart({.server = "Server=taller"}));
    std::ofstream(folder.file("carta.db")) << "Estimado cliente: esto no es una base de datos, sino una carta.";
    EXPECT_THROW(isFirstStart({.file = folder.file("carta.db")}), NoWorkshop);
}

TEST_F(FirstStartTest, EachButtonAnswersIt) {
    struct Row {
        const char* button;
        const char* server;
        std::optional<std::string> picked;
        FirstStart answer;
    };
    const std::vector<Row> rows{
        {"cmdDemostracion", "", {}, {.database = {.file = "/x.db"}, .make = NewRows::demonstration}},
        {"cmdVacio", "", {}, {.database = {.file = "/x.db"}, .make = NewRows::empty}},
        {"cmdAbrir", "", "/otra.db", {.database = {.file = "/otra.db"}}},
        {"cmdServidor", " Server=s;UID=u ", {}, {.database = {.server = "Server=s;UID=u"}}},
        {"cmdServidor", "/etc/taller.txt", {}, {.database = {.server = "/etc/taller.txt"}}},
        {"cmdServidor", "taller.txt", {}, {.database = {.server = fs::absolute("taller.txt").string()}}},
    };
    for (const Row& row : rows) {
        PickingServices services(row.picked);
        FirstStartForm form("", "/x.db", services);
        dynamic_cast<screen::TextBox&>(*form.find("txtServidor")).setText(row.server);
        dynamic_cast<screen::Button&>(*form.find(row.button)).onClick();
        ASSERT_TRUE(form.answer()) << row.button;
        EXPECT_EQ(form.answer()->database, row.answer.database) << row.button;
        EXPECT_EQ(form.answer()->make, row.answer.make) << row.button;
        EXPECT_TRUE(form.isUnloaded());
    }
}

TEST_F(FirstStartTest, WhatGivesNoAnswerLeavesItOpenAndEscLeavesWithoutOne) {
    PickingServices services;
    FirstStartForm form("Bienvenido.", "/x.db", services);
    form.activate();
    dynamic_cast<screen::Button&>(*form.find("cmdAbrir")).onClick();
    dynamic_cast<screen::Button&>(*form.find("cmdServidor")).onClick();
    EXPECT_FALSE(form.isUnloaded());
    EXPECT_EQ(form.activeControl(), form.find("txtServidor"));
    form.keyDown(screen::Key::escape);
    EXPECT_TRUE(form.isUnloaded());
    EXPECT_FALSE(form.answer());
}

// ---- The choice ---------------------------------------------------------------------------------------------------

TEST_F(FirstStartTest, AChoiceIsRememberedAndTheCommandLineComesBeforeIt) {
    const fs::path remembered = folder.path() / "velmora" / "base-de-datos";
    EXPECT_EQ(rememberedChoice(remembered), std::nullopt);
    for (const ChosenDatabase& choice :
         {ChosenDatabase{.file = "/datos/taller ñ.db"}, ChosenDatabase{.server = "Server=s;UID=u"},
          ChosenDatabase{.server = "/etc/taller.txt"}}) {
        EXPECT_TRUE(rememberChoice(remembered, choice));
        EXPECT_THAT(rememberedChoice(remembered), Optional(choice));
        EXPECT_EQ(databaseToOpen({}, choice), choice);
        EXPECT_EQ(databaseToOpen({.database = "/b.db"}, choice), ChosenDatabase{.file = "/b.db"});
        EXPECT_EQ(databaseToOpen({.server = "Server=t"}, choice), ChosenDatabase{.server = "Server=t"});
        EXPECT_EQ(databaseToOpen({.pictures = "/p"}, choice), ChosenDatabase{.file = ":memory:"});
    }
    EXPECT_EQ(databaseToOpen({}, std::nullopt), ChosenDatabase{.file = defaultDatabase()});
    EXPECT_EQ(fs::status(remembered).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    std::ofstream(remembered) << "otra cosa\n";
    EXPECT_EQ(rememberedChoice(remembered), std::nullopt);
}

TEST_F(FirstStartTest, APasswordIsNotWritten) {
    const fs::path remembered = folder.path() / "base-de-datos";
    for (const char* server : {"Server=s;PWD=secreto", "Server=s;Password = secreto", "pwd =secreto"}) {
        EXPECT_FALSE(rememberChoice(remembered, {.server = server}));
        EXPECT_FALSE(fs::exists(remembered));
    }
}

TEST_F(FirstStartTest, ANewOneNeverTakesThePlaceOfOneThatIsThere) {
    EXPECT_EQ(fileForNew({.file = file}), file);
    open(NewRows::empty);
    EXPECT_NE(fileForNew({.file = file}), file);
    EXPECT_FALSE(fs::exists(fileForNew({.file = file})));
}

// ---- Killed, read-only, moved -------------------------------------------------------------------------------------

TEST_F(FirstStartTest, OneThatIsKilledHasMadeEverythingOrIsAskedAgain) {
    std::mt19937 random(7);
    int asked = 0;
    for (int turn = 0; turn < 12; ++turn) {
        fs::remove_all(folder.path());
        fs::create_directory(folder.path());
        const pid_t child = ::fork();
        if (child == 0) {
            open(turn % 2 == 0 ? NewRows::empty : NewRows::demonstration);
            ::pause();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(std::uniform_int_distribution(0, 250)(random)));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        if (isFirstStart({.file = file})) {
            ++asked;
            const auto workshop = open(NewRows::empty);
            EXPECT_EQ(count(*workshop, "DPI"), 0);
            EXPECT_FALSE(workshop->isDemonstration());
        }
        const auto workshop = open(NewRows::empty);
        EXPECT_EQ(count(*workshop, "Calculos"), 14);
        EXPECT_EQ(count(*workshop, "DPI") > 0, workshop->isDemonstration());
        EXPECT_EQ(count(*workshop, "DOCVELMORA.dbo.dex"), 0);
    }
    EXPECT_GT(asked, 0);
}

TEST_F(FirstStartTest, AReadOnlyFileIsToldAtTheStart) {
    open(NewRows::empty);
    fs::permissions(folder.path(), fs::perms::all);
    ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
    EXPECT_EQ(asPlainUser([&] {
                  try {
                      open(NewRows::empty);
                  } catch (const NoWorkshop& e) {
                      return std::string(e.what()).find("solo lectura") != std::string::npos ? 1 : 2;
                  }
                  return 3;
              }),
              1);
}

TEST_F(FirstStartTest, AFileThatIsMovedReplacedOrLockedIsToldOnce) {
    const auto workshop = open(NewRows::empty);
    FileWatch watch(file);
    EXPECT_EQ(watch.news(), std::nullopt);
    fs::rename(file, folder.file("movida.db"));
    EXPECT_THAT(watch.news(), Optional(HasSubstr("ya no está en su sitio:\n" + file)));
    EXPECT_EQ(watch.news(), std::nullopt);
    std::ofstream(file) << "otra";
    EXPECT_THAT(watch.news(), Optional(HasSubstr("Otro fichero ha tomado el sitio")));
    fs::rename(folder.file("movida.db"), file);
    EXPECT_THAT(watch.news(), Optional(HasSubstr("otra vez en su sitio")));
    EXPECT_EQ(watch.news(), std::nullopt);
    ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
    fs::permissions(folder.path(), fs::perms::all);
    EXPECT_EQ(asPlainUser([&] {
                  const auto news = watch.news();
                  return news && news->find("solo lectura") != std::string::npos ? 1 : 2;
              }),
              1);
}

TEST_F(FirstStartTest, ADatabaseInMemoryIsAlwaysInPlace) {
    FileWatch watch(":memory:");
    EXPECT_EQ(watch.news(), std::nullopt);
}

}  // namespace
}  // namespace velmora::desktop
