#include "velmora/apps/settings/settings_file.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/temporary_folder.h"

namespace velmora::settings {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class SettingsFileTest : public ::testing::Test {
  protected:
    std::size_t filesInFolder() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
    }

    support::TemporaryFolder folder;
    fs::path file = folder.path() / "a" / "taller.ajustes";
};

TEST_F(SettingsFileTest, WithoutAFileThereIsNothing) {
    EXPECT_TRUE(readEntries(file).empty());
}

TEST_F(SettingsFileTest, TextsOfAnyCharactersComeBack) {
    const Entries entries{{"a", "una línea\notra\r\ny otra = con \\n dentro\\"}, {"b", ""}, {"c", " blanks "}};
    writeEntries(file, entries);
    EXPECT_EQ(readEntries(file), entries);
}

TEST_F(SettingsFileTest, WhatIsThereUnderOtherNamesStays) {
    writeEntries(file, {{"a", "1"}, {"of a newer version", "2"}});
    writeEntries(file, {{"a", "3"}});
    EXPECT_EQ(readEntries(file), (Entries{{"a", "3"}, {"of a newer version", "2"}}));
}

TEST_F(SettingsFileTest, LinesThatAreNoEntriesArePassedOver) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << "no entry\n=nor this\na=1\n";
    EXPECT_EQ(readEntries(file), (Entries{{"a", "1"}}));
}

TEST_F(SettingsFileTest, NothingButTheFileIsLeft) {
    writeEntries(folder.path() / "taller.ajustes", {{"a", "1"}});
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(SettingsFileTest, AFolderThatCannotBeMadeIsTold) {
    std::ofstream(folder.path() / "a") << "no folder";
    try {
        writeEntries(file, {{"a", "1"}});
        FAIL() << "was written";
    } catch (const NotSaved& e) {
        EXPECT_THAT(e.what(), HasSubstr("No se pueden guardar los ajustes"));
        EXPECT_THAT(e.what(), HasSubstr("La carpeta no existe."));
    }
}

/// In a child, whose files cannot become longer than this: as on a disk that is full.
TEST_F(SettingsFileTest, OnAFullDiskTheFileStaysAsItWas) {
    const fs::path here = folder.path() / "taller.ajustes";
    writeEntries(here, {{"a", "1"}});
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit least{.rlim_cur = 100, .rlim_max = 100};
        ::setrlimit(RLIMIT_FSIZE, &least);
        try {
            writeEntries(here, {{"a", std::string(100000, 'x')}});
        } catch (const NotSaved&) {
            ::_exit(7);
        }
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 7) << "it was told";
    EXPECT_EQ(readEntries(here), (Entries{{"a", "1"}}));
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST(BytesTextTest, BytesOfAnyLengthComeBack) {
    std::string bytes;
    for (int i = 0; i < 300; ++i) {
        EXPECT_EQ(textBytes(bytesText(bytes)), bytes) << i;
        bytes += static_cast<char>(i * 7);
    }
    EXPECT_EQ(bytesText("Man"), "TWFu");
}

TEST(BytesTextTest, AnotherTextIsNoBytes) {
    EXPECT_EQ(textBytes("TW u"), "");
}

}  // namespace
}  // namespace velmora::settings
