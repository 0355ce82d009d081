// Sets that are taken off the database while they are open, step by step and without the thread that does it.

#include "velmora/adapters/sqlite/open_rows.h"

#include <csignal>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/sqlite/emitters/translation.h"
#include "velmora/adapters/sqlite/link_pool.h"

#include "raw_database.h"
#include "support/temporary_folder.h"

namespace velmora::test {

namespace {

using sql::Value;
using sqlite::OpenRows;
using sqlite::RowReader;

/// No file of this process may become larger while the object lives: a full disk, as far as a writer sees.
class FullDisk {
  public:
    FullDisk() {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        rlimit none = before_;
        none.rlim_cur = 0;
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
    void (*handler_)(int) = SIG_DFL;
};

class OpenRowsTest : public testing::Test {
  protected:
    /// Ten rows of each number; the text makes a row as long as wanted.
    void makeRows(int doublings, int length) {
        writer_->execute("CREATE TABLE T (k int IDENTITY (1, 1) PRIMARY KEY, n int, t nvarchar(2000))");
        writer_->execute("insert into T (n, t) values (1, N'" + std::string(static_cast<std::size_t>(length), 'x') +
                         "')");
        for (int i = 0; i < doublings; ++i) {
            writer_->execute("insert into T (n, t) select k / 10, t from T");
        }
    }

    std::string path() const { return folder_.file("taller.db"); }

    /// A set that holds the state of this moment.
    std::unique_ptr<OpenRows> open(const std::string& select, const std::string& documents = {}) {
        sqlite::Translation translation{.steps = {select}};
        translation.laterRowsStatement = select + sqlite::laterRows;
        translation.countStatement = "SELECT count(*) FROM (" + select + ")";
        translation.types.assign(2, {});
        auto statement = std::make_shared<sqlite::CachedStatement>();
        statement->text = select;
        statement->translation = std::make_shared<const sqlite::Translation>(std::move(translation));
        const std::shared_ptr<sqlite::Link> link = pool_->take();
        if (!documents.empty()) {
            link->attachDocuments(documents);
        }
        auto reader = std::make_unique<RowReader>(link, statement, std::nullopt);
        reader->read(0, 1);
        link->enterSnapshot();
        return std::make_unique<OpenRows>(std::move(reader), options_);
    }

    static std::vector<sql::Row> all(OpenRows& rows) { return rows.read(0, 1'000'000).rows; }

    static int detach(OpenRows& rows) {
        int steps = 0;
        while (rows.detachStep()) {
            ++steps;
        }
        return steps;
    }

    void changeEverything() {
        writer_->execute("update T set n = 0 - n, t = N'otra'");
        writer_->execute("delete from T where k < 100");
    }

