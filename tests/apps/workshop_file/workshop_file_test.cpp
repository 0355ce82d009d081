#include "velmora/apps/workshop_file/workshop_file.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>

#include <gmock/gmock.h>

#include "velmora/adapters/sqlite/backup.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/sqlite/file_content.h"
#include "velmora/apps/engines/known_engines.h"
#include "velmora/data/new_database.h"
#include "velmora/platform/sql/db_error.h"

#include "adapters/sqlite/refused_calls.h"
#include "support/temporary_folder.h"

namespace velmora::workshop_file {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

void withoutRows(sql::Connection& /*connection*/) {}

void withOneMaterial(sql::Connection& connection) {
    connection.execute("INSERT INTO PARDPI (PARDPI_NOM) VALUES (N'Disco')");
}

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class WorkshopFile : public ::testing::Test {
  protected:
    Opened open(const Fill& fill = withoutRows) { return workshop_file::open(engines_, file_, fill); }
    std::string refusal(const std::string& path) {
        try {
            workshop_file::open(engines_, path, withoutRows);
        } catch (const Refused& e) {
            return e.what();
        }
        return {};
    }
    static std::int32_t count(Opened& opened, const char* table) {
        return opened.connection->execute(std::string("select count(*) from ") + table)[0].toLong();
    }
    void addDocument() { open().connection->execute("INSERT INTO DOCVELMORA.dbo.dex (Dex_Fic) VALUES (N'plano.pdf')"); }

    support::TemporaryFolder folder_;
    std::string file_ = folder_.file("taller.db");
    std::string documents_ = folder_.file("DOCtaller.db");
    system::SystemClock clock_;
    const sql::Engines engines_ = engines::knownEngines(clock_);
};

TEST_F(WorkshopFile, AMissingOneIsMadeWithItsDocumentsAndRows) {
    Opened opened = open(withOneMaterial);
    EXPECT_TRUE(opened.isNew);
    EXPECT_EQ(opened.notice, "");
    EXPECT_EQ(count(opened, "PARDPI"), 1);
    EXPECT_EQ(count(opened, "DOCVELMORA.dbo.dex"), 0);
    opened.connection.reset();
    EXPECT_THAT(folder_.files(), UnorderedElementsAre("taller.db", "DOCtaller.db"));
    opened = open(withOneMaterial);
    EXPECT_FALSE(opened.isNew);
    EXPECT_EQ(count(opened, "PARDPI"), 1);
}

TEST_F(WorkshopFile, OnlyADemonstrationIsMarkedAsOne) {
    EXPECT_FALSE(open().isDemonstration);
    EXPECT_EQ(sqlite::contentOf(file_).mark, 0);
    const std::string demo = folder_.file("demo.db");
    const auto openDemo = [&](Purpose purpose) {
        return workshop_file::open(engines_, demo, withoutRows, purpose).isDemonstration;
    };
    EXPECT_TRUE(openDemo(Purpose::demonstration));
    EXPECT_TRUE(openDemo(Purpose::work));
    fs::remove(folder_.file("DOCdemo.db"));
    EXPECT_TRUE(openDemo(Purpose::work)) << "whose documents are made anew";
}

TEST_F(WorkshopFile, AnIndexThatIsMissingIsMade) {
    const auto has = [&] { return sqlite::contentOf(file_).hasIndex("dpi", "ix_dpi_toothing"); };
    open();
    ASSERT_TRUE(has());
    sqlite::openDatabase(file_)->execute("DROP INDEX [IX_DPI_Toothing] ON [dbo].[DPI]");
    ASSERT_FALSE(has());
    open();
    EXPECT_TRUE(has());
}

TEST_F(WorkshopFile, IsThereOnceItHasItsTables) {
    EXPECT_FALSE(isThere(file_));
    EXPECT_FALSE(isThere(":memory:"));
    std::ofstream(file_).flush();
    EXPECT_FALSE(isThere(file_));
    open();
    EXPECT_TRUE(isThere(file_));
    sqlite::openDatabase(folder_.file("otra.db"))->execute("CREATE TABLE NOTAS (ID int)");
    EXPECT_THROW(isThere(folder_.file("otra.db")), Refused);
    EXPECT_THROW(isThere(""), Refused);
}

TEST_F(WorkshopFile, AnEmptyFileAndOneWithoutTablesCountAsNew) {
    std::ofstream(file_).flush();
    EXPECT_TRUE(open().isNew);
    fs::remove(file_);
    sqlite::openDatabase(file_)->execute("CREATE TABLE T (i int)");
    sqlite::openDatabase(file_)->execute("DROP TABLE T");
    EXPECT_TRUE(open().isNew);
}

TEST_F(WorkshopFile, WhatOneThatWasKilledHasLeftIsNotTakenForADatabase) {
    std::ofstream(folder_.file(".taller.db.nueva")) << "half of a database";
    std::ofstream(folder_.file("DOC.taller.db.nueva-wal")) << "x";
    // A write-ahead file beside a database that was never finished.
    std::ofstream(file_).flush();
    std::ofstream(file_ + "-wal") << "x";
    EXPECT_EQ(count(*std::make_unique<Opened>(open(withOneMaterial)), "PARDPI"), 1);
    EXPECT_THAT(folder_.files(), UnorderedElementsAre("taller.db", "DOCtaller.db"));
}

TEST_F(WorkshopFile, RowsThatCannotBePutInLeaveNothing) {
    EXPECT_THROW(open([](sql::Connection& connection) { connection.execute("INSERT INTO NADA (A) VALUES (1)"); }),
                 Refused);
    EXPECT_THROW(open([](sql::Connection&) { throw std::logic_error("anything else"); }), std::logic_error);
    EXPECT_TRUE(folder_.files().empty());
    EXPECT_TRUE(open().isNew);
}

TEST_F(WorkshopFile, OneThatCannotBeLookedAtIsNotTakenForAMissingOne) {
    const std::string tooLong = folder_.file(std::string(300, 'x'));
    EXPECT_THROW(sqlite::contentOf(tooLong), sql::DbError);
    EXPECT_THAT(refusal(tooLong), HasSubstr("El nombre es demasiado largo."));
    EXPECT_THAT(folder_.files(), ::testing::IsEmpty());
}

/// The engine moves what it has written from the write-ahead file into the database when a connection is closed, and
/// says nothing when it could not.
TEST_F(WorkshopFile, OneWhoseLastWriteWasRefusedIsMadeWhole) {
    std::optional<test::RefusedCalls> refused;
    Opened opened = open([&](sql::Connection& connection) {
        withOneMaterial(connection);
        refused.emplace(test::writing, ENOSPC, test::RefusedCalls::Times::once);
    });
    EXPECT_EQ(count(opened, "PARDPI"), 1);
    EXPECT_EQ(count(opened, "DOCVELMORA.dbo.dex"), 0);
    opened.connection.reset();
    EXPECT_EQ(sqlite::damageOf(file_), "");
}

TEST_F(WorkshopFile, ADatabaseOfAnotherProgramIsRefusedAndLeftAsItIs) {
    sqlite::openDatabase(file_)->execute("CREATE TABLE NOTAS (ID int)");
    // Bytes 18 and 19 of the header tell the journal mode: 1 without write-ahead logging, which an engine that opens
    // the file would switch on.
    std::string content = contentOf(file_);
    content[18] = content[19] = '\1';
    std::ofstream(file_, std::ios::binary | std::ios::trunc) << content;
    EXPECT_THAT(refusal(file_), HasSubstr("no tiene la tabla DPI"));
    EXPECT_TRUE(contentOf(file_) == content);
    EXPECT_THAT(folder_.files(), UnorderedElementsAre("taller.db"));
}

TEST_F(WorkshopFile, WhatIsNoDatabaseIsRefusedAndLeftAsItIs) {
    const std::string letter = "Estimado cliente: le adjuntamos nuestra mejor propuesta para el piñon de 38 dientes.";
    std::ofstream(file_) << letter;
    EXPECT_THAT(refusal(file_), HasSubstr(file_));
    EXPECT_EQ(contentOf(file_), letter);
    EXPECT_THAT(folder_.files(), UnorderedElementsAre("taller.db"));
    EXPECT_THAT(refusal(folder_.path().string()), HasSubstr("No es un fichero"));
    EXPECT_THAT(refusal(""), HasSubstr("vacío"));
    EXPECT_THAT(refusal(folder_.file("falta/taller.db")), HasSubstr("No se puede crear la base de datos"));
}

TEST_F(WorkshopFile, DocumentsThatAreMissingAreMadeAnewAndTold) {
    addDocument();
    fs::remove(documents_);
    Opened opened = open();
    EXPECT_FALSE(opened.isNew);
    EXPECT_THAT(opened.notice, HasSubstr(documents_));
    EXPECT_EQ(count(opened, "DOCVELMORA.dbo.dex"), 0);
    EXPECT_EQ(open().notice, "");
}

TEST_F(WorkshopFile, DocumentsOfAnotherDatabaseAreNotTakenOver) {
    addDocument();
    fs::remove(file_);
    EXPECT_THAT(refusal(file_), HasSubstr(documents_));
    EXPECT_THAT(folder_.files(), UnorderedElementsAre("DOCtaller.db"));
}

TEST_F(WorkshopFile, AnEmptyDocumentsFileWithoutADatabaseIsReplaced) {
    open();
    fs::remove(file_);
    EXPECT_TRUE(open().isNew);
}

TEST_F(WorkshopFile, ThroughALinkTheDocumentsLieBesideTheRealFile) {
    addDocument();
    const support::TemporaryFolder other;
    fs::create_symlink(file_, other.path() / "enlace.db");
    Opened opened = workshop_file::open(engines_, other.file("enlace.db"), withoutRows);
    EXPECT_EQ(opened.notice, "");
    EXPECT_EQ(count(opened, "DOCVELMORA.dbo.dex"), 1);
    EXPECT_THAT(other.files(), UnorderedElementsAre("enlace.db"));
}

TEST_F(WorkshopFile, ALinkToAFileThatDoesNotExistYetStaysALink) {
    const support::TemporaryFolder other;
    fs::create_symlink(file_, other.path() / "enlace.db");
    EXPECT_TRUE(workshop_file::open(engines_, other.file("enlace.db"), withoutRows).isNew);
    EXPECT_TRUE(fs::is_symlink(other.path() / "enlace.db"));
    EXPECT_THAT(folder_.files(), UnorderedElementsAre("taller.db", "DOCtaller.db"));
}

}  // namespace
}  // namespace velmora::workshop_file
