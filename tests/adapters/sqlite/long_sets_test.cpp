// Sets of many rows that are opened for a screenful.

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/database.h"

#include "support/temporary_folder.h"

namespace velmora::test {

namespace {

constexpr int doublings = 14;
constexpr std::size_t allRows = std::size_t{1} << doublings;
constexpr std::size_t clients = 512;

/// Notes that the user was asked whether the statement may go on.
class Asked final : public sqlite::LongRun {
  public:
    explicit Asked(int& times) : times_(times) {}
    bool mayGoOn() override {
        ++times_;
        return true;
    }

  private:
    int& times_;
};

/// 16384 rows, a minute apart; each client has every 512th.
class LongSets : public testing::Test {
  protected:
    LongSets() {
        connection_->execute(
            "CREATE TABLE T (Id int IDENTITY (1, 1) PRIMARY KEY, Fecha datetime, Cliente int, Nom nvarchar(200))");
        connection_->execute("INSERT INTO T (Fecha, Nom) VALUES ('01/01/2020', N'" + std::string(100, 'x') + "')");
        for (int turn = 0; turn < doublings; ++turn) {
            const std::string count = std::to_string(1 << turn);
            connection_->execute("INSERT INTO T (Fecha, Nom) SELECT dateadd(minute, " + count + ", Fecha), Nom FROM T");
        }
        connection_->execute("UPDATE T SET Cliente = Id % " + std::to_string(clients));
        connection_->execute("CREATE INDEX IX_T_Fecha ON T (Fecha)");
        connection_->execute("CREATE INDEX IX_T_Cliente ON T (Cliente, Fecha)");
    }

    sql::Recordset of(int first, int last, const char* order = "Fecha desc") {
        asked_ = 0;
        return connection_->execute("SELECT * FROM T WHERE Cliente BETWEEN " + std::to_string(first) + " AND " +
                                    std::to_string(last) + " ORDER BY " + order);
    }

    /// The latest first: their numbers go down by the row.
    static std::vector<int> numbersOf(sql::Recordset rows) {
        std::vector<int> numbers;
        for (; !rows.eof(); rows.moveNext()) {
            numbers.push_back(rows["Id"].toLong());
        }
        return numbers;
    }

    support::TemporaryFolder folder_;
    int asked_ = 0;
    std::unique_ptr<sql::Connection> connection_ = sqlite::openDatabase(
        folder_.file("taller.db"),
        {.longRun = [this] { return std::make_unique<Asked>(asked_); }, .longRunAfter = std::chrono::milliseconds(0)});
};

std::vector<int> expected(int first, int last) {
    std::vector<int> numbers;
    for (int number = static_cast<int>(allRows); number > 0; --number) {
        const int client = number % static_cast<int>(clients);
        if (first <= client && client <= last) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

TEST_F(LongSets, OfManyRowsAreReadThroughTheIndexOfTheirOrder) {
    sql::Recordset rows = of(0, 255);
    EXPECT_EQ(asked_, 0) << "the first rows took long";
    EXPECT_EQ(rows.recordCount(), allRows / 2);
    EXPECT_EQ(numbersOf(rows), expected(0, 255));
}

TEST_F(LongSets, OfFewRowsAmongManyComeInTheSameOrder) {
    EXPECT_EQ(numbersOf(of(3, 5)), expected(3, 5));
    EXPECT_EQ(numbersOf(of(7, 37)), expected(7, 37));
    EXPECT_EQ(numbersOf(of(600, 700)), expected(600, 700));
}

TEST_F(LongSets, WithoutAnIndexOfTheirOrderAreSorted) {
    const std::vector<int> numbers = numbersOf(of(0, 255, "Nom, Fecha desc"));
    EXPECT_GT(asked_, 0);
    EXPECT_EQ(numbers, expected(0, 255));
}

TEST_F(LongSets, GiveTheSameRowsFromAnyPosition) {
    for (const int last : {255, 31}) {
        const std::vector<int> all = expected(0, last);
        sql::Recordset rows = of(0, last);
        for (const std::size_t position :
             {all.size() - 1, std::size_t{0}, all.size() / 2, std::size_t{700}, all.size() / 3}) {
            rows.moveTo(position);
            EXPECT_EQ(rows["Id"].toLong(), all[position]) << last;
        }
    }
}

TEST_F(LongSets, AreOpenedAgainAndAgainInTheSameWay) {
    for (int time = 0; time < 50; ++time) {
        ASSERT_EQ(of(0, 255)["Id"].toLong(), expected(0, 255).front());
        ASSERT_EQ(asked_, 0) << time;
        ASSERT_EQ(connection_->execute("SELECT * FROM T WHERE Cliente = 3 ORDER BY Fecha desc")["Id"].toLong(),
                  expected(3, 3).front());
        ASSERT_EQ(asked_, 0) << time;
    }
}

TEST_F(LongSets, KeepTheirRowsInATransactionThatChangesThem) {
    connection_->beginTrans();
    sql::Recordset rows = of(0, 255);
    connection_->execute("UPDATE T SET Cliente = 300");
    EXPECT_EQ(numbersOf(rows), expected(0, 255));
    connection_->rollbackTrans();
}

}  // namespace

}  // namespace velmora::test
