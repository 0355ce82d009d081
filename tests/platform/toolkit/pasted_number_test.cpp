#include "velmora/platform/toolkit/pasted_number.h"

#include <gtest/gtest.h>

namespace velmora::toolkit {
namespace {

std::string readAs(std::string_view text) {
    const std::optional<PastedNumber> number = pastedNumber(text);
    return number ? number->text : "none";
}

struct Pasted {
    std::string_view text;
    std::string_view number;
};

TEST(PastedNumberTest, ThePointOrCommaThatIsNoGroupBecomesTheComma) {
    for (const Pasted& row : {Pasted{"38", "38"},
                              Pasted{"12,7", "12,7"},
                              Pasted{"12.7", "12,7"},
                              Pasted{"1.234,5", "1234,5"},
                              Pasted{"1,234.5", "1234,5"},
                              Pasted{"1.234.567", "1234567"},
                              Pasted{"1,234,567", "1234567"},
                              Pasted{"1.234.567,89", "1234567,89"},
                              Pasted{"1 234,5", "1234,5"},
                              Pasted{"12 345", "12345"},
                              Pasted{"1\u00a0234,5", "1234,5"},
                              Pasted{"1\u202f234.5", "1234,5"},
                              Pasted{".5", ",5"},
                              Pasted{"5.", "5"},
                              Pasted{"1.234,", "1234"},
                              Pasted{"-3,5", "-3,5"},
                              Pasted{"- 3.5", "-3,5"},
                              Pasted{"\u22123,5", "-3,5"},
                              Pasted{"0.125", "0,125"},
                              Pasted{"1234.567", "1234,567"}}) {
        EXPECT_EQ(readAs(row.text), row.number) << row.text;
    }
}

TEST(PastedNumberTest, BlanksUnitsAndLeadingSignsFallAway) {
    for (const Pasted& row :
         {Pasted{"1.234,5 mm", "1234,5"}, Pasted{"  38\r\n", "38"}, Pasted{"12.5mm", "12,5"}, Pasted{"Ø 120", "120"},
          Pasted{"12,50 €", "12,50"}, Pasted{"€ 12,50", "12,50"}, Pasted{"3 €/kg", "3"}, Pasted{"7,85 kg/dm³", "7,85"},
          Pasted{"20 %", "20"}, Pasted{"3/4", "none"}, Pasted{"+5", "5"}, Pasted{"38 dientes", "38"},
          Pasted{"45°", "45"}, Pasted{"10 mm.", "10"}, Pasted{"1/2\"", "none"}}) {
        EXPECT_EQ(readAs(row.text), row.number) << row.text;
    }
}

TEST(PastedNumberTest, WhatIsNoNumberOrMoreThanOneIsRefused) {
    for (const std::string_view text :
         {"",           "  ",         "mm",     "abc",  "12 34",     "12\t345,6\t7",
          "1.23,4",     "1.2345,6",   "1,23,4", "1,,5", "1..5",      "12x7",
          "1e5",        "1,23E+05",   "--5",    "5-",   "12,5 - 13", "38 x 12,7",
          "15/01/2026", "2026-01-15", ".",      "-",    "12\t345",   "12 piezas de acero"}) {
        EXPECT_EQ(readAs(text), "none") << text;
    }
}

TEST(PastedNumberTest, APointBeforeThreeDigitsAloneIsReadAsTheCommaAndTold) {
    const auto read = [](std::string_view text) { return pastedNumber(text)->pointWasRead; };
    EXPECT_EQ(readAs("1.234"), "1,234");
    EXPECT_TRUE(read("1.234"));
    for (const std::string_view text : {"1.23", "1.2345", "0.125", "1234.567", "1.234,5", "1.234.567", "1,234"}) {
        EXPECT_FALSE(read(text)) << text;
    }
}

TEST(PastedNumberTest, ADayIsReadWithAnySeparator) {
    EXPECT_EQ(pastedDay("15/01/2026"), "15/01/2026");
    EXPECT_EQ(pastedDay(" 3-1-26\n"), "3/1/26");
    EXPECT_EQ(pastedDay("03.01.2026"), "03/01/2026");
    for (const std::string_view text : {"2026-01-15", "15/01", "15/01/2026 10:00", "150126", "", "1/2/3"}) {
        EXPECT_EQ(pastedDay(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace velmora::toolkit
