// Open sets beside writers, other processes among them: how large the files and the memory become.

#include "velmora/adapters/sqlite/snapshot_watch.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <malloc.h>

#include "velmora/adapters/sqlite/database.h"

#include "raw_database.h"
#include "support/foreign_saves.h"
#include "support/temporary_folder.h"

namespace velmora::test {

namespace {

using sql::Recordset;
using sql::Value;

constexpr std::uintmax_t mebibyte = 1024 * 1024;

class OpenSets : public testing::Test {
  protected:
    /// 2 to the power of `doublings` rows, twenty to a page.
    void makeRows(int doublings) {
        const auto maker = connect();
        maker->execute("CREATE TABLE T (Id int IDENTITY (1, 1) PRIMARY KEY, n int, t nvarchar(200))");
        maker->execute("insert into T (n, t) values (0, N'" + std::string(180, 'x') + "')");
        for (int i = 0; i < doublings; ++i) {
            maker->execute("insert into T (n, t) select n, t from T");
        }
    }

    std::string path() const { return folder_.file("taller.db"); }
    std::unique_ptr<sql::Connection> connect(bool readOnly = false) const {
        return sqlite::openDatabase(path(), {.readOnly = readOnly});
    }

    /// Some twenty MiB of write-ahead log, were it held: sixteen pages a save.
    SavesAsked saves() const {
        return {.database = path(),
                .statement = "update T set n = n + 1 where Id % 1000 = ",
                .keys = 999,
                .saves = 320,
                .pause = std::chrono::milliseconds(3)};
    }

    static void expectFirstState(Recordset& list, std::size_t count) {
        EXPECT_EQ(list.recordCount(), count);
        for (const std::size_t place : {count - 1, std::size_t{0}, count / 2, std::size_t{40}, count / 3}) {
            const sql::Row* row = list.peek(place);
            ASSERT_NE(row, nullptr);
            EXPECT_EQ((*row)[0], Value(static_cast<std::int64_t>(place) + 1));
            EXPECT_EQ((*row)[1], Value(0));
        }
    }

