#include "velmora/platform/runtime/dates.h"

#include <gtest/gtest.h>

#include "velmora/platform/runtime/numbers.h"

#include "golden.h"

namespace velmora::runtime {
namespace {

using test::errorOf;

TEST(CDate, YearsOfTwoDigitsAre1950To2049) {
    EXPECT_EQ(CDate("1/1/00"), Date::of(2000, 1, 1));
    EXPECT_EQ(CDate("31/12/49"), Date::of(2049, 12, 31));
    EXPECT_EQ(CDate("1/1/50"), Date::of(1950, 1, 1));
    EXPECT_EQ(CDate("1/1/99"), Date::of(1999, 1, 1));
}

TEST(CDate, TakesTheYearFirstOnlyWhereItCannotBeADay) {
    EXPECT_EQ(CDate("99/12/31"), Date::of(1999, 12, 31));
    EXPECT_EQ(CDate("2024-2-3"), Date::of(2024, 2, 3));
    EXPECT_FALSE(IsDate("31/02/24"));
    EXPECT_FALSE(IsDate("30/02/12"));
}

TEST(CDate, RefusesYearsThatNoCalendarOfOursHas) {
    for (const char* text : {"1/1/0000", "1/1/099", "1/1/10000", "1/1/20240"}) {
        EXPECT_FALSE(IsDate(text)) << text;
    }
    EXPECT_EQ(CDate("1/1/100"), Date::of(100, 1, 1));
}

TEST(CDate, RefusesTextsWithoutAYear) {
    for (const char* text : {"31/12", "31 dic", "dic 31", "5"}) {
        EXPECT_FALSE(IsDate(text)) << text;
    }
}

TEST(CDate, ReadsNamesOfMonthsInAnyCase) {
    EXPECT_EQ(CDate("3 SEPT 2024"), Date::of(2024, 9, 3));
    EXPECT_EQ(CDate("3-Septiembre-2024"), Date::of(2024, 9, 3));
    EXPECT_EQ(CDate("2024 ene 3"), Date::of(2024, 1, 3));
    EXPECT_FALSE(IsDate("3 septi 2024"));
    EXPECT_FALSE(IsDate("ene 3 feb 2024"));
}

TEST(CDate, ReadsTheTimeBeforeOrBehindTheDay) {
    EXPECT_EQ(CDate("10:30 31/12/2024"), Date::of(2024, 12, 31, 10, 30));
    EXPECT_EQ(CDate("31/12/2024 10:30:15 PM"), Date::of(2024, 12, 31, 22, 30, 15));
    EXPECT_EQ(CDate("12:30 am"), Date::of(1899, 12, 30, 0, 30));
    for (const char* text : {"13:00 PM", "0:30 PM", "1:2:3:4", "10:60", "100:10", "10:100", ":10", "10:30 10:30",
                             "31/12/10:30/2024", "PM", "31/12/2024 PM", "31/12/2024/"}) {
        EXPECT_FALSE(IsDate(text)) << text;
    }
}

TEST(CDate, RefusesWhatItDoesNotKnow) {
    for (const char* text : {"31.12.2024", "31/12/2024\t", "31/12/2024x", "ñ", "1 2 3 4 5 6 7 8 9 10 11 12 13 14",
                             "////////////////", "99999999999999999999/1/1"}) {
        EXPECT_FALSE(IsDate(text)) << text;
        EXPECT_EQ(errorOf([&] { CDate(text); }), 13) << text;
    }
}

TEST(FormatDate, KnowsTheOtherArrangements) {
    const Date date = Date::of(2024, 2, 3, 4, 5, 6);
    EXPECT_EQ(Format(date, "dd/mm/yyyy hh:nn:ss"), "03/02/2024 04:05:06");
    EXPECT_EQ(Format(date, "d/m/yy h:n:s"), "3/2/24 4:5:6");
    EXPECT_EQ(Format(date, "DD-MM-YYYY"), "03-02-2024");
    EXPECT_EQ(Format(date, "hh:mm"), "04:05");
    EXPECT_EQ(Format(date, "mm hh"), "02 04");
    EXPECT_EQ(Format(date, ""), "");
}

TEST(FormatDate, TakesTheNumberOfADate) {
    EXPECT_EQ(Format(45292.5, "dd/mm/yyyy hh:nn"), "01/01/2024 12:00");
}

TEST(DateSerial, CountsDaysWithTheTimeAsTheFraction) {
    const std::pair<Date, double> rows[]{
        {Date::of(1899, 12, 30), 0},         {Date::of(1900, 1, 1), 2},         {Date::of(2024, 1, 1), 45292},
        {Date::of(2024, 1, 1, 12), 45292.5}, {Date::of(1899, 12, 29), -1},      {Date::of(1899, 12, 29, 6), -1.25},
        {Date::of(100, 1, 1), -657434},      {Date::of(9999, 12, 31), 2958465},
    };
    for (const auto& [date, serial] : rows) {
        EXPECT_EQ(toSerial(date), serial);
        EXPECT_EQ(fromSerial(serial), date) << serial;
    }
}

TEST(DateSerial, ComesBackToTheSecond) {
    for (int i = 0; i < 86400; i += 7) {
        const Date date{Date::of(2026, 1, 15).at + std::chrono::seconds{i}};
        ASSERT_EQ(fromSerial(toSerial(date)), date) << i;
    }
}

TEST(DateSerial, RefusesWhatLiesOutsideTheCalendar) {
    for (const double serial : {-657435.0, 2958466.0, 1e300, -1e300}) {
        EXPECT_EQ(errorOf([&] { fromSerial(serial); }), 6) << serial;
    }
}

}  // namespace
}  // namespace velmora::runtime
