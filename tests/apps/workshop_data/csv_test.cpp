#include "velmora/apps/workshop_data/csv.h"

#include <ctime>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora::workshop_data {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Values = std::vector<std::string>;

std::vector<Values> valuesOf(const CsvContent& content) {
    std::vector<Values> all;
    for (const CsvRecord& record : content.records) {
        all.push_back(record.values);
    }
    return all;
}

TEST(ParseCsv, SeparatesValuesBySemicolonsAndRowsByAnyLineEnd) {
    const CsvContent content = parseCsv("a;b\r\n1;2\n3;4\r5;6");
    EXPECT_FALSE(content.fault);
    EXPECT_THAT(valuesOf(content), ElementsAre(Values{"a", "b"}, Values{"1", "2"}, Values{"3", "4"}, Values{"5", "6"}));
    EXPECT_EQ(content.records.back().line, 4u);
}

TEST(ParseCsv, QuotedValuesMayHoldSeparatorsQuotesAndLineEnds) {
    const CsvContent content = parseCsv("\"a;b\";\"dice \"\"hola\"\"\";\"dos\r\nlíneas\"\nx;;y\n");
    EXPECT_FALSE(content.fault);
    EXPECT_THAT(valuesOf(content), ElementsAre(Values{"a;b", "dice \"hola\"", "dos\r\nlíneas"}, Values{"x", "", "y"}));
    EXPECT_EQ(content.records.back().line, 3u) << "the line end inside of the quotes is counted";
}

TEST(ParseCsv, AQuoteWithinAValueStandsForItself) {
    EXPECT_THAT(valuesOf(parseCsv("cadena 1/2\";7")), ElementsAre(Values{"cadena 1/2\"", "7"}));
}

TEST(ParseCsv, RowsWithoutAnyValueAreLeftOut) {
    const CsvContent content = parseCsv("a;b\n\n;\n\n1;2\n");
    EXPECT_THAT(valuesOf(content), ElementsAre(Values{"a", "b"}, Values{"1", "2"}));
    EXPECT_EQ(content.records.back().line, 5u);
}

TEST(ParseCsv, AnEmptyTextHasNoRows) {
    for (const char* text : {"", "\n", "\r\n\r\n", ";;;"}) {
        const CsvContent content = parseCsv(text);
        EXPECT_FALSE(content.fault);
        EXPECT_THAT(content.records, IsEmpty()) << text;
    }
}

TEST(ParseCsv, AnUnclosedQuoteIsToldWithTheLineInWhichItBegins) {
    const CsvContent content = parseCsv("a;b\n1;\"dos\n3;4\n");
    ASSERT_TRUE(content.fault);
    EXPECT_EQ(*content.fault, (CsvFault{2, "Unas comillas se abren y no se cierran."}));
    EXPECT_THAT(valuesOf(content), ElementsAre(Values{"a", "b"}));
}

TEST(ParseCsv, TextBehindAClosedQuoteIsToldWithItsLine) {
    const CsvContent content = parseCsv("a\n\"x\ny\"z\n");
    ASSERT_TRUE(content.fault);
    EXPECT_EQ(*content.fault, (CsvFault{3, "Detrás de unas comillas que se cierran hay más texto."}));
}

TEST(ParseCsv, TheLastCharacterMayBeAnything) {
    EXPECT_THAT(valuesOf(parseCsv("a;")), ElementsAre(Values{"a", ""}));
    EXPECT_THAT(valuesOf(parseCsv("a;\"\"")), ElementsAre(Values{"a", ""}));
    EXPECT_TRUE(parseCsv("a;\"").fault);
    EXPECT_TRUE(parseCsv("a;\"\"\"").fault);
}

TEST(ParseCsv, AVeryLongLineIsOneValue) {
    const std::string value(8'000'000, 'x');
    const CsvContent content = parseCsv("a\n" + value);
    ASSERT_EQ(content.records.size(), 2u);
    EXPECT_EQ(content.records[1].values.front().size(), value.size());
}

/// Processor time, because other programs run beside the tests.
double secondsToParse(int lines) {
    std::string text = "Código;Nombre;Precio\n";
    for (int i = 0; i < lines; ++i) {
        text += "10000;\"TALLERES \"\"NORTE\"\" SL\";1234,56\n";
    }
    const std::clock_t start = std::clock();
    EXPECT_EQ(parseCsv(text).records.size(), static_cast<std::size_t>(lines) + 1);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// A reading that copied what is left of the text at each value would take minutes.
TEST(ParseCsv, AHundredThousandLinesAreQuick) {
    EXPECT_LT(secondsToParse(100'000), 5);
}

TEST(TextOfBytes, Utf8IsTakenWithAndWithoutItsMark) {
    EXPECT_EQ(textOfBytes("Piñón"), "Piñón");
    EXPECT_EQ(textOfBytes("\xEF\xBB\xBFPiñón"), "Piñón");
    EXPECT_EQ(textOfBytes("€ 𝄞"), "€ 𝄞");
    EXPECT_EQ(textOfBytes(""), "");
}

TEST(TextOfBytes, EverythingElseIsReadAsWindows1252) {
    EXPECT_EQ(textOfBytes("Pi\xF1\xF3n \x80 \x93x\x94"), "Piñón € “x”");
    // No UTF-8: cut in the middle, overlong, a surrogate, beyond the last character.
    EXPECT_EQ(textOfBytes("\xC3"), "Ã");
    EXPECT_EQ(textOfBytes("\xC0\xAF"), "À¯");
    EXPECT_EQ(textOfBytes("\xED\xA0\x80"), "í\u00A0€");
    EXPECT_EQ(textOfBytes("\xF5\x80\x80\x80"), "õ€€€");
}

TEST(TextOfBytes, WhatIsNoTextIsNotTaken) {
    EXPECT_EQ(textOfBytes("a\0b"s), std::nullopt);
    EXPECT_EQ(textOfBytes("\xFF\xFE"
                          "a\0;\0"s),
              std::nullopt)
        << "UTF-16";
    EXPECT_EQ(textOfBytes("\x81\xFF"), std::nullopt) << "a byte that Windows-1252 does not know";
}

TEST(CsvOf, WritesWhatIsReadBack) {
    const std::vector<Values> rows{
        {"Código", "Nombre"}, {"1", "a;b"}, {" blanco", "dice \"hola\""}, {"", "dos\r\nlíneas"}, {"1/2\"", "ñ"}};
    const std::string bytes = csvOf(rows);
    EXPECT_TRUE(
        bytes.starts_with("\xEF\xBB\xBF"
                          "Código;Nombre\r\n1;\"a;b\"\r\n"));
    const auto text = textOfBytes(bytes);
    ASSERT_TRUE(text);
    EXPECT_EQ(valuesOf(parseCsv(*text)), rows);
}

}  // namespace
}  // namespace velmora::workshop_data
