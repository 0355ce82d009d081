#include "velmora/platform/sql/column_index.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora::sql {
namespace {

using ::testing::Eq;
using ::testing::Optional;

/// As many lookups as make an index of a long list.
constexpr int often = 5;

/// COLUMN_0 to COLUMN_39 with others between them.
std::vector<Column> manyColumns() {
    std::vector<Column> columns;
    for (int i = 0; i < 40; ++i) {
        columns.push_back({"COLUMN_" + std::to_string(i)});
        columns.push_back({"Other_" + std::to_string(i) + "_x"});
    }
    return columns;
}

TEST(ColumnIndexTest, FindsEveryColumnInAnyCaseHoweverOftenItIsAsked) {
    const std::vector<Column> columns = manyColumns();
    ColumnIndex index;
    for (int turn = 0; turn < often; ++turn) {
        for (std::size_t i = 0; i < 40; ++i) {
            EXPECT_THAT(index.find(columns, "Column_" + std::to_string(i)), Optional(2 * i));
            EXPECT_THAT(index.find(columns, "OTHER_" + std::to_string(i) + "_X"), Optional(2 * i + 1));
        }
    }
}

TEST(ColumnIndexTest, ANameThatIsNotThereIsNotFound) {
    const std::vector<Column> columns = manyColumns();
    ColumnIndex index;
    for (int turn = 0; turn < often; ++turn) {
        for (const char* missing : {"COLUMN_40", "COLUMN", "xCOLUMN_1", "", "_39", "CQLUMN_1"}) {
            EXPECT_THAT(index.find(columns, missing), Eq(std::nullopt)) << missing;
        }
    }
}

TEST(ColumnIndexTest, OfTwoColumnsOfOneNameTheFirstIsFound) {
    std::vector<Column> columns = manyColumns();
    columns.insert(columns.begin() + 30, Column{"Column_39"});
    columns.insert(columns.begin() + 31, Column{"COLUMN_39"});
    ColumnIndex index;
    for (int turn = 0; turn < often; ++turn) {
        EXPECT_THAT(index.find(columns, "column_39"), Optional(30U));
    }
}

TEST(ColumnIndexTest, LettersBeyondAsciiHaveTwoCasesToo) {
    std::vector<Column> columns = manyColumns();
    columns.push_back({"Año"});
    columns.push_back({"Ano"});
    columns.push_back({"Señal"});
    ColumnIndex index;
    for (int turn = 0; turn < often; ++turn) {
        EXPECT_THAT(index.find(columns, "AÑO"), Optional(80U));
        EXPECT_THAT(index.find(columns, "ANO"), Optional(81U));
        EXPECT_THAT(index.find(columns, "SEÑAL"), Optional(82U));
        EXPECT_THAT(index.find(columns, "SENAL"), Eq(std::nullopt));
    }
}

TEST(ColumnIndexTest, AnotherListIsSearchedAfterTheFirstIsForgotten) {
    const std::vector<Column> columns = manyColumns();
    ColumnIndex index;
    for (int turn = 0; turn < often; ++turn) {
        EXPECT_THAT(index.find(columns, "COLUMN_1"), Optional(2U));
    }
    index.forget();
    std::vector<Column> turned(columns.rbegin(), columns.rend());
    for (int turn = 0; turn < often; ++turn) {
        EXPECT_THAT(index.find(turned, "COLUMN_1"), Optional(77U));
    }
}

TEST(ColumnIndexTest, AShortListIsSearchedTheSame) {
    const std::vector<Column> columns{{"A"}, {"b"}, {"B"}};
    ColumnIndex index;
    for (int turn = 0; turn < often; ++turn) {
        EXPECT_THAT(index.find(columns, "a"), Optional(0U));
        EXPECT_THAT(index.find(columns, "B"), Optional(1U));
        EXPECT_THAT(index.find(columns, "c"), Eq(std::nullopt));
        EXPECT_THAT(index.find({}, "a"), Eq(std::nullopt));
    }
}

}  // namespace
}  // namespace velmora::sql
