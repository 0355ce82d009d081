#include "velmora/adapters/script/shown_text.h"

#include <gtest/gtest.h>

namespace velmora::script {
namespace {

TEST(ShownText, QuotesAreEscapedAndBreaksOfEveryKindAreOne) {
    EXPECT_EQ(inQuotes("a\r\nb\rc\nd"), R"("a\nb\nc\nd")");
    EXPECT_EQ(inQuotes("\"x\\y\""), R"("\"x\\y\"")");
}

TEST(ShownText, ValuesAreWrittenAsTheDatabaseMeansThem) {
    EXPECT_EQ(printed(sql::Value{}), "NULL");
    EXPECT_EQ(printed(sql::Value(true)), "1");
    EXPECT_EQ(printed(sql::Value(false)), "0");
    EXPECT_EQ(printed(sql::Value(38)), "38");
    EXPECT_EQ(printed(sql::Value(38.0)), "38");
    EXPECT_EQ(printed(sql::Value(12.7)), "12.7");
    EXPECT_EQ(printed(sql::Value(-0.1 - 0.2)), "-0.30000000000000004");
    EXPECT_EQ(printed(sql::Value(1234567.0)), "1234567");
    EXPECT_EQ(printed(sql::Value("a\tb")), "a\tb");
    EXPECT_EQ(printed(sql::Value(runtime::Date::of(2026, 1, 15, 10, 0, 5))), "2026-01-15 10:00:05");
    EXPECT_EQ(printed(sql::Value(runtime::Date::of(2026, 1, 15))), "2026-01-15 00:00:00");
    EXPECT_EQ(printed(sql::Value(sql::Bytes{std::byte{0x0A}, std::byte{0xFF}})), "0x0AFF");
}

TEST(ShownText, AWholeNumberTakesUpTheWholeText) {
    EXPECT_EQ(wholeNumber("-12"), -12);
    for (const char* text : {"", "1 ", "1,5", "x", "99999999999"}) {
        EXPECT_FALSE(wholeNumber(text)) << text;
    }
}

}  // namespace
}  // namespace velmora::script
