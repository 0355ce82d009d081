#include "velmora/apps/backup/copies.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>
#include <sys/resource.h>

#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/workshop_file/database_files.h"
#include "velmora/apps/workshop_file/workshop_file.h"

#include "support/stopped_clock.h"
#include "support/temporary_folder.h"

namespace velmora::backup {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class CopiesTest : public ::testing::Test {
  protected:
    std::unique_ptr<sql::Connection> open() {
        return workshop_file::open(engines_, file_, [](sql::Connection&) {}).connection;
    }
    /// One row in each of the two files.
    void add(const std::unique_ptr<sql::Connection>& connection) {
        connection->execute("INSERT INTO PARDPI (PARDPI_NOM) VALUES (N'Disco')");
        connection->execute("INSERT INTO DOCVELMORA.dbo.dex (Dex_Fic) VALUES (N'plano.pdf')");
    }
    static std::string rows(const std::unique_ptr<sql::Connection>& connection) {
        return std::to_string(connection->execute("select count(*) from PARDPI")[0].toLong()) + " " +
               std::to_string(connection->execute("select count(*) from DOCVELMORA.dbo.dex")[0].toLong());
    }
    std::string failure(const Copy& copy) {
        try {
            copies_.restore(copy);
        } catch (const Failed& e) {
            return e.what();
        }
        return {};
    }
    void wait(std::chrono::seconds time) { clock_.time.at += time; }

    support::TemporaryFolder folder_;
    std::string file_ = folder_.file("taller ñ.db");
    support::StoppedClock clock_;
    const sql::Engines engines_ = engines::knownEngines(clock_);
    Copies copies_{file_, clock_};
};

TEST_F(CopiesTest, BothFilesAreCopiedWhileTheyAreInUse) {
    const auto connection = open();
    add(connection);
    const sql::Recordset list = connection->execute("select * from PARDPI");
    const Copy copy = copies_.make();
    EXPECT_EQ(copy.file, folder_.path() / "copias/taller ñ 2026-01-15 100000.db");
    add(connection);
    EXPECT_EQ(rows(connection), "2 2");
    EXPECT_EQ(rows(workshop_file::open(engines_, copy.file.string(), [](sql::Connection&) {}).connection), "1 1");
    ASSERT_EQ(copies_.all().size(), 1u);
    EXPECT_EQ(copies_.all().front().taken, clock_.time);
}

TEST_F(CopiesTest, AnotherClientsTransactionIsInNoneOfTheFilesOrInBoth) {
    const auto connection = open();
    connection->beginTrans();
    add(connection);
    EXPECT_THROW(copies_.make(), Failed) << "it is under way for too long";
    connection->commitTrans();
    EXPECT_EQ(rows(workshop_file::open(engines_, copies_.make().file.string(), [](sql::Connection&) {}).connection),
              "1 1");
}

TEST_F(CopiesTest, TheLastFourteenAreKept) {
    open();
    for (int i = 0; i < 16; ++i) {
        wait(std::chrono::hours(1));
        copies_.make();
    }
    EXPECT_EQ(copies_.all().size(), mostCopies);
    EXPECT_EQ(copies_.all().front().taken, clock_.time);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path() / "copias"), {}), 2 * 14);
}

TEST_F(CopiesTest, TheFirstUseOfADayMakesOne) {
    open();
    EXPECT_FALSE(copies_.isOverdue()) << "the first one is on its way";
    copies_.makeDaily();
    wait(std::chrono::hours(13));
    copies_.makeDaily();
    EXPECT_EQ(copies_.all().size(), 1u);
    wait(std::chrono::hours(1));
    copies_.makeDaily();
    EXPECT_EQ(copies_.all().size(), 2u) << "midnight has passed";
    EXPECT_FALSE(copies_.isOverdue());
    wait(std::chrono::days(8));
    EXPECT_TRUE(copies_.isOverdue());
}

TEST_F(CopiesTest, ACopyIsPutBackAndWhatWasThereIsKept) {
    add(open());
    const Copy copy = copies_.make();
    add(open());
    wait(std::chrono::minutes(5));
    copies_.restore(copy);
    EXPECT_EQ(rows(open()), "1 1");
    ASSERT_EQ(copies_.all().size(), 2u);
    copies_.restore(copies_.all().front());
    EXPECT_EQ(rows(open()), "2 2");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path() / "copias"), {}), 2 * 3) << "files of copies alone";
}

