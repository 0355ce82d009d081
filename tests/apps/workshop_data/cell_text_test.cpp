#include "velmora/apps/workshop_data/cell_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/apps/workshop_data/references.h"

namespace velmora::workshop_data {
namespace {

using ::testing::HasSubstr;

const Table& table(const char* name) {
    return *findTable(name);
}

const Column& column(const char* ofTable, const char* name) {
    return table(ofTable).columns[positionOf(table(ofTable), name)];
}

ReadText readIn(const char* ofTable, const char* name, const std::string& text) {
    return read(table(ofTable), column(ofTable, name), text, References());
}

std::string reason(const ReadText& result) {
    const auto* refusal = std::get_if<Refusal>(&result);
    return refusal == nullptr ? "" : refusal->reason;
}

TEST(NumberOf, TakesADecimalCommaAndNothingThatCanBeReadInTwoWays) {
    struct Row {
        const char* text;
        std::optional<double> number;
    };
    for (const auto& [text, number] : {Row{"12,5", 12.5},
                                       Row{"0,045", 0.045},
                                       Row{"-3", -3},
                                       Row{"+3", 3},
                                       Row{"1E+15", 1e15},
                                       Row{"1,5e-7", 1.5e-7},
                                       Row{"-0", 0.0},
                                       Row{",5", 0.5},
                                       Row{"1.234", std::nullopt},
                                       Row{"1.234,5", std::nullopt},
                                       Row{"1,2,3", std::nullopt},
                                       Row{"", std::nullopt},
                                       Row{"abc", std::nullopt},
                                       Row{"12 mm", std::nullopt},
                                       Row{"e5", std::nullopt},
                                       Row{"nan", std::nullopt},
                                       Row{"inf", std::nullopt},
                                       Row{"1e999", std::nullopt},
                                       Row{"0x10", std::nullopt},
                                       Row{"99999999999999999999999999999999999999999", std::nullopt}}) {
        EXPECT_EQ(numberOf(text), number) << text;
    }
}

TEST(ReadText, NumbersAreStoredExactly) {
    EXPECT_EQ(std::get<sql::Value>(readIn("ART", "ART_Fac", " 6,165 ")), sql::Value(6.165));
    EXPECT_EQ(reason(readIn("ART", "ART_Fac", "6.165")),
              "no es un número válido: los decimales llevan coma, y los miles nada");
    EXPECT_EQ(reason(readIn("ART", "ART_Fac", "mucho")), "no es un número");
    EXPECT_EQ(reason(readIn("ART", "ART_Fac", "-1")), "debe ser 0 o más");
    EXPECT_EQ(reason(readIn("CLI", "CLI_GtosFinan", "100,5")), "debe ser 100 o menos");
}

TEST(ReadText, WholeNumbersAreWhole) {
    EXPECT_EQ(std::get<sql::Value>(readIn("CLI", "CLI_COD", "1001")), sql::Value(1001));
    EXPECT_EQ(reason(readIn("CLI", "CLI_COD", "1,5")), "debe ser un número entero");
    EXPECT_EQ(reason(readIn("CLI", "CLI_COD", "0")), "debe ser 1 o más");
    EXPECT_EQ(reason(readIn("CLI", "CLI_COD", "2147483648")), "debe ser 2147483647 o menos");
    EXPECT_EQ(reason(readIn("OPE", "OPE_ID", "1000")), "debe ser 999 o menos");
}

TEST(ReadText, TextsHaveTheWidthOfTheirColumnInTheDatabase) {
    EXPECT_EQ(std::get<sql::Value>(readIn("ART", "ART_COD", " R-1 ")), sql::Value("R-1"));
    EXPECT_EQ(reason(readIn("ART", "ART_COD", std::string(40, 'x'))), "");
    EXPECT_EQ(reason(readIn("ART", "ART_COD", std::string(41, 'x'))), "es demasiado largo: admite 40 letras");
    EXPECT_EQ(reason(readIn("ART", "ART_DES", "dos\nlíneas")), "no admite saltos de línea ni caracteres de control");
}

TEST(ReadText, NothingIsNullUnlessTheColumnIsRequired) {
    EXPECT_TRUE(std::get<sql::Value>(readIn("CLI", "CLI_COMER", "  ")).isNull());
    EXPECT_EQ(reason(readIn("CLI", "CLI_NOM", " ")), "falta");
}

TEST(ReadText, BoxesTakeTheWordsOfSpreadsheets) {
    for (const char* yes : {"Sí", "sí", "SI", "s", "1", "VERDADERO"}) {
        EXPECT_EQ(std::get<sql::Value>(readIn("CLI", "CLI_Riesgo", yes)), sql::Value(1)) << yes;
    }
    for (const char* no : {"No", "n", "0", "falso"}) {
        EXPECT_EQ(std::get<sql::Value>(readIn("CLI", "CLI_Riesgo", no)), sql::Value(0)) << no;
        EXPECT_TRUE(std::get<sql::Value>(readIn("ART", "ART_Corte", no)).isNull()) << no;
    }
    EXPECT_EQ(reason(readIn("CLI", "CLI_Riesgo", "quizá")), "debe ser Sí o No");
}

TEST(ReadText, AChoiceIsItsWordsOrItsNumber) {
    EXPECT_EQ(std::get<sql::Value>(readIn("ART", "ART_For", "redondo")), sql::Value(2));
    EXPECT_EQ(std::get<sql::Value>(readIn("ART", "ART_For", "2")), sql::Value(2));
    EXPECT_THAT(reason(readIn("ART", "ART_For", "7")), HasSubstr("debe ser uno de: Por unidades, Pletina"));
}

TEST(ReadText, AReferenceNamesARowThatIsThere) {
    EXPECT_EQ(reason(readIn("MAQ", "MAQ_SEC", "9")), "no existe la sección 9");
    EXPECT_EQ(reason(readIn("MAQ", "MAQ_SEC", "' or 1=1 --")), "no existe la sección ' or 1=1 --");
}

TEST(Shown, WhatIsStoredIsShownAsItIsRead) {
    const References none;
    EXPECT_EQ(shown(column("ART", "ART_Fac"), 6.165, none), "6,165");
    EXPECT_EQ(shown(column("ART", "ART_Fac"), sql::Value(), none), "");
    EXPECT_EQ(shown(column("ART", "ART_For"), 3, none), "Disco");
    EXPECT_EQ(shown(column("ART", "ART_For"), 9, none), "9") << "not in the list";
    EXPECT_EQ(shown(column("CLI", "CLI_Riesgo"), -1, none), "Sí") << "as hosts store it";
    EXPECT_EQ(shown(column("CLI", "CLI_Riesgo"), sql::Value(), none), "");
    EXPECT_EQ(shown(column("MAQ", "MAQ_SEC"), 9, none), "9") << "the row is gone";
}

// An acceptance asks about the cut of an article whose column is not null, whatever it holds.
TEST(Shown, APresenceIsNoWhenNullAndYesOtherwise) {
    EXPECT_EQ(shown(column("ART", "ART_Corte"), sql::Value(), References()), "No");
    EXPECT_EQ(shown(column("ART", "ART_Corte"), 0, References()), "Sí");
}

}  // namespace
}  // namespace velmora::workshop_data
