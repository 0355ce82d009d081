#include "velmora/adapters/tsql/conversions.h"

#include <gtest/gtest.h>

namespace velmora::tsql {

using runtime::Date;

TEST(Conversions, RealsKeepSixDigits) {
    const std::vector<std::pair<double, const char*>> cases = {
        {12.5, "12.5"},     {123456.7, "123457"}, {1e6, "1e+006"},    {1234567, "1.23457e+006"},
        {0.0001, "0.0001"}, {1e-5, "1e-005"},     {-2.25, "-2.25"},   {0, "0"},
        {1e100, "1e+100"},  {65, "65"},           {0.1 + 0.2, "0.3"}, {999999.5, "1e+006"}};
    for (const auto& [number, text] : cases) {
        EXPECT_EQ(textFromReal(number), text);
    }
}

TEST(Conversions, TextsToNumbers) {
    EXPECT_EQ(wholeFromText(" 12 "), 12);
    EXPECT_EQ(wholeFromText("+5"), 5);
    EXPECT_EQ(numberFromText("-1.5e2"), -150.0);
    EXPECT_EQ(numberFromText(".5"), 0.5);
    EXPECT_EQ(numberFromText("5."), 5.0);
    for (const char* text : {"", " ", "1,5", "x", "1.5", "--1", "+-1", "99999999999999999999"}) {
        EXPECT_FALSE(wholeFromText(text)) << text;
    }
    for (const char* text : {"", " ", "1,5", "inf", "nan", "0x10", "1e999", "1 2"}) {
        EXPECT_FALSE(numberFromText(text)) << text;
    }
}

TEST(Conversions, TextsToDatesDayFirst) {
    const std::vector<std::pair<const char*, Date>> cases = {
        {"03/02/2026", Date::of(2026, 2, 3)},
        {"3-2-26", Date::of(2026, 2, 3)},
        {"3.2.1999", Date::of(1999, 2, 3)},
        {"20260203", Date::of(2026, 2, 3)},
        {"2026-02-03", Date::of(2026, 2, 3)},
        {"2026-02-03T04:05:06", Date::of(2026, 2, 3, 4, 5, 6)},
        {"20260203 04:05:06", Date::of(2026, 2, 3, 4, 5, 6)},
        {"03/02/2026 23:59:00", Date::of(2026, 2, 3, 23, 59)},
        {"03/02/2026 9:05", Date::of(2026, 2, 3, 9, 5)},
        {"03/02/2026 9:05:07.123", Date::of(2026, 2, 3, 9, 5, 7)},
        {"29/02/2024", Date::of(2024, 2, 29)},
        {"", Date::of(1900, 1, 1)},
    };
    for (const auto& [text, date] : cases) {
        EXPECT_EQ(dateFromText(text), date) << text;
    }
    for (const char* text : {"31/02/2026", "29/02/2026", "12/31/2026", "1/1", "1/1/1", "hoy", "01/01/1700",
                             "01/01/2026 24:00", "01/01/2026 9", "01/01/2026 9:60", "2026", "1/2-2026", "01/01/202"}) {
        if (std::string_view(text) == "1/1/1") {
            EXPECT_EQ(dateFromText(text), Date::of(2001, 1, 1));
        } else {
            EXPECT_FALSE(dateFromText(text)) << text;
        }
    }
}

TEST(Conversions, IsoDatesComeBack) {
    for (const Date& date : {Date::of(1753, 1, 1), Date::of(2026, 12, 31, 23, 59, 59), Date::of(9999, 12, 31)}) {
        EXPECT_EQ(dateFromIso(isoText(date)), date);
    }
    EXPECT_EQ(isoText(Date::of(2026, 2, 3, 4, 5, 6)), "2026-02-03 04:05:06");
    for (const char* text : {"2026-02-30 00:00:00", "2026-02-03", "x", "2026-02-03T00:00:00"}) {
        EXPECT_FALSE(dateFromIso(text)) << text;
    }
}

}  // namespace velmora::tsql
