// Long lists: read on demand, with a bounded window.

#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/sqlite/row_source.h"
#include "velmora/adapters/sqlite/statement_cache.h"

namespace velmora::test {

namespace {

using sql::Value;

constexpr int longList = 100'000;

class LongList : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        connection_ = sqlite::openDatabase(":memory:").release();
        connection_->execute("CREATE TABLE T (Id int IDENTITY (1, 1) NOT NULL, a int, t nvarchar(40))");
        connection_->beginTrans();
        for (int from = 0; from < longList; from += 1000) {
            std::string rows;
            for (int i = from; i < from + 1000; ++i) {
                rows += (rows.empty() ? "(" : ", (") + std::to_string(i) + ", 'fila " + std::to_string(i) + "')";
            }
            connection_->execute("insert into T (a, t) values " + rows);
        }
        connection_->commitTrans();
    }
    static void TearDownTestSuite() { delete connection_; }

    static sql::Recordset list() { return connection_->execute("select a, t from T order by id"); }

    static inline sql::Connection* connection_ = nullptr;
};

}  // namespace

TEST_F(LongList, IsReadFromFirstToLast) {
    int expected = 0;
    for (sql::Recordset rows = list(); !rows.eof(); rows.moveNext()) {
        ASSERT_EQ(rows[std::size_t{0}], Value(expected));
        ++expected;
    }
    EXPECT_EQ(expected, longList);
}

TEST_F(LongList, KnowsHowManyRowsItHas) {
    const sql::Recordset rows = list();
    EXPECT_EQ(rows.recordCount(), static_cast<std::size_t>(longList));
    EXPECT_EQ(rows["t"], Value("fila 0"));
}

TEST_F(LongList, GoesToItsEndAndBack) {
    sql::Recordset rows = list();
    rows.moveLast();
    EXPECT_EQ(rows["a"], Value(longList - 1));
    for (int i = 0; i < 3000; ++i) {
        rows.movePrevious();
    }
    EXPECT_EQ(rows["a"], Value(longList - 3001));
    rows.moveFirst();
    EXPECT_EQ(rows["a"], Value(0));
}

TEST_F(LongList, IsReachedAtAnyPlace) {
    sql::Recordset rows = list();
    for (const std::size_t position : {99'999u, 5u, 50'000u, 49'999u, 50'511u, 511u, 512u, 513u, 0u, 1023u, 1024u}) {
        rows.moveTo(position);
        EXPECT_EQ(rows["a"], Value(static_cast<std::int64_t>(position)));
        ASSERT_NE(rows.peek(position + 100), position + 100 < longList ? nullptr : rows.peek(0));
    }
    rows.moveTo(100'000);
    EXPECT_TRUE(rows.eof());
    EXPECT_EQ(rows.peek(100'000), nullptr);
}

TEST_F(LongList, FindsFromTheCurrentRowOn) {
    sql::Recordset rows = list();
    rows.find("a = 70000");
    EXPECT_EQ(rows.position(), 70'000u);
    rows.moveFirst();
    rows.find("t = 'FILA 90000'");
    EXPECT_EQ(rows.position(), 90'000u);
    rows.find("a=5");
    EXPECT_TRUE(rows.eof());
}

TEST_F(LongList, ACloneMovesAlone) {
    sql::Recordset rows = list();
    rows.moveTo(60'000);
    sql::Recordset clone = rows.clone();
    EXPECT_EQ(clone.position(), 0u);
    clone.moveTo(30'000);
    EXPECT_EQ(clone["a"], Value(30'000));
    EXPECT_EQ(rows["a"], Value(60'000));
}

TEST_F(LongList, OtherStatementsRunBetweenItsRows) {
    sql::Recordset rows = list();
    for (std::size_t position = 0; position < 100'000; position += 9973) {
        rows.moveTo(position);
        EXPECT_EQ(connection_->execute("select t from T where id = " + std::to_string(position + 1))[std::size_t{0}],
                  rows["t"]);
    }
}

TEST_F(LongList, KeepsItsRowsWhenSomeAreDeletedMeanwhile) {
    sql::Recordset rows = list();
    EXPECT_EQ(rows.recordCount(), 100'000u);
    connection_->beginTrans();
    connection_->execute("delete from T where a >= 1000");
    rows.moveTo(2000);
    EXPECT_EQ(rows["a"], Value(2000));
    rows.moveTo(999);
    EXPECT_EQ(rows["a"], Value(999));
    EXPECT_EQ(rows.recordCount(), 100'000u);
    rows.requery();
    EXPECT_EQ(rows.recordCount(), 1000u);
    connection_->rollbackTrans();
    EXPECT_EQ(rows.recordCount(), 1000u);
    rows.requery();
    rows.moveTo(2000);
    EXPECT_EQ(rows["a"], Value(2000));
}

TEST_F(LongList, ASetOfExactlyOneWindowIsComplete) {
    for (const std::size_t size : {sqlite::openingRows - 1, sqlite::openingRows, sqlite::openingRows + 1,
                                   sqlite::windowRows - 1, sqlite::windowRows, sqlite::windowRows + 1}) {
        sql::Recordset rows = connection_->execute("select top " + std::to_string(size) + " a from T order by id");
        EXPECT_EQ(rows.recordCount(), size);
        rows.moveLast();
        EXPECT_EQ(rows["a"], Value(static_cast<std::int64_t>(size) - 1));
        rows.moveNext();
        EXPECT_TRUE(rows.eof());
    }
}

TEST(StatementCache, KeepsTheTextsUsedLast) {
    sqlite::StatementCache cache(2);
    const auto add = [&](const char* text) {
        auto statement = std::make_shared<sqlite::CachedStatement>();
        statement->text = text;
        cache.add(statement);
    };
    add("a");
    add("b");
    EXPECT_NE(cache.find("a"), nullptr);
    add("c");
    EXPECT_EQ(cache.size(), 2u);
    EXPECT_EQ(cache.find("b"), nullptr);
    EXPECT_NE(cache.find("a"), nullptr);
    EXPECT_NE(cache.find("c"), nullptr);
    add("a");
    EXPECT_EQ(cache.size(), 2u);
    cache.clear();
    EXPECT_EQ(cache.find("a"), nullptr);
}

TEST(StatementCache, ABoundOfOneStillWorks) {
    const auto connection = sqlite::openDatabase(":memory:", {.cachedStatements = 1});
    connection->execute("CREATE TABLE T (a int)");
    connection->execute("insert into T values (1)");
    for (int i = 0; i < 3; ++i) {
        sql::Recordset rows = connection->execute("select a from T");
        EXPECT_EQ(connection->execute("select a + 1 from T")[std::size_t{0}], Value(2));
        EXPECT_EQ(rows["a"], Value(1));
        rows.requery();
        EXPECT_EQ(rows["a"], Value(1));
    }
}

}  // namespace velmora::test
