#include "velmora/platform/runtime/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "golden.h"

namespace velmora::runtime {
namespace {

using test::errorOf;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// Numbers of many magnitudes, including exact halves at 15 digits; the same on every run.
std::vector<double> manyNumbers() {
    std::mt19937_64 random(20260115);
    std::vector<double> numbers;
    for (int i = 0; i < 20000; ++i) {
        const auto bits = static_cast<double>(random() >> 11U);
        numbers.push_back(std::ldexp(bits, -static_cast<int>(random() % 120)));
        numbers.push_back(-std::ldexp(bits, static_cast<int>(random() % 200)));
        numbers.push_back(static_cast<double>(random() % 2000000000) / 1000);
        numbers.push_back(static_cast<double>(random() % 1000000) / 64);
        numbers.push_back(static_cast<double>(random() % 1000000000000000) / 8);
    }
    return numbers;
}

/// The 15-digit text computed independently: from all digits of the double, half away from zero.
double throughFifteenDigits(double value) {
    std::array<char, 1100> buffer;
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                       std::chars_format::scientific, 800);
    const std::string_view all(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
    const std::string digits = std::string(1, all[0]) + std::string(all.substr(2, 14));
    const auto whole = static_cast<std::int64_t>(test::goldenNumber(digits)) + (all[16] >= '5' ? 1 : 0);
    const auto exponent = std::string(all.substr(all.find('e') + 1));
    const int scale = std::stoi(exponent) - 14;
    const double result = test::goldenNumber(std::to_string(whole) + "e" + std::to_string(scale));
    return value < 0 ? -result : result;
}

TEST(CDbl, RefusesADotAtTheVeryStart) {
    for (const char* text : {".5", "-.5", "€.5", "(.5)", " .5", ".", ".1,5"}) {
        EXPECT_EQ(errorOf([&] { CDbl(text); }), 13) << text;
        EXPECT_FALSE(IsNumeric(text)) << text;
    }
}

TEST(CDbl, RefusesADotBehindTheCommaOrTheExponent) {
    for (const char* text : {"1,5.0", "1,.", "1e3.0", "1e.3"}) {
        EXPECT_EQ(errorOf([&] { CDbl(text); }), 13) << text;
    }
}

TEST(CDbl, RefusesASignTogetherWithParentheses) {
    for (const char* text : {"(-5)", "-(5)", "(5-)", "(5)-", "((5))", "()"}) {
        EXPECT_EQ(errorOf([&] { CDbl(text); }), 13) << text;
    }
}

TEST(CDbl, TakesTheBlankThatDoesNotBreak) {
    EXPECT_EQ(CDbl("\u00a07,5\u00a0€"), 7.5);
    EXPECT_EQ(errorOf([] { CDbl("7\u00a0000"); }), 13);
}

TEST(CDbl, ReadsTextsOfAnyLength) {
    EXPECT_EQ(CDbl(std::string(5000, '0').append("12,5").append(5000, '0')), 12.5);
    EXPECT_EQ(CDbl(std::string("0,").append(400, '0').append("1e401")), 1.0);
    EXPECT_EQ(CDbl(std::string("0,").append(5000, '0').append("1")), 0.0);
    EXPECT_EQ(errorOf([] { CDbl(std::string(400, '9')); }), 6);
    EXPECT_EQ(errorOf([] { CDbl("1e99999999999999999999999"); }), 6);
    EXPECT_EQ(CDbl("1e-99999999999999999999999"), 0.0);
}

TEST(CDbl, ReadsTheNearestDoubleOfPlainDigits) {
    std::uint64_t state = 1;
    for (int i = 0; i < 20'000; ++i) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        std::string text = (state & 64U) != 0 ? "-" : "";
        text += CStr(static_cast<std::int64_t>(state >> 8U)).substr(0, static_cast<std::size_t>(1 + state % 18));
        text.insert(text.size() - static_cast<std::size_t>((state >> 32U) % 8) % text.size(), ",");
        std::string withPoint = text;
        withPoint.replace(withPoint.find(','), 1, ".");
        ASSERT_EQ(CDbl(text), test::goldenNumber(withPoint)) << text;
    }
}

TEST(CDbl, FollowsTheLocaleItIsGiven) {
    constexpr Locale english{.decimal = '.', .thousands = ',', .currency = "£"};
    EXPECT_EQ(CDbl("£1,234.5", english), 1234.5);
    EXPECT_EQ(CStr(1234.5, english), "1234.5");
    EXPECT_EQ(Format(1234567.895, "#,##0.00", english), "1,234,567.90");
    EXPECT_EQ(CInt("2.5", english), 2);
    EXPECT_EQ(CLng("1,000", english), 1000);
    EXPECT_FALSE(IsNumeric("€5", english));
}

TEST(CStr, ShowsNoMinusBeforeZero) {
    EXPECT_EQ(CStr(-0.0), "0");
}

TEST(CStr, TurnsToTheExponentAtItsBounds) {
    EXPECT_EQ(CStr(999999999999999.0), "999999999999999");
    EXPECT_EQ(CStr(1e15), "1E+15");
    EXPECT_EQ(CStr(0.0001), "0,0001");
    EXPECT_EQ(CStr(0.00009999), "9,999E-05");
    EXPECT_EQ(CStr(1.0 / 3), "0,333333333333333");
    EXPECT_EQ(CStr(1.0 / 30), "3,33333333333333E-02");
    EXPECT_EQ(CStr(-std::numeric_limits<double>::max()), "-1,79769313486232E+308");
    EXPECT_EQ(CStr(std::numeric_limits<double>::denorm_min()), "4,94065645841247E-324");
}

TEST(CStr, HasTheFifteenDigitsOfTheExactExpansion) {
    for (const double value : manyNumbers()) {
        ASSERT_EQ(CDbl(CStr(value)), throughFifteenDigits(value)) << shortest(value);
    }
}

TEST(CStr, WritesAllNumbersThatFifteenDigitsDoNotTellApartAlike) {
    std::mt19937_64 random(20261123);
    for (int i = 0; i < 10000; ++i) {
        const std::uint64_t hundredths = random() % (std::uint64_t{1} << (random() % 49U + 1));
        const double value = static_cast<double>(hundredths) / 100;
        const std::string text = CStr(value);
        ASSERT_EQ(CDbl(text), value) << text;
        if (hundredths != 0) {
            ASSERT_EQ(CStr(std::nextafter(value, 0.0)), text);
            ASSERT_EQ(CStr(std::nextafter(value, infinity)), text);
            ASSERT_EQ(CStr(-value), "-" + text);
        }
    }
}

TEST(CStr, WritesWholeNumbersToTheirBounds) {
    EXPECT_EQ(CStr(std::int64_t{0}), "0");
    EXPECT_EQ(CStr(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(CStr(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
}

TEST(Numbers, InfinitiesAndNaNNeverBecomeText) {
    for (const double value : {infinity, -infinity, nan}) {
        EXPECT_EQ(errorOf([&] { CStr(value); }), 6);
        EXPECT_EQ(errorOf([&] { shortest(value); }), 6);
        EXPECT_EQ(errorOf([&] { Format(value, "0.00"); }), 6);
        EXPECT_EQ(errorOf([&] { Round(value, 2); }), 6);
        EXPECT_EQ(errorOf([&] { Redondear(value, 2); }), 6);
        EXPECT_EQ(errorOf([&] { CInt(value); }), 6);
        EXPECT_EQ(errorOf([&] { CLng(value); }), 6);
    }
}

TEST(Shortest, ReadsBackToTheSameDoubleWithADecimalPoint) {
    const std::pair<double, const char*> rows[]{
        {38, "38"},
        {12.7, "12.7"},
        {0, "0"},
        {-0.0, "0"},
        {-61.37, "-61.37"},
        {100000, "100000"},
        {0.00012, "0.00012"},
        {0.1 + 0.2, "0.30000000000000004"},
        {1e15, "1e+15"},
        {1e-6, "1e-06"},
    };
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(shortest(value), text);
        EXPECT_EQ(test::goldenNumber(shortest(value)), value);
    }
}

TEST(FormatNumber, ShowsNoMinusWhereTheValueRoundsToZero) {
    EXPECT_EQ(Format(-0.004, "0.00"), "0,00");
    EXPECT_EQ(Format(-0.005, "0.00"), "-0,01");
    EXPECT_EQ(Format(-0.0, "#0."), "0,");
    EXPECT_EQ(Format(-0.4, "000"), "000");
    EXPECT_EQ(Format("-0,4", "#,##0"), "0");
}

TEST(FormatNumber, RoundsAwayOnTheDecimalValueNotOnTheBinaryOne) {
    EXPECT_EQ(Format(1.005, "0.00"), "1,01");
    EXPECT_EQ(Format(2.675, "0.00"), "2,68");
    EXPECT_EQ(Format(2.5, "#0"), "3");
    EXPECT_EQ(Format(999999999999999.5, "#,##0.00"), "1.000.000.000.000.000,00");
}

TEST(FormatNumber, ShowsOptionalDigitsOnlyWhereTheyAre) {
    EXPECT_EQ(Format(1.5, "0.0##"), "1,5");
    EXPECT_EQ(Format(1.2345, "0.0##"), "1,235");
    EXPECT_EQ(Format(0.5, "#.##"), ",5");
    EXPECT_EQ(Format(0, "#"), "");
}

TEST(FormatNumber, KeepsWhatStandsAroundTheDigits) {
    EXPECT_EQ(Format(-12.5, "0.00 mm"), "-12,50 mm");
    EXPECT_EQ(Format(5, "N 000"), "N 005");
    EXPECT_EQ(Format(1234.5, ""), "1234,5");
}

TEST(FormatNumber, GroupsTheZerosThatFillUp) {
    EXPECT_EQ(Format(12, "000,000"), "000.012");
}

TEST(FormatNumber, WritesTheWholeRangeOfADouble) {
    EXPECT_EQ(Format(1e300, "0").size(), 301U);
    EXPECT_EQ(Format(-std::numeric_limits<double>::max(), "#,##0.00").substr(0, 8), "-179.769");
}

TEST(FormatText, ConvertsNumbersAndDatesAndLeavesTheRest) {
    EXPECT_EQ(Format("1.5", "0.00"), "15,00");
    EXPECT_EQ(Format("5/6/24", "dd/mm/yyyy"), "05/06/2024");
    EXPECT_EQ(Format("45292", "dd/mm/yyyy"), "01/01/2024");
    EXPECT_EQ(Format("Piñón", "0.00"), "Piñón");
    EXPECT_EQ(Format("Piñón", "dd/mm/yyyy"), "Piñón");
    EXPECT_EQ(Format("31/12/2024", "0.00"), "31/12/2024");
    EXPECT_EQ(Format("1e400", "0.00"), "1e400");
}

TEST(Round, DecidesOnTheBinaryValue) {
    EXPECT_EQ(Round(1.005, 2), 1.0);   // lies below the half
    EXPECT_EQ(Round(2.675, 2), 2.67);  // likewise
    EXPECT_EQ(Round(0.125, 2), 0.12);  // a true half, to even
    EXPECT_EQ(Round(0.375, 2), 0.38);  // a true half, to even
    EXPECT_EQ(Round(2.5), 2.0);
    EXPECT_EQ(Round(-3.5), -4.0);
}

TEST(Round, AgreesWithTheExactExpansion) {
    std::array<char, 400> buffer;
    for (const double value : manyNumbers()) {
        for (const int decimals : {0, 2, 5, 15}) {
            const auto written =
                std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
            const std::string_view expected(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
            ASSERT_EQ(Round(value, decimals), test::goldenNumber(expected)) << shortest(value) << ' ' << decimals;
        }
    }
}

TEST(Round, LeavesNoNegativeZero) {
    EXPECT_FALSE(std::signbit(Round(-0.4)));
    EXPECT_FALSE(std::signbit(Round(-0.0, 2)));
}

TEST(Round, KeepsValuesThatHaveNoMoreDecimals) {
    EXPECT_EQ(Round(4503599627370495.5, 1), 4503599627370495.5);
    EXPECT_EQ(Round(1e300, 15), 1e300);
    EXPECT_EQ(Round(123456789.123456789, 15), 123456789.123456789);
}

TEST(Round, RefusesOtherCountsOfDecimals) {
    EXPECT_EQ(errorOf([] { Round(1, -1); }), 5);
    EXPECT_EQ(errorOf([] { Round(1, 16); }), 5);
}

TEST(Redondear, DecidesOnTheDecimalValue) {
    struct {
        double value;
        int decimals;
        double result;
    } const rows[]{
        {1.005, 2, 1.01},
        {2.675, 2, 2.68},
        {-1.005, 2, -1.01},
        {0.125, 2, 0.13},
        {0.135, 2, 0.14},
        {2.5, 0, 3},
        {-2.5, 0, -3},
        {9.995, 2, 10},
        {1.0049999, 2, 1},
        {0.004, 2, 0},
        {56.99999999999999, 2, 57},
        {1e20, 2, 1e20},
        {1234567.895, 2, 1234567.9},
        {1e-10, 2, 0},
        {61.37, 4, 61.37},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Redondear(row.value, row.decimals), row.result) << row.value;
    }
    EXPECT_FALSE(std::signbit(Redondear(-0.004, 2)));
}

TEST(Redondear, AgreesWithFormat) {
    for (int i = -20000; i <= 20000; ++i) {
        const double value = i * 0.0005;
        ASSERT_EQ(Redondear(value, 2), CDbl(Format(value, "0.00"))) << i;
    }
}

TEST(Redondear, AgreesWithTheDigitsThatAreShown) {
    constexpr double largest = 1e9;  // beyond it the mask shows more digits than a number has
    for (const double value : manyNumbers()) {
        if (std::abs(value) < largest) {
            ASSERT_EQ(Redondear(value, 0), CDbl(Format(value, "0"))) << shortest(value);
            ASSERT_EQ(Redondear(value, 2), CDbl(Format(value, "0.00"))) << shortest(value);
            ASSERT_EQ(Redondear(value, 4), CDbl(Format(value, "0.0000"))) << shortest(value);
        }
    }
}

TEST(Redondear, AgreesWithTheDigitsThatAreShownOnBothSidesOfAHalf) {
    std::mt19937_64 random(20261123);
    for (int i = 0; i < 1000; ++i) {
        const auto below = static_cast<double>(random() % (std::uint64_t{10} << (random() % 30U)));
        const double half = (below + 0.5) / 100;
        double lower = half;
        double higher = half;
        for (int step = 0; step < 20; ++step) {
            for (const double value : {lower, higher}) {
                ASSERT_EQ(Redondear(value, 2), CDbl(Format(value, "0.00"))) << shortest(value);
                ASSERT_EQ(Redondear(-value, 2), CDbl(Format(-value, "0.00"))) << shortest(value);
            }
            lower = std::nextafter(lower, 0.0);
            higher = std::nextafter(higher, infinity);
        }
    }
}

TEST(Redondear, GivesWhatRoundDoesNot) {
    struct Row {
        double value;
        double away;  ///< the half goes away from zero
        double even;  ///< the half goes to the even neighbour
    };
    for (const Row& row : {Row{1.005, 1.01, 1}, Row{0.125, 0.13, 0.12}}) {
        EXPECT_EQ(Redondear(row.value, 2), row.away) << row.value;
        EXPECT_EQ(Round(row.value, 2), row.even) << row.value;
    }
}

TEST(Numbers, TextOfFifteenDigitsSurvivesTheWayThere) {
    for (int i = 1; i < 20000; ++i) {
        const double value = i * 0.731 / 7;
        const double shown = CDbl(CStr(value));
        ASSERT_EQ(CStr(shown), CStr(value));
        ASSERT_NEAR(shown, value, value * 1e-14);
    }
}

TEST(WholeNumbers, HalvesGoToEvenUpToTheBounds) {
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_EQ(errorOf([] { CInt(32767.5); }), 6);
    EXPECT_EQ(CInt(-32768.5), -32768);
    EXPECT_EQ(CLng(-2147483648.5), -2147483647 - 1);
    EXPECT_EQ(errorOf([] { CLng(2147483647.5); }), 6);
}

TEST(Val, ReadsTheLeadingNumberWithADecimalPoint) {
    const std::pair<const char*, double> rows[]{
        {"12.5 mm", 12.5},  {"12,5", 12},   {"", 0},         {"abc", 0},     {"-3.5", -3.5}, {"+4", 4}, {".5", 0.5},
        {"1e3", 1000},      {"1e", 1},      {"1d-2x", 0.01}, {"1 2 3", 123}, {"1.2.3", 1.2}, {"-", 0},  {"5-", 5},
        {"1.234,5", 1.234}, {"24 x 3", 24},
    };
    for (const auto& [text, value] : rows) {
        EXPECT_EQ(Val(text), value) << text;
    }
    EXPECT_EQ(errorOf([] { Val("1e400"); }), 6);
}

TEST(Int, GoesDown) {
    EXPECT_EQ(Int(2.9), 2);
    EXPECT_EQ(Int(-2.1), -3);
    EXPECT_EQ(Int(-2.0), -2);
}

TEST(Divide, ByZeroIsAnErrorNeverAnInfinity) {
    EXPECT_EQ(divide(1, 4), 0.25);
    EXPECT_EQ(errorOf([] { divide(1, 0); }), 11);
    EXPECT_EQ(errorOf([] { divide(-1, -0.0); }), 11);
    EXPECT_EQ(errorOf([] { divide(0, 0); }), 6);
    EXPECT_EQ(errorOf([] { divide(1e300, 1e-300); }), 6);
}

}  // namespace
}  // namespace velmora::runtime
