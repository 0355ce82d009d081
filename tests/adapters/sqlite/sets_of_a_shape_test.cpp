// Sets whose statements differ in their values only: they are prepared once, and each keeps its own.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/database.h"

#include "support/temporary_folder.h"

namespace velmora::test {

namespace {

/// Enough that a set is neither held in one window nor copied at its opening.
constexpr int rowsOfAGroup = 3000;

class SetsOfAShape : public testing::Test {
  protected:
    SetsOfAShape() {
        connection_->execute("CREATE TABLE T (Id int IDENTITY (1, 1), g int, t nvarchar(10), f float)");
        sql::Transaction filling(*connection_);
        for (int row = 0; row < rowsOfAGroup; ++row) {
            for (const char* group : {"5", "6"}) {
                connection_->execute("insert into T (g, t, f) values (" + std::string(group) + ", 'g" + group + "', " +
                                     group + ".5)");
            }
        }
        filling.commit();
    }

    sql::Recordset ofGroup(int group) {
        return connection_->execute("select * from T where g = " + std::to_string(group) + " order by Id");
    }

    support::TemporaryFolder folder_;
    std::unique_ptr<sql::Connection> connection_ = sqlite::openDatabase(folder_.file("taller.db"));
};

}  // namespace

TEST_F(SetsOfAShape, AreReadBesideEachOther) {
    sql::Recordset fives = ofGroup(5);
    sql::Recordset sixes = ofGroup(6);
    for (int row = 0; row < rowsOfAGroup; ++row, fives.moveNext(), sixes.moveNext()) {
        ASSERT_EQ(fives["g"].toLong(), 5);
        ASSERT_EQ(sixes["g"].toLong(), 6);
    }
    EXPECT_TRUE(fives.eof());
    EXPECT_TRUE(sixes.eof());
}

TEST_F(SetsOfAShape, CountGoFarAheadAndBackWithTheirOwnValues) {
    sql::Recordset fives = ofGroup(5);
    sql::Recordset sixes = ofGroup(6);
    EXPECT_EQ(fives.recordCount(), rowsOfAGroup);
    for (const std::size_t position : {2500u, 10u, 2999u}) {
        fives.moveTo(position);
        sixes.moveTo(position);
        EXPECT_EQ(fives["t"].toText(), "g5");
        EXPECT_EQ(sixes["t"].toText(), "g6");
        EXPECT_EQ(sixes["Id"].toLong(), fives["Id"].toLong() + 1);
    }
}

TEST_F(SetsOfAShape, AskAgainForTheirOwnRows) {
    sql::Recordset fives = ofGroup(5);
    EXPECT_EQ(ofGroup(6)["g"].toLong(), 6);
    connection_->execute("delete from T where g = 5 and Id < 100");
    fives.requery();
    EXPECT_EQ(fives["g"].toLong(), 5);
    EXPECT_GE(fives["Id"].toLong(), 100);
}

/// Inside a transaction a set is copied before anything is changed.
TEST_F(SetsOfAShape, AreCopiedWithTheirOwnRows) {
    sql::Transaction transaction(*connection_);
    sql::Recordset fives = ofGroup(5);
    sql::Recordset sixes = ofGroup(6);
    connection_->execute("delete from T where g = 6");
    fives.moveTo(2000);
    sixes.moveTo(2000);
    EXPECT_EQ(fives["g"].toLong(), 5);
    EXPECT_EQ(sixes["g"].toLong(), 6);
}

TEST_F(SetsOfAShape, AreToldApartByTheKindOfTheirValues) {
    const auto found = [&](const std::string& value) {
        return connection_->execute("select count(*) from T where f = " + value)[0].toLong();
    };
    EXPECT_EQ(found("5.5"), rowsOfAGroup);
    EXPECT_EQ(found("'5.5'"), rowsOfAGroup);
    EXPECT_EQ(found("5"), 0);
    EXPECT_EQ(found("6.5"), rowsOfAGroup);
    EXPECT_EQ(found("null"), 0);
    EXPECT_EQ(found("0"), 0);
    EXPECT_EQ(found("-6.5"), 0);
}

}  // namespace velmora::test
