#include "velmora/apps/desktop/start_menu.h"

#include <set>

#include <gmock/gmock.h>

#include "velmora/apps/backup/copies.h"
#include "velmora/apps/desktop/start_form.h"
#include "velmora/platform/toolkit/mnemonics.h"

#include "support/proposal_workshop.h"

namespace velmora::desktop {
namespace {

using ::testing::Contains;
using ::testing::Not;

class StartMenuTest : public ::testing::Test {
  protected:
    static std::vector<std::string> keysOf(const std::vector<screen::Toolbar::Item>& items) {
        std::vector<std::string> keys;
        for (const screen::Toolbar::Item& item : items) {
            for (const screen::Toolbar::MenuItem& entry : item.menu) {
                keys.push_back(entry.key);
            }
        }
        return keys;
    }

    support::ProposalWorkshop workshop;
    shell::VMORA vmora{workshop.desk};
    support::TemporaryFolder folder;
    backup::Copies copies{folder.file("taller.db"), workshop.clock};
};

TEST_F(StartMenuTest, EveryEntryHasAKeyOfItsOwnAndALetterInItsMenu) {
    std::set<std::string> keys;
    std::set<char32_t> letters;
    for (const Menu& menu : startMenus()) {
        EXPECT_TRUE(letters.insert(toolkit::mnemonicOf(menu.caption)).second) << menu.caption;
        std::set<char32_t> inside{0};
        for (const MenuEntry& entry : menu.entries) {
            EXPECT_TRUE(keys.insert(entry.key).second) << entry.key;
            EXPECT_TRUE(inside.insert(toolkit::mnemonicOf(entry.caption)).second) << entry.caption;
            EXPECT_TRUE(entry.perform) << entry.key;
        }
    }
}

TEST_F(StartMenuTest, NoButtonOfTheWindowHasTheLetterOfAMenu) {
    StartForm start(workshop.desk, vmora, workshop.session, &copies);
    for (const Menu& menu : startMenus()) {
        for (const screen::Control* control : start.controls()) {
            if (const auto* button = dynamic_cast<const screen::Button*>(control)) {
                EXPECT_NE(toolkit::mnemonicOf(menu.caption), toolkit::mnemonicOf(button->caption()))
                    << menu.caption << " and " << button->caption();
            }
        }
    }
}

TEST_F(StartMenuTest, AMenuShowsWhatIsOfferedAndIsLeftOutWhenNothingIs) {
    const StartForm withCopies(workshop.desk, vmora, workshop.session, &copies);
    EXPECT_THAT(keysOf(menuItems(withCopies)), Contains("copias"));
    const StartForm onServer(workshop.desk, vmora, workshop.session, nullptr);
    EXPECT_THAT(keysOf(menuItems(onServer)), Not(Contains("copias")));
    for (const screen::Toolbar::Item& item : menuItems(onServer)) {
        EXPECT_FALSE(item.menu.empty()) << item.caption;
    }
}

TEST_F(StartMenuTest, TheBarPerformsItsEntries) {
    StartForm start(workshop.desk, vmora, workshop.session, nullptr);
    auto& bar = dynamic_cast<screen::Toolbar&>(*start.find("barMenu"));
    bar.onMenuClick("no hay");
    EXPECT_FALSE(start.isUnloaded());
    vmora.MyBd(&workshop.session);
    bool shown = false;
    workshop.screen.queueModal([&](screen::Form& form) { shown = form.name() == "frmMaterias"; });
    bar.onMenuClick("materiales");
    EXPECT_TRUE(shown);
    bar.onMenuClick("salir");
    EXPECT_TRUE(start.isUnloaded());
}

}  // namespace
}  // namespace velmora::desktop
