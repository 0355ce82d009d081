#include "velmora/adapters/odbc/row_spool.h"

#include <thread>

#include <gtest/gtest.h>

#include "velmora/adapters/odbc/row_bytes.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::odbc {
namespace {

using sql::Value;

sql::Row rowOf(std::int64_t number, std::size_t length = 10) {
    return {Value(number), Value(std::string(length, 'x') + std::to_string(number))};
}

TEST(RowBytes, EveryKindOfValueComesBack) {
    const std::vector<sql::Row> rows{{Value(), Value(true), Value(false), Value(-7), Value(0.1)},
                                     {Value("ñ€"), Value(""), Value(runtime::Date::of(2026, 1, 15, 10, 20, 30)),
                                      Value(sql::Bytes{std::byte{0}, std::byte{255}}), Value(sql::Bytes{})},
                                     {}};
    EXPECT_EQ(fromBytes(toBytes(rows)), rows);
}

TEST(RowSpool, RowsAreReadInAnyOrderFromMemoryAndFile) {
    constexpr std::size_t count = 20'000;
    constexpr std::size_t length = 1000;  // 20 MB: beyond what is held in memory
    RowSpool spool;
    for (std::size_t i = 0; i < count; ++i) {
        spool.add(rowOf(static_cast<std::int64_t>(i), length));
    }
    spool.finish();
    EXPECT_EQ(spool.waitForAll(), count);
    for (const std::size_t position :
         {std::size_t{0}, count - 1, count / 2, std::size_t{127}, std::size_t{128}, count - 2}) {
        ASSERT_TRUE(spool.waitFor(position));
        EXPECT_EQ(spool.row(position), rowOf(static_cast<std::int64_t>(position), length)) << position;
    }
    for (std::size_t position = count; position-- > 0;) {
        ASSERT_EQ(spool.row(position)[0], Value(static_cast<std::int64_t>(position)));
    }
    EXPECT_FALSE(spool.waitFor(count));
}

TEST(RowSpool, ALargeRowIsKeptLikeAnyOther) {
    RowSpool spool;
    for (std::int64_t i = 0; i < 5; ++i) {
        spool.add(rowOf(i, 5'000'000));
    }
    spool.finish();
    for (const std::size_t position : {4u, 0u, 2u}) {
        EXPECT_EQ(spool.row(position), rowOf(static_cast<std::int64_t>(position), 5'000'000));
    }
}

TEST(RowSpool, AReaderWaitsForRowsThatAreStillToCome) {
    RowSpool spool;
    std::thread writer([&] {
        for (std::int64_t i = 0; i < 3000; ++i) {
            spool.add(rowOf(i));
        }
        spool.finish();
    });
    EXPECT_TRUE(spool.waitFor(2999));
    EXPECT_EQ(spool.row(2999), rowOf(2999));
    EXPECT_FALSE(spool.waitFor(3000));
    writer.join();
}

TEST(RowSpool, AnErrorReachesWhoAsksForARowThatDidNotCome) {
    RowSpool spool;
    spool.add(rowOf(0));
    spool.fail(std::make_exception_ptr(sql::DbError(sql::provider::failure, "perdida")));
    EXPECT_TRUE(spool.waitFor(0));
    EXPECT_EQ(spool.row(0), rowOf(0));
    EXPECT_THROW(spool.waitFor(1), sql::DbError);
    EXPECT_THROW(spool.waitForAll(), sql::DbError);
}

}  // namespace
}  // namespace velmora::odbc
