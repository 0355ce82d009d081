#include "velmora/adapters/session/statement_builder.h"

#include <gtest/gtest.h>

#include "velmora/platform/screen/form.h"

namespace velmora::adapters {
namespace {

using session::FieldList;
using session::FieldValue;
using session::Tipo;

Built built(Tipo tipo, const FieldValue& value, int decimales = 2) {
    FieldList fields;
    fields.Add("COL", tipo, value, decimales);
    return buildInsert("T", fields);
}

/// The value as rendered in the statement, or the error.
std::string rendered(Tipo tipo, const FieldValue& value, int decimales = 2) {
    const Built result = built(tipo, value, decimales);
    const std::string before = "INSERT INTO T (COL) VALUES (";
    return result.error.empty() ? result.statement.substr(before.size(), result.statement.size() - before.size() - 1)
                                : "error: " + result.error;
}

struct Case {
    Tipo tipo;
    FieldValue value;
    std::string expected;
    int decimales = 2;
};

TEST(StatementBuilder, RendersEachKind) {
    const Case cases[] = {
        {Tipo::boolean, 1, "1"},
        {Tipo::boolean, 0, "0"},
        {Tipo::boolean, true, "1"},
        {Tipo::boolean, false, "0"},
        {Tipo::boolean, "-1", "1"},
        {Tipo::boolean, "0,00", "0"},
        {Tipo::wholeNumber, 12, "12"},
        {Tipo::wholeNumber, "1.234", "1234"},
        {Tipo::wholeNumber, -7, "-7"},
        {Tipo::wholeNumber, true, "1"},
        {Tipo::number, "12,5", "12.5"},
        {Tipo::number, "1.234,567", "1234.57"},
        {Tipo::number, 0.1 + 0.2, "0.3"},
        {Tipo::number, 1.005, "1.01"},
        {Tipo::number, -2.675, "-2.68"},
        {Tipo::number, "0,3333", "0.3333", 4},
        {Tipo::number, 2.5, "3", 0},
        {Tipo::number, -0.001, "0"},
        {Tipo::number, 1001, "1001"},
        {Tipo::text, "Piñón Z 17", "N'Piñón Z 17'"},
        {Tipo::text, "ISO 1/2''", "N'ISO 1/2'''''"},
        {Tipo::text, "", "N''"},
        {Tipo::text, 0, "N'0'"},
        {Tipo::text, 12.5, "N'12,5'"},
        {Tipo::dateText, "15/01/2026", "convert(datetime,'15/01/2026',103)"},
        {Tipo::dateText, "5/1/26", "convert(datetime,'05/01/2026',103)"},
        {Tipo::date, sql::Value(runtime::Date::of(2026, 1, 5, 9, 5, 7)), "'2026-01-05T09:05:07'"},
        {Tipo::expression, " Null ", " Null "},
        {Tipo::expression, " getdate() ", " getdate() "},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(rendered(c.tipo, c.value, c.decimales), c.expected) << static_cast<int>(c.tipo);
    }
}

TEST(StatementBuilder, AWholeNumberRoundsHalfToEven) {
    EXPECT_EQ(rendered(Tipo::wholeNumber, 0.5), "0");
    EXPECT_EQ(rendered(Tipo::wholeNumber, "1,5"), "2");
    EXPECT_EQ(rendered(Tipo::wholeNumber, "2,5"), "2");
    EXPECT_EQ(rendered(Tipo::wholeNumber, -3.5), "-4");
    // Kind 2 rounds half away from zero, so 2.5 gives 3.
    EXPECT_EQ(rendered(Tipo::number, 2.5, 0), "3");
}

TEST(StatementBuilder, ANullStaysNullInEveryKindOfValue) {
    for (const Tipo tipo : {Tipo::boolean, Tipo::wholeNumber, Tipo::number, Tipo::text, Tipo::dateText, Tipo::date}) {
        EXPECT_EQ(rendered(tipo, sql::Value()), "NULL") << static_cast<int>(tipo);
    }
    EXPECT_NE(built(Tipo::expression, sql::Value()).error, "");
}

TEST(StatementBuilder, AValueThatDoesNotFitNamesItsColumnAndGivesNoStatement) {
    const Case cases[] = {
        {Tipo::boolean, "abc", ""},     {Tipo::wholeNumber, "", ""}, {Tipo::wholeNumber, 3e9, ""},
        {Tipo::number, "doce", ""},     {Tipo::number, "", ""},      {Tipo::dateText, "31/02/2026", ""},
        {Tipo::dateText, "mañana", ""}, {Tipo::date, "nunca", ""},
    };
    for (const Case& c : cases) {
        const Built result = built(c.tipo, c.value);
        EXPECT_EQ(result.statement, "") << static_cast<int>(c.tipo);
        EXPECT_EQ(result.error.find("El valor de COL no es válido: "), 0U) << result.error;
    }
}

TEST(StatementBuilder, ADayGivenWithATimeIsWrittenAsTheDay) {
    EXPECT_EQ(rendered(Tipo::dateText, "15/01/2026 9:05:00"), "convert(datetime,'15/01/2026',103)");
    EXPECT_EQ(rendered(Tipo::dateText, sql::Value(runtime::Date::of(2026, 1, 15, 9, 5))),
              "convert(datetime,'15/01/2026',103)");
    EXPECT_EQ(rendered(Tipo::date, "15/01/2026 9:05:00"), "'2026-01-15T09:05:00'");
}

TEST(StatementBuilder, TakesTheTextOfABox) {
    screen::Form form("frm");
    screen::TextBox box(form, "Text1", 3);
    box.setText("153,79");
    EXPECT_EQ(rendered(Tipo::number, box), "153.79");
}

TEST(StatementBuilder, JoinsFieldsInTheirOrder) {
    FieldList fields;
    fields.Add("DPI_Z", Tipo::number, "38");
    fields.Add("DPI_NomCliente", Tipo::text, "D'ARCO");
    fields.Add("DPI_FAcepta", Tipo::expression, " getdate() ");
    EXPECT_EQ(buildInsert("DPI", fields).statement,
              "INSERT INTO DPI (DPI_Z,DPI_NomCliente,DPI_FAcepta) VALUES (38,N'D''ARCO', getdate() )");
    EXPECT_EQ(buildUpdate("DPI", fields, " Where DPI_Id = 7").statement,
              "UPDATE DPI SET DPI_Z=38,DPI_NomCliente=N'D''ARCO',DPI_FAcepta= getdate()  Where DPI_Id = 7");
}

TEST(StatementBuilder, WithoutFieldsThereIsNothingToWrite) {
    EXPECT_EQ(buildInsert("DPI", {}).statement, "");
    EXPECT_EQ(buildInsert("DPI", {}).error, "No hay campos que grabar");
    EXPECT_EQ(buildUpdate("DPI", {}, " Where DPI_Id = 7").error, "No hay campos que grabar");
}

}  // namespace
}  // namespace velmora::adapters
