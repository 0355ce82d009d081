#include "velmora/apps/settings/user_settings.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace velmora::settings {
namespace {

TEST(UserSettingsTest, ComeBackAsTheyWereSaved) {
    const support::TemporaryFolder folder;
    const auto file = folder.path() / "velmora" / "usuario.ajustes";
    EXPECT_EQ(readUserSettings(file), UserSettings());
    const UserSettings settings{.papersFolder = "/casa/papeles", .letterSize = 125, .companyFolder = "/red/empresa"};
    writeUserSettings(file, settings);
    EXPECT_EQ(readUserSettings(file), settings);
}

TEST(UserSettingsTest, ASizeOutsideTheLimitsIsTheOrdinaryOne) {
    const support::TemporaryFolder folder;
    const auto file = folder.path() / "usuario.ajustes";
    for (const char* size : {"79", "201", "-100", "large", ""}) {
        writeEntries(file, {{"letra", size}});
        EXPECT_EQ(readUserSettings(file).letterSize, ordinaryLetters) << size;
    }
}

}  // namespace
}  // namespace velmora::settings
