#include "velmora/apps/desktop/backup_form.h"

#include <filesystem>

#include <gmock/gmock.h>

#include "velmora/apps/desktop/start_form.h"
#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/workshop_file/workshop_file.h"
#include "velmora/shell/vmora.h"

#include "support/fake_screen.h"
#include "support/no_services.h"
#include "support/proposal_workshop.h"
#include "support/stopped_clock.h"
#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class BackupFormTest : public ::testing::Test {
  protected:
    BackupFormTest() {
        workshop_file::open(engines::knownEngines(clock), database, [](sql::Connection&) {});
    }
    static void press(screen::Form& form, const char* button) {
        auto* found = dynamic_cast<screen::Button*>(form.find(button));
        ASSERT_NE(found, nullptr) << button;
        ASSERT_TRUE(found->enabled()) << button;
        found->onClick();
    }
    static screen::ComboBox& list(screen::Form& form) {
        return dynamic_cast<screen::ComboBox&>(*form.find("cboCopias"));
    }

    support::TemporaryFolder folder;
    std::string database = folder.file("taller.db");
    support::StoppedClock clock;
    support::ScriptedScreen screen;
    support::NoServices services;
    components::ComponentFactory components;
    platform::Desk desk{screen, components, services, clock};
    backup::Copies copies{database, clock};
    std::unique_ptr<sql::Connection> rows = support::makeWorkshopDatabase();
    adapters::StandInSession session{*rows};
};

TEST_F(BackupFormTest, ACopyIsMadeAndListed) {
    BackupForm form(desk, copies);
    EXPECT_FALSE(form.find("cmdRestaurar")->enabled()) << "there is none";
    press(form, "cmdCopiar");
    EXPECT_THAT(screen.messageTexts(), ElementsAre("Copia de seguridad hecha y comprobada."));
    EXPECT_EQ(list(form).text(), "15/01/2026 10:00");
    EXPECT_TRUE(form.find("cmdRestaurar")->enabled());
}

TEST_F(BackupFormTest, ACopyThatCannotBeMadeIsTold) {
    std::filesystem::remove(database);
    std::filesystem::create_directory(database);
    BackupForm form(desk, copies);
    press(form, "cmdCopiar");
    EXPECT_THAT(screen.messageTexts(), ElementsAre(HasSubstr("No se pudo hacer la copia")));
    EXPECT_TRUE(copies.all().empty());
}

TEST_F(BackupFormTest, TheChosenOneIsPutBackAfterAYesOnly) {
    copies.make();
    clock.time.at += std::chrono::hours(24);
    copies.make();
    for (const auto answer : {screen::Answer::no, screen::Answer::yes}) {
        BackupForm form(desk, copies);
        list(form).setListIndex(1);
        screen.queue(answer);
        press(form, "cmdRestaurar");
        EXPECT_THAT(screen.messages.back().text, HasSubstr("después del 15/01/2026 10:00"));
        ASSERT_EQ(form.wanted().has_value(), answer == screen::Answer::yes);
    }
}

TEST_F(BackupFormTest, TheStartWindowTellsTheLastOneAndHandsOnWhichIsWanted) {
    copies.make();
    shell::VMORA vmora(desk);
    StartForm start(desk, vmora, session, &copies);
    const auto state = [&] { return dynamic_cast<screen::Label&>(*start.find("lblCopias")).caption(); };
    EXPECT_EQ(state(), "Última copia de seguridad: 15/01/2026 10:00");
    clock.time.at += std::chrono::days(8);
    screen.queueModal([](screen::Form&) {});
    press(start, "cmdCopias");
    EXPECT_EQ(state(), "Última copia de seguridad: 15/01/2026 10:00, hace más de una semana.");
    EXPECT_FALSE(start.wanted());
    screen.queueModal([&](screen::Form& form) {
        screen.queue(screen::Answer::yes);
        press(form, "cmdRestaurar");
    });
    press(start, "cmdCopias");
    ASSERT_TRUE(start.wanted());
    EXPECT_EQ(start.wanted()->file, copies.all().front().file);
}

TEST_F(BackupFormTest, AServersCopiesAreItsOwn) {
    shell::VMORA vmora(desk);
    StartForm start(desk, vmora, session, nullptr);
    EXPECT_FALSE(start.find("cmdCopias")->visible());
    EXPECT_FALSE(start.find("lblCopias")->visible());
}

}  // namespace
}  // namespace velmora::desktop
