#include "velmora/adapters/documents/grid_spreadsheet.h"

#include <algorithm>
#include <clocale>
#include <limits>

#include <dirent.h>

#include "velmora/adapters/documents/files.h"
#include "velmora/adapters/documents/grid_sheet.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

#include "support/command_output.h"
#include "support/fake_screen.h"
#include "support/fake_services.h"
#include "support/stopped_clock.h"
#include "support/temporary_folder.h"

namespace velmora::documents {
namespace {

using runtime::Date;
using screen::GridColumn;

/// Counts what it is told, and has had enough after so many times.
class Impatient final : public screen::Progress {
  public:
    Impatient(std::vector<std::string>& texts, std::size_t patience) : texts_(texts), patience_(patience) {}
    void show(std::string_view text, std::optional<double>) override { texts_.emplace_back(text); }
    bool cancelled() override { return texts_.size() >= patience_; }

  private:
    std::vector<std::string>& texts_;
    std::size_t patience_;
};

class WatchedScreen final : public support::ScriptedScreen {
  public:
    std::unique_ptr<screen::Progress> progress(std::string_view) override {
        return std::make_unique<Impatient>(told, patience);
    }
    std::vector<std::string> told;
    std::size_t patience = std::numeric_limits<std::size_t>::max();
};

/// Rows that nobody may count: the first `count` numbers, made when they are asked for.
class Numbers final : public sql::RowSource {
  public:
    explicit Numbers(std::size_t count) : count_(count) {}
    const std::vector<sql::Column>& columns() const override { return columns_; }
    bool hasRow(std::size_t position) override { return position < count_; }
    const sql::Row& row(std::size_t position) override {
        row_ = {static_cast<std::int64_t>(position + 1)};
        return row_;
    }
    std::size_t rowCount() override {
        ADD_FAILURE() << "the rows were counted";
        return count_;
    }
    std::unique_ptr<sql::RowSource> reopen() const override { return std::make_unique<Numbers>(count_); }

  private:
    std::size_t count_;
    std::vector<sql::Column> columns_{{"n"}};
    sql::Row row_;
};

/// Rows of a short text, the last one of a long one, that count how often each is read.
class Growing final : public sql::RowSource {
  public:
    explicit Growing(std::vector<std::size_t>& reads) : reads_(reads) {}
    const std::vector<sql::Column>& columns() const override { return columns_; }
    bool hasRow(std::size_t position) override { return position < reads_.size(); }
    const sql::Row& row(std::size_t position) override {
        ++reads_[position];
        row_ = {std::string(position + 1 == reads_.size() ? 60 : 3, 'x')};
        return row_;
    }
    std::size_t rowCount() override { return reads_.size(); }
    std::unique_ptr<sql::RowSource> reopen() const override { return nullptr; }

  private:
    std::vector<std::size_t>& reads_;
    std::vector<sql::Column> columns_{{"t"}};
    sql::Row row_;
};

std::size_t openFiles() {
    std::size_t count = 0;
    DIR* folder = ::opendir("/proc/self/fd");
    while (::readdir(folder) != nullptr) {
        ++count;
    }
    ::closedir(folder);
    return count;
}

class GridSpreadsheetTest : public ::testing::Test {
  protected:
    GridSpreadsheetTest() { component.setTitulo("Registro de presupuestos especiales"); }

