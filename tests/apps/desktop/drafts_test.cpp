#include "velmora/apps/desktop/drafts.h"

#include <fstream>

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// As a form writes one: it tells its end.
std::string draft(const std::string& words) {
    return "[Text1(1)]\ntext=" + words + "\n[end]\n";
}

class DraftsTest : public ::testing::Test {
  protected:
    std::vector<std::string> left() const {
        std::vector<std::string> texts;
        for (const LeftDraft& each : Drafts(database).left()) {
            texts.push_back(each.text);
        }
        return texts;
    }
    /// Another process that ends without a word.
    void crash(const std::string& text) const {
        const pid_t child = ::fork();
        if (child == 0) {
            Drafts drafts(database);
            drafts.keep(text);
            ::_exit(0);
        }
        ::waitpid(child, nullptr, 0);
    }

    support::TemporaryFolder folder;
    std::string database = folder.file("taller ñ.db");
};

TEST_F(DraftsTest, WhatIsStoredLeavesNothing) {
    {
        Drafts drafts(database);
        drafts.keep(draft("38"));
        drafts.keep(draft("39"));
        drafts.keep(std::nullopt);
    }
    EXPECT_THAT(folder.files(), IsEmpty());
}

TEST_F(DraftsTest, OneOfARunningProgramIsNotOffered) {
    Drafts drafts(database);
    drafts.keep(draft("38"));
    EXPECT_THAT(left(), IsEmpty());
}

TEST_F(DraftsTest, ACrashLeavesTheLastOneOfEachProgram) {
    crash(draft("38"));
    crash(draft("19"));
    EXPECT_THAT(left(), UnorderedElementsAre(draft("38"), draft("19")));
    for (const LeftDraft& each : Drafts(database).left()) {
        Drafts::remove(each);
    }
    EXPECT_THAT(left(), IsEmpty());
    EXPECT_THAT(folder.files(), IsEmpty());
}

TEST_F(DraftsTest, TheLastOneThatIsGivenUpIsKept) {
    {
        Drafts drafts(database);
        drafts.keep(draft("38"));
        drafts.giveUp();
        EXPECT_THAT(drafts.left().size(), 1u) << "also by this program";
        drafts.keep(draft("19"));
    }
    EXPECT_THAT(left(), ElementsAre(draft("19")));
}

TEST_F(DraftsTest, OneThatIsCutOffAndOtherFilesAreNotOffered) {
    crash(draft("38").substr(0, 10));
    std::ofstream(folder.file(".taller ñ.db.borrador-7.nuevo")) << draft("38");
    std::ofstream(folder.file(".otro.db.borrador-7")) << draft("38");
    std::ofstream(folder.file("taller ñ.db")) << "x";
    EXPECT_THAT(left(), IsEmpty());
}

TEST_F(DraftsTest, ADatabaseNamedWithoutItsFolderHasThemToo) {
    crash(draft("38"));
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    EXPECT_EQ(Drafts("taller ñ.db").left().size(), 1u);
    std::filesystem::current_path(before);
}

TEST_F(DraftsTest, AFolderThatCannotBeWrittenKeepsNothing) {
    Drafts drafts("/dev/null/taller.db");
    drafts.keep(draft("38"));
    EXPECT_THAT(drafts.left(), IsEmpty());
}

}  // namespace
}  // namespace velmora::desktop