TEST_F(CopiesTest, TheCompanysSettingsAreCopiedAndPutBackWithTheirDatabase) {
    const fs::path settings = workshop_file::settingsOf(file_);
    const auto enter = [&](const char* name) { std::ofstream(settings) << name; };
    const auto entered = [&] {
        std::ifstream stream(settings);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    };
    open();
    const Copy without = copies_.make();
    enter("Talleres Uno");
    wait(std::chrono::minutes(5));
    const Copy first = copies_.make();
    enter("Talleres Dos");
    wait(std::chrono::minutes(5));
    copies_.restore(first);
    EXPECT_EQ(entered(), "Talleres Uno");
    copies_.restore(copies_.all().front());
    EXPECT_EQ(entered(), "Talleres Dos") << "what was there was copied too";
    copies_.restore(without);
    EXPECT_EQ(entered(), "Talleres Dos") << "a copy without settings leaves those that are there";
    for (int i = 0; i < 20; ++i) {
        wait(std::chrono::hours(1));
        copies_.make();
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path() / "copias"), {}), 3 * 14) << "displaced as a whole";
}

TEST_F(CopiesTest, ADatabaseNamedWithoutItsFolderIsCopiedAndPutBackToo) {
    const fs::path before = fs::current_path();
    fs::current_path(folder_.path());
    Copies copies("taller ñ.db", clock_);
    add(open());
    const Copy copy = copies.make();
    add(open());
    wait(std::chrono::minutes(5));
    EXPECT_NO_THROW(copies.restore(copy));
    fs::current_path(before);
    EXPECT_EQ(rows(open()), "1 1");
}

TEST_F(CopiesTest, NothingIsPutBackWhileTheDatabaseIsOpen) {
    const auto connection = open();
    add(connection);
    const Copy copy = copies_.make();
    add(connection);
    EXPECT_THAT(failure(copy), HasSubstr("ocupada"));
    EXPECT_EQ(rows(connection), "2 2");
}

TEST_F(CopiesTest, ADamagedCopyIsNotPutBack) {
    add(open());
    const Copy copy = copies_.make();
    add(open());
    fs::resize_file(copy.file, fs::file_size(copy.file) / 2);
    EXPECT_NE(failure(copy), "");
    EXPECT_EQ(rows(open()), "2 2");
    fs::remove(folder_.path() / "copias/DOCtaller ñ 2026-01-15 100000.db");
    EXPECT_TRUE(copies_.all().empty()) << "without its documents it is none";
    EXPECT_NE(failure(copy), "");
}

TEST_F(CopiesTest, WhatCannotBeReadIsKeptAsItIsWhenACopyIsPutBack) {
    add(open());
    const Copy copy = copies_.make();
    std::ofstream(file_, std::ios::binary | std::ios::in | std::ios::out).seekp(4096).write("garbage", 7);
    copies_.restore(copy);
    std::ifstream kept(folder_.path() / "copias/dañada taller ñ.db", std::ios::binary);
    const std::string content(std::istreambuf_iterator<char>(kept), {});
    EXPECT_NE(content.find("garbage"), std::string::npos);
    EXPECT_TRUE(fs::exists(folder_.path() / "copias/dañada DOCtaller ñ.db"));
    EXPECT_EQ(copies_.all().size(), 1u) << "it is no copy";
}

TEST_F(CopiesTest, ADamagedDatabaseCanBePutBack) {
    add(open());
    const Copy copy = copies_.make();
    std::ofstream(file_, std::ios::binary | std::ios::in | std::ios::out).seekp(4096).write("garbage", 7);
    std::ofstream(file_, std::ios::binary | std::ios::in | std::ios::out).seekp(8192).write("garbage", 7);
    wait(std::chrono::minutes(5));
    copies_.restore(copy);
    EXPECT_EQ(rows(open()), "1 1");
}

/// While it lives no file of this process grows beyond a size: writing more is an error, as on a full disk.
class SmallDisk {
  public:
    explicit SmallDisk(rlim_t size) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{size, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

  private:
    void (*handler_)(int);
    rlimit before_{};
};

TEST_F(CopiesTest, AFullDiskIsToldAndLeavesTheOlderOnes) {
    open();
    copies_.make();
    wait(std::chrono::hours(1));
    {
        const SmallDisk disk(50'000);
        EXPECT_THROW(copies_.make(), Failed);
    }
    ASSERT_EQ(copies_.all().size(), 1u);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path() / "copias"), {}), 2) << "nothing half made is left";
    copies_.make();
    EXPECT_EQ(copies_.all().size(), 2u);
}

TEST_F(CopiesTest, OtherFilesOfTheFolderAreNoCopies) {
    open();
    copies_.make();
    for (const char* name : {"otro 2026-01-15 100000.db", "taller ñ 2026-13-15 100000.db", "taller ñ.db", "nota.txt"}) {
        std::ofstream(folder_.path() / "copias" / name) << "x";
        std::ofstream(folder_.path() / "copias" / (std::string("DOC") + name)) << "x";
    }
    EXPECT_EQ(copies_.all().size(), 1u);
}

}  // namespace
}  // namespace velmora::backup
