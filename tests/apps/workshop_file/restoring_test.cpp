#include "velmora/apps/workshop_file/restoring.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/workshop_file/database_files.h"
#include "velmora/apps/workshop_file/folder_lock.h"
#include "velmora/apps/workshop_file/workshop_file.h"
#include "velmora/platform/sql/db_error.h"

#include "support/temporary_folder.h"

namespace velmora::workshop_file {
namespace {

namespace fs = std::filesystem;

/// Two states of a workshop: "old" as it is, "new" as it is to be restored.
class RestoringTest : public ::testing::Test {
  protected:
    RestoringTest() { fill(file_, "old"); }

    void fill(const fs::path& file, const std::string& state) {
        {
            const Opened opened = open(engines_, file.string(), [](sql::Connection&) {});
            opened.connection->execute("INSERT INTO PARDPI (PARDPI_NOM) VALUES (N'" + state + "')");
            opened.connection->execute("INSERT INTO DOCVELMORA.dbo.dex (Dex_Fic) VALUES (N'" + state + "')");
        }
        std::ofstream(settingsOf(file)) << state;
    }
    void prepare() {
        const fs::path other = folder_.path() / "other/taller.db";
        fs::create_directory(other.parent_path());
        fill(other, "new");
        const auto from = filesOf(other);
        const auto to = filesOf(preparedFor(file_));
        for (std::size_t i = 0; i < from.size(); ++i) {
            fs::copy_file(from[i], to[i]);
        }
        fs::remove_all(other.parent_path());
    }
    void decide() const {
        const FolderLock lock(file_.parent_path());
        decideRestore(file_);
    }
    /// Ends the restore in another process, which is killed once it has moved so many files.
    void finishKilledAfter(int moves) const {
        const pid_t child = ::fork();
        if (child == 0) {
            int left = moves;
            const auto count = [&left] {
                if (--left <= 0) {
                    ::kill(::getpid(), SIGKILL);
                }
            };
            if (moves == 0) {
                ::kill(::getpid(), SIGKILL);
            }
            finishRestore(file_, count);
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << moves;
    }
    /// What the database, its documents and its settings hold after the next start.
    std::string stateAtNextStart() {
        const Opened opened = open(engines_, file_.string(), [](sql::Connection&) {});
        std::ifstream settings(settingsOf(file_));
        return opened.connection->execute("select PARDPI_NOM from PARDPI")[0].toText() + " " +
               opened.connection->execute("select Dex_Fic from DOCVELMORA.dbo.dex")[0].toText() + " " +
               std::string(std::istreambuf_iterator<char>(settings), {});
    }
    /// Apart from the engine's own.
    std::size_t fileCount() const {
        std::size_t count = 0;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder_.path())) {
            const std::string name = entry.path().filename().string();
            count += name.ends_with("-wal") || name.ends_with("-shm") ? 0U : 1U;
        }
        return count;
    }

    support::TemporaryFolder folder_;
    const fs::path file_ = folder_.path() / "taller.db";
    const system::SystemClock clock_;
    const sql::Engines engines_ = engines::knownEngines(clock_);
};

TEST_F(RestoringTest, AllFilesArePutInPlaceAndNothingElseIsLeft) {
    prepare();
    decide();
    finishRestore(file_);
    EXPECT_EQ(stateAtNextStart(), "new new new");
    EXPECT_EQ(fileCount(), 3U);
}

TEST_F(RestoringTest, WhatWasKilledBetweenTwoFilesIsEndedAtTheNextStart) {
    for (int moves = 0; moves <= 3; ++moves) {
        prepare();
        decide();
        finishKilledAfter(moves);
        EXPECT_EQ(stateAtNextStart(), "new new new") << "killed after " << moves;
        EXPECT_EQ(fileCount(), 3U) << "killed after " << moves;
        for (const fs::path& file : filesOf(file_)) {
            fs::remove(file);
            removeSideFiles(file);
        }
        fill(file_, "old");
    }
}

TEST_F(RestoringTest, WhatWasNotDecidedIsAsIfItHadNotBegun) {
    prepare();
    EXPECT_EQ(stateAtNextStart(), "old old old");
    EXPECT_EQ(fileCount(), 3U);
}

TEST_F(RestoringTest, SettingsThatWereNotPreparedStay) {
    prepare();
    fs::remove(settingsOf(preparedFor(file_)));
    decide();
    finishRestore(file_);
    EXPECT_EQ(stateAtNextStart(), "new new old");
}

TEST_F(RestoringTest, ADatabaseInUseStaysAsItIs) {
    {
        const Opened opened = open(engines_, file_.string(), [](sql::Connection&) {});
        prepare();
        decide();
        EXPECT_THROW(finishRestore(file_), sql::DbError);
    }
    EXPECT_EQ(stateAtNextStart(), "old old old");
    EXPECT_EQ(fileCount(), 3U);
}

}  // namespace
}  // namespace velmora::workshop_file