    support::TemporaryFolder folder_;
};

/// Bytes that the program holds; 0 under a sanitizer, which has an allocator of its own.
std::size_t heldMemory() {
    const auto info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

}  // namespace

TEST_F(OpenSets, TheWriteAheadFileStaysSmallBehindAnIdleList) {
    makeRows(14);
    for (const bool readOnly : {false, true}) {
        SCOPED_TRACE(readOnly);
        const auto connection = connect(readOnly);
        connection->execute("select count(*) from T");
        if (!readOnly) {
            connection->execute("update T set n = 0");
        } else {
            connect()->execute("update T set n = 0");
        }
        Recordset list = connection->execute("select Id, n, t from T order by Id");
        ForeignSaves other(VELMORA_FOREIGN_SAVES, saves());
        const ForeignSaves::Result result = other.wait();  // this thread does nothing at all meanwhile
        EXPECT_GT(result.largestWriteAhead, mebibyte) << "the saves were too few to show anything";
        EXPECT_LT(result.largestWriteAhead, 16 * mebibyte);
        EXPECT_TRUE(RawDatabase(path()).canEmptyTheWriteAheadFile());
        expectFirstState(list, 16384);
    }
}

TEST_F(OpenSets, TheWriteAheadFileStaysSmallBehindAListThatIsRead) {
    makeRows(14);
    const auto connection = connect();
    Recordset list = connection->execute("select Id, n, t from T order by Id");
    Recordset shortList = connection->execute("select top 100 Id, n, t from T order by Id");
    ForeignSaves other(VELMORA_FOREIGN_SAVES, saves());
    std::size_t place = 0;
    for (; !other.ended(); place = (place + 20) % 16384) {
        const sql::Row* row = list.peek(place);
        ASSERT_NE(row, nullptr);
        ASSERT_EQ((*row)[0], Value(static_cast<std::int64_t>(place) + 1));
        ASSERT_EQ((*row)[1], Value(0));
    }
    EXPECT_LT(other.wait().largestWriteAhead, 16 * mebibyte);
    expectFirstState(list, 16384);
    expectFirstState(shortList, 100);
}

TEST_F(OpenSets, OwnSavesDoNotGrowTheFileBehindAnOwnListEither) {
    makeRows(14);
    const auto connection = connect();
    Recordset list = connection->execute("select Id, n, t from T order by Id");
    std::uintmax_t largest = 0;
    for (int i = 0; i < 320; ++i) {
        sql::Transaction transaction(*connection);
        connection->execute("update T set n = n + 1 where Id % 1000 = " + std::to_string(i));
        transaction.commit();
        largest = std::max(largest, std::filesystem::file_size(path() + "-wal"));
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
    }
    EXPECT_LT(largest, 16 * mebibyte);
    expectFirstState(list, 16384);
}

TEST_F(OpenSets, ManyListsOfManyMomentsAreKeptAtOnce) {
    makeRows(13);
    const auto connection = connect();
    std::vector<Recordset> lists;
    for (int i = 0; i < 6; ++i) {
        lists.push_back(connection->execute("select Id, n from T order by Id"));
        connection->execute("update T set n = n + 1");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    connection->execute("update T set n = 1000");
    for (int i = 0; i < 6; ++i) {
        for (const std::size_t place : {8191u, 0u, 4000u}) {
            EXPECT_EQ((*lists[static_cast<std::size_t>(i)].peek(place))[1], Value(i));
        }
    }
}

TEST_F(OpenSets, AClosedConnectionsListIsStillTakenOffTheDatabase) {
    makeRows(14);
    auto connection = connect();
    Recordset list = connection->execute("select Id, n, t from T order by Id");
    connection.reset();
    ForeignSaves other(VELMORA_FOREIGN_SAVES, saves());
    EXPECT_LT(other.wait().largestWriteAhead, 16 * mebibyte);
    expectFirstState(list, 16384);
}

TEST_F(OpenSets, AListThatIsReadToItsEndAndFitsAWindowHoldsNothing) {
    makeRows(8);
    const auto connection = connect();
    Recordset list = connection->execute("select Id, n from T order by Id");
    connect()->execute("update T set n = 1");
    EXPECT_FALSE(RawDatabase(path()).canEmptyTheWriteAheadFile());
    EXPECT_EQ(list.recordCount(), 256u);
    EXPECT_TRUE(RawDatabase(path()).canEmptyTheWriteAheadFile());
    expectFirstState(list, 256);
}

TEST_F(OpenSets, WalkingALongListToItsEndAndBackTakesLittleMemory) {
#ifdef __SANITIZE_ADDRESS__
    constexpr int doublings = 14;  // memory cannot be measured there: enough rows that the pages are copied
#else
    constexpr int doublings = 17;
#endif
    constexpr std::size_t count = std::size_t{1} << doublings;
    makeRows(doublings);
    const auto connection = connect();
    const auto walk = [&](Recordset list) {
        const std::size_t before = heldMemory();
        std::size_t most = 0;
        const auto look = [&] { most = std::max(most, heldMemory() - std::min(before, heldMemory())); };
        for (std::size_t place = 0; list.peek(place) != nullptr; place += 500) {
            look();
        }
        for (std::size_t place = count; place > count - 11'000; place -= 500) {
            list.peek(place - 1);
            look();
        }
        list.moveLast();
        EXPECT_EQ(list["Id"], Value(static_cast<std::int64_t>(count)));
        list.moveFirst();
        EXPECT_EQ(list["n"], Value(0));
        look();
        EXPECT_LT(most, 8 * mebibyte) << "all rows are thirty and more";
        return list;
    };
    Recordset list = walk(connection->execute("select Id, n, t from T order by Id"));
    sql::Transaction transaction(*connection);
    Recordset inside = connection->execute("select Id, n, t from T order by Id");
    connection->execute("update T set n = 1");
    transaction.rollback();
    walk(inside);
    walk(list);
}

TEST_F(OpenSets, ClosedListsLeaveNoConnectionsBehind) {
    makeRows(10);
    const auto connection = connect();
    const auto files = [&] {
        return std::ranges::count_if(std::filesystem::directory_iterator("/proc/self/fd"), [&](const auto& each) {
            std::error_code gone;
            return std::filesystem::read_symlink(each, gone) == path();
        });
    };
    const auto openTen = [&] {
        std::vector<Recordset> lists;
        for (int i = 0; i < 10; ++i) {
            lists.push_back(connection->execute("select Id, n from T order by Id"));
        }
        EXPECT_GE(files(), 10);
    };
    openTen();
    const auto kept = files();
    for (int i = 0; i < 3; ++i) {
        openTen();
        EXPECT_LE(files(), kept);
    }
}

TEST_F(OpenSets, AllLinksSeeTablesThatOneOfThemHasChanged) {
    makeRows(10);
    const auto connection = connect();
    EXPECT_EQ(connection->execute("select * from T").columns().size(), 3u);
    Recordset first = connection->execute("select * from T order by Id");
    EXPECT_EQ(connection->execute("select * from T").columns().size(), 3u);
    connection->execute("ALTER TABLE T ADD c int NOT NULL DEFAULT 7 WITH VALUES ");
    connection->execute("CREATE TABLE U (a int)");
    first = {};
    // Each list takes a link along; those that come after it run on the next one.
    std::vector<Recordset> lists;
    for (int i = 0; i < 4; ++i) {
        lists.push_back(connection->execute("select * from T order by Id"));
        ASSERT_EQ(lists.back().columns().size(), 4u);
        EXPECT_EQ(lists.back()["c"], Value(7));
        EXPECT_TRUE(connection->execute("select * from U").eof());
    }
}

}  // namespace velmora::test
