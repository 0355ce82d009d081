#include "velmora/adapters/script/script_services.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace velmora::script {
namespace {

TEST(Moment, ReadsDateAndTime) {
    EXPECT_EQ(momentFrom("2026-01-15 10:05:09"), runtime::Date::of(2026, 1, 15, 10, 5, 9));
    EXPECT_EQ(momentFrom("2024-02-29"), runtime::Date::of(2024, 2, 29));
}

TEST(Moment, RefusesWhatNoClockShows) {
    for (const char* text : {"", "2026-02-29", "2026-13-01", "2026-01-15 24:00:00", "2026-01-15 10:60:00",
                             "2026-01-15T10:00:00", "15/01/2026", "2026-01-15 10:00", "2026-01-1x"}) {
        EXPECT_FALSE(momentFrom(text)) << text;
    }
}

TEST(ScriptServices, KeepATemporaryFolderOfTheirOwnAsLongAsTheyLive) {
    std::ostringstream out;
    Journal journal(out);
    Answers answers;
    std::string folder;
    {
        ScriptServices services(journal, answers);
        folder = services.temporaryFolder();
        EXPECT_EQ(folder, services.temporaryFolder());
        ASSERT_TRUE(folder.ends_with('/'));
        std::ofstream(folder + "hoja.txt") << "x";
        EXPECT_GT(services.openWithAssociatedProgram(folder + "hoja.txt"), 32);
        EXPECT_LE(services.openWithAssociatedProgram(folder + "otra.txt"), 32);
    }
    EXPECT_FALSE(std::filesystem::exists(folder));
    EXPECT_EQ(out.str(), "opened \"hoja.txt\"\n");
}

TEST(ScriptServices, PrintWhatIsCopied) {
    std::ostringstream out;
    Journal journal(out);
    Answers answers;
    EXPECT_TRUE(ScriptServices(journal, answers).copyToClipboard("una\notra"));
    EXPECT_EQ(out.str(), "copied \"una\\notra\"\n");
}

TEST(ScriptServices, LeaveTheFolderThatTheyWereGiven) {
    std::ostringstream out;
    Journal journal(out);
    Answers answers;
    const support::TemporaryFolder root;
    const std::filesystem::path kept = root.path() / "papeles";
    {
        ScriptServices services(journal, answers, kept);
        EXPECT_EQ(services.temporaryFolder(), kept.string() + "/");
        std::ofstream(services.temporaryFolder() + "hoja.txt") << "x";
    }
    EXPECT_TRUE(std::filesystem::exists(kept / "hoja.txt"));
}

}  // namespace
}  // namespace velmora::script
