#include "velmora/apps/desktop/daily_copy.h"

#include <filesystem>

#include <gmock/gmock.h>

#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/workshop_file/workshop_file.h"

#include "support/stopped_clock.h"
#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

constexpr int saves = 15;

class DailyCopyTest : public ::testing::Test {
  protected:
    DailyCopyTest() { open(database_); }

    std::unique_ptr<sql::Connection> open(const std::string& file) const {
        return workshop_file::open(engines_, file, [](sql::Connection&) {}).connection;
    }
    static void add(sql::Connection& connection) {
        connection.beginTrans();
        connection.execute("INSERT INTO PARDPI (PARDPI_NOM) VALUES (N'Disco')");
        connection.execute("INSERT INTO DOCVELMORA.dbo.dex (Dex_Fic) VALUES (N'plano.pdf')");
        connection.commitTrans();
    }
    static long rows(sql::Connection& connection, const std::string& table) {
        return connection.execute("select count(*) from " + table)[0].toLong();
    }

    support::TemporaryFolder folder_;
    std::string database_ = folder_.file("taller.db");
    support::StoppedClock clock_;
    const sql::Engines engines_ = engines::knownEngines(clock_);
    backup::Copies copies_{database_, clock_};
};

TEST_F(DailyCopyTest, ItIsMadeOnceAndItsFailureIsTold) {
    EXPECT_EQ(DailyCopy(database_, clock_.now()).failure(), "");
    EXPECT_EQ(copies_.all().size(), 1u);
    clock_.time.at += std::chrono::hours(1);
    EXPECT_EQ(DailyCopy(database_, clock_.now()).failure(), "");
    EXPECT_EQ(copies_.all().size(), 1u);
    fs::remove(database_);
    fs::create_directory(database_);
    clock_.time.at += std::chrono::days(1);
    EXPECT_THAT(DailyCopy(database_, clock_.now()).failure(), HasSubstr("No se pudo hacer la copia"));
}

TEST_F(DailyCopyTest, TheProgramSavesAndReadsMeanwhile) {
    const auto connection = open(database_);
    const sql::Recordset list = connection->execute("select * from PARDPI");
    DailyCopy copy(database_, clock_.now());
    for (int i = 1; i <= saves; ++i) {
        add(*connection);
        EXPECT_EQ(rows(*connection, "PARDPI"), i);
    }
    EXPECT_EQ(copy.failure(), "");
    ASSERT_EQ(copies_.all().size(), 1u);
    const auto copied = open(copies_.all().front().file.string());
    EXPECT_EQ(rows(*copied, "PARDPI"), rows(*copied, "DOCVELMORA.dbo.dex")) << "whole transactions only";
}

TEST_F(DailyCopyTest, TheUserMakesOneMeanwhile) {
    DailyCopy copy(database_, clock_.now());
    clock_.time.at += std::chrono::seconds(1);
    copies_.make();
    EXPECT_EQ(copy.failure(), "");
    EXPECT_GE(copies_.all().size(), 1u) << "the daily one is not needed when it comes second";
    EXPECT_LE(copies_.all().size(), 2u);
}

TEST_F(DailyCopyTest, TheProgramWaitsForItsEndWhenItIsLeft) {
    { const DailyCopy copy(database_, clock_.now()); }
    EXPECT_EQ(copies_.all().size(), 1u);
}

}  // namespace
}  // namespace velmora::desktop