    void writeGrid(const std::vector<GridColumn>& columns, std::vector<sql::Row> rows) {
        std::vector<sql::Column> names(rows.empty() ? 12 : rows.front().size(), sql::Column{"c"});
        sql::Recordset set(sql::rowsInMemory(names, std::move(rows)));
        writeSet(columns, set);
    }
    void writeSet(const std::vector<GridColumn>& columns, sql::Recordset& set) {
        grid.setColumns(columns);
        component.GridToExcel(set, grid);
    }
    /// What stands in the file that was opened, cells with a blank at their front, from the first row below the
    /// captions.
    std::string told(const std::string& only = {}) {
        if (all_.empty()) {
            all_ = support::outputOf("/usr/bin/python3 " VELMORA_TEST_DATA "/adapters/documents/read_xlsx.py '" +
                                     services.opened.at(0) + "'");
        }
        std::string lines;
        for (std::size_t at = 0; at < all_.size();) {
            const std::size_t end = all_.find('\n', at);
            const std::string line = all_.substr(at, end - at);
            if (only.empty() || line.starts_with(only)) {
                lines += line + "\n";
            }
            at = end + 1;
        }
        return lines;
    }
    /// The cell's line.
    std::string cell(const std::string& name) { return told(name + " "); }

    /// Of the columns of each sheet, in digits.
    std::vector<double> widths() {
        std::vector<double> all;
        const std::string lines = told("widths");
        for (std::size_t at = lines.find(' '); at != std::string::npos; at = lines.find(' ', at + 1)) {
            all.push_back(runtime::Val(std::string_view(lines).substr(at + 1)));
        }
        return all;
    }

    support::TemporaryFolder folder;
    support::FakeServices services{folder};
    support::StoppedClock clock;
    WatchedScreen screen;
    screen::Form form{"frm"};
    screen::DataGrid grid{form, "dbg"};
    GridSpreadsheet component{screen, services, clock};

