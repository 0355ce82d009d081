#include "velmora/apps/desktop/about_form.h"

#include <fstream>

#include <gmock/gmock.h>

#include "velmora/platform/version.h"

#include "support/proposal_workshop.h"
#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(AboutTextTest, TellsVersionDatabaseProposalsAndLicences) {
    const support::TemporaryFolder folder;
    const auto rows = support::makeWorkshopDatabase();
    const std::string text = aboutText(*rows, {.file = folder.file("taller.db")});
    const std::int32_t count = rows->execute("SELECT count(*) as n FROM DPI")[0].toLong();
    EXPECT_THAT(text, HasSubstr("VELMORA " + platform::version()));
    EXPECT_THAT(text, HasSubstr("Base de datos: " + folder.file("taller.db")));
    EXPECT_THAT(text, HasSubstr("Propuestas: " + std::to_string(count)));
    EXPECT_THAT(text, HasSubstr("Qt 6: LGPL-3"));
}

TEST(AboutTextTest, TellsTheSizesOfBothFiles) {
    const support::TemporaryFolder folder;
    std::ofstream(folder.file("taller.db")) << std::string(1536 * 1024, 'x');
    const auto rows = support::makeWorkshopDatabase();
    EXPECT_THAT(aboutText(*rows, {.file = folder.file("taller.db")}),
                HasSubstr("Tamaño: 1,5 MB, y tamaño desconocido de documentos"));
}

TEST(AboutTextTest, NeverTellsAPassword) {
    const auto rows = support::makeWorkshopDatabase();
    const std::string text = aboutText(*rows, {.server = "DRIVER=x;SERVER=s1;UID=ana;Pwd=secreto"});
    EXPECT_THAT(text, HasSubstr("SERVER=s1"));
    EXPECT_THAT(text, Not(HasSubstr("secreto")));
    EXPECT_EQ(withoutPassword("SERVER=s1;PWD={se;creto};DATABASE=d"), "SERVER=s1;PWD=…");
    EXPECT_EQ(withoutPassword("Password=a;SERVER=s1"), "Password=…;SERVER=s1");
}

TEST(AboutFormTest, TheTextCannotBeChangedAndEscLeaves) {
    AboutForm form("one\r\ntwo");
    EXPECT_TRUE(dynamic_cast<screen::TextBox&>(*form.find("txtTexto")).locked());
    form.keyDown(screen::Key::escape);
    EXPECT_TRUE(form.isUnloaded());
}

}  // namespace
}  // namespace velmora::desktop