    support::TemporaryFolder folder_;
    const sqlite::Options options_{.clock = [] { return runtime::Date::of(2026, 1, 15); },
                                   .busyTimeout = std::chrono::milliseconds(50)};
    std::unique_ptr<sql::Connection> writer_ = sqlite::openDatabase(path(), options_);
    std::shared_ptr<sqlite::LinkPool> pool_ = std::make_shared<sqlite::LinkPool>(path(), options_);
};

}  // namespace

TEST_F(OpenRowsTest, FewRowsAreReadFromACopyOfThemAfterwards) {
    makeRows(11, 20);
    const auto rows = open("SELECT k, t FROM T ORDER BY n DESC");
    const auto before = all(*rows);
    ASSERT_EQ(before.size(), 2048u);
    changeEverything();
    EXPECT_TRUE(rows->isHeld());
    EXPECT_FALSE(RawDatabase(path()).canEmptyTheWriteAheadFile());
    EXPECT_GT(detach(*rows), 1);
    EXPECT_FALSE(rows->isHeld());
    EXPECT_TRUE(RawDatabase(path()).canEmptyTheWriteAheadFile());
    changeEverything();
    EXPECT_TRUE(all(*rows) == before);
    EXPECT_EQ(rows->count(), 2048u);
    EXPECT_TRUE(rows->read(2000, 500).rows == std::vector(before.begin() + 2000, before.end()));
}

TEST_F(OpenRowsTest, ManyRowsAreReadFromACopyOfThePagesInTheSameOrder) {
    makeRows(13, 400);  // more than the engine sorts in memory
    writer_->execute("CREATE INDEX T_n ON T (n)");
    // By the index, by sorting, and as they come: rows that are equal in their order keep their places.
    for (const char* select :
         {"SELECT k, t FROM T ORDER BY n DESC", "SELECT k, t FROM T ORDER BY k % 7, t", "SELECT k, t FROM T"}) {
        SCOPED_TRACE(select);
        const auto rows = open(select);
        const auto before = all(*rows);
        ASSERT_EQ(before.size(), 8192u);
        writer_->execute("update T set n = n + 1");
        detach(*rows);
        EXPECT_FALSE(rows->isHeld());
        EXPECT_TRUE(RawDatabase(path()).canEmptyTheWriteAheadFile());
        writer_->execute("update T set n = n + 1, t = N'otra'");
        EXPECT_TRUE(all(*rows) == before);
        EXPECT_EQ(rows->count(), 8192u);
        EXPECT_TRUE(rows->read(5000, 10).rows == std::vector(before.begin() + 5000, before.begin() + 5010));
        writer_->execute("update T set t = N'" + std::string(400, 'x') + "'");
    }
}

TEST_F(OpenRowsTest, RowsAreReadWhileTheCopyIsMade) {
    makeRows(13, 100);
    const auto rows = open("SELECT k, t FROM T ORDER BY n DESC");
    const auto before = all(*rows);
    changeEverything();
    for (std::size_t at = 0; rows->detachStep(); at = (at + 1234) % 8000) {
        EXPECT_TRUE(rows->read(at, 20).rows == std::vector(before.begin() + static_cast<std::ptrdiff_t>(at),
                                                           before.begin() + static_cast<std::ptrdiff_t>(at) + 20));
    }
    EXPECT_TRUE(all(*rows) == before);
}

TEST_F(OpenRowsTest, BothFilesAreCopiedWhenTheSetReadsBoth) {
    makeRows(13, 20);
    const std::string documents = folder_.file("DOCtaller.db");
    {
        const auto other = sqlite::openDatabase(documents, options_);
        other->execute("CREATE TABLE dex (k int, t nvarchar(20))");
        other->execute("insert into dex values (1, N'plano')");
    }
    const auto rows = open("SELECT T.k, dex.t FROM T LEFT JOIN documents.dex ON dex.k = T.k ORDER BY T.k", documents);
    const auto before = all(*rows);
    ASSERT_EQ(before.front()[1], Value("plano"));
    detach(*rows);
    EXPECT_FALSE(rows->isHeld());
    EXPECT_TRUE(RawDatabase(path()).canEmptyTheWriteAheadFile());
    EXPECT_TRUE(RawDatabase(documents).canEmptyTheWriteAheadFile());
    sqlite::openDatabase(documents, options_)->execute("delete from dex");
    changeEverything();
    EXPECT_TRUE(all(*rows) == before);
}

TEST_F(OpenRowsTest, AClosedSetLetsGoInTheMiddleOfItsCopy) {
    for (const int doublings : {11, 13}) {
        makeRows(doublings, 20);
        const auto rows = open("SELECT k, t FROM T");
        changeEverything();
        for (int step = 0; step < 3 && rows->detachStep(); ++step) {
        }
        EXPECT_TRUE(rows->isHeld());
        rows->close();
        EXPECT_FALSE(rows->isHeld());
        EXPECT_FALSE(rows->detachStep());
        EXPECT_TRUE(RawDatabase(path()).canEmptyTheWriteAheadFile());
        writer_->execute("DROP TABLE T");
    }
}

TEST_F(OpenRowsTest, HindersOnceTheWriteAheadFileHasGrownBehindIt) {
    makeRows(13, 200);
    RawDatabase(path()).canEmptyTheWriteAheadFile();
    const auto rows = open("SELECT k, t FROM T");
    EXPECT_FALSE(rows->hinders());
    writer_->execute("update T set n = 0 where k = 1");
    EXPECT_FALSE(rows->hinders());
    writer_->execute("update T set n = n + 1");
    EXPECT_TRUE(rows->hinders());
    detach(*rows);
    EXPECT_FALSE(rows->hinders());
}

TEST_F(OpenRowsTest, ASetThatCannotBeCopiedStaysAsItIs) {
    for (const int length : {1500, 300}) {  // rows that are copied, pages that are copied: more than stays in memory
        SCOPED_TRACE(length);
        makeRows(length == 1500 ? 12 : 14, length);
        const auto rows = open("SELECT k, t FROM T ORDER BY k DESC");
        const auto before = all(*rows);
        changeEverything();
        ASSERT_TRUE(rows->hinders());
        {
            const FullDisk full;
            detach(*rows);
        }
        EXPECT_TRUE(rows->isHeld());
        EXPECT_FALSE(rows->hinders()) << "not tried again at once";
        EXPECT_TRUE(all(*rows) == before);
        for (int i = 0; i < 8 && !rows->hinders(); ++i) {
            writer_->execute("update T set n = n + 1, t = t + N'" + std::string(100, 'y') + "'");
        }
        EXPECT_TRUE(rows->hinders());
        detach(*rows);
        EXPECT_FALSE(rows->isHeld());
        EXPECT_TRUE(all(*rows) == before);
        writer_->execute("DROP TABLE T");
    }
}

TEST_F(OpenRowsTest, AStateThatTheEngineGaveUpIsAnErrorAndNotAnotherState) {
    makeRows(12, 1500);
    // Sorting needs room on the disk; without it the engine ends all that the link holds.
    const auto rows = open("SELECT k, t FROM T ORDER BY n DESC");
    changeEverything();
    {
        const FullDisk full;
        EXPECT_THROW(rows->read(0, 10), sql::DbError);
    }
    for (int i = 0; i < 2; ++i) {
        EXPECT_THROW(rows->read(0, 10), sql::DbError);
        EXPECT_THROW(rows->count(), sql::DbError);
    }
    EXPECT_FALSE(rows->isHeld());
    writer_->execute("update T set t = N'" + std::string(1500, 'x') + "'");
    const auto copied = open("SELECT k, t FROM T ORDER BY n DESC");
    changeEverything();
    {
        const FullDisk full;
        detach(*copied);
    }
    EXPECT_THROW(copied->read(0, 10), sql::DbError);
    EXPECT_FALSE(copied->isHeld());
}

TEST(RowsOnASharedLink, AreLostRatherThanOthersWhenTheyCannotBeKept) {
    const auto connection = sqlite::openDatabase(":memory:");
    connection->execute("CREATE TABLE T (n int, t nvarchar(2000))");
    connection->execute("insert into T values (1, N'" + std::string(1500, 'x') + "')");
    for (int i = 0; i < 12; ++i) {
        connection->execute("insert into T select n, t from T");
    }
    sql::Recordset rows = connection->execute("select n from T");
    sql::Recordset large = connection->execute("select n, t from T");
    {
        const FullDisk full;
        connection->execute("update T set n = 2");
    }
    EXPECT_EQ(large["n"], Value(1)) << "what it holds in memory is there";
    try {
        large.moveTo(2000);
        FAIL() << "no error";
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.number(), sql::provider::failure);
    }
    rows.moveTo(2000);
    EXPECT_EQ(rows["n"], Value(1)) << "what fits into memory is kept without a disk";
    large.requery();
    large.moveTo(2000);
    EXPECT_EQ(large["n"], Value(2));
}

}  // namespace velmora::test