  private:
    std::string all_;
};

TEST_F(GridSpreadsheetTest, IsNamedAfterTitleAndClockAndOpened) {
    writeGrid({{.field = 0, .caption = "Código"}}, {{1}});
    const std::string name = "Registro de presupuestos especiales 20260115 100000.xlsx";
    EXPECT_EQ(folder.files(), std::vector<std::string>{name});
    EXPECT_EQ(services.opened, std::vector<std::string>{services.folder + name});
}

TEST_F(GridSpreadsheetTest, TitleCaptionsFrozenHeaderAndFilter) {
    writeGrid({{.field = 1, .caption = "Año", .width = 1500, .right = true},
               {.field = 0, .caption = "oculta", .visible = false},
               {.field = 2, .caption = "Cliente", .width = 4500, .mask = {}}},
              {{1, 2024, "Muñoz"}, {2, 2025, "Ibáñez"}});
    EXPECT_EQ(told("sheet") + told("formulas") + told("A") + told("B"),
              "sheet 'Registro de presupuestos especi' rows=5 freeze=A4 filter=A3:B5\n"
              "formulas 0\n"
              "A1 s 'Registro de presupuestos especiales' [General] bold\n"
              "A2 s 'Exportado el 15/01/2026 10:00' [General]\n"
              "A3 s 'Año' [General] bold right\n"
              "A4 n 2024 [General] right\n"
              "A5 n 2025 [General] right\n"
              "B3 s 'Cliente' [General] bold\n"
              "B4 s 'Muñoz' [General]\n"
              "B5 s 'Ibáñez' [General]\n");
}

TEST_F(GridSpreadsheetTest, AColumnIsAsWideAsItsLongestTextWhateverTheGridsWidth) {
    const std::string name = "MAQUINARIA TRIGOVERDÍN Y COMPAÑÍA SA";
    writeGrid(
        {{.field = 0, .caption = "Cliente", .width = 300},
         {.field = 1, .caption = "Z", .width = 9000},
         {.field = 2, .caption = "Referencia del cliente", .width = 300},
         {.field = 3, .caption = "L", .width = 300}},
        {{"ANA", "a", "x", "corta\nuna linea larga de dos\nfin"}, {name, "bb", "y", "z"}, {"BEA", "c", "z", "z"}});
    ASSERT_EQ(widths().size(), 4u);
    EXPECT_GE(widths()[0], 36);
    EXPECT_LE(widths()[0], 36 * 1.6);
    EXPECT_LE(widths()[1], 6) << "the grid's width is not the sheet's";
    EXPECT_GE(widths()[2], 22) << "a caption counts";
    EXPECT_GE(widths()[3], 22);
    EXPECT_LE(widths()[3], 30) << "of several lines the longest counts";
}

TEST_F(GridSpreadsheetTest, AColumnHasABound) {
    writeGrid({{.field = 0, .caption = "t"}, {.field = 1, .caption = std::string(400, 'c')}},
              {{std::string(30'000, 'm'), "x"}, {"", ""}});
    EXPECT_NEAR(widths().at(0), 80, 1);
    EXPECT_NEAR(widths().at(1), 80, 1);
}

TEST_F(GridSpreadsheetTest, NumbersAndDatesHaveRoomToBeReadWhole) {
    const Date moment = Date::of(2026, 1, 15, 18, 30, 0);
    writeGrid({{.field = 0, .caption = "€", .width = 15, .mask = "#,##0.00"},
               {.field = 1, .caption = "€", .width = 15, .mask = "#,##0.00 €"},
               {.field = 2, .caption = "n", .width = 15},
               {.field = 3, .caption = "d", .width = 15, .mask = "dd/mm/yyyy"},
               {.field = 4, .caption = "m", .width = 15},
               {.field = 5, .caption = "b", .width = 15}},
              {{1.0, 5.0, std::int64_t{1234567890}, moment, moment, true},
               {99999999.99, -99999999.99, 7, moment, moment, true},
               {2.0, 6.0, 0.1234567890123, moment, moment, false}});
    EXPECT_GE(widths().at(0), 13);
    EXPECT_GE(widths().at(1), 16);
    EXPECT_GE(widths().at(2), 11);
    EXPECT_GE(widths().at(3), 10);
    EXPECT_GE(widths().at(4), 19);
    EXPECT_GE(widths().at(5), 9);
    for (const double width : widths()) {
        EXPECT_LE(width, 24);
    }
}

TEST_F(GridSpreadsheetTest, TheLastOfManyRowsCountsAndNoRowIsReadTwice) {
    constexpr std::size_t count = 2500;
    std::vector<std::size_t> reads(count);
    sql::Recordset list(std::make_unique<Growing>(reads));
    writeSet({{.field = 0, .caption = "n"}}, list);
    EXPECT_GE(widths().at(0), 60);
    EXPECT_LE(*std::ranges::max_element(reads), 1u);
}

TEST_F(GridSpreadsheetTest, ColumnsStandInTheOrderOfTheGrid) {
    writeGrid({{.field = 2, .caption = "c"}, {.field = 0, .caption = "a"}, {.field = 1, .caption = "b"}}, {{1, 2, 3}});
    EXPECT_EQ(cell("A4") + cell("B4") + cell("C4"), "A4 n 3 [General]\nB4 n 1 [General]\nC4 n 2 [General]\n");
}

TEST_F(GridSpreadsheetTest, ValuesKeepTheirKindAndBearTheMaskOfTheGrid) {
    const std::vector<GridColumn> columns{
        {.field = 0, .caption = "nº", .mask = "000000"},
        {.field = 1, .caption = "€", .mask = "#,##0.00", .right = true},
        {.field = 2, .caption = "día", .mask = "dd/mm/yyyy"},
        {.field = 3, .caption = "sí", .mask = "Yes/No"},
        {.field = 4, .caption = "bit"},
        {.field = 5, .caption = "momento"},
        {.field = 6, .caption = "fecha"},
        {.field = 7, .caption = "texto"},
    };
    const Date moment = Date::of(2026, 1, 15, 18, 30, 0);
    writeGrid(columns, {{7, 1234.5, moment, true, true, moment, Date::of(2024, 2, 29), "x"},
                        {8, -0.015, Date::of(2026, 1, 16), false, false, moment, Date::of(2024, 2, 29), "y"}});
    EXPECT_EQ(cell("A4"), "A4 n 7 [000000]\n");
    EXPECT_EQ(cell("B4"), "B4 n 1234.5 [#,##0.00] right\n");
    EXPECT_EQ(cell("B5"), "B5 n -0.015 [#,##0.00] right\n");
    EXPECT_EQ(cell("C4"), "C4 d 2026-01-15 18:30:00 [dd/mm/yyyy]\n");
    EXPECT_EQ(cell("D4"), "D4 n 1 [\"Sí\";\"Sí\";\"No\"]\n");
    EXPECT_EQ(cell("D5"), "D5 n 0 [\"Sí\";\"Sí\";\"No\"]\n");
    EXPECT_EQ(cell("E4"), "E4 b True [General]\n");
    EXPECT_EQ(cell("E5"), "E5 b False [General]\n");
    EXPECT_EQ(cell("F4"), "F4 d 2026-01-15 18:30:00 [dd/mm/yyyy hh:mm:ss]\n");
    EXPECT_EQ(cell("G4"), "G4 d 2024-02-29 00:00:00 [dd/mm/yyyy]\n");
    EXPECT_EQ(cell("H4"), "H4 s 'x' [General]\n");
}

TEST_F(GridSpreadsheetTest, ATextThatTheGridShowsAsANumberOrADateIsOne) {
    writeGrid({{.field = 0, .caption = "n", .mask = "0.00"},
               {.field = 1, .caption = "d", .mask = "dd/mm/yyyy"},
               {.field = 2, .caption = "t"},
               {.field = 0, .caption = "y", .mask = "Yes/No"}},
              {{"1.234,5", "15/01/2026", "1.234,5"}, {"doce", "ayer", "0012"}});
    EXPECT_EQ(cell("A4") + cell("B4") + cell("C4") + cell("D4"),
              "A4 n 1234.5 [0.00]\nB4 d 2026-01-15 00:00:00 [dd/mm/yyyy]\nC4 s '1.234,5' [General]\n"
              "D4 n 1 [\"Sí\";\"Sí\";\"No\"]\n");
    EXPECT_EQ(cell("A5") + cell("B5") + cell("C5"),
              "A5 s 'doce' [0.00]\nB5 s 'ayer' [dd/mm/yyyy]\nC5 s '0012' [General]\n");
}

TEST_F(GridSpreadsheetTest, NullsAndWhatASheetCannotHoldAreNoNumbers) {
    const std::vector<GridColumn> columns{{.field = 0, .caption = "n", .mask = "0.00"},
                                          {.field = 1, .caption = "d", .mask = "dd/mm/yyyy"},
                                          {.field = 2, .caption = "w"},
                                          {.field = 9, .caption = "none"}};
    writeGrid(columns, {{sql::Value(), sql::Value(), sql::Value()},
                        {1, Date::of(1900, 2, 28), std::int64_t{9007199254740993}},
                        {2, Date::of(1900, 3, 1), sql::Bytes{std::byte{1}}},
                        {2, -5.0, ""}});
    EXPECT_EQ(told("A4 ") + told("B4 ") + told("C4 ") + told("D4 "), "");
    EXPECT_EQ(cell("B5"), "B5 s '28/02/1900' [dd/mm/yyyy]\n");
    EXPECT_EQ(cell("C5"), "C5 s '9007199254740993' [General]\n");
    EXPECT_EQ(cell("B6"), "B6 d 1900-03-01 00:00:00 [dd/mm/yyyy]\n");
    EXPECT_EQ(cell("C6"), "");
    EXPECT_EQ(cell("B7"), "B7 s '-5' [dd/mm/yyyy]\n");
}

TEST_F(GridSpreadsheetTest, ATextThatBeginsLikeAFormulaStaysAText) {
    writeGrid({{.field = 0, .caption = "=1+1"}}, {{"=SUM(A1:A9)"}, {"+34 600"}, {"@x"}, {"http://example.org"}});
    EXPECT_EQ(cell("A3"), "A3 s '=1+1' [General] bold\n");
    // The reader takes the sign for a formula's; the file holds none.
    EXPECT_EQ(told("formulas"), "formulas 0\n");
    EXPECT_NE(cell("A4").find("'=SUM(A1:A9)'"), std::string::npos) << cell("A4");
    EXPECT_EQ(cell("A5"), "A5 s '+34 600' [General]\n");
    EXPECT_EQ(cell("A7"), "A7 s 'http://example.org' [General]\n");
}

TEST_F(GridSpreadsheetTest, TextsOfSeveralLinesBrokenBytesAndMarkupComeThrough) {
    writeGrid({{.field = 0, .caption = "t"}},
              {{"uno\r\ndos"}, {"<b>&\"ñ€😀\""}, {std::string("a\xFFz")}, {std::string("b\0z", 3)}, {"ñ\xC3"}});
    EXPECT_EQ(cell("A4"), "A4 s 'uno\\ndos' [General]\n");
    EXPECT_EQ(cell("A5"), "A5 s '<b>&\"ñ€😀\"' [General]\n");
    EXPECT_EQ(cell("A6"), "A6 s 'a\xEF\xBF\xBDz' [General]\n");
    EXPECT_EQ(cell("A7"), "A7 s 'bz' [General]\n");
    EXPECT_EQ(cell("A8"), "A8 s 'ñ\xEF\xBF\xBD' [General]\n");
}

TEST_F(GridSpreadsheetTest, NoCharacterSpoilsTheFile) {
    component.setTitulo("Lista \x01\xEF\xBF\xBF");
    writeGrid(
        {{.field = 0, .caption = "c\xEF\xBF\xBE\x02"}},
        {{"a\xEF\xBF\xBEz"}, {"b\xEF\xBF\xBFz"}, {"c\xED\xA0\x80z"}, {"d\x01\x1Fz"}, {"e\xF4\x8F\xBF\xBFz"}, {"f\tz"}});
    const std::string unknown = "\xEF\xBF\xBD";
    EXPECT_EQ(cell("A3"), "A3 s 'c" + unknown + " ' [General] bold\n");
    EXPECT_EQ(cell("A4"), "A4 s 'a" + unknown + "z' [General]\n");
    EXPECT_EQ(cell("A5"), "A5 s 'b" + unknown + "z' [General]\n");
    EXPECT_TRUE(cell("A6").starts_with("A6 s 'c" + unknown)) << cell("A6");
    EXPECT_EQ(cell("A7"), "A7 s 'd  z' [General]\n");
    EXPECT_EQ(cell("A8"), "A8 s 'e" + unknown + "z' [General]\n");
    EXPECT_EQ(cell("A9"), "A9 s 'f\\tz' [General]\n");
}

TEST_F(GridSpreadsheetTest, ATextTooLongForACellIsCutAndSaysSo) {
    std::string fits;
    for (int i = 0; i < 32767; ++i) {
        fits += "ñ";
    }
    writeGrid({{.field = 0, .caption = "t"}}, {{fits}, {fits + "x"}, {std::string(32767, 'a') + "b"}});
    EXPECT_EQ(cell("A4"), "A4 s '" + fits + "' [General]\n");
    EXPECT_EQ(cell("A5"), "A5 s '" + fits.substr(2) + "…' [General]\n");
    EXPECT_EQ(cell("A6"), "A6 s '" + std::string(32766, 'a') + "…' [General]\n");
}

TEST_F(GridSpreadsheetTest, NoRowsIsASheetWithCaptions) {
    writeGrid({{.field = 0, .caption = "Código"}, {.field = 1, .caption = "Cliente"}}, {});
    EXPECT_EQ(told("sheet") + told("A3") + told("B3") + told("A4"),
              "sheet 'Registro de presupuestos especi' rows=3 freeze=A4 filter=A3:B3\n"
              "A3 s 'Código' [General] bold\nB3 s 'Cliente' [General] bold\n");
}

TEST_F(GridSpreadsheetTest, NumbersHavePointsUnderTheLocaleOfTheUser) {
    // As a screen toolkit does when it starts.
    const std::string before = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "es_ES.UTF-8"), nullptr);
    writeGrid({{.field = 0, .caption = "n", .width = 1010}}, {{1.5}});
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(cell("A4"), "A4 n 1.5 [General]\n");
}

TEST_F(GridSpreadsheetTest, TheClonesCursorIsMovedAndTheListsIsNot) {
    sql::Recordset list(std::make_unique<Numbers>(3));
    list.moveTo(1);
    sql::Recordset clone = list.clone();
    writeSet({{.field = 0, .caption = "n"}}, clone);
    EXPECT_EQ(list.position(), 1u);
    EXPECT_EQ(cell("A4") + cell("A6"), "A4 n 1 [General]\nA6 n 3 [General]\n");
}

TEST_F(GridSpreadsheetTest, ALongListTellsHowFarItIsAndIsNeverCounted) {
    sql::Recordset list(std::make_unique<Numbers>(2500));
    writeSet({{.field = 0, .caption = "n"}}, list);
    EXPECT_EQ(screen.told,
              (std::vector<std::string>{"1.000 filas escritas", "2.000 filas escritas", "Guardando el fichero…"}));
    EXPECT_EQ(services.opened.size(), 1u);
}

TEST_F(GridSpreadsheetTest, ACancelledExportLeavesNothing) {
    const std::size_t before = openFiles();
    screen.patience = 2;
    sql::Recordset list(std::make_unique<Numbers>(100'000));
    writeSet({{.field = 0, .caption = "n"}}, list);
    EXPECT_EQ(screen.told.size(), 2u);
    EXPECT_EQ(folder.files(), std::vector<std::string>());
    EXPECT_TRUE(services.opened.empty());
    EXPECT_EQ(openFiles(), before);
}

TEST_F(GridSpreadsheetTest, AFolderThatCannotBeWrittenIsAnErrorThatNamesTheFile) {
    services.folder += "missing/";
    try {
        writeGrid({{.field = 0, .caption = "n"}}, {{1}});
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& e) {
        EXPECT_EQ(e.number(), 75);
        EXPECT_NE(e.description().find(services.folder), std::string::npos) << e.description();
    }
    EXPECT_TRUE(services.opened.empty());
}

TEST_F(GridSpreadsheetTest, WithoutATitleItIsAList) {
    component.setTitulo("");
    writeGrid({{.field = 0, .caption = "n"}}, {{1}});
    EXPECT_EQ(folder.files(), std::vector<std::string>{"Listado 20260115 100000.xlsx"});
    EXPECT_EQ(told("sheet"), "sheet 'Hoja' rows=4 freeze=A4 filter=A3:A4\n");
}

TEST_F(GridSpreadsheetTest, WhatASheetCannotHoldGoesOnInTheNext) {
    const std::string path = services.folder + "a.xlsx";
    {
        sql::Recordset list(std::make_unique<Numbers>(5));
        Workbook book(path, services.folder);
        GridSheet sheet(book, {.title = "It's: [un] 'título' muy, muy largo '", .written = clock.now()},
                        {{.field = 0, .caption = "n"}}, 5);
        EXPECT_TRUE(sheet.write(list, [](std::size_t) { return true; }));
        book.close();
    }
    services.opened = {path};
    EXPECT_EQ(told("sheet"),
              "sheet \"It's   un  'título' muy, muy la\" rows=5 freeze=A4 filter=A3:A5\n"
              "sheet \"It's   un  'título' muy, mu (2)\" rows=5 freeze=A4 filter=A3:A5\n"
              "sheet \"It's   un  'título' muy, mu (3)\" rows=4 freeze=A4 filter=A3:A4\n");
    EXPECT_EQ(told("A4") + told("A5"),
              "A4 n 1 [General]\nA4 n 3 [General]\nA4 n 5 [General]\nA5 n 2 [General]\nA5 n 4 [General]\n");
}

}  // namespace
}  // namespace velmora::documents
