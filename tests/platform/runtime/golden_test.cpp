// Every row of every golden table.

#include "golden.h"

#include <cmath>
#include <cstdint>
#include <functional>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::runtime {
namespace {

using test::errorOf;
using test::goldenDate;
using test::goldenNumber;
using test::GoldenRow;
using test::readGolden;

/// The number of rows of each table, so that a truncated table fails the test.
constexpr std::size_t cdblRows = 252;
constexpr std::size_t cstrRows = 301;
constexpr std::size_t formatNumberRows = 955;
constexpr std::size_t formatTextRows = 310;
constexpr std::size_t formatDateRows = 107;
constexpr std::size_t cdateRows = 87;
constexpr std::size_t roundRows = 934;
constexpr std::size_t wholeNumberRows = 684;

void checkRows(const std::string& file, std::size_t columns, std::size_t rows,
               const std::function<void(const std::vector<std::string>&)>& check) {
    const auto table = readGolden(file, columns);
    EXPECT_EQ(table.size(), rows) << file;
    for (const GoldenRow& row : table) {
        SCOPED_TRACE(file + ":" + CStr(std::int64_t{row.line}) + " [" + row.cells[0] + "] [" + row.cells[1] + "]");
        check(row.cells);
    }
}

/// Runs a conversion that either gives `expected` or raises the error that the table names.
template <typename Convert, typename Expected>
void expectResult(Convert convert, const std::string& error, Expected expected) {
    if (!error.empty()) {
        EXPECT_EQ(errorOf(convert), static_cast<long>(goldenNumber(error)));
        return;
    }
    try {
        EXPECT_EQ(convert(), expected());
    } catch (const RuntimeError& raised) {
        ADD_FAILURE() << "raised " << raised.number();
    }
}

TEST(Golden, CDbl) {
    checkRows("cdbl.tsv", 3, cdblRows, [](const auto& row) {
        expectResult([&] { return CDbl(row[0]); }, row[2], [&] { return goldenNumber(row[1]); });
        EXPECT_EQ(IsNumeric(row[0]), row[2].empty());
    });
}

TEST(Golden, CStr) {
    checkRows("cstr.tsv", 2, cstrRows, [](const auto& row) { EXPECT_EQ(CStr(goldenNumber(row[0])), row[1]); });
}

TEST(Golden, FormatOfNumbers) {
    checkRows("format_number.tsv", 3, formatNumberRows,
              [](const auto& row) { EXPECT_EQ(Format(goldenNumber(row[0]), row[1]), row[2]); });
}

TEST(Golden, FormatOfTexts) {
    checkRows("format_text.tsv", 3, formatTextRows, [](const auto& row) { EXPECT_EQ(Format(row[0], row[1]), row[2]); });
}

TEST(Golden, FormatOfDates) {
    checkRows("format_date.tsv", 3, formatDateRows, [](const auto& row) {
        const Date date = goldenDate(row[0]);
        EXPECT_EQ(row[1] == "(CStr)" ? CStr(date) : Format(date, row[1]), row[2]);
    });
}

TEST(Golden, CDate) {
    checkRows("cdate.tsv", 3, cdateRows, [](const auto& row) {
        expectResult([&] { return CDate(row[0]); }, row[2], [&] { return goldenDate(row[1]); });
        EXPECT_EQ(IsDate(row[0]), row[2].empty());
    });
}

TEST(Golden, Round) {
    checkRows("round_half_even.tsv", 3, roundRows, [](const auto& row) {
        const double result = Round(goldenNumber(row[0]), static_cast<int>(goldenNumber(row[1])));
        EXPECT_EQ(result, goldenNumber(row[2]));
        EXPECT_EQ(std::signbit(result), std::signbit(goldenNumber(row[2])));
    });
}

TEST(Golden, WholeNumbers) {
    checkRows("whole_numbers.tsv", 4, wholeNumberRows, [](const auto& row) {
        const std::string& kind = row[0];
        const auto convert = [&]() -> std::int32_t {
            if (kind == "double->int16") {
                return CInt(goldenNumber(row[1]));
            }
            if (kind == "double->int32") {
                return CLng(goldenNumber(row[1]));
            }
            return kind == "text->int16" ? CInt(row[1]) : CLng(row[1]);
        };
        expectResult(convert, row[3], [&] { return goldenNumber(row[2]); });
    });
}

}  // namespace
}  // namespace velmora::runtime
